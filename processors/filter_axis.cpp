#include "processors/filter_axis.h"

#include <algorithm>

#include "primitives/filter_row_column.h"
#include "processors/copy_plane.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// The primitives of one direction.
struct Primitives {
    decltype(&ippiFilterRow_8u_C1R) bytesC1, bytesC4, bytesAC4;
    decltype(&ippiFilterRow_32f_C1R) floatsC1, floatsC4, floatsAC4;
};

struct Kernel {
    const void* weights;
    int size, anchor, divisor;
};

/// One axis of the work: `count` places from `from` on in the source go to `to`. Empty where
/// nothing is left to work on.
struct Span {
    int from = 0, to = 0, count = 0;
};

/// The axis that the kernel lies along, which loses `lost` places.
Span AlongKernel(int srcLength, int dstLength, int lost, int size, int anchor) {
    const auto count =
        static_cast<int>(std::min<long long>(static_cast<long long>(srcLength) - lost, dstLength));
    if (count < 1) return {};
    const int spare = dstLength - count;
    return {anchor, spare >= size ? anchor + (spare - size) / 2 : 0, count};
}

/// The other axis, which leaves out a margin on both sides.
Span AcrossKernel(int srcLength, int dstLength, int margin) {
    const auto count = static_cast<int>(std::min<long long>(srcLength - 2LL * margin, dstLength));
    if (count < 1) return {};
    return {margin, dstLength - count >= 2LL * margin ? margin : 0, count};
}

/// All that the taps read lies in the source.
bool TapsInside(const Span& span, int srcLength, int size, int anchor) {
    return span.from - (size - 1LL - anchor) >= 0 &&
           static_cast<long long>(span.from) + span.count - 1 + anchor < srcLength;
}

unsigned char* PixelAt(const CFrame& frame, int x, int y) {
    return RowOf<unsigned char>(frame, y) + static_cast<std::ptrdiff_t>(x) * frame.m_nDepth;
}

bool Filter(CFrame& src, CFrame& dst, Span x, Span y, const Kernel& kernel, bool allChannels,
            const Primitives& primitives) {
    const auto bytes = [&](decltype(Primitives::bytesC1) filter) {
        return filter(PixelAt(src, x.from, y.from), src.m_nByteSpan, PixelAt(dst, x.to, y.to),
                      dst.m_nByteSpan, {x.count, y.count},
                      static_cast<const std::int32_t*>(kernel.weights), kernel.size, kernel.anchor,
                      kernel.divisor) == kStatusOk;
    };
    const auto floats = [&](decltype(Primitives::floatsC1) filter) {
        return filter(reinterpret_cast<float*>(PixelAt(src, x.from, y.from)), src.m_nByteSpan,
                      reinterpret_cast<float*>(PixelAt(dst, x.to, y.to)), dst.m_nByteSpan,
                      {x.count, y.count}, static_cast<const float*>(kernel.weights), kernel.size,
                      kernel.anchor) == kStatusOk;
    };
    const auto restoreAlpha = [&] {
        if (!allChannels) CCopyPlane().Process(&src, &dst, 0, 0);
        return true;
    };
    switch (src.m_pfPixelFormat) {
        case PixelFormatARGB8:
            if (src.m_nDepth == 4) return bytes(primitives.bytesC4) && restoreAlpha();
            break;
        case PixelFormatARGB32f:
            if (src.m_nDepth == 16) return floats(primitives.floatsC4) && restoreAlpha();
            break;
        case PixelFormatBGRA32f:
            if (src.m_nDepth == 16)
                return floats(allChannels ? primitives.floatsC4 : primitives.floatsAC4);
            break;
        case PixelFormatBGRA8:
            if (src.m_nDepth == 4)
                return bytes(allChannels ? primitives.bytesC4 : primitives.bytesAC4);
            break;
        default:
            break;
    }
    if (src.m_nDepth == 1) return bytes(primitives.bytesC1);
    if (IsFloatPlane(src) && src.m_nDepth >= 4) return floats(primitives.floatsC1);
    return false;
}

bool CanWork(const CFrame* src, const CFrame* dst, int size, int anchor, int margin) {
    return src->m_pBuffer && dst->m_pBuffer && src->m_nDepth == dst->m_nDepth && anchor >= 0 &&
           size > anchor && margin >= 0;
}

}  // namespace

bool CFilterRow::Process(CFrame* src, CFrame* dst, const void* kernel, int size, int anchor,
                         int margin, int divisor, bool allChannels) {
    static constexpr Primitives kPrimitives = {ippiFilterRow_8u_C1R,  ippiFilterRow_8u_C4R,
                                               ippiFilterRow_8u_AC4R, ippiFilterRow_32f_C1R,
                                               ippiFilterRow_32f_C4R, ippiFilterRow_32f_AC4R};
    if (!CanWork(src, dst, size, anchor, margin)) return false;
    const Span x = AlongKernel(src->m_nWidth, dst->m_nWidth, size - size % 2, size, anchor);
    const Span y = AcrossKernel(src->m_nHeight, dst->m_nHeight, margin);
    if (x.count < 1 || y.count < 1 || !TapsInside(x, src->m_nWidth, size, anchor)) return false;
    return Filter(*src, *dst, x, y, {kernel, size, anchor, divisor}, allChannels, kPrimitives);
}

bool CFilterColumn::Process(CFrame* src, CFrame* dst, const void* kernel, int size, int margin,
                            int anchor, int divisor, bool allChannels) {
    static constexpr Primitives kPrimitives = {ippiFilterColumn_8u_C1R,  ippiFilterColumn_8u_C4R,
                                               ippiFilterColumn_8u_AC4R, ippiFilterColumn_32f_C1R,
                                               ippiFilterColumn_32f_C4R, ippiFilterColumn_32f_AC4R};
    if (!CanWork(src, dst, size, anchor, margin)) return false;
    const Span x = AcrossKernel(src->m_nWidth, dst->m_nWidth, margin);
    const Span y = AlongKernel(src->m_nHeight, dst->m_nHeight, size, size, anchor);
    if (x.count < 1 || y.count < 1 || !TapsInside(y, src->m_nHeight, size, anchor)) return false;
    return Filter(*src, *dst, x, y, {kernel, size, anchor, divisor}, allChannels, kPrimitives);
}

}  // namespace brushworks::Processors
