#include "effects/cartoon/line_layer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <new>

#include "effects/cartoon/tone_curve.h"
#include "frames/truncate.h"
#include "primitives/gray.h"
#include "processors/copy.h"
#include "processors/dodge_blend.h"
#include "processors/fill_border.h"
#include "processors/filter.h"
#include "processors/invert.h"
#include "processors/region.h"
#include "processors/set_color.h"
#include "processors/smooth.h"

namespace brushworks {
namespace {

/// The weights of the glow fall with the square root of the distance: a wide skirt around a peak.
void FillGlowKernel(float* kernel, int radius) {
    const int size = 2 * radius + 1;
    float sum = 0.0f;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            const auto dx = static_cast<float>(x - radius), dy = static_cast<float>(y - radius);
            const float root = std::sqrt(std::sqrt(dx * dx + dy * dy));
            const float weight = root < 1e-5f ? 1.0f : 0.48f / root;
            kernel[y * size + x] = weight;
            sum += weight;
        }
    for (int i = 0; i < size * size; ++i) kernel[i] /= sum;
}

/// How dark the lines are.
float DarknessOf(const LineSettings& set) {
    constexpr float kMost = 1.04f;
    const float wanted = (set.cleanUp * 0.3f + 1.0f) * set.density;
    return std::min(static_cast<float>(std::pow(double{wanted}, double{0.8f})), kMost);
}

/// Planes with a margin around the picture, wide enough for the glow.
class Sketch {
  public:
    /// False where memory cannot be had.
    bool Open(IppiSize picture, int margin, MemoryAllocator* allocator) {
        m_picture = picture;
        m_margin = margin;
        for (CFrame* plane : {&m_smoothed, &m_glow, &m_grey}) {
            if (!plane->Init(picture.width + 2 * margin, picture.height + 2 * margin, 1, allocator,
                             PixelFormatMono8, false))
                return false;
            Processors::CSetColor().Process(plane, 0);
        }
        return true;
    }

    void TakeIn(const CFrame& source) {
        constexpr float kWeights[3] = {0.114f, 0.587f, 0.299f};
        CFrame inner;
        ViewPicture(inner, m_grey);
        ippiColorToGray_8u_AC4C1R(source.m_pBuffer, source.m_nByteSpan, inner.m_pBuffer,
                                  inner.m_nByteSpan, m_picture, kWeights);
        // One pixel more than the margin: the picture's outermost ring goes too.
        Processors::CFillBorder().Process(&m_grey, &m_grey, m_margin + 1, m_margin + 1);
    }

    void Smooth(float cleanUp, bool field) {
        constexpr float kSpatial = 1.0f, kRadius = 0.11f, kNoTone = 0.0f;
        Processors::CSmooth().Process(&m_grey, &m_smoothed, nullptr, nullptr, kSpatial,
                                      cleanUp * 0.5f, kRadius, kNoTone, field, nullptr, nullptr);
    }

    /// A blur of the negative.
    void Glow() {
        Processors::CInvert().Process(&m_smoothed, &m_grey);
        const int radius = m_margin & 255;  // of the margin the low byte alone counts
        if (radius == 0) {
            Processors::CCopy().Process(&m_grey, &m_glow);
            return;
        }
        const int size = 2 * radius + 1;
        const std::unique_ptr<float[]> kernel(
            new (std::nothrow) float[static_cast<std::size_t>(size) * size]);
        if (!kernel) return;
        FillGlowKernel(kernel.get(), radius);
        Processors::CFilter().Process(&m_grey, &m_glow, kernel.get(), size, /*toOrigin=*/false);
    }

    /// What is as light as its surroundings becomes white paper.
    void Dodge() {
        Processors::CDodgeBlend().Process(&m_smoothed, &m_glow, &m_glow, /*mono=*/true);
    }

    void Finish(CFrame* lines, float darkness) {
        constexpr float kPower = 5.0f;
        const float offset = darkness * 0.5f + 0.5f;
        Contrast(&m_glow, &m_glow, 0.99f, offset, kPower);
        CFrame inner;
        ViewPicture(inner, m_glow);
        Contrast(&inner, lines, darkness, offset, kPower);
    }

  private:
    void ViewPicture(CFrame& view, CFrame& plane) const {
        view.Init(&plane, m_margin, m_margin, m_picture.width, m_picture.height, false);
    }

    CFrame m_smoothed, m_glow, m_grey;
    IppiSize m_picture{};
    int m_margin = 0;
};

void MergeRow(std::uint8_t* paint, const std::uint8_t* lines, int width, int share) {
    const int own = 255 - share;
    for (int x = 0; x < width; ++x, paint += 4) {
        const int line = lines[x];
        const int luminance = (paint[2] * 76 + paint[1] * 149 + paint[0] * 30) >> 8;
        if (line >= luminance) continue;
        for (int i = 0; i < 3; ++i)
            paint[i] = static_cast<std::uint8_t>((line * share + paint[i] * own) >> 8);
    }
}

}  // namespace

void SmoothLine(CFrame* source, CFrame* lines, const LineSettings& set, bool field,
                MemoryAllocator* allocator) {
    const IppiSize size = Processors::CommonSize(*source, *lines);
    const int margin = Truncate(static_cast<float>(size.height) * set.width * 0.02f + 2.0f);
    Sketch sketch;
    if (!sketch.Open(size, margin, allocator)) return;
    sketch.TakeIn(*source);
    sketch.Smooth(set.cleanUp, field);
    sketch.Glow();
    sketch.Dodge();
    sketch.Finish(lines, DarknessOf(set));
}

void MergeLines(CFrame* paint, CFrame* lines, float mix) {
    const IppiSize size = Processors::CommonSize(*paint, *lines);
    const int share = std::min(Truncate(mix * 255.0f), 255);
    for (int y = 0; y < size.height; ++y)
        MergeRow(Processors::RowOf<std::uint8_t>(*paint, y),
                 Processors::RowOf<const std::uint8_t>(*lines, y), size.width, share);
}

}  // namespace brushworks
