// Premultiplication and compositing against their formulas for one sample, in every variant.
#include "primitives/alpha.h"

#include <algorithm>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::GuardedImage;

int Over255(int t) {
    return (t + (t >> 8) + 1) >> 8;
}

TEST(Alpha, PremultipliesEveryPairOfBytes) {
    testing::ForEachVariant([](Variant) {
        const IppiSize square{256, 256};
        GuardedImage<std::uint8_t> image(square, 4), expected(square, 4);
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x)
                for (int c = 0; c < 4; ++c) {
                    const int sample = (x + 85 * c) % 256;
                    image.at(x, y, c) = static_cast<std::uint8_t>(c == 3 ? y : sample);
                    expected.at(x, y, c) =
                        static_cast<std::uint8_t>(c == 3 ? y : Over255(sample * y));
                }
        ASSERT_EQ(
            ippiAlphaPremul_8u_AC4R(image.data(), image.step(), image.data(), image.step(), square),
            kStatusOk);
        ASSERT_TRUE(image == expected);
    });
}

TEST(Alpha, PremultipliesInEdgeSizes) {
    testing::ExpectPerPixel<std::uint8_t, std::uint8_t>(
        "Premul", {4}, {4, 20}, ippiAlphaPremul_8u_AC4R,
        [](const std::uint8_t* from, std::uint8_t* to) {
            for (int c = 0; c < 3; ++c)
                to[c] = static_cast<std::uint8_t>(Over255(from[c] * from[3]));
            to[3] = from[3];
        });
}

void CompositePixel(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* dst,
                    int operation) {
    const int t = Over255(b[3] * (255 - a[3]));
    for (int c = 0; c < 3; ++c) {
        const int sum = operation == kAlphaOver ? Over255(a[3] * a[c]) + Over255(t * b[c])
                                                : a[c] + Over255(b[c] * (255 - a[3]));
        dst[c] = static_cast<std::uint8_t>(std::min(255, sum));
    }
    dst[3] = static_cast<std::uint8_t>(std::min(255, a[3] + t));
}

// The destination is an image of its own, or either operand.
TEST(Alpha, Composites) {
    enum class Target { own, first, second };
    testing::ForEachVariant([](Variant) {
        for (const int operation : {kAlphaOver, kAlphaOverPremultiplied})
            for (const Target target : {Target::own, Target::first, Target::second})
                for (const IppiSize size : testing::kEdgeSizes) {
                    GuardedImage<std::uint8_t> a(size, 4, 0), b(size, 4, 20), own(size, 4);
                    a.Randomize(1);
                    b.Randomize(2);
                    // Opaque and clear pixels are rare among random ones.
                    a.at(0, 0, 3) = 255;
                    b.at(size.width - 1, size.height - 1, 3) = 255;
                    a.at(size.width / 2, 0, 3) = 0;
                    GuardedImage<std::uint8_t>& dst = target == Target::own     ? own
                                                      : target == Target::first ? a
                                                                                : b;
                    auto expected = dst;
                    for (int y = 0; y < size.height; ++y)
                        for (int x = 0; x < size.width; ++x)
                            CompositePixel(&a.at(x, y), &b.at(x, y), &expected.at(x, y), operation);
                    ASSERT_EQ(ippiAlphaComp_8u_AC4R(a.data(), a.step(), b.data(), b.step(),
                                                    dst.data(), dst.step(), size, operation),
                              kStatusOk);
                    ASSERT_TRUE(dst == expected) << size.width << " x " << size.height;
                }
    });
}

TEST(Alpha, Statuses) {
    std::uint8_t a[4] = {}, b[4] = {}, dst[4] = {7};
    const IppiSize one{1, 1};
    for (const int operation : {-1, 1, 5, 7})
        EXPECT_EQ(ippiAlphaComp_8u_AC4R(a, 4, b, 4, dst, 4, one, operation), kStatusBadArgument);
    EXPECT_EQ(ippiAlphaComp_8u_AC4R(a, 4, nullptr, 4, dst, 4, one, 1), kStatusNullPointer);
    EXPECT_EQ(ippiAlphaComp_8u_AC4R(a, 4, b, 3, dst, 4, one, 0), kStatusStepError);
    EXPECT_EQ(ippiAlphaComp_8u_AC4R(a, 4, b, 4, dst, 4, {1, 0}, 0), kStatusSizeError);
    EXPECT_EQ(ippiAlphaPremul_8u_AC4R(a, 4, nullptr, 4, one), kStatusNullPointer);
    EXPECT_EQ(dst[0], 7);
}

}  // namespace
}  // namespace brushworks
