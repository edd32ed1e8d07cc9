#include "effects/detail_enhancer.h"

#include <algorithm>
#include <array>

#include "frames/samples.h"
#include "frames/truncate.h"
#include "processors/blur.h"
#include "processors/copy.h"
#include "processors/region.h"

namespace brushworks {
namespace {

/// The blur's height: even, at least 2.
int BlurHeight(float size, int height) {
    const int pixels = Truncate((size * 0.5f + 0.1f) * static_cast<float>(height) * 0.3f);
    return std::max(pixels + (pixels & 1), 2);
}

/// What a byte gives and what its blurred surroundings take, in ten-thousandths of whole steps.
struct Tables {
    std::array<int, 256> add, sub;

    explicit Tables(float amount) {
        const int share = Truncate(amount * 10000.0f);
        for (int i = 0; i < 256; ++i) {
            sub[static_cast<std::size_t>(i)] = share * i / 10000;
            add[static_cast<std::size_t>(i)] = i + share * i / 10000;
        }
    }
    unsigned char operator()(unsigned char sample, unsigned char blurred) const {
        return static_cast<unsigned char>(std::clamp(add[sample] - sub[blurred], 0, 255));
    }
};

struct FloatStep {
    float amount;
    float operator()(float sample, float blurred) const {
        return (amount + 1.0f) * sample - amount * blurred;
    }
};

template <class Pixel, class Step>
void EnhanceRows(const CFrame& src, const CFrame& blurred, const CFrame& dst, const Step& step) {
    const IppiSize region = Processors::CommonSize(src, dst);
    for (int y = 0; y < region.height; ++y) {
        const auto* from = Processors::RowOf<const Pixel>(src, y);
        const auto* around = Processors::RowOf<const Pixel>(blurred, y);
        auto* to = Processors::RowOf<Pixel>(dst, y);
        for (int x = 0; x < region.width; ++x) {
            to[x].r = step(from[x].r, around[x].r);
            to[x].g = step(from[x].g, around[x].g);
            to[x].b = step(from[x].b, around[x].b);
        }
    }
}

void Enhance(const CFrame& src, const CFrame& blurred, const CFrame& dst, float amount) {
    switch (src.m_pfPixelFormat) {
        case PixelFormatBGRA8:
            return EnhanceRows<VideoSample>(src, blurred, dst, Tables(amount));
        case PixelFormatARGB8:
            return EnhanceRows<VideoSampleSwapped>(src, blurred, dst, Tables(amount));
        case PixelFormatBGRA32f:
            return EnhanceRows<VideoSampleFloat>(src, blurred, dst, FloatStep{amount});
        default:
            return EnhanceRows<VideoSampleSwappedFloat>(src, blurred, dst, FloatStep{amount});
    }
}

}  // namespace

bool DetailEnchancer(CFrame* src, CFrame* dst, float amount, float size, bool field,
                     MemoryAllocator* allocator) {
    if (!Processors::IsByteColor(*src) && !Processors::IsFloatColor(*src)) return true;
    if (!src->m_pBuffer || !dst->m_pBuffer) return true;
    CFrame blurred;
    if (!(size > 0.0f) || !(amount > 0.0f) ||
        !blurred.Init(src->m_nWidth, src->m_nHeight, src->m_nDepth, allocator, src->m_pfPixelFormat,
                      src->m_bFlipped)) {
        Processors::CCopy().Process(src, dst);
        return true;
    }
    const auto height =
        static_cast<float>(BlurHeight(size, Processors::CommonSize(*src, *dst).height));
    Processors::CBlur().Process(src, &blurred, field ? 2.0f * height : height, height, allocator,
                                false);
    Enhance(*src, blurred, *dst, amount);
    return true;
}

}  // namespace brushworks
