// The widening copies, in every variant.
#include "primitives/border.h"

#include <algorithm>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::GuardedImage;

struct Border {
    int top, left, bottom, right;
};
constexpr Border kBorders[] = {{0, 0, 0, 0}, {2, 2, 2, 2}, {1, 0, 0, 3}, {0, 37, 5, 0}};

using BorderFunction = decltype(&ippiCopyReplicateBorder_8u_C1R);
constexpr struct {
    int channels;
    BorderFunction widen;
} kMembers[] = {{1, ippiCopyReplicateBorder_8u_C1R},
                {3, ippiCopyReplicateBorder_8u_C3R},
                {4, ippiCopyReplicateBorder_8u_C4R}};

/// Every destination pixel takes the source pixel at its own place, moved into the source.
void Expect(const GuardedImage<std::uint8_t>& src, const GuardedImage<std::uint8_t>& dst,
            Border border) {
    for (int y = 0; y < dst.size().height; ++y)
        for (int x = 0; x < dst.size().width; ++x)
            for (int c = 0; c < dst.channels(); ++c)
                ASSERT_EQ(dst.at(x, y, c),
                          src.at(std::clamp(x - border.left, 0, src.size().width - 1),
                                 std::clamp(y - border.top, 0, src.size().height - 1), c))
                    << x << ", " << y;
    EXPECT_TRUE(dst.GuardsIntact());
}

TEST(Border, RepeatsTheEdge) {
    testing::ForEachVariant([](Variant) {
        for (const auto& member : kMembers)
            for (const IppiSize size : testing::kEdgeSizes)
                for (const Border& b : kBorders) {
                    const IppiSize wide{size.width + b.left + b.right,
                                        size.height + b.top + b.bottom};
                    GuardedImage<std::uint8_t> src(size, member.channels),
                        dst(wide, member.channels);
                    src.Randomize(1);
                    ASSERT_EQ(member.widen(src.data(), src.step(), size, dst.data(), dst.step(),
                                           wide, b.top, b.left),
                              kStatusOk);
                    Expect(src, dst, b);
                }
    });
}

TEST(Border, GrowsAroundASourceInPlace) {
    testing::ForEachVariant([](Variant) {
        for (const auto& member : kMembers) {
            const IppiSize size{21, 7};
            const Border b{2, 3, 1, 4};
            const IppiSize wide{size.width + b.left + b.right, size.height + b.top + b.bottom};
            GuardedImage<std::uint8_t> dst(wide, member.channels), src(size, member.channels);
            dst.Randomize(1);
            for (int y = 0; y < size.height; ++y)
                std::copy_n(&dst.at(b.left, y + b.top), size.width * member.channels, src.row(y));
            ASSERT_EQ(member.widen(&dst.at(b.left, b.top), dst.step(), size, dst.data(), dst.step(),
                                   wide, b.top, b.left),
                      kStatusOk);
            Expect(src, dst, b);
        }
    });
}

TEST(Border, Statuses) {
    std::uint8_t src[16] = {}, dst[64] = {7};
    const IppiSize two{2, 2}, four{4, 4};
    const auto call = [&](int srcStep, IppiSize srcSize, int dstStep, IppiSize dstSize, int top,
                          int left) {
        return ippiCopyReplicateBorder_8u_C4R(src, srcStep, srcSize, dst, dstStep, dstSize, top,
                                              left);
    };
    EXPECT_EQ(ippiCopyReplicateBorder_8u_C4R(nullptr, 0, {0, 0}, dst, 0, {0, 0}, -1, -1),
              kStatusNullPointer);
    EXPECT_EQ(call(8, {0, 2}, 16, four, 1, 1), kStatusSizeError);
    EXPECT_EQ(call(7, two, 16, {4, 0}, 1, 1), kStatusSizeError) << "sizes before steps";
    EXPECT_EQ(call(7, two, 16, four, 1, 1), kStatusStepError);
    EXPECT_EQ(call(8, two, 15, four, 1, 1), kStatusStepError);
    EXPECT_EQ(call(8, two, 16, four, -1, 1), kStatusBadArgument);
    EXPECT_EQ(call(8, two, 16, four, 1, -1), kStatusBadArgument);
    EXPECT_EQ(call(8, two, 16, four, 3, 1), kStatusBadArgument) << "no room below";
    EXPECT_EQ(call(8, two, 16, four, 1, 3), kStatusBadArgument) << "no room to the right";
    EXPECT_EQ(dst[0], 7);
}

}  // namespace
}  // namespace brushworks
