#include "processors/blur.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <type_traits>

#include "frames/memory_allocator.h"
#include "frames/truncate.h"
#include "primitives/triangle_blur.h"
#include "processors/channel_reverse.h"
#include "processors/copy.h"
#include "processors/copy_plane.h"
#include "processors/fill_border.h"
#include "processors/filter_axis.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// Rows and columns at the picture's edge that are replaced by repeats.
constexpr int kInset = 2;

/// The same for a picture that may be too small for it.
int InsetOf(int length) {
    return std::min(kInset, (length - 1) / 2);
}

struct Job {
    CFrame& src;
    CFrame& dst;
    IppiSize region;
    IppiSize triangle;
    MemoryAllocator* allocator;
    bool allChannels;
};

bool IsBytes(PixelFormat format) {
    return format == PixelFormatBGRA8 || format == PixelFormatARGB8 || format == PixelFormatMono8;
}

/// The destination wants alpha last and the source has it first.
bool TurnsRound(const Job& job) {
    const PixelFormat from = job.src.m_pfPixelFormat, to = job.dst.m_pfPixelFormat;
    return (to == PixelFormatBGRA8 && from == PixelFormatARGB8) ||
           (to == PixelFormatBGRA32f && from == PixelFormatARGB32f);
}

/// The steps leave alpha alone where the destination has it, which here is a colour of the source.
bool MovesAlpha(const Job& job) {
    return !job.allChannels && job.dst.m_pfPixelFormat == PixelFormatARGB8 &&
           job.src.m_pfPixelFormat != PixelFormatARGB8;
}

/// 8-bit frames, `dst` of the region's size.
bool BlurBytes(const Job& job) {
    const int depth = job.src.m_nDepth;
    CFrame copy;
    const CFrame* from = &job.src;
    if (TurnsRound(job)) {
        if (!copy.Init(job.region.width, job.region.height, depth, job.allocator,
                       job.dst.m_pfPixelFormat, false) ||
            !CCopy().Process(&job.src, &copy))
            return false;
        CChannelReverse().Process(&copy, &copy);
        from = &copy;
    }

    constexpr std::size_t kAlignment = alignof(std::int32_t);
    const std::size_t bytes =
        TriangleBlurWorkInts(job.region.width, depth) * sizeof(std::int32_t) + kAlignment;
    CFrame memory;
    if (bytes > INT_MAX ||
        !memory.Init(static_cast<int>(bytes), 1, 1, job.allocator, PixelFormatMono8, false))
        return false;
    const auto misplaced = reinterpret_cast<std::uintptr_t>(memory.m_pBuffer) % kAlignment;
    auto* work = reinterpret_cast<std::int32_t*>(memory.m_pBuffer + (kAlignment - misplaced));

    auto* blur = depth == 1 ? TriangleBlur_8u_C1R
                 : job.allChannels || job.dst.m_pfPixelFormat != PixelFormatBGRA8
                     ? TriangleBlur_8u_C4R
                     : TriangleBlur_8u_AC4R;
    return blur(from->m_pBuffer, from->m_nByteSpan, job.dst.m_pBuffer, job.dst.m_nByteSpan,
                job.region, job.triangle, kInset, work) == kStatusOk;
}

/// The weights of a triangle, and the sum that 8-bit results are divided by.
template <class Weight>
class Triangle {
  public:
    explicit Triangle(int size) {
        const int half = (size + 1) >> 1;
        const int sum = half * (half + 1) - (size % 2 ? half : 0);
        for (int i = 0; i < half; ++i) {
            if constexpr (std::is_floating_point_v<Weight>)
                weights_[i] = static_cast<Weight>(i + 1) / static_cast<Weight>(sum);
            else
                weights_[i] = i + 1;
            weights_[size - 1 - i] = weights_[i];
        }
        divisor_ = std::is_floating_point_v<Weight> ? 1 : sum;
    }
    const Weight* weights() const { return weights_; }
    int divisor() const { return divisor_; }

  private:
    Weight weights_[kLargestTriangle];
    int divisor_;
};

/// Any frames: a widened copy through the two filters, by a frame of the same size in between.
template <class Weight>
bool BlurInSteps(const Job& job) {
    const int ix = job.triangle.width >> 1, iy = job.triangle.height >> 1;
    const int width = job.region.width + 2 * ix, height = job.region.height + 2 * iy;
    // The column filter takes as many rows as an odd kernel has; one more keeps the last of the
    // picture's, which only frames of less than three rows need.
    const int spare = job.triangle.height % 2;
    CFrame a, b;
    for (CFrame* frame : {&a, &b})
        if (!frame->Init(width, height + spare, job.src.m_nDepth, job.allocator,
                         job.dst.m_pfPixelFormat, false))
            return false;
    if (!CCopy().Process(&job.src, 0, 0, job.region.width, job.region.height, &a, ix, iy))
        return false;
    if (TurnsRound(job)) CChannelReverse().Process(&a, &a);

    const auto spread = [&](CFrame& frame) {
        CFrame picture;
        picture.Init(&frame, 0, 0, width, height, false);
        return CFillBorder().Process(&picture, &picture, ix + InsetOf(job.region.width),
                                     iy + InsetOf(job.region.height));
    };
    const Triangle<Weight> across(job.triangle.width), down(job.triangle.height);
    if (!spread(a) || !CFilterColumn().Process(&a, &b, down.weights(), job.triangle.height, ix, iy,
                                               down.divisor(), job.allChannels))
        return false;
    CFrame picture;
    picture.Init(&b, 0, 0, width, height, false);
    return spread(b) &&
           CFilterRow().Process(&picture, &job.dst, across.weights(), job.triangle.width, ix, iy,
                                across.divisor(), job.allChannels);
}

bool ShareMemory(const CFrame& a, const CFrame& b) {
    const auto begin = [](const CFrame& f) {
        return reinterpret_cast<std::uintptr_t>(f.m_pBuffer);
    };
    const auto end = [&](const CFrame& f) {
        return begin(f) + static_cast<std::uintptr_t>(f.m_nByteSpan) * f.m_nHeight;
    };
    return begin(a) < end(b) && begin(b) < end(a);
}

/// The frames do not share memory.
bool Blur(const Job& job) {
    const PixelFormat format = job.dst.m_pfPixelFormat;
    const int depth = job.src.m_nDepth;
    if (IsBytes(format) && (depth == 4 || depth == 1)) {
        const bool plain =
            depth == 1 || (IsByteColor(job.src) && IsByteColor(job.dst) && !MovesAlpha(job));
        const bool fills =
            job.dst.m_nWidth == job.region.width && job.dst.m_nHeight == job.region.height;
        return plain && fills ? BlurBytes(job) : BlurInSteps<std::int32_t>(job);
    }
    if ((IsFloatColor(job.dst) || IsFloatPlane(job.dst)) && (depth == 16 || depth == 4))
        return BlurInSteps<float>(job);
    return false;
}

}  // namespace

bool CBlur::Process(CFrame* src, CFrame* dst, float width, float height, MemoryAllocator* allocator,
                    bool allChannels) {
    const IppiSize triangle = {std::min(Truncate(width), kLargestTriangle),
                               std::min(Truncate(height), kLargestTriangle)};
    if (triangle.width < 1 || triangle.height < 1) {
        CCopy().Process(src, dst);
        return true;
    }
    const IppiSize region = CommonSize(*src, *dst);
    if (src->m_nDepth != dst->m_nDepth || !src->m_pBuffer || !dst->m_pBuffer || region.width < 1 ||
        region.height < 1 || region.width > INT_MAX - kLargestTriangle ||
        region.height > INT_MAX - kLargestTriangle - 1)
        return false;
    CFrame copy;
    if (ShareMemory(*src, *dst)) {
        if (!copy.Init(src->m_nWidth, src->m_nHeight, src->m_nDepth, allocator,
                       src->m_pfPixelFormat, false) ||
            !CCopy().Process(src, &copy))
            return false;
        src = &copy;
    }
    if (!Blur({*src, *dst, region, triangle, allocator, allChannels})) return false;
    if (!allChannels) {
        const int plane = RestoredPlane(*src);
        CCopyPlane().Process(src, dst, plane, plane);
    }
    return true;
}

}  // namespace brushworks::Processors
