// Dilation and erosion under an ellipse, as far as an approximation can be held to laws.
#include "gpu/processors/dilate_ellipse_fast.h"

#include <cmath>

#include "drawing.h"
#include "frames/frame.h"
#include "frames/memory_allocator.h"
#include "processors/dilate_ellipse.h"

namespace brushworks::GPUProcessors {
namespace {

using namespace brushworks::testing;
using host::gl::alike;
using host::gl::testPicture;

struct Mode {
    int radius;
    bool halfY = false, alphaOnly = false, max = true, resized = false;

    int Reach() const { return radius >> 1 | 1; }
};

class DilateEllipseTest : public DrawingTest {
  protected:
    Picture Dilate(Picture& picture, const Mode& mode, PixelFormat target,
                   TextureParams* scratch0 = nullptr, TextureParams* scratch1 = nullptr) {
        Texture source(picture), drawn(picture.width, picture.height, target);
        CDilateEllipseFast dilation(&helper);
        const auto process =
            mode.resized ? &CDilateEllipseFast::ProcessResize : &CDilateEllipseFast::Process;
        EXPECT_TRUE((dilation.*process)(source, drawn, mode.radius, mode.halfY, mode.alphaOnly,
                                        mode.max, scratch0, scratch1));
        return drawn.Read();
    }
    Picture Dilate(Picture& picture, const Mode& mode) {
        return Dilate(picture, mode, picture.format);
    }
};

template <class Function>
Picture Map(Picture& picture, PixelFormat format, const Function& color) {
    return Paint(picture.width, picture.height, format,
                 [&](int x, int y) { return color(Color(Pixel(picture, x, y))); });
}

Picture Negative(Picture picture) {
    return Map(picture, picture.format, [](const Color& c) {
        return Color{1 - c[0], 1 - c[1], 1 - c[2], 1 - c[3]};
    });
}

/// The exact dilation by a circle.
Picture DilateInMemory(Picture& picture, int reach) {
    Picture dilated = picture;
    const FrameParams from = picture.frame(), to = dilated.frame();
    CFrame src, dst;
    src.Init(&from);
    dst.Init(&to);
    MemoryAllocator allocator;
    const int size = 2 * reach + 1;
    EXPECT_TRUE(Processors::CDilateEllipse().Process(&src, &dst, size, size, &allocator));
    return dilated;
}

TEST_F(DilateEllipseTest, ADotFillsItsEllipseAndNothingElse) {
    for (bool halfY : {false, true})
        for (int radius : {1, 5, 14, 20, 21, 100, 200}) {
            SCOPED_TRACE(::testing::Message() << radius << (halfY ? " half" : ""));
            const Mode mode = {.radius = radius, .halfY = halfY};
            const int reach = mode.Reach(), middle = reach + 4, size = 2 * middle + 1;
            Picture dot(size, size, PixelFormatBGRA8);
            Pixel(dot, middle, middle) = Color{1, 1, 1, 1};
            Picture drawn = Dilate(dot, mode);
            int inside = 0, missing = 0, beyond = 0;
            for (int y = 0; y < size; ++y)
                for (int x = 0; x < size; ++x) {
                    const double distance =
                        std::hypot(x - middle, (y - middle) * (halfY ? 2 : 1)) / reach;
                    const float value = Color(Pixel(drawn, x, y))[0];
                    const bool core = distance <= (halfY ? 0.8 : 0.9) - 1.5 / reach;
                    inside += core ? 1 : 0;
                    missing += core && value < 1 ? 1 : 0;
                    beyond += distance > 1 + 0.5 / reach && value > 0 ? 1 : 0;
                }
            EXPECT_LE(missing, inside / 100);
            EXPECT_EQ(beyond, 0);
        }
}

TEST_F(DilateEllipseTest, PicturesComeBetweenTwoExactDilations) {
    Picture picture = testPicture(160, 120, PixelFormatBGRA8);
    for (int radius : {5, 20, 60, 100}) {
        SCOPED_TRACE(radius);
        const int reach = Mode{.radius = radius}.Reach();
        Picture drawn = Dilate(picture, {.radius = radius});
        Picture most = DilateInMemory(picture, reach);
        Picture least = DilateInMemory(picture, std::max(static_cast<int>(0.9 * reach - 1), 0));
        for (std::size_t i = 0; i < drawn.bytes.size(); ++i) {
            ASSERT_GE(drawn.bytes[i], least.bytes[i]);
            ASSERT_LE(drawn.bytes[i], most.bytes[i]);
        }
    }
}

TEST_F(DilateEllipseTest, ErosionIsDilationOfTheNegative) {
    for (Mode mode : {Mode{.radius = 20}, Mode{.radius = 61, .halfY = true},
                      Mode{.radius = 61, .resized = true}}) {
        Picture picture = testPicture(71, 52, PixelFormatBGRA32f), negative = Negative(picture);
        Picture expected = Negative(Dilate(negative, mode));
        mode.max = false;
        EXPECT_TRUE(alike(Dilate(picture, mode).frame(), expected.frame(), {.largest = 0.01}));
    }
}

TEST_F(DilateEllipseTest, NothingChangesWithoutARadiusOrWithoutDifferences) {
    Picture picture = testPicture(33, 21, PixelFormatARGB8), flat(33, 21, PixelFormatARGB8);
    flat = Map(flat, flat.format, [](const Color&) { return Color{0.2f, 0.4f, 0.6f, 0.8f}; });
    EXPECT_EQ(Dilate(picture, {.radius = 0}).bytes, picture.bytes);
    for (bool resized : {false, true})
        EXPECT_EQ(Dilate(flat, {.radius = 100, .resized = resized}).bytes, flat.bytes);
}

TEST_F(DilateEllipseTest, OrdersAndScratchTexturesChangeNothingAndAlphaGrowsAlone) {
    const auto same = [](const Color& color) { return color; };
    for (const Mode& mode : {Mode{.radius = 14}, Mode{.radius = 60, .resized = true}}) {
        Picture picture = testPicture(41, 30, PixelFormatBGRA8);
        Picture swapped = Map(picture, PixelFormatARGB8, same), grown = Dilate(picture, mode);
        EXPECT_EQ(Dilate(swapped, mode, PixelFormatBGRA8).bytes, grown.bytes);
        EXPECT_EQ(Dilate(swapped, mode).bytes, Map(grown, PixelFormatARGB8, same).bytes);
        Texture one(41, 30, PixelFormatBGRA8), other(41, 30, PixelFormatARGB8);
        EXPECT_EQ(Dilate(picture, mode, PixelFormatBGRA8, &one, &other).bytes, grown.bytes);
        if (mode.resized) continue;  // shrinking changes colours
        Picture alpha = Dilate(picture, {.radius = mode.radius, .alphaOnly = true});
        for (std::size_t i = 0; i < alpha.bytes.size(); ++i)
            ASSERT_EQ(alpha.bytes[i], (i % 4 == 3 ? grown : picture).bytes[i]);
    }
}

TEST_F(DilateEllipseTest, ADiscGrowsAsFarAtHalfSize) {
    constexpr int kMiddle = 80, kDisc = 4, kSize = 2 * kMiddle + 1;
    const Mode mode = {.radius = 100, .resized = true};
    Picture disc = Paint(kSize, kSize, PixelFormatBGRA32f, [](int x, int y) {
        const float value = std::hypot(x - kMiddle, y - kMiddle) < kDisc ? 1.0f : 0.0f;
        return Color{value, value, value, value};
    });
    Picture drawn = Dilate(disc, mode);
    int across = 0, down = 0;
    for (int i = 0; i < kSize; ++i) {
        across += Color(Pixel(drawn, i, kMiddle))[0] > 0.5f ? 1 : 0;
        down += Color(Pixel(drawn, kMiddle, i))[0] > 0.5f ? 1 : 0;
    }
    EXPECT_NEAR(across, 2 * (mode.Reach() + kDisc), 6);
    EXPECT_NEAR(down, 2 * (mode.Reach() + kDisc), 6);
}

}  // namespace
}  // namespace brushworks::GPUProcessors
