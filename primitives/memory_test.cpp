// The allocator: alignment, steps, and sizes that cannot be had.
#include "primitives/memory.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

namespace brushworks {
namespace {

template <class Sample>
void ExpectImage(Sample* (*allocate)(int, int, int*), int channels) {
    SCOPED_TRACE(::testing::Message() << channels << " of " << sizeof(Sample));
    const int pixelBytes = channels * int{sizeof(Sample)};
    for (const int width : {1, 16, 17, 1920}) {
        int step = 0;
        Sample* image = allocate(width, 3, &step);
        ASSERT_NE(image, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(image) % 64, 0u);
        EXPECT_EQ(step % 64, 0);
        EXPECT_GE(step, width * pixelBytes);
        std::memset(image, 1, static_cast<std::size_t>(step) * 3);
        ippiFree(image);
    }
    int step = 5;
    const struct {
        int width, height;
    } impossible[] = {{0, 1}, {1, 0}, {-1, 1}, {1, -1}, {INT_MAX, 1}, {INT_MAX / 64, INT_MAX}};
    for (const auto& size : impossible)
        EXPECT_EQ(allocate(size.width, size.height, &step), nullptr)
            << size.width << " x " << size.height;
    EXPECT_EQ(allocate(1, 1, nullptr), nullptr);
    EXPECT_EQ(step, 5) << "a failure leaves the step alone";
}

TEST(Memory, Images) {
    ExpectImage(ippiMalloc_8u_C1, 1);
    ExpectImage(ippiMalloc_8u_C2, 2);
    ExpectImage(ippiMalloc_8u_C3, 3);
    ExpectImage(ippiMalloc_8u_C4, 4);
    ExpectImage(ippiMalloc_16u_C1, 1);
    ExpectImage(ippiMalloc_16u_C2, 2);
    ExpectImage(ippiMalloc_16u_C3, 3);
    ExpectImage(ippiMalloc_16u_C4, 4);
    ExpectImage(ippiMalloc_32f_C4, 4);
    ippiFree(nullptr);
}

TEST(Memory, Vectors) {
    for (const int length : {1, 64, 1000}) {
        std::uint8_t* vector = ippsMalloc_8u(length);
        ASSERT_NE(vector, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(vector) % 64, 0u);
        std::memset(vector, 1, static_cast<std::size_t>(length));
        ippsFree(vector);
    }
    EXPECT_EQ(ippsMalloc_8u(0), nullptr);
    EXPECT_EQ(ippsMalloc_8u(-1), nullptr);
    ippsFree(nullptr);
}

}  // namespace
}  // namespace brushworks
