// The colour matrix, changes of format and colour space, hue and back.
#include <algorithm>
#include <cmath>
#include <limits>

#include "processors/color_space_converter.h"
#include "processors/color_twist.h"
#include "processors/reference.h"
#include "processors/rgb_hsv.h"

namespace brushworks {
namespace {

using namespace Processors;
using testing::ColourAt;
using testing::HasFloats;
using testing::kAllFormats;
using testing::kColorFormats;
using testing::RandomFrame;
using testing::Rgba;
using testing::SamePixels;
using testing::SampleAt;
using testing::SetColour;

void ExpectMatrix(const float (&matrix)[3][4], const double (&expected)[3][4], double tolerance) {
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 4; ++j)
            EXPECT_NEAR(matrix[i][j], expected[i][j], tolerance) << i << ", " << j;
}

// The expected numbers come from the same rules worked in double precision elsewhere.
TEST(ColorTwist, MatrixFollowsTheControls) {
    float m[3][4], turned[3][4];
    CColorTwist twist;
    ASSERT_TRUE(twist.GetMatrix(0.5f, 0.5f, 0.5f, 0.5f, PixelFormatBGRA32f, m, true));
    ExpectMatrix(m, {{0.995365, 0, 0, 0}, {0, 0.995364, 0, 0}, {0, 0, 0.995365, 0}}, 1e-5);
    ASSERT_TRUE(
        twist.GetMatrix(0.7f, 0.4f, 0.3f, 0.6f, 0x112233, 0.8f, PixelFormatBGRA32f, m, true));
    ExpectMatrix(m,
                 {{1.090939, 1.729543, -0.901322, -0.887253},
                  {0.107125, 2.134583, -0.316845, -0.810101},
                  {0.687363, 1.144308, 0.088774, -0.732948}},
                 1e-5);
    ASSERT_TRUE(
        twist.GetMatrix(0.7f, 0.4f, 0.3f, 0.6f, 0x112233, 0.8f, PixelFormatARGB32f, turned, false));
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) EXPECT_EQ(turned[i][j], m[2 - i][2 - j]);
        EXPECT_EQ(turned[i][3], m[2 - i][3]);
    }
    ASSERT_TRUE(twist.GetMatrix(0.2f, 0.6f, 0.8f, 0.1f, 0xff8040, 0.3f, PixelFormatARGB8, m, true));
    ExpectMatrix(m,
                 {{-0.821131, 0.507406, 0.647591, 0},
                  {-0.031076, 0.182138, 0.178226, 16.624717},
                  {-0.492206, 0.963523, -0.151977, 25.002526}},
                 1e-4);
    ASSERT_TRUE(twist.GetMatrix(0.5f, 0.5f, 0.0f, 0.5f, PixelFormatBGRA8, m, true));
    for (int j = 0; j < 4; ++j) {  // without saturation all channels are one gray
        EXPECT_NEAR(m[0][j], m[1][j], 1e-5);
        EXPECT_NEAR(m[1][j], m[2][j], 1e-5);
    }
}

TEST(ColorTwist, RotationsTurnOnePlane) {
    float m[5][5] = {};
    for (int i = 0; i < 5; ++i) m[i][i] = 1;
    CColorTwist().RotateColor(m, 90, 2, 1, 0);
    EXPECT_NEAR(m[1][2], 1, 1e-6);
    EXPECT_NEAR(m[2][1], -1, 1e-6);
    EXPECT_NEAR(m[1][1], 0, 1e-6);
    EXPECT_EQ(m[0][0], 1);
    m[4][1] = 3;
    m[4][4] = 7;
    CColorTwist().RotateColor(m, 90, 2, 1, 0);
    EXPECT_NEAR(m[4][2], 3, 1e-6) << "offsets turn with a factor from the right";
    EXPECT_EQ(m[4][4], 7) << "the last column stays";
    CColorTwist().RotateColor(m, 90, 2, 1, 1);
    EXPECT_NEAR(m[4][2], 3, 1e-6) << "and stay with one from the left";
    CColorTwist().RotateColor(m, 90, 5, -1, 1);  // no such plane
}

/// The matrix on one colour, channels in the order blue, green, red.
Rgba Twisted(Rgba p, const float (&m)[3][4], bool floats) {
    const auto sum = [&](int i) {
        const float x = m[i][0] * p.b + m[i][1] * p.g + m[i][2] * p.r + m[i][3];
        return floats ? std::clamp(x, 0.0f, 1.0f) : std::clamp(std::rint(x), 0.0f, 255.0f);
    };
    return {sum(2), sum(1), sum(0), p.a};
}

TEST(ColorTwist, AppliesToEveryFormat) {
    MemoryAllocator allocator;
    for (const PixelFormat format : kColorFormats) {
        SCOPED_TRACE(format);
        RandomFrame src(15, 9, format, 1), dst(13, 10, format, 2), before(13, 10, format, 2);
        if (HasFloats(format))  // alpha comes uncut
            Samples<float>(src)[AlphaPlane(src)] = 3;
        float m[3][4];
        CColorTwist().GetMatrix(0.7f, 0.4f, 0.6f, 0.3f, 0x80F010, 0.6f, format, m, true);
        ASSERT_TRUE(
            CColorTwist().Process(&src, &dst, 0.7f, 0.4f, 0.6f, 0.3f, 0x80F010, 0.6f, allocator));
        for (int y = 0; y < 9; ++y)
            for (int x = 0; x < 13; ++x)
                SetColour(before, x, y, Twisted(ColourAt(src, x, y), m, HasFloats(format)));
        EXPECT_TRUE(SamePixels(dst, before));
    }
}

TEST(ColorTwist, InPlaceRoundTripsAndPlanesAreCopied) {
    MemoryAllocator allocator;
    for (const PixelFormat format : kAllFormats) {
        SCOPED_TRACE(format);
        RandomFrame src(30, 20, format, 1), dst(30, 20, format, 2);
        ASSERT_TRUE(CColorTwist().Process(&src, &dst, 0.3f, 0.6f, 0.4f, 0.2f, allocator));
        RandomFrame same(30, 20, format, 1), old(30, 20, format, 1);
        ASSERT_TRUE(CColorTwist().Process(&same, &same, 0.3f, 0.6f, 0.4f, 0.2f, allocator));
        EXPECT_TRUE(SamePixels(same, dst));
        if (format >= PixelFormatMono8) {
            EXPECT_TRUE(SamePixels(dst, src));
        }
        // The neutral matrix is nearly the identity: contrast 0.5 stands for a factor of 0.9954.
        ASSERT_TRUE(CColorTwist().Process(&src, &dst, 0.5f, 0.5f, 0.5f, 0.5f, allocator));
        for (int i = 0; i < 30; ++i)
            ASSERT_NEAR(SampleAt(dst, 19, i), SampleAt(old, 19, i), HasFloats(format) ? 0.005 : 2);
    }
}

TEST(ColorTwist, InPlaceAlphaIsCut) {
    MemoryAllocator allocator;
    for (const PixelFormat format : {PixelFormatBGRA32f, PixelFormatARGB32f}) {
        RandomFrame frame(3, 1, format, 1), dst(3, 1, format, 2);
        auto* alpha = RowOf<float>(frame, 0) + Processors::AlphaPlane(frame);
        alpha[0] = 1.5f;
        alpha[4] = -1.0f;
        alpha[8] = 0.25f;
        ASSERT_TRUE(CColorTwist().Process(&frame, &dst, 0.3f, 0.6f, 0.4f, 0.2f, allocator));
        EXPECT_EQ(SampleAt(dst, 0, Processors::AlphaPlane(dst)), 1.5f);
        ASSERT_TRUE(CColorTwist().Process(&frame, &frame, 0.3f, 0.6f, 0.4f, 0.2f, allocator));
        EXPECT_EQ(alpha[0], 1.0f);
        EXPECT_EQ(alpha[4], 0.0f);
        EXPECT_EQ(alpha[8], 0.25f);
    }
}

TEST(ColorTwist, CutsTheWholeFloatFrameAndSurvivesWildControls) {
    MemoryAllocator allocator;
    RandomFrame src(5, 4, PixelFormatBGRA32f, 1), dst(7, 6, PixelFormatBGRA32f, 2);
    RowOf<float>(dst, 5)[3] = 9;
    RowOf<float>(dst, 0)[4 * 6] = -9;
    ASSERT_TRUE(CColorTwist().Process(&src, &dst, 0.5f, 0.5f, 0.5f, 0.5f, allocator));
    EXPECT_EQ(SampleAt(dst, 5, 3), 1) << "below the common rectangle";
    EXPECT_EQ(SampleAt(dst, 0, 4 * 6), 0) << "right of it";
    const float nan = std::nanf(""), infinity = std::numeric_limits<float>::infinity();
    for (const PixelFormat format : kColorFormats)
        for (const float wild : {nan, infinity, -infinity, 3e38f, -1.0f}) {
            RandomFrame a(5, 4, format, 1), b(5, 4, format, 2);
            EXPECT_TRUE(CColorTwist().Process(&a, &b, wild, wild, wild, wild, allocator));
            for (int i = 0; i < 20; ++i) EXPECT_TRUE(SampleAt(b, 1, i) >= 0);
        }
    RandomFrame bytes(5, 4, PixelFormatBGRA8, 1);
    EXPECT_FALSE(CColorTwist().ClampValues(&bytes));
}

TEST(ColorSpaceConverter, ConvertsThePairsThatItServes) {
    for (const PixelFormat from : kAllFormats)
        for (const PixelFormat to : kAllFormats) {
            SCOPED_TRACE(::testing::Message() << from << " to " << to);
            RandomFrame src(11, 6, from, 1), dst(9, 7, to, 2);
            const bool planes = from >= PixelFormatMono8 || to >= PixelFormatMono8;
            const bool refused = planes || from == to ||
                                 (from == PixelFormatARGB8 && to == PixelFormatBGRA32f) ||
                                 (from == PixelFormatBGRA32f && to == PixelFormatARGB8);
            ASSERT_EQ(CColorSpaceConverter().Process(&src, &dst), !refused);
            if (refused) continue;
            for (int y = 0; y < 6; ++y)
                for (int x = 0; x < 9; ++x) {
                    const Rgba p = ColourAt(src, x, y), q = ColourAt(dst, x, y);
                    const auto expected = [&](float sample) {
                        if (HasFloats(from) == HasFloats(to)) return sample;
                        return HasFloats(to) ? sample * kByteToFloat
                                             : std::floor(sample * 255.0f + 0.5f);
                    };
                    ASSERT_EQ(q.r, expected(p.r));
                    ASSERT_EQ(q.g, expected(p.g));
                    ASSERT_EQ(q.b, expected(p.b));
                    ASSERT_EQ(q.a, expected(p.a));
                }
        }
}

TEST(ColorSpaceConverter, LumaAndBackInPlace) {
    RandomFrame frame(7, 5, PixelFormatARGB32f, 1), old(7, 5, PixelFormatARGB32f, 1);
    SetColour(frame, 0, 0, {1, 1, 1, 0.5f});
    SetColour(old, 0, 0, {1, 1, 1, 0.5f});
    CColorSpaceConverter converter;
    ASSERT_TRUE(converter.ARGB32ToAppleR4FL(frame, frame));
    const Rgba white = ColourAt(frame, 0, 0);  // Y', Cb, Cr behind alpha
    EXPECT_NEAR(white.r, 219.0 / 255, 1e-6);
    EXPECT_NEAR(white.g, 128.0 / 255, 1e-6);
    EXPECT_NEAR(white.b, 128.0 / 255, 1e-6);
    ASSERT_TRUE(converter.AppleR4FLToARGB32(frame, frame));
    for (int y = 0; y < 5; ++y)
        for (int i = 0; i < 28; ++i)
            ASSERT_NEAR(SampleAt(frame, y, i), SampleAt(old, y, i), i % 4 ? 2e-3 : 0);

    // From one frame to another each step starts from the source again: the last one stays.
    RandomFrame dst(7, 5, PixelFormatARGB32f, 2);
    ASSERT_TRUE(converter.ARGB32ToAppleR4FL(old, dst));
    EXPECT_EQ(SampleAt(dst, 2, 5), SampleAt(old, 2, 5));
    EXPECT_EQ(SampleAt(dst, 2, 6), SampleAt(old, 2, 6) + 0.0627451f);
    float values[3] = {};
    RandomFrame bgra(7, 5, PixelFormatBGRA32f, 3);
    EXPECT_FALSE(converter.ProcessMulC32f(bgra, dst, values));
    EXPECT_FALSE(converter.ProcessAddC32f(dst, bgra, values));
}

TEST(RgbToHsv, StartsTheWheelAtBlueAndComesBack) {
    const struct {
        Rgba colour;
        float h, s, v;
    } known[] = {{{0, 0, 1, 0.5f}, 0, 1, 1},
                 {{0, 1, 0, 0.5f}, 1.0f / 3, 1, 1},
                 {{0.5f, 0, 0, 1}, 2.0f / 3, 1, 0.5f},
                 {{0, 0, 0, 0.5f}, 0, 0, 0},
                 {{2, 2, 2, 1}, 0, 0, 2},
                 {{1, 0.5f, 1, 0}, 5.0f / 6, 0.5f, 1}};
    for (const PixelFormat format : {PixelFormatBGRA32f, PixelFormatARGB32f}) {
        SCOPED_TRACE(format);
        RandomFrame src(9, 6, format, 1), hsv(8, 7, format, 2), back(9, 6, format, 3);
        for (int x = 0; x < 6; ++x) SetColour(src, x, 0, known[x].colour);
        ASSERT_TRUE(CRGBToHSV().Process(&src, &hsv));
        ASSERT_TRUE(CHSVToRGB().Process(&hsv, &back));
        for (int x = 0; x < 6; ++x) {
            const float* got = &RowOf<float>(hsv, 0)[4 * x];  // this order in both formats
            EXPECT_NEAR(got[0], known[x].h, 1e-6);
            EXPECT_NEAR(got[1], known[x].s, 1e-6);
            EXPECT_EQ(got[2], known[x].v);
            EXPECT_EQ(got[3], known[x].colour.a);
        }
        for (int y = 0; y < 6; ++y)
            for (int i = 0; i < 32; ++i)
                ASSERT_NEAR(SampleAt(back, y, i), SampleAt(src, y, i), 1e-5);
    }
    // One pixel by itself.
    const HSVA green = CRGBToHSV().HSVAFromBGRA({0, 0.5f, 0, 0.25f});
    const HSVA red = CRGBToHSV().HSVAFromARGB({0.25f, 0.5f, 0, 0});
    EXPECT_NEAR(green.h, 1.0 / 3, 1e-6);
    EXPECT_NEAR(red.h, 2.0 / 3, 1e-6);
    EXPECT_TRUE(red.s == 1 && red.v == 0.5f && red.a == 0.25f);
}

TEST(RgbToHsv, BytesInBothOrders) {
    for (const PixelFormat format : {PixelFormatBGRA8, PixelFormatARGB8}) {
        SCOPED_TRACE(format);
        RandomFrame src(9, 6, format, 1), hsv(9, 6, format, 2), back(9, 6, format, 3);
        SetColour(src, 0, 0, {0, 240, 120, 7});  // a quarter of the wheel: 63.75
        ASSERT_TRUE(CRGBToHSV().Process(&src, &hsv));
        ASSERT_TRUE(CHSVToRGB().Process(&hsv, &back));
        const unsigned char* got = RowOf<unsigned char>(hsv, 0);
        EXPECT_EQ(got[0], format == PixelFormatBGRA8 ? 64 : 63) << "rounded and truncated";
        EXPECT_TRUE(got[1] == 255 && got[2] == 240 && got[3] == 7);
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < 9; ++x) {
                const Rgba p = ColourAt(src, x, y), q = ColourAt(back, x, y);
                ASSERT_EQ(q.a, p.a);
                for (const float difference : {q.r - p.r, q.g - p.g, q.b - p.b})
                    ASSERT_LE(std::fabs(difference), 8);  // the hue has 256 steps
            }
    }
    RandomFrame plane(4, 4, PixelFormatMono8, 1), bytes(4, 4, PixelFormatBGRA8, 1);
    EXPECT_FALSE(CRGBToHSV().Process(&plane, &bytes));
    EXPECT_FALSE(CHSVToRGB().Process(&bytes, &plane));
}

}  // namespace
}  // namespace brushworks
