// The blur and the smoothing on textures, beside those on frames and beside a plain sum.
#include <cmath>

#include "drawing.h"
#include "gpu/processors/bilateral_fast.h"
#include "gpu/processors/blur.h"
#include "gpu/processors/smooth.h"
#include "processors/blur.h"
#include "processors/smooth.h"

namespace brushworks::GPUProcessors {
namespace {

using namespace brushworks::testing;
using host::gl::alike;
using host::gl::testPicture;

class GPUNeighbourhoodTest : public DrawingTest {};

TEST_F(GPUNeighbourhoodTest, BlursAsOnFrames) {
    constexpr int kPictures[][2] = {{23, 17}, {1, 9}, {6, 1}, {2, 4}};
    constexpr int kTriangles[][2] = {{0, 0}, {1, 1}, {2, 2}, {3, 4}, {6, 5}, {9, 1}, {64, 33}};
    for (const auto& [width, height] : kPictures)
        for (const auto& [across, down] : kTriangles)
            for (PixelFormat format : {PixelFormatBGRA8, PixelFormatARGB8, PixelFormatBGRA32f}) {
                SCOPED_TRACE(::testing::Message() << width << 'x' << height << " by " << across
                                                  << 'x' << down << " in " << format);
                Picture picture = testPicture(width, height, format);
                Picture expected(width, height, format);
                FrameOver src(picture), dst(expected);
                ASSERT_TRUE(Processors::CBlur().Process(&src, &dst, static_cast<float>(across),
                                                        static_cast<float>(down), nullptr,
                                                        /*allChannels=*/true));
                Texture texture(picture), between(width, height, format);
                ASSERT_TRUE(CBlur(&helper).Process(texture, texture, across, down, &between, true));
                EXPECT_TRUE(alike(texture.Read().frame(), expected.frame(),
                                  {.largest = IsFloat(format) ? 0.01 : 1}));
            }
}

/// One direction of the smoothing as a plain sum.
Color Smoothed(Picture& picture, int x, int y, int dx, int dy, int kernel, double val, double pos) {
    const int n = kernel / 2;
    const Color centre = Pixel(picture, x, y);
    double weights = 0, sums[4] = {};
    for (int k = -n; k <= n; ++k) {
        const Color c = Pixel(picture, std::clamp(x + k * dx, 0, picture.width - 1),
                              std::clamp(y + k * dy, 0, picture.height - 1));
        const double t = (1.1 - pos) * 0.5 * k / n;
        double distance = 0;
        for (int i = 0; i < 4; ++i) distance += (c[i] - centre[i]) * (c[i] - centre[i]);
        const double weight = std::exp(-t * t / (2 * pos * pos) - distance / (2 * val * val));
        weights += weight;
        for (int i = 0; i < 4; ++i) sums[i] += weight * c[i];
    }
    Color result;
    for (int i = 0; i < 4; ++i) result[i] = static_cast<float>(sums[i] / weights);
    return result;
}

TEST_F(GPUNeighbourhoodTest, SmoothsOneDirectionByPlaceAndColour) {
    Picture picture = testPicture(29, 21, PixelFormatARGB32f);
    Texture source(picture), target(29, 21, PixelFormatBGRA32f);
    for (const auto direction : {CBilateralFast::kVertical, CBilateralFast::kHorizontal})
        for (int kernel : {2, 7, 61})
            for (float pos : {0.3f, 1.5f}) {
                ASSERT_TRUE(CBilateralFast(&helper).ProcessDirection(source, target, kernel, 0.2f,
                                                                     pos, direction));
                const int dx = direction == CBilateralFast::kHorizontal ? 1 : 0;
                Picture expected = Paint(29, 21, PixelFormatBGRA32f, [&](int x, int y) {
                    return Smoothed(picture, x, y, dx, 1 - dx, kernel, 0.2, pos);
                });
                EXPECT_TRUE(alike(target.Read().frame(), expected.frame(), {.largest = 0.02}));
            }
}

TEST_F(GPUNeighbourhoodTest, SmoothingNothingIsACopy) {
    Picture picture = testPicture(9, 8, PixelFormatBGRA8);
    Texture source(picture), target(9, 8, PixelFormatBGRA8);
    CBilateralFast half(&helper);
    const auto across = CBilateralFast::kHorizontal;
    const auto nowhere = static_cast<CBilateralFast::Direction>(3);
    for (int kernel : {0, 1}) {
        ASSERT_TRUE(half.ProcessDirection(source, target, kernel, 0.2f, 1, across));
        EXPECT_EQ(target.Read().bytes, picture.bytes);
    }
    EXPECT_FALSE(half.ProcessDirection(source, target, 9, 0.2f, 1, nowhere));
    EXPECT_FALSE(half.ProcessDirection(source, target, -1, 0.2f, 1, across));
}

// On frames each channel is weighed by itself and here colours as a whole, so the two only compare
// where one channel varies. On frames weights are whole numbers: small ones, as across an edge, are
// cut, and what is flat gets darker by two steps.
TEST_F(GPUNeighbourhoodTest, SmoothsOneChannelAlmostAsOnFrames) {
    for (PixelFormat format : {PixelFormatBGRA8, PixelFormatARGB8, PixelFormatARGB32f}) {
        Picture picture = Paint(60, 48, format, [](int x, int y) {
            const float waves = std::sin(static_cast<float>(x * x + 9 * y)) * 0.1f;
            return Color{(x + y > 50 ? 0.7f : 0.3f) + waves, 0.25f, 0.5f, 1};
        });
        Picture expected = picture;
        FrameOver src(picture), dst(expected);
        Processors::CSmooth().Process(&src, &dst, nullptr, nullptr, 1, 0.6f, 3, 0, false, nullptr,
                                      nullptr);
        Texture source(picture), target(60, 48, format);
        ASSERT_TRUE(CSmooth(&helper).Process(source, target, 1, 0.6f, 3, 0, false));
        EXPECT_TRUE(alike(target.Read().frame(), expected.frame(), {.largest = 12, .psnr = 42}));
    }
}

TEST_F(GPUNeighbourhoodTest, ContrastActsTwiceAndLeavesAlphaAlone) {
    constexpr float kShare = 0.7f;
    Picture picture = testPicture(20, 12, PixelFormatARGB8);
    Texture source(picture), target(20, 12, PixelFormatBGRA32f);
    // No two colours are alike enough to be mixed.
    ASSERT_TRUE(CSmooth(&helper).Process(source, target, 1, 0, 1, kShare, false));
    Picture expected = Paint(20, 12, PixelFormatBGRA32f, [&](int x, int y) {
        Color color = Pixel(picture, x, y);
        for (int i = 0; i < 3; ++i)
            for (int pass = 0; pass < 2; ++pass) {
                const float curve = std::sin((color[i] - 0.5f) * 3.1415927f) * 0.5f + 0.5f;
                const float mixed = (1 - kShare) * color[i] + kShare * curve + 3 / 255.0f;
                color[i] = std::clamp(mixed, 0.0f, 1.0f);
            }
        return color;
    });
    EXPECT_TRUE(alike(target.Read().frame(), expected.frame(), {.largest = 1}));
}

}  // namespace
}  // namespace brushworks::GPUProcessors
