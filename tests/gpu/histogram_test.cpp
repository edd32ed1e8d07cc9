// Counts of sample values, against counting in memory.
#include "gpu/processors/histogram.h"

#include <cmath>

#include "drawing.h"

namespace brushworks::GPUProcessors {
namespace {

using namespace brushworks::testing;

class HistogramTest : public DrawingTest {};

constexpr PixelFormat kFormats[] = {PixelFormatBGRA8, PixelFormatARGB8, PixelFormatBGRA32f,
                                    PixelFormatARGB32f};

/// Different distributions in each channel, all values bytes.
Picture SomeValues(int width, int height, PixelFormat format) {
    return Paint(width, height, format, [](int x, int y) {
        const auto byte = [](int value) { return static_cast<float>(value & 255) / 255; };
        return Color{byte(x * y), byte(x + 3 * y), byte(x * x + 100), byte(7 * (x / 16) + y)};
    });
}

TEST_F(HistogramTest, CountsEverySampleOfTheChosenChannels) {
    struct Choice {
        int plane;
        bool counted[4];
    };
    constexpr Choice kChoices[] = {{CHistogram::kRed, {true}},
                                   {CHistogram::kGreen, {false, true}},
                                   {CHistogram::kBlue, {false, false, true}},
                                   {CHistogram::kColors, {true, true, true}},
                                   {CHistogram::kAlpha, {false, false, false, true}},
                                   {5, {true, true, true, true}}};
    for (PixelFormat format : kFormats)
        for (int buckets : {256, 16, 7}) {
            // Odd rows without padding, and once more points than one drawing takes.
            const bool many = format == PixelFormatBGRA8 && buckets == 16;
            Picture picture = SomeValues(many ? 401 : 37, many ? 263 : 11, format);
            Texture source(picture);
            for (const Choice& choice : kChoices) {
                SCOPED_TRACE(::testing::Message()
                             << format << ' ' << buckets << ' ' << choice.plane);
                Texture target(buckets, 1, PixelFormatBGRA32f);
                ASSERT_TRUE(CHistogram(&helper).ProcessGPU(
                    source, target, static_cast<CHistogram::ColorPlane>(choice.plane), buckets));

                std::vector<Color> counts(buckets);
                const bool swapped = format == PixelFormatARGB8 || format == PixelFormatARGB32f;
                constexpr int kOrders[][4] = {{0, 1, 2, 3}, {1, 0, 3, 2}};  // as textures read them
                for (int y = 0; y < picture.height; ++y)
                    for (int x = 0; x < picture.width; ++x)
                        for (int c = 0; c < 4; ++c) {
                            const Color color = Pixel(picture, x, y);
                            const auto byte = std::lround(color[kOrders[swapped][c]] * 255);
                            if (choice.counted[c]) ++counts[byte * buckets / 256][c];
                        }
                Picture drawn = target.Read();
                for (int b = 0; b < buckets; ++b)
                    EXPECT_EQ(Color(Pixel(drawn, b, 0)), counts[b]) << b;
            }
        }
}

TEST_F(HistogramTest, RefusesWhatItCannotCount) {
    Texture source(5, 4, PixelFormatBGRA8), row(16, 1, PixelFormatBGRA32f),
        wide(257, 1, PixelFormatBGRA32f), rows(16, 2, PixelFormatBGRA32f);
    CHistogram histogram(&helper);
    EXPECT_FALSE(histogram.ProcessGPU(source, wide, CHistogram::kRed, 257));
    EXPECT_FALSE(histogram.ProcessGPU(source, row, CHistogram::kRed, 15));
    EXPECT_FALSE(histogram.ProcessGPU(source, rows, CHistogram::kRed, 16));
    EXPECT_TRUE(histogram.IsSupportedGPU());
    helper.bPixelBufferObject = false;
    EXPECT_FALSE(histogram.ProcessGPU(source, row, CHistogram::kRed, 16));
    EXPECT_FALSE(histogram.IsSupportedGPU());
}

}  // namespace
}  // namespace brushworks::GPUProcessors
