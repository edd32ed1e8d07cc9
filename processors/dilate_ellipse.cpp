#include "processors/dilate_ellipse.h"

#include <cstdint>
#include <cstring>
#include <new>

#include "frames/memory_allocator.h"
#include "primitives/morphology.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// The bytes of a mask, from the host where it lends memory.
class Mask {
  public:
    Mask(IppiSize size, MemoryAllocator* allocator) : size_(size), helper_(allocator) {
        void* block = nullptr;
        try {
            if (helper_.Allocate(&block, static_cast<unsigned long>(size.width) * size.height))
                bytes_ = static_cast<std::uint8_t*>(block);
        } catch (const std::bad_alloc&) {  // stays empty
        }
        if (bytes_) Fill();
    }
    ~Mask() { helper_.Free(bytes_); }
    Mask(const Mask&) = delete;
    Mask& operator=(const Mask&) = delete;

    const std::uint8_t* bytes() const { return bytes_; }

  private:
    void Fill() {
        const int hx = size_.width >> 1, hy = size_.height >> 1;
        // A half axis of 0 makes 0 / 0 of the place on it, which does not exceed 1.
        const auto part = [](int d, int h) {
            return static_cast<float>(d) * static_cast<float>(d) /
                   (static_cast<float>(h) * static_cast<float>(h));
        };
        std::uint8_t* to = bytes_;
        for (int y = 0; y < size_.height; ++y)
            for (int x = 0; x < size_.width; ++x)
                *to++ = part(x - hx, hx) + part(y - hy, hy) > 1.0f ? 0 : 1;
    }

    IppiSize size_;
    MemoryAllocatorHelper helper_;
    std::uint8_t* bytes_ = nullptr;
};

template <class Sample, class InitAlloc, class Dilate>
bool DilateUnder(const Mask& mask, IppiSize maskSize, CFrame& src, CFrame& dst, int channels,
                 InitAlloc* initAlloc, Dilate* dilate, bool* done) {
    if (src.m_nDepth != channels * static_cast<int>(sizeof(Sample))) return false;
    IppiMorphologyState* state = nullptr;
    initAlloc(src.m_nWidth, mask.bytes(), maskSize, {maskSize.width >> 1, maskSize.height >> 1},
              &state);
    if (!state) return false;
    *done = dilate(Samples<Sample>(src), src.m_nByteSpan, Samples<Sample>(dst), dst.m_nByteSpan,
                   SizeOf(src), kBorderReplicate, state) == kStatusOk;
    ippiMorphologyFree(state);
    return true;
}

}  // namespace

bool CDilateEllipse::Process(CFrame* src, CFrame* dst, int width, int height,
                             MemoryAllocator* allocator) {
    if (width < 1 || height < 1 || src->m_nDepth != dst->m_nDepth) return false;
    const IppiSize size = {width, height};
    const Mask mask(size, allocator);
    if (!mask.bytes()) return false;

    // The dilation works on the whole of a frame; a smaller destination takes its part by a view.
    CFrame view;
    if (dst->m_nWidth < src->m_nWidth || dst->m_nHeight < src->m_nHeight) {
        const IppiSize common = CommonSize(*src, *dst);
        view.Init(src, 0, 0, common.width, common.height, false);
        src = &view;
    }
    bool done = false;
    if (IsFloatColor(*src))
        return DilateUnder<float>(mask, size, *src, *dst, 4, ippiMorphologyInitAlloc_32f_C4R,
                                  ippiDilateBorderReplicate_32f_C4R, &done) &&
               done;
    if (IsByteColor(*src))
        return DilateUnder<std::uint8_t>(mask, size, *src, *dst, 4, ippiMorphologyInitAlloc_8u_C4R,
                                         ippiDilateBorderReplicate_8u_C4R, &done);
    if (IsFloatPlane(*src))
        return DilateUnder<float>(mask, size, *src, *dst, 1, ippiMorphologyInitAlloc_32f_C1R,
                                  ippiDilateBorderReplicate_32f_C1R, &done) &&
               done;
    if (src->m_pfPixelFormat == PixelFormatMono8)
        return DilateUnder<std::uint8_t>(mask, size, *src, *dst, 1, ippiMorphologyInitAlloc_8u_C1R,
                                         ippiDilateBorderReplicate_8u_C1R, &done);
    return true;
}

}  // namespace brushworks::Processors
