// The copies against loops written for reading, in every variant.
#include "primitives/copy.h"

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;
using testing::kEdgeSizes;

TEST(Copy, WholePixels8u) {
    ForEachVariant([](Variant) {
        for (const IppiSize size : kEdgeSizes) {
            GuardedImage<std::uint8_t> src(size, 4, 20), dst(size, 4), expected(size, 4);
            src.Randomize(1);
            dst.Randomize(2);
            for (int y = 0; y < size.height; ++y)
                for (int x = 0; x < size.width; ++x)
                    for (int c = 0; c < 4; ++c) expected.at(x, y, c) = src.at(x, y, c);
            ASSERT_EQ(ippiCopy_8u_C4R(src.data(), src.step(), dst.data(), dst.step(), size),
                      kStatusOk);
            ASSERT_TRUE(dst == expected) << size.width << " x " << size.height;
        }
    });
}

}  // namespace
}  // namespace brushworks
