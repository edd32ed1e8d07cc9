// Sums of products over a window that slides over rows of samples: the core of the filters.
//
// The work is cut into strips of columns. Within a strip the source rows become lines of 32-bit
// lanes, each made once and kept as long as the window needs it; strips are so narrow that the
// lines of a window stay in the second cache. A block of output rows is summed at a time, so that a
// vector of samples, once loaded, serves several rows, and the sums stay in registers.
#pragma once

#include "primitives/scratch.h"
#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Lanes of single floats. Sums start at 0 and run over the window row by row, from the left.
struct FloatLanes {
    using Lane = float;
    using Vector = F32;
    static Vector Add(Vector sum, Vector samples, Vector taps) { return sum + samples * taps; }
};

/// Lanes of two 16-bit integers that meet two taps at once; the sums have 32 bits.
struct PairLanes {
    using Lane = std::int32_t;
    using Vector = I32;
    static Vector Add(Vector sum, Vector samples, Vector taps) {
#if defined(__AVX512BW__)
        return sum + (I32)_mm512_madd_epi16((__m512i)samples, (__m512i)taps);
#elif defined(__AVX2__)
        return sum + (I32)_mm256_madd_epi16((__m256i)samples, (__m256i)taps);
#elif defined(__SSE2__)
        return sum + (I32)_mm_madd_epi16((__m128i)samples, (__m128i)taps);
#else
        const auto low = [](I32 v) { return (I32)((U32)v << 16) >> 16; };
        return sum + low(samples) * low(taps) + (samples >> 16) * (taps >> 16);
#endif
    }
};

/// The taps of a window, row by row. `pitch` lanes lie between the samples that two neighbouring
/// taps of a row meet, `linePitch` lines between those of neighbouring rows.
template <class Lane>
struct Window {
    const Lane* taps;
    int rows, columns;
    int pitch;
    int linePitch;
};

/// Sums of `Rows` outputs in `Vectors` vectors; output r begins at line r of `lines`.
template <class Kind, int Rows, int Vectors, class Lane = typename Kind::Lane>
inline void SumBlock(const Lane* const* lines, std::ptrdiff_t at, Window<Lane> window,
                     Lane* const* sums) {
    using Vector = typename Kind::Vector;
    Vector acc[Rows][Vectors] = {};
    for (int m = 0; m < window.rows + Rows - 1; ++m) {
        const Lane* samples = lines[m] + at;
        const Lane* taps = window.taps + static_cast<std::ptrdiff_t>(window.columns) * m;
        const auto addTo = [&](int r, const Vector(&v)[Vectors]) {
            // Less 0, not plus: that would have to turn -0 into 0.
            const Vector tap = taps[-static_cast<std::ptrdiff_t>(window.columns) * r] - Vector{};
#pragma GCC unroll 8
            for (int i = 0; i < Vectors; ++i) acc[r][i] = Kind::Add(acc[r][i], v[i], tap);
        };
        const auto load = [&](Vector(&v)[Vectors]) {
#pragma GCC unroll 8
            for (int i = 0; i < Vectors; ++i) v[i] = Load<Vector>(samples + i * kLanes);
        };
        const bool all = m >= Rows - 1 && m < window.rows;
        for (int k = 0; k < window.columns; ++k, samples += window.pitch, ++taps) {
            Vector v[Vectors];
            load(v);
            if (all) {
#pragma GCC unroll 8
                for (int r = 0; r < Rows; ++r) addTo(r, v);
            } else {
#pragma GCC unroll 8
                for (int r = 0; r < Rows; ++r)
                    if (r <= m && m - r < window.rows) addTo(r, v);
            }
        }
    }
#pragma GCC unroll 8
    for (int r = 0; r < Rows; ++r)
#pragma GCC unroll 8
        for (int i = 0; i < Vectors; ++i) Store(sums[r] + at + i * kLanes, acc[r][i]);
}

/// Lines and sums are whole blocks long, so that no loop has a last part of its own; a strip is at
/// most this wide.
inline constexpr std::ptrdiff_t kMostStripLanes = 8192;
inline std::ptrdiff_t WholeBlocks(std::ptrdiff_t lanes) {
    constexpr std::ptrdiff_t kBlock = 8 * kLanes;
    return (lanes + kBlock - 1) / kBlock * kBlock;
}

template <class Kind, int Rows, int Vectors, class Lane = typename Kind::Lane>
void SumLines(const Lane* const* lines, Window<Lane> window, Lane* const* sums,
              std::ptrdiff_t lanes) {
    for (std::ptrdiff_t at = 0; at < lanes; at += Vectors * kLanes)
        SumBlock<Kind, Rows, Vectors>(lines, at, window, sums);
}

/// How many rows are summed at once, and the function that does it: as many sums as the registers
/// hold beside a few samples.
template <class Kind>
struct Summing {
    using Lane = typename Kind::Lane;
    int rows;
    void (*sum)(const Lane* const* lines, Window<Lane> window, Lane* const* sums,
                std::ptrdiff_t lanes);
};
template <class Kind>
Summing<Kind> SummingFor(int windowRows) {
    if (windowRows == 1) return {1, SumLines<Kind, 1, 8>};
#ifdef __AVX512BW__
    if (windowRows >= 6) return {4, SumLines<Kind, 4, 4>};
    return {2, SumLines<Kind, 2, 8>};
#else
    return {2, SumLines<Kind, 2, 4>};
#endif
}
inline constexpr int kMostSummedRows = 4;

/// `sampleCount` outputs in each of `rows` rows, made from `lineCount` lines.
struct Extent {
    std::ptrdiff_t sampleCount;
    int rows;
    std::ptrdiff_t lineCount;
};

/// Slides the window over a picture. makeLine(s, x, count, line) writes line s from sample x on:
/// `count` lanes and no more, as many of them as the source has; finish(y, x, count, sums) takes
/// the sums of row y. Output row y begins at line y.
template <class Kind, class MakeLine, class Finish>
int SlideWindow(Extent extent, Window<typename Kind::Lane> window, MakeLine makeLine,
                Finish finish) {
    using Lane = typename Kind::Lane;
    constexpr std::ptrdiff_t kLinesLanes = 64 * 1024;  // a quarter of a megabyte, of one or two
    const Summing<Kind> summing = SummingFor<Kind>(window.rows);
    const int block = summing.rows * window.linePitch;
    const std::ptrdiff_t kept =
        static_cast<std::ptrdiff_t>(window.rows - 1) * window.linePitch + block;
    std::ptrdiff_t strip = WholeBlocks(kLinesLanes / kept + 1);
    if (strip > kMostStripLanes) strip = kMostStripLanes;
    if (strip > extent.sampleCount) strip = WholeBlocks(extent.sampleCount);
    const std::ptrdiff_t halo = static_cast<std::ptrdiff_t>(window.columns - 1) * window.pitch;
    // Neighbouring lines differ in their place within a page, so that they share the first cache.
    const std::ptrdiff_t step = WholeBlocks(strip + halo) + 16;

    const auto lanes = static_cast<std::size_t>((kept + summing.rows) * step);
    const auto pointers = static_cast<std::size_t>(window.rows) + kMostSummedRows;
    const Scratch memory(lanes * sizeof(Lane)), pointerMemory(pointers * sizeof(Lane*));
    Lane* const ring = memory.template as<Lane>();
    const Lane** const lines = pointerMemory.template as<const Lane*>();
    if (!ring || !lines) return kStatusNoMemory;
    Lane* sums[kMostSummedRows] = {};
    for (int r = 0; r < summing.rows; ++r) sums[r] = ring + (kept + r) * step;

    for (std::ptrdiff_t x = 0; x < extent.sampleCount; x += strip) {
        const std::ptrdiff_t rest = extent.sampleCount - x, count = rest < strip ? rest : strip;
        std::ptrdiff_t made = 0;
        for (std::ptrdiff_t y = 0; y < extent.rows; y += block) {
            for (; made < y + kept && made < extent.lineCount; ++made)
                makeLine(static_cast<int>(made), x, count + halo, ring + made % kept * step);
            for (int phase = 0; phase < window.linePitch; ++phase) {
                // Rows below the last one are summed from lines at hand, and dropped.
                for (int m = 0; m < window.rows + summing.rows - 1; ++m) {
                    const std::ptrdiff_t line =
                        y + phase + static_cast<std::ptrdiff_t>(m) * window.linePitch;
                    lines[m] = ring + (line < made ? line : made - 1) % kept * step;
                }
                summing.sum(lines, window, sums, WholeBlocks(count));
                for (int r = 0; r < summing.rows; ++r)
                    if (const std::ptrdiff_t row = y + phase + r * window.linePitch;
                        row < extent.rows)
                        finish(static_cast<int>(row), x, count, sums[r]);
            }
        }
    }
    return kStatusOk;
}

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
