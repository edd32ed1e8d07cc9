// Bodies of the resampling; built once for each variant.
//
// Rows are taken as floats from the lowest to the highest tap, with the edge repeated, so that the
// sums along them need no test.
#include "primitives/resize.h"

#include "primitives/memory.h"
#include "primitives/resize_axis.h"
#include "primitives/resize_halving.h"
#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

using Pixel32f [[gnu::vector_size(16)]] = float;

constexpr std::int64_t kAlignment = 64;

/// What vector loops may read and write behind the floats of a row.
constexpr std::int64_t kSlack = 64;
static_assert(kSlack >= kVectorBytes);

/// The parts of the work buffer, in bytes from its first aligned byte.
struct BufferPlan {
    BufferPlan(std::int64_t srcWidth, std::int64_t dstWidth, int channels)
        : weights(Aligned(dstWidth * 4)),
          source(weights + Aligned(dstWidth * 4 * kMostTaps)),
          rows(source + Aligned((srcWidth + 2 * kTapMargin) * channels * 4)),
          rowBytes(Aligned((dstWidth * channels + kSlack) * 4)),
          total(rows + kMostTaps * rowBytes + kAlignment) {}

    static std::int64_t Aligned(std::int64_t bytes) {
        return (bytes + kAlignment - 1) / kAlignment * kAlignment;
    }

    std::int64_t weights, source, rows, rowBytes, total;
};

/// One call with its arguments checked.
template <class Sample, int Channels>
struct Resizing {
    const Sample* src;  // at the first pixel that may be read
    int srcStep;
    Sample* dst;  // at the corner of the destination region
    int dstStep;
    IppiRect dstRoi;
    ResizeAxis x, y;

    /// The first pixel that may be read of a row.
    const Sample* SourceRow(std::int64_t row) const {
        return Row(src, srcStep, static_cast<int>(row - y.lowest));
    }
    Sample* DestinationRow(int row) const { return Row(dst, dstStep, row); }
};

/// Where the destination pixels of a row, or of a part of it, find their taps.
struct RowTaps {
    const std::uint32_t* first;  // in floats, as counted in the whole row
    const float* weights;
    int pixels;
    std::int64_t lowest, highest;
};

template <int Taps, class Sample, int Channels>
RowTaps FindRowTaps(const Resizing<Sample, Channels>& call, std::uint32_t* first, float* weights) {
    const int width = call.dstRoi.width;
    float scratch[kMostTaps];
    // Positions grow with x, so the ends have the lowest and the highest tap.
    const std::int64_t lowest = call.x.FirstTap(call.dstRoi.x, scratch);
    const std::int64_t last = call.x.FirstTap(call.dstRoi.x + width - 1, scratch);
    for (int x = 0; x < width; ++x)
        first[x] = static_cast<std::uint32_t>(
            Channels *
            (call.x.FirstTap(call.dstRoi.x + x, weights + std::ptrdiff_t{Taps} * x) - lowest));
    return {first, weights, width, lowest, last + Taps - 1};
}

/// The taps of `pixels` pixels from x on.
template <int Taps, int Channels>
RowTaps PartOf(const RowTaps& row, int x, int pixels) {
    const std::uint32_t* first = row.first + x;
    return {first, row.weights + std::ptrdiff_t{Taps} * x, pixels, row.lowest + *first / Channels,
            row.lowest + first[pixels - 1] / Channels + Taps - 1};
}

/// The source positions between the lowest and the highest tap: those inside, and how many repeats
/// of the edge there are on either side.
struct Window {
    template <class Call>
    Window(const Call& call, const RowTaps& taps)
        : first(call.x.Inside(taps.lowest)),
          pixels(call.x.Inside(taps.highest) - first + 1),
          left(first - taps.lowest),
          right(taps.highest - call.x.Inside(taps.highest)) {
        first -= call.x.lowest;
    }

    std::int64_t first;  // from the first pixel that may be read
    std::int64_t pixels, left, right;
};

/// Repeats the edges around the pixels inside, which lie in their place.
template <int Channels>
void RepeatEdges(const Window& window, float* to) {
    const float* inside = to + window.left * Channels;
    for (std::int64_t i = 0; i < window.left; ++i)
        std::memcpy(to + i * Channels, inside, Channels * sizeof(float));
    const float* last = inside + (window.pixels - 1) * Channels;
    for (std::int64_t i = 0; i < window.right; ++i)
        std::memcpy(to + (window.left + window.pixels + i) * Channels, last,
                    Channels * sizeof(float));
}

/// The samples of a row between the lowest and the highest tap as floats, in `to` unless they can
/// be taken where they are.
template <int Channels, class Sample>
const float* WidenRow(const Sample* row, const Window& window, float* to) {
    const Sample* inside = row + window.first * Channels;
    if constexpr (std::is_same_v<Sample, float>)
        if (window.left == 0 && window.right == 0) return inside;
    float* middle = to + window.left * Channels;
    for (std::int64_t i = 0; i < window.pixels * Channels; ++i) middle[i] = inside[i];
    RepeatEdges<Channels>(window, to);
    return to;
}

/// kLanes samples; bytes by the one instruction for it, of which the compiler makes several.
inline F32 LoadLanes(const float* from) {
    return Load<F32>(from);
}
inline F32 LoadLanes(const std::uint8_t* from) {
#if defined(__AVX512BW__)
    // The plain form makes this compiler warn of its own header.
    return ToFloat((I32)_mm512_maskz_cvtepu8_epi32(0xFFFF, Load<__m128i>(from)));
#elif defined(__AVX2__)
    return ToFloat(
        (I32)_mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(from))));
#else
    const U8 bytes = (U8)(U32{LoadPixel(from)});
    return ToFloat((I32)ZipLow((U16)ZipLow(bytes, U8{}), U16{}));
#endif
}

/// The same of sums along the column.
template <int Taps, int Channels, class Sample>
void SumRows(const Sample* const (&rows)[Taps], const float* weights, const Window& window,
             float* to) {
    const std::int64_t start = window.first * Channels, samples = window.pixels * Channels;
    float* const middle = to + window.left * Channels;
    F32 spread[Taps];
    const Sample* from[Taps];
    for (int k = 0; k < Taps; ++k) {
        spread[k] = weights[k] - F32{};
        from[k] = rows[k] + start;
    }
    const auto sumAt = [&](std::int64_t i) {
        F32 sum = spread[0] * LoadLanes(from[0] + i);
        for (int k = 1; k < Taps; ++k) sum += spread[k] * LoadLanes(from[k] + i);
        Store(middle + i, sum);
    };
    std::int64_t i = 0;
    for (; i + kLanes <= samples; i += kLanes) sumAt(i);
    // The last vector takes back what it lacks; a narrow window has none.
    if (i < samples && kLanes <= samples) {
        sumAt(samples - kLanes);
        i = samples;
    }
    for (; i < samples; ++i) {
        float sum = weights[0] * static_cast<float>(from[0][i]);
        for (int k = 1; k < Taps; ++k) sum += weights[k] * static_cast<float>(from[k][i]);
        middle[i] = sum;
    }
    RepeatEdges<Channels>(window, to);
}

/// One row of sums along the row.
template <int Channels, int Taps>
void ResampleRow(const float* from, const RowTaps& taps, float* __restrict to) {
    const float* w = taps.weights;
    const std::ptrdiff_t origin = *taps.first;
#pragma GCC unroll 4
    for (int x = 0; x < taps.pixels; ++x) {
        const float* first = from + (std::ptrdiff_t{taps.first[x]} - origin);
        if constexpr (Channels == 4) {
            Pixel32f sum = w[0] * Load<Pixel32f>(first);
            for (int k = 1; k < Taps; ++k) sum += w[k] * Load<Pixel32f>(first + 4 * k);
            Store(to, sum);
        } else {
            *to = w[0] * first[0];
            for (int k = 1; k < Taps; ++k) *to += w[k] * first[k];
        }
        to += Channels;
        w += Taps;
    }
}

template <int Taps>
inline F32 SumDown(const float* const (&rows)[Taps], const F32 (&weights)[Taps], std::ptrdiff_t i) {
    F32 sum = weights[0] * Load<F32>(rows[0] + i);
    for (int k = 1; k < Taps; ++k) sum += weights[k] * Load<F32>(rows[k] + i);
    return sum;
}

/// Vectors of samples from sums, `at(i)` being those of lane i on.
template <class At>
inline U8 SamplesAt(const std::uint8_t*, std::ptrdiff_t i, At at) {
    return NarrowToBytes(R8(at(i)), R8(at(i + kLanes)), R8(at(i + 2 * kLanes)),
                         R8(at(i + 3 * kLanes)));
}
template <class At>
inline F32 SamplesAt(const float*, std::ptrdiff_t i, At at) {
    return at(i);
}

/// The sums along the column; rows have slack behind them. The last ones stand apart: kept in the
/// loop they cost a store to the stack for each vector.
template <int Taps, class Sample>
void CombineRows(const float* const (&rows)[Taps], const float* weights, std::ptrdiff_t samples,
                 Sample* to) {
    constexpr std::ptrdiff_t kStep = kVectorBytes / std::ptrdiff_t{sizeof(Sample)};
    F32 spread[Taps];
    for (int k = 0; k < Taps; ++k) spread[k] = weights[k] - F32{};
    const auto at = [&](std::ptrdiff_t i) { return SumDown<Taps>(rows, spread, i); };
    std::ptrdiff_t i = 0;
    for (; i + kStep <= samples; i += kStep) Store(to + i, SamplesAt(to, i, at));
    if (i == samples) return;
    const auto last = SamplesAt(to, i, at);
    std::memcpy(to + i, &last, static_cast<std::size_t>(samples - i) * sizeof(Sample));
}

/// Along the row first: the sums of a source row serve all destination rows that need it.
template <int Taps, class Sample, int Channels>
void ResizeRowsFirst(const Resizing<Sample, Channels>& call, const BufferPlan& plan,
                     const RowTaps& taps, std::uint8_t* buffer) {
    const int width = call.dstRoi.width;
    const Window window(call, taps);
    auto* source = reinterpret_cast<float*>(buffer + plan.source);
    // Neighbouring source rows never share a slot, since there is one for each tap.
    std::int64_t held[Taps];
    for (std::int64_t& row : held) row = INT64_MIN;
    for (int y = 0; y < call.dstRoi.height; ++y) {
        float weights[kMostTaps];
        const std::int64_t first = call.y.FirstTap(call.dstRoi.y + y, weights);
        const float* rows[Taps];
        for (int k = 0; k < Taps; ++k) {
            const std::int64_t row = call.y.Inside(first + k);
            const auto slot = static_cast<std::ptrdiff_t>((row - call.y.lowest) % Taps);
            auto* sums = reinterpret_cast<float*>(buffer + plan.rows + slot * plan.rowBytes);
            if (held[slot] != row) {
                ResampleRow<Channels, Taps>(WidenRow<Channels>(call.SourceRow(row), window, source),
                                            taps, sums);
                held[slot] = row;
            }
            rows[k] = sums;
        }
        CombineRows<Taps>(rows, weights, std::ptrdiff_t{Channels} * width, call.DestinationRow(y));
    }
}

/// Pixels that are summed along the column and then along the row at a time: so few that the sums
/// in between stay in the nearest cache.
constexpr int kPartPixels = 128;

/// Along the column first: fewer sums along the row, which are the dearer ones, where the
/// destination has fewer rows than the source.
template <int Taps, class Sample, int Channels>
void ResizeColumnsFirst(const Resizing<Sample, Channels>& call, const BufferPlan& plan,
                        const RowTaps& taps, std::uint8_t* buffer) {
    auto* source = reinterpret_cast<float*>(buffer + plan.source);
    auto* sums = reinterpret_cast<float*>(buffer + plan.rows);
    for (int y = 0; y < call.dstRoi.height; ++y) {
        float weights[kMostTaps];
        const std::int64_t first = call.y.FirstTap(call.dstRoi.y + y, weights);
        const Sample* rows[Taps];
        for (int k = 0; k < Taps; ++k) rows[k] = call.SourceRow(call.y.Inside(first + k));
        Sample* to = call.DestinationRow(y);
        for (int x = 0; x < taps.pixels; x += kPartPixels, to += Channels * kPartPixels) {
            const int rest = taps.pixels - x, pixels = rest < kPartPixels ? rest : kPartPixels;
            const RowTaps part = PartOf<Taps, Channels>(taps, x, pixels);
            SumRows<Taps, Channels>(rows, weights, Window(call, part), source);
            if constexpr (std::is_same_v<Sample, float>) {
                ResampleRow<Channels, Taps>(source, part, to);
            } else {
                ResampleRow<Channels, Taps>(source, part, sums);
                constexpr float kWhole[] = {1.0f};
                CombineRows<1>({sums}, kWhole, std::ptrdiff_t{Channels} * pixels, to);
            }
        }
    }
}

template <int Taps, class Sample, int Channels>
void ResizeSmoothly(const Resizing<Sample, Channels>& call, const BufferPlan& plan,
                    std::uint8_t* buffer) {
    const RowTaps taps = FindRowTaps<Taps>(call, reinterpret_cast<std::uint32_t*>(buffer),
                                           reinterpret_cast<float*>(buffer + plan.weights));
    if (call.y.factor < 1)
        ResizeColumnsFirst<Taps>(call, plan, taps, buffer);
    else
        ResizeRowsFirst<Taps>(call, plan, taps, buffer);
}

/// Copies the pixels at these columns. Rows are left out between one and the next, which hides the
/// next from the processor's own foresight; so it is asked for here.
template <int Channels, class Sample>
void PickPixels(const Sample* from, const std::uint32_t* columns, int width, const Sample* next,
                Sample* to) {
    const auto pick = [&](int x) {
        std::memcpy(to + std::ptrdiff_t{Channels} * x, from + std::ptrdiff_t{Channels} * columns[x],
                    sizeof(Sample) * Channels);
    };
    constexpr int kBlock = 64 / (Channels * int{sizeof(Sample)});  // a cache line
    int x = 0;
    for (; x + kBlock <= width; x += kBlock) {
        __builtin_prefetch(next + std::ptrdiff_t{Channels} * columns[x]);
#pragma GCC unroll 16
        for (int i = 0; i < kBlock; ++i) pick(x + i);
    }
    for (; x < width; ++x) pick(x);
}

template <class Sample, int Channels>
void ResizeNearest(const Resizing<Sample, Channels>& call, std::uint8_t* buffer) {
    const int width = call.dstRoi.width;
    auto* column = reinterpret_cast<std::uint32_t*>(buffer);
    float weight;
    for (int x = 0; x < width; ++x)
        column[x] = static_cast<std::uint32_t>(
            call.x.Inside(call.x.FirstTap(call.dstRoi.x + x, &weight)) - call.x.lowest);
    const auto rowOf = [&](int y) {
        return call.y.Inside(call.y.FirstTap(call.dstRoi.y + y, &weight));
    };
    std::int64_t held = INT64_MIN, row = rowOf(0);
    for (int y = 0; y < call.dstRoi.height; ++y) {
        const std::int64_t nextRow = y + 1 < call.dstRoi.height ? rowOf(y + 1) : row;
        Sample* to = call.DestinationRow(y);
        if (row == held)
            std::memcpy(to, call.DestinationRow(y - 1), sizeof(Sample) * Channels * width);
        else
            PickPixels<Channels>(call.SourceRow(row), column, width, call.SourceRow(nextRow), to);
        held = row;
        row = nextRow;
    }
}

/// Whether an axis takes pixels 2 x and 2 x + 1 of the source for every destination pixel x.
bool IsHalving(const ResizeAxis& axis, std::int32_t start, std::int32_t length) {
    return axis.factor == 0.5 && axis.shift == 0 && axis.lowest <= 2 * std::int64_t{start} &&
           2 * (std::int64_t{start} + length) - 1 <= axis.highest;
}

template <class Sample>
void ResizeToHalf(const Resizing<Sample, 4>& call, bool nearest) {
    const std::int64_t left = 2 * std::int64_t{call.dstRoi.x} - call.x.lowest;
    for (int y = 0; y < call.dstRoi.height; ++y) {
        const std::int64_t row = 2 * (std::int64_t{call.dstRoi.y} + y);
        HalveRows(call.SourceRow(row) + 4 * left, call.SourceRow(row + 1) + 4 * left,
                  call.dstRoi.width, nearest, call.DestinationRow(y));
    }
}

/// The positions of a region that lie in an image of that length, from the region's start.
struct Span {
    std::int64_t lowest, highest;
};
Span Readable(std::int32_t start, std::int32_t length, std::int32_t imageLength) {
    const std::int64_t end = std::int64_t{start} + length;
    return {start < 0 ? -std::int64_t{start} : 0,
            (end < imageLength ? end : imageLength) - 1 - std::int64_t{start}};
}

/// Checks everything but the buffer, and the steps against the whole of what is touched.
template <int Channels, class Sample>
int CheckCall(const Sample* src, IppiSize srcSize, int srcStep, IppiRect srcRoi, const Sample* dst,
              int dstStep, IppiRect dstRoi) {
    constexpr std::int64_t kPixelBytes = Channels * sizeof(Sample);
    if (!src || !dst) return kStatusNullPointer;
    if (srcSize.width < 1 || srcSize.height < 1 || srcRoi.width < 1 || srcRoi.height < 1 ||
        dstRoi.width < 1 || dstRoi.height < 1)
        return kStatusSizeError;
    const std::int64_t dstEnd = std::int64_t{dstRoi.x} + dstRoi.width;
    if (srcStep < 1 || srcStep < srcSize.width * kPixelBytes || dstStep < 1 ||
        dstStep < dstEnd * kPixelBytes)
        return kStatusStepError;
    if (dstRoi.x < 0 || dstRoi.y < 0 || std::int64_t{dstRoi.y} + dstRoi.height > INT32_MAX)
        return kStatusBadArgument;
    return kStatusOk;
}

template <int Channels, class Sample>
int Resize(const Sample* src, IppiSize srcSize, int srcStep, IppiRect srcRoi, Sample* dst,
           int dstStep, IppiRect dstRoi, double xFactor, double yFactor, double xShift,
           double yShift, int interpolation, std::uint8_t* buffer) {
    if (!buffer) return kStatusNullPointer;
    if (const int status = CheckCall<Channels>(src, srcSize, srcStep, srcRoi, dst, dstStep, dstRoi))
        return status;
    const Span columns = Readable(srcRoi.x, srcRoi.width, srcSize.width);
    const Span rows = Readable(srcRoi.y, srcRoi.height, srcSize.height);
    const bool isFinite = xShift - xShift == 0 && yShift - yShift == 0;
    if (!(xFactor > 0) || !(yFactor > 0) || !isFinite || TapsOf(interpolation) == 0 ||
        columns.lowest > columns.highest || rows.lowest > rows.highest)
        return kStatusBadArgument;

    const auto misaligned =
        static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(buffer) % kAlignment);
    buffer += misaligned ? kAlignment - misaligned : 0;
    const Resizing<Sample, Channels> call = {
        Row(src, srcStep, static_cast<int>(srcRoi.y + rows.lowest)) +
            (srcRoi.x + columns.lowest) * Channels,
        srcStep,
        Row(dst, dstStep, dstRoi.y) + std::ptrdiff_t{dstRoi.x} * Channels,
        dstStep,
        dstRoi,
        {xFactor, xShift, interpolation, columns.lowest, columns.highest},
        {yFactor, yShift, interpolation, rows.lowest, rows.highest}};
    if constexpr (Channels == 4)
        if (interpolation <= kResizeLinear && IsHalving(call.x, dstRoi.x, dstRoi.width) &&
            IsHalving(call.y, dstRoi.y, dstRoi.height)) {
            ResizeToHalf(call, interpolation == kResizeNearest);
            return kStatusOk;
        }
    const BufferPlan plan(srcRoi.width, dstRoi.width, Channels);
    switch (interpolation) {
        case kResizeNearest:
            ResizeNearest(call, buffer);
            break;
        case kResizeLinear:
            ResizeSmoothly<2>(call, plan, buffer);
            break;
        case kResizeCubic:
            ResizeSmoothly<4>(call, plan, buffer);
            break;
        default:
            ResizeSmoothly<6>(call, plan, buffer);
            break;
    }
    return kStatusOk;
}

/// With a buffer of its own, into a whole image.
template <class Sample>
int ResizeWhole(const Sample* src, IppiSize srcSize, int srcStep, IppiRect srcRoi, Sample* dst,
                int dstStep, IppiSize dstSize, double xFactor, double yFactor, int interpolation) {
    const IppiRect dstRoi = {0, 0, dstSize.width, dstSize.height};
    if (const int status = CheckCall<4>(src, srcSize, srcStep, srcRoi, dst, dstStep, dstRoi))
        return status;
    const std::int64_t total = BufferPlan(srcRoi.width, dstRoi.width, 4).total;
    std::uint8_t* buffer = total > INT32_MAX ? nullptr : ippsMalloc_8u(static_cast<int>(total));
    if (!buffer) return kStatusNoMemory;
    const int status = Resize<4>(src, srcSize, srcStep, srcRoi, dst, dstStep, dstRoi, xFactor,
                                 yFactor, 0.0, 0.0, interpolation, buffer);
    ippsFree(buffer);
    return status;
}

}  // namespace

int ippiResizeGetBufSize(IppiRect srcRoi, IppiRect dstRoi, int channels, int interpolation,
                         int* size) {
    if (!size) return kStatusNullPointer;
    if (srcRoi.width < 1 || srcRoi.height < 1 || dstRoi.width < 1 || dstRoi.height < 1)
        return kStatusSizeError;
    if ((channels != 1 && channels != 4) || TapsOf(interpolation) == 0) return kStatusBadArgument;
    const std::int64_t total = BufferPlan(srcRoi.width, dstRoi.width, channels).total;
    if (total > INT32_MAX) return kStatusBadArgument;
    *size = static_cast<int>(total);
    return kStatusOk;
}

#define BRUSHWORKS_RESIZE(name, Sample, channels)                                             \
    int name(const Sample* src, IppiSize srcSize, int srcStep, IppiRect srcRoi, Sample* dst,  \
             int dstStep, IppiRect dstRoi, double xFactor, double yFactor, double xShift,     \
             double yShift, int interpolation, std::uint8_t* buffer) {                        \
        return Resize<channels>(src, srcSize, srcStep, srcRoi, dst, dstStep, dstRoi, xFactor, \
                                yFactor, xShift, yShift, interpolation, buffer);              \
    }
BRUSHWORKS_RESIZE(ippiResizeSqrPixel_8u_C1R, std::uint8_t, 1)
BRUSHWORKS_RESIZE(ippiResizeSqrPixel_8u_C4R, std::uint8_t, 4)
BRUSHWORKS_RESIZE(ippiResizeSqrPixel_32f_C1R, float, 1)
BRUSHWORKS_RESIZE(ippiResizeSqrPixel_32f_C4R, float, 4)
#undef BRUSHWORKS_RESIZE

int ippiResize_8u_C4R(const std::uint8_t* src, IppiSize srcSize, int srcStep, IppiRect srcRoi,
                      std::uint8_t* dst, int dstStep, IppiSize dstSize, double xFactor,
                      double yFactor, int interpolation) {
    return ResizeWhole(src, srcSize, srcStep, srcRoi, dst, dstStep, dstSize, xFactor, yFactor,
                       interpolation);
}

int ippiResize_32f_C4R(const float* src, IppiSize srcSize, int srcStep, IppiRect srcRoi, float* dst,
                       int dstStep, IppiSize dstSize, double xFactor, double yFactor,
                       int interpolation) {
    return ResizeWhole(src, srcSize, srcStep, srcRoi, dst, dstStep, dstSize, xFactor, yFactor,
                       interpolation);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
