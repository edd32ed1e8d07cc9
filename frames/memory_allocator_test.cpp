// The allocator's choice between the host and the primitives.
#include "frames/memory_allocator.h"

#include <gtest/gtest.h>

#include "frames/testing_host.h"

namespace brushworks {
namespace {

TEST(MemoryAllocator, RefusesBeforeTheHostIsAsked) {
    testing::CountingAllocator lender;
    testing::TestHost host(&lender);
    MemoryAllocator allocator(&host);
    std::uint8_t* buffer = nullptr;
    int span = 0;
    EXPECT_FALSE(allocator.AllocatePicture(nullptr, 1, 1, 4, &span));
    EXPECT_FALSE(allocator.AllocatePicture(&buffer, 1, 1, 4, nullptr));
    EXPECT_FALSE(allocator.AllocatePicture(&buffer, 0, 1, 4, &span));
    EXPECT_FALSE(allocator.AllocatePicture(&buffer, 1, -1, 4, &span));
    EXPECT_FALSE(allocator.AllocatePicture(&buffer, 1, 1, 0, &span));
    EXPECT_EQ(lender.lent, 0);
    // Any depth is the host's to serve.
    ASSERT_TRUE(allocator.AllocatePicture(&buffer, 3, 3, 5, &span));
    lender.FreePicture(buffer);
    EXPECT_EQ(lender.out, 0);
}

TEST(MemoryAllocator, HelperPairsBlocksByTheirPath) {
    void* block = &block;
    MemoryAllocatorHelper plain(nullptr);
    EXPECT_FALSE(plain.Allocate(&block, 0));
    EXPECT_EQ(block, &block);
    EXPECT_FALSE(plain.Allocate(nullptr, 8));
    ASSERT_TRUE(plain.Allocate(&block, 8));
    plain.Free(block);
    plain.Free(nullptr);

    testing::CountingAllocator lender;
    testing::TestHost host(&lender);
    MemoryAllocator allocator(&host);
    MemoryAllocatorHelper hosted(&allocator);
    ASSERT_TRUE(hosted.Allocate(&block, 8));
    EXPECT_EQ(lender.out, 1);
    hosted.Free(block);
    EXPECT_EQ(lender.out, 0);
    lender.refuseAfter = 0;
    EXPECT_FALSE(hosted.Allocate(&block, 8));
    EXPECT_EQ(block, nullptr);
}

}  // namespace
}  // namespace brushworks
