// Operations on textures that work pixel by pixel, against plain arithmetic.
#include <cstdlib>
#include <functional>

#include "drawing.h"
#include "frames/memory_allocator.h"
#include "gpu/processors/blend.h"
#include "gpu/processors/blur.h"
#include "gpu/processors/clamp.h"
#include "gpu/processors/color_twist.h"
#include "gpu/processors/combine.h"
#include "gpu/processors/copy.h"
#include "gpu/processors/mix.h"
#include "gpu/processors/noise_gen.h"
#include "gpu/processors/resize.h"
#include "gpu/processors/smooth.h"
#include "host/gl/refusing_host.h"
#include "processors/color_twist.h"

namespace brushworks::GPUProcessors {
namespace {

using namespace brushworks::testing;
using host::gl::alike;
using host::gl::testPicture;

class GPUProcessorsTest : public DrawingTest {};

constexpr PixelFormat kFormats[] = {PixelFormatBGRA8, PixelFormatARGB8, PixelFormatBGRA32f,
                                    PixelFormatARGB32f};

Color EachChannel(const Color& a, const Color& b, const std::function<float(float, float)>& f) {
    return {f(a[0], b[0]), f(a[1], b[1]), f(a[2], b[2]), f(a[3], b[3])};
}

/// An operation on two textures, and what it does to a pixel.
struct Operation {
    const char* name;
    bool (*draw)(GPUHelper*, const TextureParams&, const TextureParams&, const TextureParams&);
    Color (*expected)(const Color& a, const Color& b);
    /// In 255ths, on floats. A linear filter rounds its weights, and so a millionth of the nonsense
    /// around a region, which has the size of 1000, comes through.
    double allowed = 0.01;
};

float g_matrix[3][4] = {{0.5f, 0.25f, 0.125f, 0.1f}, {0.1f, 0.6f, 0.2f, 0}, {0, 0.3f, 0.9f, -0.1f}};

constexpr Operation kOperations[] = {
    {"copy",
     [](GPUHelper* h, const TextureParams& a, const TextureParams&, const TextureParams& d) {
         return CCopy(h).Process(a, d);
     },
     [](const Color& a, const Color&) { return a; }},
    {"resize",
     [](GPUHelper* h, const TextureParams& a, const TextureParams&, const TextureParams& d) {
         return CResize(h).Process(a, d);
     },
     [](const Color& a, const Color&) { return a; },
     /*allowed=*/0.5},
    {"twist",
     [](GPUHelper* h, const TextureParams& a, const TextureParams&, const TextureParams& d) {
         return CColorTwist(h).Process(a, d, g_matrix);
     },
     [](const Color& a, const Color&) {
         Color result = a;
         for (int i = 0; i < 3; ++i)
             result[i] = g_matrix[i][0] * a[0] + g_matrix[i][1] * a[1] + g_matrix[i][2] * a[2] +
                         g_matrix[i][3];
         return result;
     }},
    {"combine",
     [](GPUHelper* h, const TextureParams& a, const TextureParams& b, const TextureParams& d) {
         return CCombine(h).Process(a, b, d, 1.75f, -0.5f, 0.1f, 0.9f);
     },
     [](const Color& a, const Color& b) {
         return EachChannel(
             a, b, [](float x, float y) { return std::clamp(1.75f * x - 0.5f * y, 0.1f, 0.9f); });
     }},
    {"mix",
     [](GPUHelper* h, const TextureParams& a, const TextureParams& b, const TextureParams& d) {
         return CMix(h).Process(a, b, d, 0.25f, 0.5f, 1, 0);
     },
     [](const Color& a, const Color& b) {
         return Color{0.75f * a[0] + 0.25f * b[0], 0.5f * a[1] + 0.5f * b[1], b[2], a[3]};
     }},
};

TEST_F(GPUProcessorsTest, AgreeWithArithmeticInAllOrdersAndSizes) {
    constexpr int kSizes[][2] = {{17, 5}, {1, 6}, {7, 1}};
    for (const auto& [width, height] : kSizes)
        for (PixelFormat format0 : kFormats)
            for (PixelFormat format1 : kFormats)
                for (PixelFormat target : kFormats) {
                    if (width != 17 && (format0 != format1 || format1 != target)) continue;
                    Picture a = testPicture(width, height, format0);
                    Picture b = Paint(width, height, format1, [](int x, int y) {
                        return Color{x / 16.0f, y / 5.0f, 0.7f, (x + y) % 3 / 2.0f};
                    });
                    Texture first(a), second(b), drawn(width, height, target);
                    for (const Operation& operation : kOperations) {
                        SCOPED_TRACE(::testing::Message() << operation.name << ' ' << format0
                                                          << format1 << target << ' ' << width);
                        ASSERT_TRUE(operation.draw(&helper, first, second, drawn));
                        Picture expected = Paint(width, height, target, [&](int x, int y) {
                            return operation.expected(Pixel(a, x, y), Pixel(b, x, y));
                        });
                        const double allowed = IsFloat(target) ? operation.allowed : 1;
                        Picture actual = drawn.Read();
                        EXPECT_TRUE(alike(actual.frame(), expected.frame(), {.largest = allowed}));
                    }
                }
}

TEST_F(GPUProcessorsTest, ResizePutsCornersOnCornersAndFillsInBetween) {
    Picture small = Paint(3, 2, PixelFormatBGRA32f, [](int x, int y) {
        return Color{x * 0.5f, static_cast<float>(y), x * y * 0.5f, 1};
    });
    Texture source(small), target(9, 5, PixelFormatBGRA32f);
    ASSERT_TRUE(CResize(&helper).Process(source, target));
    Picture expected = Paint(9, 5, PixelFormatBGRA32f, [](int x, int y) {
        return Color{x / 8.0f, y / 4.0f, x / 8.0f * y / 4.0f, 1};
    });
    // Filters work with fractions of 8 bits.
    EXPECT_TRUE(alike(target.Read().frame(), expected.frame(), {.largest = 1}));
}

TEST_F(GPUProcessorsTest, ClampLimitsAllChannels) {
    Picture picture = Paint(8, 1, PixelFormatARGB32f, [](int x, int) {
        return Color{x - 3.0f, x / 8.0f, 0.5f, x / 4.0f};
    });
    Texture source(picture), target(8, 1, PixelFormatARGB32f), bytes(8, 1, PixelFormatARGB8);
    ASSERT_TRUE(CClamp(&helper).Process(source, target, 0.25f, 0.75f));
    Picture expected = Paint(8, 1, PixelFormatARGB32f, [&](int x, int) {
        return EachChannel(Pixel(picture, x, 0), {},
                           [](float v, float) { return std::clamp(v, 0.25f, 0.75f); });
    });
    EXPECT_TRUE(alike(target.Read().frame(), expected.frame(), {}));
    EXPECT_FALSE(CClamp(&helper).Process(source, target, 0.5f, 0.5f));
    EXPECT_FALSE(CClamp(&helper).Process(source, bytes, 0, 1));
}

TEST_F(GPUProcessorsTest, TwistsColoursAsOnFrames) {
    for (PixelFormat format : kFormats) {
        Picture picture = testPicture(31, 20, format), expected(31, 20, format);
        FrameOver src(picture), dst(expected);
        MemoryAllocator allocator;
        Processors::CColorTwist().Process(&src, &dst, 0.6f, 0.45f, 0.7f, 0.3f, allocator);

        float matrix[4][4];  // red first, where frames have blue first
        Processors::CColorTwist().GetMatrix(0.6f, 0.45f, 0.7f, 0.3f, PixelFormatBGRA32f, matrix,
                                            /*keepOrder=*/false);
        Texture source(picture), target(31, 20, format), limited(31, 20, format);
        ASSERT_TRUE(CColorTwist(&helper).Process(source, target, matrix));
        ASSERT_TRUE(CClamp(&helper).Process(target, limited, 0, 1));  // as frames are
        EXPECT_TRUE(alike(limited.Read().frame(), expected.frame(),
                          {.largest = IsFloat(format) ? 0.01 : 1}));
    }
}

TEST_F(GPUProcessorsTest, NoiseFillsTheWholeTextureWithTheSequenceOfRand) {
    for (PixelFormat format : kFormats) {
        Texture texture(5, 4, format);
        std::srand(10);
        ASSERT_TRUE(CNoiseGen(&helper).Process(texture));
        TextureParams whole = texture;
        whole.nLeft = whole.nTop = 0;
        whole.nWidth = whole.nTexWidth;
        whole.nHeight = whole.nTexHeight;
        Picture noise(whole.nWidth, whole.nHeight, format);
        ASSERT_TRUE(renderer().download(whole, noise.frame()));

        std::srand(10);
        Picture expected(whole.nWidth, whole.nHeight, format);
        auto* floats = reinterpret_cast<float*>(expected.bytes.data());
        if (IsFloat(format))
            for (std::size_t i = 0; i < expected.bytes.size() / 4; ++i)
                floats[i] = static_cast<float>(std::rand() % 10000 / 9999.0);
        else
            for (std::uint8_t& byte : expected.bytes) byte = static_cast<std::uint8_t>(std::rand());
        EXPECT_EQ(noise.bytes, expected.bytes);
    }
}

TEST_F(GPUProcessorsTest, RefuseWhatTheyCannotDraw) {
    Texture a(4, 3, PixelFormatBGRA8), b(4, 3, PixelFormatBGRA8), larger(5, 3, PixelFormatBGRA8);
    const TextureParams none;
    EXPECT_FALSE(CMix(nullptr).Process(a, b, larger, 0.5f));
    EXPECT_FALSE(CMix(&helper).Process(a, b, a, 0.5f));
    EXPECT_FALSE(CCombine(&helper).Process(a, b, b, 1, 1, 0, 1));
    EXPECT_FALSE(CCombine(&helper).Process(a, none, b, 1, 1, 0, 1));
    EXPECT_FALSE(CColorTwist(&helper).Process(a, larger, g_matrix));
    EXPECT_FALSE(CBlur(&helper).Process(a, larger, 3, 3, nullptr, false));
    EXPECT_FALSE(CBlur(&helper).Process(a, b, 3, -1, nullptr, false));
    EXPECT_FALSE(CBlur(&helper).Process(a, b, 3, 3, &larger, false));
    EXPECT_FALSE(CResize(&helper).Process(a, none));
    EXPECT_FALSE(CNoiseGen(&helper).Process(none));
}

TEST_F(GPUProcessorsTest, FailAndFreeEverythingWhereTheHostRefuses) {
    Texture a(6, 5, PixelFormatBGRA8), b(6, 5, PixelFormatBGRA8), c(6, 5, PixelFormatBGRA8);
    const std::function<bool()> operations[] = {
        [&] { return CResize(&helper).Process(a, b); },
        [&] { return CBlur(&helper).Process(a, b, 3, 4, nullptr, true); },
        [&] { return CSmooth(&helper).Process(a, b, 1, 0.5f, 4, 0.5f, false); },
        [&] { return CMix(&helper).Process(a, b, c, 0.5f); },
        [&] { return CResize(&helper).IsSupported() && CBlur(&helper).IsSupported(); },
        [&] { return CSmooth(&helper).IsSupported() && CMix(&helper).IsSupported(); },
        [&] { return CColorTwist(&helper).IsSupported() && CClamp(&helper).IsSupported(); },
        [&] { return CCombine(&helper).IsSupported() && CNoiseGen(&helper).IsSupported(); },
        [&] { return CBlend(&helper).IsSupported(CBlend::kHue); },
    };
    for (const auto& operation : operations) {
        bool refused = true;
        for (int request = 0; refused; ++request) {
            const auto host = host::gl::RefusingHostGL::create(hostGL(), request);
            Begin(*host);
            const std::uint64_t mark = hostGL().mark();
            const bool done = operation();
            refused = host->refused();
            EXPECT_EQ(done, !refused);
            EXPECT_TRUE(hostGL().aliveSince(mark).empty());
            Begin(hostGL());
        }
    }
}

}  // namespace
}  // namespace brushworks::GPUProcessors
