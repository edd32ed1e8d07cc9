// Impressionist's strokes against plain loops with the C library's own random numbers, and the
// steps around them against the processors themselves.
#include <array>
#include <cmath>
#include <cstdlib>
#include <thread>

#include "effects/impressionist/strokes.h"
#include "effects/testing.h"
#include "frames/fast_math.h"
#include "frames/truncate.h"
#include "processors/canvaskit/median.h"
#include "processors/color_space_converter.h"
#include "processors/color_twist.h"
#include "processors/copy.h"
#include "processors/copy_plane.h"
#include "processors/mix.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kImpressionist = 4;
enum Param : unsigned int {
    kColorShift,
    kColor,
    kBrightness,
    kContrast,
    kBrushSize,
    kBrushStroke,
    kBrushAngle,
    kSmoothing,
    kRandomSize,
    kRandomAngle,
    kLockVariations,
    kBlend,
};

/// One stroke after the other, pixel by pixel, from the process's random stream.
template <class Component, class Accumulator>
class PlainPainter {
  public:
    PlainPainter(const CFrame& source, CFrame& destination, const Brush& brush)
        : m_source(source), m_destination(destination), m_brush(brush) {}

    void Paint(unsigned int seed) {
        const int count = static_cast<int>(m_source.m_nWidth * m_source.m_nHeight * 0.1);
        std::srand(seed);  // NOLINT: the sequence to compare with
        for (int i = 0; i < count; ++i) PaintOne(NextLine());
    }

  private:
    static int Draw() { return std::rand(); }  // NOLINT: likewise

    StrokeLine NextLine() {
        const float aspect = m_brush.aspect;
        StrokeLine line{};
        line.x1 = static_cast<int>(Draw() / 2147483647.0 * m_source.m_nWidth);
        line.y1 = static_cast<int>(Draw() / 2147483647.0 * m_source.m_nHeight);
        float angle = m_brush.angle;
        if (m_brush.randomAngle) angle = static_cast<float>(Draw()) / 2147483648.0f * 6.2831855f;
        int length = m_brush.length;
        if (m_brush.randomSize) {
            length = static_cast<int>(2 * length * (Draw() / 2147483647.0));
            Draw();
        }
        const auto reach = static_cast<float>(length);
        line.x2 = Truncate(static_cast<float>(line.x1) + LFMath::FastCos(angle) * reach);
        line.y2 = Truncate(static_cast<float>(line.y1) + LFMath::FastSin(angle) * reach / aspect);
        FindSpread(line);
        const auto dx = static_cast<float>(m_dx), dy = static_cast<float>(m_dy);
        const float d = LFMath::FastSqrt(static_cast<float>(m_dx * m_dx + m_dy * m_dy));
        const auto thickness = static_cast<float>(m_brush.thickness);
        const int width =
            m_dx < m_dy ? Truncate(dy / d * thickness) : Truncate(dx / d * thickness / aspect);
        line.width = std::max(aspect, static_cast<float>(width));
        return line;
    }

    void FindSpread(const StrokeLine& line) {
        m_dx = std::labs(static_cast<long>(line.x2) - line.x1);
        const long rows = static_cast<long>(line.y2) - line.y1;
        m_dy = Truncate(std::fabs(static_cast<float>(rows) * m_brush.aspect));
    }

    void PaintOne(StrokeLine line) {
        FindSpread(line);
        m_steep = m_dx < m_dy;
        if (m_steep ? line.y2 < line.y1 : line.x2 < line.x1) {
            std::swap(line.x1, line.x2);
            std::swap(line.y1, line.y2);
        }
        const float size = m_steep ? 1.0f : 1.0f / m_brush.aspect;
        const bool rises = m_steep ? line.x1 < line.x2 : line.y1 < line.y2;
        const float step = rises ? size : -size;

        Accumulator sums[4] = {}, count = 0;
        Walk(line, m_steep ? step : -step, [&](int x, int y) {
            for (int c = 0; c < 4; ++c)
                sums[c] += Processors::RowOf<Component>(m_source, y)[4 * x + c];
            ++count;
        });
        Component colour[4];
        for (int c = 0; c < 4; ++c)
            colour[c] = static_cast<Component>(count > 0 ? sums[c] / count : 255);
        Walk(line, step, [&](int x, int y) {
            std::copy_n(colour, 4, Processors::RowOf<Component>(m_destination, y) + 4 * x);
        });
    }

    template <class Visit>
    void Walk(const StrokeLine& line, float step, Visit visit) const {
        const long along = m_steep ? m_dy : m_dx, across = m_steep ? m_dx : m_dy;
        long err = 2 * across - along;
        float c = static_cast<float>(m_steep ? line.x1 : line.y1), ci = c;
        const long end = m_steep ? line.y2 : line.x2;
        for (long m = (m_steep ? line.y1 : line.x1) + 1L; m <= end; ++m) {
            if (err >= 0) {
                c += step;
                ci = static_cast<float>(Truncate(c));
                err += 2 * (across - along);
            } else {
                err += 2 * across;
            }
            if (m < 0 || m >= (m_steep ? m_source.m_nHeight : m_source.m_nWidth)) continue;
            const int r0 = Truncate(ci + line.width * -0.5f);
            const int limit = m_steep ? m_source.m_nWidth : m_source.m_nHeight;
            for (int r = r0; r < limit && static_cast<float>(r) < line.width + r0; ++r)
                if (r >= 0)
                    visit(m_steep ? r : static_cast<int>(m), m_steep ? static_cast<int>(m) : r);
        }
    }

    const CFrame& m_source;
    CFrame& m_destination;
    const Brush m_brush;
    long m_dx = 0, m_dy = 0;
    bool m_steep = false;
};

/// Random pixels; among floats some that are huge and take each other away, so that the order of a
/// sum shows in what is left of the others.
struct Grain : RandomFrame {
    Grain(int width, int height, PixelFormat format, unsigned int seed)
        : RandomFrame(width, height, format, seed) {
        if (!Processors::IsFloatColor(*this)) return;
        for (int y = 0; y < height; ++y)
            for (int i = 0; i < 4 * width; ++i)
                if ((i + 5 * y) % 7 == 0)
                    Processors::RowOf<float>(*this, y)[i] = (i / 7 + y) % 2 ? 0x1p60f : -0x1p60f;
    }
};

void PaintPlainly(const CFrame& src, CFrame& dst, const Brush& brush, unsigned int seed) {
    if (Processors::IsFloatColor(src))
        PlainPainter<float, double>(src, dst, brush).Paint(seed);
    else
        PlainPainter<std::uint8_t, long>(src, dst, brush).Paint(seed);
}

void PaintAsShipped(const CFrame& src, CFrame& dst, const Brush& brush, unsigned int seed) {
    RandomSequence random(seed);
    MemoryAllocator allocator;
    PaintStrokes(src, dst, brush, random, allocator);
}

constexpr float kQuarter = 1.5707964f;  // a quarter of a turn

TEST(Impressionist, StrokesAreThoseOfPlainLoopsAndTheSharedStream) {
    constexpr Brush kBrushes[] = {
        {9, 8, 0.0f, true, false, 1.0f},            // any direction
        {9, 8, 5.3f, false, true, 1.0f},            // any length
        {14, 5, 0.4f, true, true, 2.0f},            // fields
        {11, 12, 2.2f, true, true, 0.45f},          // high pixels
        {12, 0, 0.9f, true, false, 1.0f},           // lines of one pixel
        {12, 0, 0.9f, true, false, 1.7f},           // and of a fractional width
        {30, 7, kQuarter, false, false, 1.0f},      // upright
        {30, 7, 2 * kQuarter, false, false, 1.0f},  // level, to the left
        {90, 70, 1.0f, true, false, 1.0f},          // larger than the frame
        {0, 0, 1.0f, true, true, 1.0f},             // none
        {-9, -8, 1.0f, true, true, -1.0f},          // less than none
        {800, 500, 0.1f, true, true, 60.0f},        // mostly beside the frame
        {20000, 0, 3.0f, true, false, 3000.3f},     // hardly ever in it
    };
    constexpr IppiSize kSizes[] = {{1, 12}, {12, 1}, {37, 23}, {70, 131}, {150, 66}};
    for (const Brush& brush : kBrushes)
        for (const IppiSize size : kSizes)
            for (const PixelFormat format : kColorFormats) {
                SCOPED_TRACE(::testing::Message()
                             << "brush " << &brush - kBrushes << ", " << size.width << " x "
                             << size.height << ", format " << format);
                const Grain src(size.width, size.height, format, 1);
                RandomFrame dst(size.width, size.height, format, 2);
                RandomFrame expected(size.width, size.height, format, 2);
                PaintPlainly(src, expected, brush, 77);
                PaintAsShipped(src, dst, brush, 77);
                ASSERT_TRUE(SamePixels(dst, expected));
            }
}

TEST(Impressionist, StrokesAreTheSameOnAnyNumberOfThreads) {
    constexpr Brush kBrush = {20, 14, 0.0f, true, true, 1.0f};
    RandomFrame src(160, 120, PixelFormatBGRA8, 1), expected(160, 120, PixelFormatBGRA8, 2);
    PaintPlainly(src, expected, kBrush, 10000);
    std::array<std::thread, 4> threads;
    for (std::thread& thread : threads)
        thread = std::thread([&] {
            for (int i = 0; i < 5; ++i) {
                RandomFrame dst(160, 120, PixelFormatBGRA8, 2);
                PaintAsShipped(src, dst, kBrush, 10000);
                EXPECT_TRUE(SamePixels(dst, expected));
            }
        });
    for (std::thread& thread : threads) thread.join();
}

TEST(Impressionist, BrokenAspectsEndSoon) {
    for (const float aspect : {0.0f, -0.0f, 1e-30f, 1e9f, -1e9f, INFINITY, -INFINITY, NAN})
        for (const int length : {0, INT32_MAX, INT32_MIN})
            for (const PixelFormat format : {PixelFormatBGRA8, PixelFormatARGB32f}) {
                RandomFrame src(300, 200, format, 1), dst(300, 200, format, 2);
                PaintAsShipped(src, dst, {length, length, 1.0f, true, true, aspect}, 1);
            }
}

/// A case's controls and the numbers that must come of them.
struct Case {
    float size, stroke, smoothing, aspect;
    std::int16_t fieldMode;
    int length, thickness, radiusX, radiusY;  ///< radius 0: no median
};

TEST(Impressionist, StepsFollowOneAnotherWithSizesOfTheLines) {
    constexpr int kWidth = 60, kHeight = 96;
    constexpr Case kCases[] = {
        {1.0f, 0.25f, 1.0f, 1.0f, 3, 12, 9, 2, 2},  {1.0f, 0.25f, 1.0f, 1.0f, 2, 24, 18, 4, 2},
        {1.0f, 0.25f, 1.0f, 0.5f, 3, 6, 4, 1, 2},   {0.6f, 1.0f, 0.1f, 1.0f, 3, 7, 0, 1, 1},
        {0.6f, 0.0f, 0.0f, 1.5f, 3, 10, 10, 0, 0},  {0.0f, 0.5f, 0.9f, 1.0f, 3, 0, 0, 1, 1},
        {1.0f, 0.25f, 1.0f, 1.0f, 4, 24, 18, 4, 2},  // anything but 3 doubles the aspect
    };
    const EffectPointer effect(NewEffect(kImpressionist));
    TestHost host;
    for (const Case& c : kCases)
        for (const PixelFormat format : {PixelFormatBGRA8, PixelFormatBGRA32f}) {
            SCOPED_TRACE(::testing::Message() << "case " << &c - kCases << ", format " << format);
            UseDefaults(*effect, host);
            host.values[kBrushSize].value = c.size;
            host.values[kBrushStroke].value = c.stroke;
            host.values[kBrushAngle].value = 0.75f;
            host.values[kSmoothing].value = c.smoothing;
            host.values[kRandomSize].on = host.values[kRandomAngle].on = 0;
            host.values[kLockVariations].on = 0;
            host.values[kColorShift].value = 0.8f;
            RenderInfo info{};
            info.dwFlags = kRenderHasPixelAspect;
            info.dPixelAspect = c.aspect;
            info.nFieldMode = c.fieldMode;
            info.nRandomSeed = -5;
            RandomFrame src(kWidth, kHeight, format, 1), dst(kWidth, kHeight, format, 2);
            ASSERT_TRUE(Render(*effect, host, src, dst, &info));

            RandomFrame expected(kWidth, kHeight, format, 3),
                bytes(kWidth, kHeight, PixelFormatBGRA8, 4);
            Processors::CCopy().Process(&src, &expected);
            const float aspect = c.aspect * (c.fieldMode == 3 ? 1.0f : 2.0f);
            PaintPlainly(src, expected, {c.length, c.thickness, kQuarter, false, false, aspect},
                         static_cast<unsigned int>(-5));
            if (c.radiusX > 0) {
                CFrame& median = format == PixelFormatBGRA8 ? expected : bytes;
                Processors::CColorSpaceConverter().Process(&expected, &bytes);
                Canvaskit::CMedian().Process(median, c.radiusX, c.radiusY);
                Processors::CColorSpaceConverter().Process(&bytes, &expected);
            }
            MemoryAllocator allocator(nullptr);
            Processors::CColorTwist().Process(
                &expected, &expected, host.values[kContrast].value, host.values[kBrightness].value,
                host.values[kColor].value, (0.8f - 0.5f) * 0.3f + 0.5f, allocator);
            Processors::CMix().Process(&src, &expected, &expected, 1.0f - 0.74f, 0.74f);
            Processors::CCopyPlane().Process(&src, &expected, 3, 3);
            ASSERT_TRUE(SamePixels(dst, expected));
        }
}

TEST(Impressionist, StrokesMoveWithTheSeedUnlessTheyAreLocked) {
    const EffectPointer effect(NewEffect(kImpressionist));
    TestHost host;
    UseDefaults(*effect, host);
    RandomFrame src(64, 48, PixelFormatARGB8, 1), first(64, 48, PixelFormatARGB8, 2),
        second(64, 48, PixelFormatARGB8, 3);
    const auto same = [&](std::int32_t seedA, const std::int32_t* seedB) {
        RenderInfo a{}, b{};
        a.nFieldMode = b.nFieldMode = kFieldModeFrame;
        a.nRandomSeed = seedA;
        if (seedB) b.nRandomSeed = *seedB;
        EXPECT_TRUE(Render(*effect, host, src, first, &a));
        EXPECT_TRUE(Render(*effect, host, src, second, seedB ? &b : nullptr));
        return SamePixels(first, second);
    };
    constexpr std::int32_t kSeven = 7, kLockedSeed = 10000;
    EXPECT_TRUE(same(6, &kSeven));
    EXPECT_TRUE(same(6, nullptr));
    host.values[kLockVariations].on = 0;
    EXPECT_FALSE(same(6, &kSeven));
    EXPECT_TRUE(same(7, &kSeven));
    EXPECT_TRUE(same(0, nullptr));
    ASSERT_TRUE(same(kLockedSeed, &kLockedSeed));
    RandomFrame locked(64, 48, PixelFormatARGB8, 4);
    host.values[kLockVariations].on = 1;
    ASSERT_TRUE(Render(*effect, host, src, locked));
    EXPECT_TRUE(SamePixels(locked, first));
}

TEST(Impressionist, PaintsWithoutTheHostsMemory) {
    const EffectPointer effect(NewEffect(kImpressionist));
    CountingAllocator lender;
    lender.refuseAfter = 0;
    TestHost host, poor(&lender);
    UseDefaults(*effect, host);
    UseDefaults(*effect, poor);
    RandomFrame src(64, 48, PixelFormatARGB8, 1), dst(64, 48, PixelFormatARGB8, 2),
        expected(64, 48, PixelFormatARGB8, 3);
    ASSERT_TRUE(Render(*effect, host, src, expected));
    ASSERT_TRUE(Render(*effect, poor, src, dst));
    EXPECT_TRUE(SamePixels(dst, expected));
}

TEST(Impressionist, ResetToNoneIsTheSource) {
    const EffectPointer effect(NewEffect(kImpressionist));
    TestHost host;
    constexpr unsigned int kResetToNone = 10;
    UsePreset(*effect, host, kResetToNone);
    host.values[kBrushSize].value = 0.5f;
    for (const PixelFormat format : kColorFormats) {
        RandomFrame src(40, 30, format, 1), dst(40, 30, format, 2);
        ASSERT_TRUE(Render(*effect, host, src, dst));
        EXPECT_TRUE(SamePixels(dst, src));
    }
}

}  // namespace
}  // namespace brushworks
