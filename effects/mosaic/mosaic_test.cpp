// Mosaic's grid, lines, fill and repair beside plain loops, and its bricks put together from them.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "effects/mosaic/facets.h"
#include "effects/mosaic/fill.h"
#include "effects/mosaic/lines.h"
#include "effects/mosaic/point_grid.h"
#include "effects/mosaic/remove_borders.h"
#include "effects/testing.h"
#include "processors/channel_reverse.h"
#include "processors/copy_plane.h"
#include "processors/set_color.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kMosaic = 5;
enum Param : unsigned int { kSize, kShape, kBorders };
constexpr PixelFormat kByteFormats[] = {PixelFormatBGRA8, PixelFormatARGB8};

using Pixel = std::array<unsigned char, 4>;

Pixel& At(CFrame& frame, int x, int y) {
    return Processors::RowOf<Pixel>(frame, y)[x];
}

bool IsBlank(const Pixel& pixel) {
    return pixel == Pixel{};
}

void Copy(CFrame& from, CFrame& to) {
    for (int y = 0; y < from.m_nHeight; ++y)
        std::copy_n(&At(from, 0, y), from.m_nWidth, &At(to, 0, y));
}

/// Random pixels, of which about `blank` in ten are all 0. The others are never black.
struct SpottedFrame : RandomFrame {
    SpottedFrame(int width, int height, PixelFormat format, unsigned seed, unsigned blank)
        : RandomFrame(width, height, format, seed) {
        std::mt19937 engine(seed);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                Pixel& pixel = At(*this, x, y);
                for (auto& sample : pixel) sample = static_cast<unsigned char>(64 + sample % 137);
                if (engine() % 10 < blank) pixel = {};
            }
    }
};

TEST(MosaicGrid, ShakesALatticeOfTallCells) {
    constexpr IppiSize kFrame = {200, 172};  // 10 cells of 20 pixels, 5 of 34.4 and two halves
    constexpr int kAcross[11] = {0, 20, 40, 60, 80, 100, 120, 140, 160, 180, 199};
    constexpr int kDown[7] = {0, 17, 51, 86, 120, 154, 171};
    const PointGrid still(kFrame, 0.38f, 1e6f, 1e6f, 1.0f);  // no room for jitter
    const PointGrid shaken(kFrame, 0.38f, 0.1f, 0.1f, 1.0f);
    ASSERT_EQ(still.nx(), 10);
    ASSERT_EQ(still.ny(), 5);
    int moved = 0;
    for (int r = 0; r <= 6; ++r)
        for (int c = 0; c <= 10; ++c) {
            SCOPED_TRACE(::testing::Message() << r << ", " << c);
            EXPECT_EQ(still.At(r, c).x, kAcross[c]);
            EXPECT_EQ(still.At(r, c).y, kDown[r]);
            // To the right by up to 0.85 of the jitter's 12 pixels; up and down in turn, by less
            // than 0.73 of its 21. The rim stays on the rim.
            const int right = shaken.At(r, c).x - kAcross[c], down = shaken.At(r, c).y - kDown[r];
            const bool isRim = c == 0 || c == 10 || r == 0 || r == 6;
            EXPECT_TRUE(right >= 0 && right <= (isRim ? 0 : 10)) << right;
            const int further = (r + c) % 2 == 0 ? -down : down;
            EXPECT_TRUE(further >= -1 && further <= (r == 0 || r == 6 ? 0 : 15)) << down;
            moved += right != 0 && down != 0;
        }
    EXPECT_GT(moved, 20);
    // Pixels twice as wide as high halve the rows and double the columns' width.
    const PointGrid wide(kFrame, 0.38f, 0.1f, 0.1f, 2.0f);
    EXPECT_EQ(wide.nx(), 5);
    EXPECT_EQ(wide.ny(), 5);
}

TEST(MosaicGrid, StaysInsideTheFrameWhateverTheAspect) {
    for (const IppiSize size : {IppiSize{1, 1}, {2, 3}, {97, 61}, {5000, 2}, {2, 5000}})
        for (const float aspect : {0.0f, -0.0f, -3.0f, 1e-30f, 1e30f, NAN, INFINITY, -INFINITY})
            for (const float brick : {0.0f, 1.0f, NAN, INFINITY}) {
                const PointGrid grid(size, brick, 0.1f, 0.1f, aspect);
                EXPECT_LE(grid.nx(), std::max(1, size.width / 2));
                EXPECT_LE(grid.ny(), std::max(100, size.height));
                for (int r = 0; r <= grid.ny() + 1; ++r)
                    for (int c = 0; c <= grid.nx(); ++c) {
                        const IppiPoint p = grid.At(r, c);
                        ASSERT_TRUE(p.x >= 0 && p.x < size.width && p.y >= 0 && p.y < size.height);
                    }
            }
}

/// The positions of a line, with one division a step.
std::vector<IppiPoint> PlainLine(int x1, int y1, int x2, int y2) {
    const int dx = std::abs(x2 - x1), dy = std::abs(y2 - y1), n = std::max(dx, dy);
    std::vector<IppiPoint> line;
    for (int i = 0; i <= n; ++i) {
        const int alongX = n == 0 ? 0 : i * dx / n, alongY = n == 0 ? 0 : i * dy / n;
        line.push_back({x2 < x1 ? x1 - alongX : x1 + alongX, y2 < y1 ? y1 - alongY : y1 + alongY});
    }
    return line;
}

TEST(MosaicLines, DrawAndAverageAlongTheSameWalk) {
    constexpr int kWidth = 40, kHeight = 27;
    for (const PixelFormat format : kByteFormats) {
        const bool alphaFirst = format == PixelFormatARGB8;
        const int red = alphaFirst ? 1 : 2, green = alphaFirst ? 2 : 1;
        const int blue = alphaFirst ? 3 : 0, alpha = alphaFirst ? 0 : 3;
        RandomFrame frame(kWidth, kHeight, format, 1), plain(kWidth, kHeight, format, 1);
        std::mt19937 engine(2);
        auto coordinate = [&](int size) { return static_cast<int>(engine() % (size + 6)) - 3; };
        for (int i = 0; i < 2000; ++i) {
            const int x1 = coordinate(kWidth), y1 = coordinate(kHeight);
            const int x2 = i % 9 ? coordinate(kWidth) : x1, y2 = i % 7 ? coordinate(kHeight) : y1;
            unsigned int sums[3] = {};
            const std::vector<IppiPoint> line = PlainLine(x1, y1, x2, y2);
            bool inside = true;
            for (const IppiPoint p : {line.front(), line.back()})
                inside = inside && p.x >= 0 && p.y >= 0 && p.x < kWidth && p.y < kHeight;
            for (const IppiPoint p : line) {
                Pixel& pixel =
                    At(plain, std::clamp(p.x, 0, kWidth - 1), std::clamp(p.y, 0, kHeight - 1));
                sums[0] += pixel[red];
                sums[1] += pixel[green];
                sums[2] += pixel[blue];
                if (i % 3 == 0) {
                    pixel[red] = 0x11;
                    pixel[green] = 0x22;
                    pixel[blue] = 0x33;
                    pixel[alpha] = static_cast<unsigned char>(i);
                }
            }
            unsigned int mean = 0;
            for (int c = 2; c >= 0; --c)
                mean = mean << 8 | sums[c] / static_cast<unsigned int>(line.size());
            ASSERT_EQ(GetAverageLineColor8u(&frame, x1, y1, x2, y2), inside ? mean : 0) << i;
            if (i % 3 == 0)
                DrawLine(&frame, x1, y1, x2, y2,
                         static_cast<unsigned int>(i % 256) << 24 | 0x332211);
        }
        EXPECT_TRUE(SamePixels(frame, plain));
    }
}

TEST(MosaicLines, SoftLinesDarkenBesideTheirPath) {
    for (const PixelFormat format : kByteFormats)
        for (const bool steep : {false, true})
            for (const bool backwards : {false, true}) {
                RandomFrame frame(9, 9, format, 1);
                Processors::CSetColor().Process(&frame, 0xff808080);
                auto draw = [&](double x1, double y1, double x2, double y2) {
                    if (steep) std::swap(x1, y1), std::swap(x2, y2);
                    if (backwards) std::swap(x1, x2), std::swap(y1, y2);
                    Drawwuline(&frame, x1, y1, x2, y2, 0xffffffff);
                };
                const auto colorAt = [&](int x, int y) {
                    const Pixel& pixel = steep ? At(frame, y, x) : At(frame, x, y);
                    EXPECT_EQ(pixel[Processors::AlphaPlane(frame)], 255);
                    return int{pixel[1]};
                };
                draw(4, 4, 4, 4);  // no line at all
                EXPECT_EQ(colorAt(4, 4), 128);
                draw(1, 1, 5, 1);
                draw(2, 4, 6, 6);
                draw(0, 8, 8, 8);  // half of it lies outside
                // By rows; weights of 0, 127, 191 and 255 leave 0, 63, 95 and 127 of 128.
                constexpr int kExpected[9][9] = {{128, 128, 128, 128, 128, 128, 128, 128, 128},
                                                 {128, 0, 0, 0, 0, 0, 128, 128, 128},
                                                 {128, 63, 127, 127, 127, 63, 128, 128, 128},
                                                 {128, 128, 128, 128, 128, 128, 128, 128, 128},
                                                 {128, 128, 0, 63, 128, 128, 128, 128, 128},
                                                 {128, 128, 63, 63, 0, 63, 128, 128, 128},
                                                 {128, 128, 128, 128, 127, 63, 0, 128, 128},
                                                 {128, 128, 128, 128, 128, 128, 63, 128, 128},
                                                 {0, 0, 0, 0, 0, 0, 0, 0, 0}};
                for (int y = 0; y < 9; ++y)
                    for (int x = 0; x < 9; ++x)
                        EXPECT_EQ(colorAt(x, y), kExpected[y][x]) << x << ", " << y;
            }
}

/// Fills from one point as told, on the colours of a copy.
void PlainFill(CFrame& image, CFrame& lines, FillPoint point) {
    const int colors = Processors::AlphaPlane(image) == 0 ? 1 : 0;
    const int w = image.m_nWidth, h = image.m_nHeight;
    const IppiPoint choices[] = {{point.x, point.y},
                                 {std::max(point.x - 1, 0), point.y},
                                 {std::min(point.x + 1, w - 1), point.y},
                                 {point.x, std::max(point.y - 1, 0)},
                                 {point.x, std::min(point.y + 1, h - 1)}};
    const auto start = std::find_if(std::begin(choices), std::end(choices),
                                    [&](IppiPoint p) { return !IsBlank(At(lines, p.x, p.y)); });
    if (start == std::end(choices)) return;
    const Pixel old = At(image, start->x, start->y);
    Pixel fresh = old;
    for (int i = 0; i < 3; ++i)
        fresh[colors == 0 ? 2 - i : 1 + i] = static_cast<unsigned char>(point.color >> 8 * i);
    const auto sameColor = [colors](const Pixel& a, const Pixel& b) {
        return std::equal(&a[colors], &a[colors] + 3, &b[colors]);
    };
    if (sameColor(old, fresh)) return;
    std::vector<IppiPoint> open = {*start};
    while (!open.empty()) {
        const IppiPoint p = open.back();
        open.pop_back();
        if (p.x < 0 || p.y < 0 || p.x >= w || p.y >= h) continue;
        if (!sameColor(At(image, p.x, p.y), old)) continue;
        std::copy_n(&fresh[colors], 3, &At(image, p.x, p.y)[colors]);
        for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
            open.push_back({p.x + dx, p.y + dy});
    }
}

TEST(MosaicFill, FlowsFromEachSeedInTurn) {
    constexpr int kWidth = 31, kHeight = 22;
    for (const PixelFormat format : kByteFormats) {
        RandomFrame frame(kWidth, kHeight, format, 1), lines(kWidth, kHeight, format, 1),
            plain(kWidth, kHeight, format, 1);
        Processors::CSetColor().Process(&lines, 0xffffffff);
        std::mt19937 engine(3);
        for (int i = 0; i < kWidth * kHeight / 2; ++i)
            At(lines, engine() % kWidth, engine() % kHeight) = {};
        At(lines, 7, 7)[Processors::AlphaPlane(lines)] = 9;  // black for the fill, but no line
        Copy(lines, frame);
        Copy(lines, plain);
        std::vector<FillPoint> points;
        points.reserve(123);
        for (int i = 0; i < 120; ++i)  // black among them, which joins the lines
            points.push_back({i % 40 == 39 ? 0 : static_cast<std::uint32_t>(engine()) & 0xffffff,
                              static_cast<int>(engine() % kWidth),
                              static_cast<int>(engine() % kHeight)});
        for (const IppiPoint corner : {IppiPoint{0, 0}, {kWidth - 1, 0}, {0, kHeight - 1}})
            points.push_back({0x123456, corner.x, corner.y});
        for (const FillPoint& point : points) PlainFill(plain, lines, point);
        const auto fill = format == PixelFormatBGRA8 ? FloodFillBGRA8 : FloodFillARGB8;
        MemoryAllocator allocator;
        fill(&frame, points.data(), static_cast<int>(points.size()), 0, &allocator);
        EXPECT_TRUE(SamePixels(frame, plain));
    }
}

TEST(MosaicBorders, CloseFromTheTopLeft) {
    for (const PixelFormat format : kByteFormats)
        for (const int width : {1, 2, 15, 16, 17, 33, 80})
            for (const unsigned blank : {1u, 4u, 8u, 10u}) {
                constexpr int kHeight = 12;
                SpottedFrame frame(width, kHeight, format, 5, blank);
                SpottedFrame plain(width, kHeight, format, 5, blank);
                const int colors = Processors::AlphaPlane(frame) == 0 ? 1 : 0;
                for (int y = 0; y < kHeight; ++y)
                    for (int x = 0; x < width; ++x) {
                        if (!IsBlank(At(plain, x, y))) continue;
                        int count = 0, sums[4] = {};
                        for (const IppiPoint p : {IppiPoint{x, std::min(y + 1, kHeight - 1)},
                                                  {x, std::max(y - 1, 0)},
                                                  {std::min(x + 1, width - 1), y},
                                                  {std::max(x - 1, 0), y}}) {
                            const Pixel& pixel = At(plain, p.x, p.y);
                            if (IsBlank(pixel)) continue;
                            ++count;
                            for (int i = colors; i < colors + 3; ++i) sums[i] += pixel[i];
                        }
                        for (int i = colors; count > 0 && i < colors + 3; ++i)
                            At(plain, x, y)[i] = static_cast<unsigned char>(sums[i] / count);
                    }
                (format == PixelFormatBGRA8 ? RemoveBordersBGRA8 : RemoveBordersARGB8)(&frame);
                EXPECT_TRUE(SamePixels(frame, plain)) << width << " wide, " << blank;
            }
}

/// The bricks of a frame as told, seed by seed.
void PlainFacets(CFrame& src, CFrame& dst, float size, float jitter, bool borders, float aspect) {
    const int w = dst.m_nWidth, h = dst.m_nHeight;
    const PointGrid grid({w, h}, size, jitter, jitter, aspect);
    const auto mean = [&](int x, int y, IppiPoint to) {
        return GetAverageLineColor8u(&src, x, y, to.x, to.y);
    };
    std::vector<FillPoint> seeds;
    for (int r = 0; r <= grid.ny(); ++r)
        for (int c = 0; c <= grid.nx(); ++c) {
            if (c % 2 != r % 2) continue;
            const IppiPoint p = grid.At(r, c), q = grid.At(r + 1, c);
            const int m = (p.y + q.y) / 2;
            FillPoint seed = {mean(p.x, p.y, q), (p.x + q.x) / 2, m};
            if (c == 0) seed.x = 0;
            if (c >= grid.nx()) seed.x = w - 1;
            if (r == 0) seed.y = 0;
            if (r >= grid.ny()) seed.y = h - 1;
            if (c == 0 || c >= grid.nx()) {
                const int beside = c == 0 ? 1 : c - 1;
                const unsigned int one = mean(seed.x, m, grid.At(r, beside)),
                                   other = mean(seed.x, m, grid.At(r + 1, beside));
                seed.color = 0;
                for (int i = 0; i < 24; i += 8)
                    seed.color |= ((one >> i & 255) + (other >> i & 255)) >> 1 << i;
            }
            seeds.push_back(seed);
        }
    Processors::CSetColor().Process(&dst, 0xffffffff);
    grid.ForEachLine([&](IppiPoint a, IppiPoint b) { DrawLine(&dst, a.x, a.y, b.x, b.y, 0); });
    FloodFillBGRA8(&dst, seeds.data(), static_cast<int>(seeds.size()), 0, nullptr);
    RemoveBordersBGRA8(&dst);
    if (borders)
        grid.ForEachLine(
            [&](IppiPoint a, IppiPoint b) { Drawwuline(&dst, a.x, a.y, b.x, b.y, 0); });
}

TEST(Mosaic, BricksTakeTheirColoursAsTold) {
    const EffectPointer effect(NewEffect(kMosaic));
    TestHost host;
    RenderInfo info{};
    info.dwFlags = kRenderHasPixelAspect;
    for (const IppiSize size : {IppiSize{1, 1}, {8, 8}, {41, 30}, {120, 90}})
        for (const float brick : {0.0f, 0.3f, 1.0f})
            for (const bool borders : {false, true})
                for (const int fieldMode : {1, int{kFieldModeFrame}}) {
                    SCOPED_TRACE(::testing::Message() << size.width << " wide, size " << brick);
                    host.values[kSize].value = brick;
                    host.values[kShape].value = 0.4f;
                    host.values[kBorders].word = borders ? 1 : 0;
                    info.dPixelAspect = 1.25;
                    info.nFieldMode = static_cast<std::int16_t>(fieldMode);
                    RandomFrame src(size.width, size.height, PixelFormatBGRA8, 1),
                        dst(size.width, size.height, PixelFormatBGRA8, 2),
                        plain(size.width, size.height, PixelFormatBGRA8, 3);
                    ASSERT_TRUE(Render(*effect, host, src, dst, &info));
                    PlainFacets(src, plain, brick * 0.98f + 0.02f, (1.0f - 0.4f) * 0.68f, borders,
                                fieldMode == kFieldModeFrame ? 1.25f : 2.5f);
                    for (int y = 0; y < size.height; ++y)
                        for (int x = 0; x < size.width; ++x) At(plain, x, y)[3] = At(src, x, y)[3];
                    EXPECT_TRUE(SamePixels(dst, plain));
                }
}

TEST(Mosaic, EveryBrickIsFilled) {
    const EffectPointer effect(NewEffect(kMosaic));
    TestHost host;
    for (unsigned int preset = 0; effect->EnumPreset(preset); ++preset) {
        SCOPED_TRACE(effect->EnumPreset(preset));
        UsePreset(*effect, host, preset);
        host.values[kBorders].word = 0;
        SpottedFrame src(190, 131, PixelFormatBGRA8, 1, 0);
        RandomFrame dst(190, 131, PixelFormatBGRA8, 2);
        ASSERT_TRUE(Render(*effect, host, src, dst));
        for (int y = 0; y < 131; ++y)
            for (int x = 0; x < 185; ++x)  // crossings of the last column stay: small white pockets
                for (int i = 0; i < 3; ++i) {  // the source's range: no line and no white is left
                    ASSERT_GE(At(dst, x, y)[i], 64) << x << ", " << y;
                    ASSERT_LE(At(dst, x, y)[i], 200) << x << ", " << y;
                }
    }
}

/// All pixels whose bytes are 0.
std::vector<bool> BlankPixels(CFrame& frame) {
    std::vector<bool> blank;
    for (int y = 0; y < frame.m_nHeight; ++y)
        for (int x = 0; x < frame.m_nWidth; ++x) blank.push_back(IsBlank(At(frame, x, y)));
    return blank;
}

TEST(Mosaic, ThePatternStandsStillAndLinesStayWhereAskedFor) {
    SpottedFrame one(150, 90, PixelFormatBGRA8, 1, 0), other(150, 90, PixelFormatBGRA8, 2, 0);
    RandomFrame dst(150, 90, PixelFormatBGRA8, 3);
    MemoryAllocator allocator;
    const auto lines = [&](CFrame& src, bool wantOutlines, bool borders) {
        Processors::CSetColor().Process(&dst, 0xffffffff);
        AddFacets(&src, &dst, 0.3f, 0.0f, 0.3f, 0.3f, wantOutlines, borders, 1.0f, &allocator);
        return BlankPixels(dst);
    };
    const std::vector<bool> holding = lines(one, false, true), none(holding.size());
    EXPECT_EQ(lines(other, false, true), holding);
    EXPECT_EQ(lines(one, true, false), none);
    EXPECT_EQ(lines(one, false, false), none);
    const std::vector<bool> soft = lines(one, true, true);
    EXPECT_NE(soft, none);
    EXPECT_NE(soft, holding);
}

TEST(Mosaic, FacetsDoNotDependOnTheOrderOfChannels) {
    RandomFrame src(90, 70, PixelFormatBGRA8, 1), dst(90, 70, PixelFormatBGRA8, 2),
        reversed(90, 70, PixelFormatARGB8, 3), result(90, 70, PixelFormatARGB8, 4);
    Processors::CChannelReverse().Process(&src, &reversed);
    MemoryAllocator allocator;
    for (auto [from, to] : {std::pair<CFrame*, CFrame*>{&src, &dst}, {&reversed, &result}}) {
        Processors::CSetColor().Process(to, 0xffffffff);
        AddFacets(from, to, 0.1f, 0.0f, 0.2f, 0.1f, true, true, 1.0f, &allocator);
    }
    Processors::CChannelReverse().Process(&dst, &reversed);
    EXPECT_TRUE(SamePixels(reversed, result));
}

TEST(Mosaic, WithoutWorkingFramesAlphaAloneComesOver) {
    const EffectPointer effect(NewEffect(kMosaic));
    CountingAllocator lender;
    TestHost poor(&lender);
    UseDefaults(*effect, poor);
    RandomFrame src(40, 30, PixelFormatARGB32f, 1), dst(40, 30, PixelFormatARGB32f, 2),
        expected(40, 30, PixelFormatARGB32f, 2);
    Processors::CCopyPlane().Process(&src, &expected, 0, 0);
    for (lender.refuseAfter = 0; lender.refuseAfter < 2; ++lender.refuseAfter) {
        lender.lent = 0;
        EXPECT_TRUE(Render(*effect, poor, src, dst));
        EXPECT_TRUE(SamePixels(dst, expected));
    }
}

TEST(Mosaic, OtherLayoutsAreLeftAsTheyAre) {
    const EffectPointer effect(NewEffect(kMosaic));
    TestHost host;
    UseDefaults(*effect, host);
    for (const PixelFormat format : {PixelFormatMono8, PixelFormatMono32f}) {
        RandomFrame src(9, 6, format, 1), dst(9, 6, format, 2), before(9, 6, format, 2);
        EXPECT_TRUE(Render(*effect, host, src, dst));
        EXPECT_TRUE(SamePixels(dst, before));
    }
}

}  // namespace
}  // namespace brushworks
