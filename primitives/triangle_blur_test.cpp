// The triangle blur against sums over all taps, in every variant.
#include "primitives/triangle_blur.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;
using Bytes = GuardedImage<std::uint8_t>;

constexpr int kInset = 2;

/// The nearest place that is not a repeat.
int Inner(int place, int length) {
    const int margin = std::min(kInset, (length - 1) / 2);
    return std::clamp(place, margin, length - 1 - margin);
}

/// One axis of the blur, tap by tap. `across` is 1 along rows and 0 along columns.
Bytes BlurAxis(const Bytes& src, int taps, int across) {
    const IppiSize size = src.size();
    Bytes dst(size, src.channels());
    int divisor = 0;
    for (int i = 0; i < taps; ++i) divisor += std::min(i + 1, taps - i);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < src.channels(); ++c) {
                int sum = 0;
                for (int i = 0; i < taps; ++i) {
                    const int offset = i - (taps - 1 - taps / 2);
                    // The centre of an output that is a repeat lies further in, along columns.
                    const int cy = across ? y : Inner(y, size.height);
                    sum += std::min(i + 1, taps - i) *
                           src.at(Inner(x + offset * across, size.width),
                                  Inner(cy + offset * (1 - across), size.height), c);
                }
                const float mean = static_cast<float>(sum) * (1.0f / static_cast<float>(divisor));
                dst.at(x, y, c) = static_cast<std::uint8_t>(std::nearbyint(mean));
            }
    return dst;
}

using Blur = decltype(&TriangleBlur_8u_C1R);
constexpr struct {
    Blur blur;
    int channels;
    bool keepsFourth;
} kMembers[] = {{TriangleBlur_8u_C1R, 1, false},
                {TriangleBlur_8u_C4R, 4, false},
                {TriangleBlur_8u_AC4R, 4, true}};

void ExpectTapByTap(IppiSize size, IppiSize triangle) {
    for (const auto& member : kMembers) {
        Bytes src(size, member.channels), dst(size, member.channels);
        src.Randomize(1);
        dst.Randomize(2);
        Bytes expected = BlurAxis(BlurAxis(src, triangle.height, 0), triangle.width, 1);
        if (member.keepsFourth)
            for (int y = 0; y < size.height; ++y)
                for (int x = 0; x < size.width; ++x) expected.at(x, y, 3) = dst.at(x, y, 3);
        const std::size_t ints = TriangleBlurWorkInts(size.width, member.channels);
        testing::FencedBytes work(ints * sizeof(std::int32_t));
        ForEachVariant([&](Variant) {
            ASSERT_EQ(member.blur(src.data(), src.step(), dst.data(), dst.step(), size, triangle,
                                  kInset, reinterpret_cast<std::int32_t*>(work.data())),
                      kStatusOk);
            ASSERT_TRUE(dst == expected)
                << size.width << " x " << size.height << ", triangle " << triangle.width << " x "
                << triangle.height << ", channels " << member.channels;
        });
    }
}

TEST(TriangleBlur, MatchesSumsOverAllTaps) {
    for (const IppiSize size : testing::kEdgeSizes) {
        ExpectTapByTap(size, {1, 1});
        ExpectTapByTap(size, {2, 5});
        ExpectTapByTap(size, {9, 4});
    }
    // Divisors that are powers of 2, where ties occur.
    ExpectTapByTap({37, 29}, {3, 2});
    ExpectTapByTap({37, 29}, {7, 15});
    ExpectTapByTap({61, 40}, {31, 60});
}

TEST(TriangleBlur, TrianglesLargerThanTheImage) {
    for (const IppiSize size : {IppiSize{1, 1}, {2, 4}, {5, 3}, {33, 17}}) {
        ExpectTapByTap(size, {40, 77});
        ExpectTapByTap(size, {kLargestTriangle, kLargestTriangle - 1});
    }
}

TEST(TriangleBlur, TheLargestSumsStayWhite) {
    Bytes src({40, 9}, 1), dst({40, 9}, 1);
    for (int y = 0; y < 9; ++y) std::fill_n(src.row(y), 40, std::uint8_t{255});
    std::vector<std::int32_t> work(TriangleBlurWorkInts(40, 1));
    ForEachVariant([&](Variant) {
        for (int n = 1; n <= kLargestTriangle; n += n < 40 ? 1 : 37) {
            ASSERT_EQ(TriangleBlur_8u_C1R(src.data(), src.step(), dst.data(), dst.step(), {40, 9},
                                          {n, n}, kInset, work.data()),
                      kStatusOk);
            ASSERT_TRUE(dst == src) << n;
        }
    });
}

TEST(TriangleBlur, RefusesBadArguments) {
    const std::uint8_t src[4] = {};
    std::uint8_t dst[4] = {7};
    std::vector<std::int32_t> work(TriangleBlurWorkInts(1, 4));
    const auto status = [&](int step, IppiSize triangle, int inset, std::int32_t* memory) {
        return TriangleBlur_8u_C4R(src, step, dst, 4, {1, 1}, triangle, inset, memory);
    };
    EXPECT_EQ(status(4, {3, 3}, 2, nullptr), kStatusNullPointer);
    EXPECT_EQ(status(3, {0, 0}, -1, work.data()), kStatusStepError);
    EXPECT_EQ(status(4, {0, 3}, 2, work.data()), kStatusBadArgument);
    EXPECT_EQ(status(4, {3, kLargestTriangle + 1}, 2, work.data()), kStatusBadArgument);
    EXPECT_EQ(status(4, {3, 3}, -1, work.data()), kStatusBadArgument);
    EXPECT_EQ(dst[0], 7);
}

}  // namespace
}  // namespace brushworks
