// The search, in every variant.
#include "primitives/search.h"

#include <algorithm>
#include <climits>

#include "primitives/testing.h"

namespace brushworks {
namespace {

TEST(Search, FirstOfTheLargest) {
    testing::ForEachVariant([](Variant) {
        for (const int length : {1, 2, 17, 255, 256, 257, 512, 513, 5000})
            // A small range makes equal values likely, the full one makes them rare.
            for (const std::uint32_t range : {1u, 7u, 0u}) {
                testing::GuardedImage<std::int32_t> vector({length, 1}, 1);
                vector.Randomize(static_cast<unsigned>(length));
                std::int32_t* first = vector.data();
                if (range != 0)
                    for (int i = 0; i < length; ++i)
                        first[i] =
                            static_cast<std::int32_t>(static_cast<std::uint32_t>(first[i]) % range);
                const auto expected = std::max_element(first, first + length);
                std::int32_t largest = 0;
                int index = -1;
                ASSERT_EQ(ippsMaxIndx_32s(first, length, &largest, &index), kStatusOk);
                EXPECT_EQ(index, expected - first) << length << ", range " << range;
                EXPECT_EQ(largest, *expected);
            }
        const std::int32_t least[3] = {INT_MIN, INT_MIN, INT_MIN};
        std::int32_t largest = 0;
        int index = -1;
        ASSERT_EQ(ippsMaxIndx_32s(least, 3, &largest, &index), kStatusOk);
        EXPECT_EQ(index, 0);
        EXPECT_EQ(largest, INT_MIN);
    });
}

TEST(Search, Statuses) {
    const std::int32_t vector[1] = {3};
    std::int32_t largest = 5;
    int index = 5;
    EXPECT_EQ(ippsMaxIndx_32s(nullptr, 0, &largest, &index), kStatusNullPointer);
    EXPECT_EQ(ippsMaxIndx_32s(vector, 0, nullptr, &index), kStatusNullPointer);
    EXPECT_EQ(ippsMaxIndx_32s(vector, 0, &largest, nullptr), kStatusNullPointer);
    EXPECT_EQ(ippsMaxIndx_32s(vector, 0, &largest, &index), kStatusSizeError);
    EXPECT_EQ(largest, 5);
    EXPECT_EQ(index, 5);
}

}  // namespace
}  // namespace brushworks
