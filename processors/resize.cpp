#include "processors/resize.h"

#include <climits>
#include <memory>

#include "primitives/memory.h"
#include "primitives/resize.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// The work memory is that many times what the primitive asks for.
constexpr int kBufferReserve = 4;

bool Holds(const CFrame& frame, const tagRECT& r) {
    return frame.m_pBuffer && r.left >= 0 && r.top >= 0 && r.left < r.right && r.top < r.bottom &&
           r.right <= frame.m_nWidth && r.bottom <= frame.m_nHeight;
}

int InterpolationOf(int interpolation) {
    switch (interpolation) {
        case 0:
            return kResizeNearest;
        case 2:
            return kResizeCubic;
        case 3:
            return kResizeLanczos;
        default:
            return kResizeLinear;
    }
}

template <class Sample>
Sample* CornerOf(const CFrame& frame, const tagRECT& r) {
    return reinterpret_cast<Sample*>(RowOf<unsigned char>(frame, r.top) +
                                     static_cast<std::ptrdiff_t>(r.left) * frame.m_nDepth);
}

struct Job {
    const CFrame &src, &dst;
    tagRECT srcRect, dstRect;
    int interpolation;
    double xFactor, yFactor, xShift, yShift;
};

template <class Sample, class Primitive>
bool Resize(const Job& job, int channels, Primitive* resize) {
    const auto sizeOf = [](const tagRECT& r) {
        return IppiSize{r.right - r.left, r.bottom - r.top};
    };
    const IppiSize from = sizeOf(job.srcRect), to = sizeOf(job.dstRect);
    const IppiRect srcRoi = {0, 0, from.width, from.height}, dstRoi = {0, 0, to.width, to.height};
    int bytes = 0;
    if (ippiResizeGetBufSize(srcRoi, dstRoi, channels, kResizeLinear, &bytes) != kStatusOk)
        return false;
    const std::unique_ptr<std::uint8_t, decltype(&ippsFree)> buffer(
        bytes > INT_MAX / kBufferReserve ? nullptr : ippsMalloc_8u(bytes * kBufferReserve),
        ippsFree);
    if (!buffer) return true;
    return resize(CornerOf<const Sample>(job.src, job.srcRect), from, job.src.m_nByteSpan, srcRoi,
                  CornerOf<Sample>(job.dst, job.dstRect), job.dst.m_nByteSpan, dstRoi, job.xFactor,
                  job.yFactor, job.xShift, job.yShift, job.interpolation,
                  buffer.get()) == kStatusOk;
}

}  // namespace

bool CResize::Process(CFrame* src, CFrame* dst, tagRECT srcRect, tagRECT dstRect, int interpolation,
                      double xFactor, double yFactor, double xShift, double yShift) {
    if (src->m_nDepth != dst->m_nDepth || !Holds(*src, srcRect) || !Holds(*dst, dstRect))
        return false;
    const auto factor = [](double given, int from, int to) {
        return given == 0.0 ? static_cast<double>(to) / from : given;
    };
    const Job job = {*src,
                     *dst,
                     srcRect,
                     dstRect,
                     InterpolationOf(interpolation),
                     factor(xFactor, srcRect.right - srcRect.left, dstRect.right - dstRect.left),
                     factor(yFactor, srcRect.bottom - srcRect.top, dstRect.bottom - dstRect.top),
                     xShift,
                     yShift};
    if (src->m_nDepth == 4 && IsFloatPlane(*src))
        return Resize<float>(job, 1, ippiResizeSqrPixel_32f_C1R);
    if (src->m_nDepth == 1) return Resize<std::uint8_t>(job, 1, ippiResizeSqrPixel_8u_C1R);
    if (src->m_nDepth == 4 && IsByteColor(*src))
        return Resize<std::uint8_t>(job, 4, ippiResizeSqrPixel_8u_C4R);
    if (src->m_nDepth == 16 && IsFloatColor(*src))
        return Resize<float>(job, 4, ippiResizeSqrPixel_32f_C4R);
    return true;
}

}  // namespace brushworks::Processors
