// Bodies of the resampling; built once for each variant.
//
// Each row of results is made by itself: the rows of the source under it are summed along the
// column, as floats, and these sums along the row.
#include "primitives/resize.h"

#include "primitives/memory.h"
#include "primitives/resize_axis.h"
#include "primitives/window_lines.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr std::int64_t kAlignment = 64;
static_assert(kAlignment >= kVectorBytes);

/// The parts of the work buffer, in bytes from its first aligned byte: the taps of all columns, a
/// row of sums along the column, and one of sums along the row, behind which a vector of bytes may
/// end.
struct BufferPlan {
    BufferPlan(std::int64_t srcWidth, std::int64_t dstWidth, int channels)
        : columnSums(Aligned(dstWidth * kMostTaps * std::int64_t{sizeof(ResizeTap)})),
          rowSums(columnSums + Aligned(srcWidth * channels * 4)),
          total(rowSums + Aligned((dstWidth * channels + kVectorBytes) * 4) + kAlignment) {}

    static std::int64_t Aligned(std::int64_t bytes) {
        return (bytes + kAlignment - 1) / kAlignment * kAlignment;
    }

    std::int64_t columnSums, rowSums, total;
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
    std::uint8_t* buffer;  // aligned
    BufferPlan plan;

    const Sample* SourceRow(int row) const { return Row(src, srcStep, row); }
    Sample* DestinationRow(int row) const { return Row(dst, dstStep, row); }

    /// The taps of all columns, counted in samples.
    template <int Taps>
    const ResizeTap* ColumnTaps() const {
        auto* const taps = reinterpret_cast<ResizeTap*>(buffer);
        for (int i = 0; i < dstRoi.width; ++i) {
            ResizeTap* const own = taps + std::ptrdiff_t{Taps} * i;
            x.TapsAt(dstRoi.x + i, own);
            for (int k = 0; k < Taps; ++k) own[k].at *= Channels;
        }
        return taps;
    }
};

template <int Taps, class Sample>
void SumAlongColumn(const Sample* const (&rows)[Taps], const float (&weights)[Taps],
                    std::ptrdiff_t samples, float* __restrict to) {
    for (std::ptrdiff_t i = 0; i < samples; ++i) {
        float sum = weights[0] * static_cast<float>(rows[0][i]);
        for (int k = 1; k < Taps; ++k) sum += weights[k] * static_cast<float>(rows[k][i]);
        to[i] = sum;
    }
}

template <int Taps, int Channels>
void SumAlongRow(const float* from, const ResizeTap* taps, int width, float* __restrict to) {
    using Pixel = VectorOf<float, Channels>;
#pragma GCC unroll 4
    for (int x = 0; x < width; ++x, taps += Taps, to += Channels) {
        Pixel sum = taps[0].weight * Load<Pixel>(from + taps[0].at);
        for (int k = 1; k < Taps; ++k) sum += taps[k].weight * Load<Pixel>(from + taps[k].at);
        Store(to, sum);
    }
}

template <int Taps, class Sample, int Channels>
void ResizeSmoothly(const Resizing<Sample, Channels>& call) {
    const int width = call.dstRoi.width;
    const ResizeTap* const columns = call.template ColumnTaps<Taps>();
    const std::ptrdiff_t first = columns[0].at;
    const std::ptrdiff_t samples = columns[std::ptrdiff_t{Taps} * width - 1].at + Channels - first;
    auto* const columnSums = reinterpret_cast<float*>(call.buffer + call.plan.columnSums);
    [[maybe_unused]] auto* const rowSums =
        reinterpret_cast<float*>(call.buffer + call.plan.rowSums);
    for (int y = 0; y < call.dstRoi.height; ++y) {
        ResizeTap taps[Taps];
        call.y.TapsAt(call.dstRoi.y + y, taps);
        const Sample* rows[Taps];
        float weights[Taps];
        for (int k = 0; k < Taps; ++k) {
            rows[k] = call.SourceRow(taps[k].at) + first;
            weights[k] = taps[k].weight;
        }
        SumAlongColumn<Taps>(rows, weights, samples, columnSums + first);
        Sample* const to = call.DestinationRow(y);
        if constexpr (std::is_same_v<Sample, float>) {
            SumAlongRow<Taps, Channels>(columnSums, columns, width, to);
        } else {
            SumAlongRow<Taps, Channels>(columnSums, columns, width, rowSums);
            StoreSums<false>(rowSums, std::ptrdiff_t{Channels} * width, to, R8);
        }
    }
}

template <class Sample, int Channels>
void ResizeNearest(const Resizing<Sample, Channels>& call) {
    const int width = call.dstRoi.width;
    const ResizeTap* const columns = call.template ColumnTaps<1>();
    int held = -1;
    for (int y = 0; y < call.dstRoi.height; ++y) {
        ResizeTap row;
        call.y.TapsAt(call.dstRoi.y + y, &row);
        const Sample* from = call.SourceRow(row.at);
        Sample* to = call.DestinationRow(y);
        if (row.at == held)
            std::memcpy(to, call.DestinationRow(y - 1), sizeof(Sample) * Channels * width);
        else
            for (std::ptrdiff_t x = 0; x < width; ++x)
                std::memcpy(to + x * Channels, from + columns[x].at, sizeof(Sample) * Channels);
        held = row.at;
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
        {yFactor, yShift, interpolation, rows.lowest, rows.highest},
        buffer,
        BufferPlan(srcRoi.width, dstRoi.width, Channels)};
    switch (interpolation) {
        case kResizeNearest:
            ResizeNearest(call);
            break;
        case kResizeLinear:
            ResizeSmoothly<2>(call);
            break;
        case kResizeCubic:
            ResizeSmoothly<4>(call);
            break;
        default:
            ResizeSmoothly<6>(call);
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
