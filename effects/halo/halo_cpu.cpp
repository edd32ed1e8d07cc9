// Halo on the processor: colours with a wide margin, dilation by an ellipse, edges mixed in, a soft
// kernel, mix.
#include "effects/halo/halo.h"

#include <algorithm>

#include "frames/truncate.h"
#include "library/working_frames.h"
#include "processors/add.h"
#include "processors/color_twist.h"
#include "processors/copy.h"
#include "processors/dilate_ellipse.h"
#include "processors/fill_border.h"
#include "processors/filter.h"
#include "processors/set_color.h"

namespace brushworks {
namespace {

enum Param : unsigned int { kColor, kBrightness, kContrast, kHalo, kEdges, kBlend };

constexpr float kNeutralHue = 0.5f;

/// The neighbours less seven times the pixel: a hard mark along edges, whatever its name says.
float afSharpenKernel[9] = {1, 1, 1, 1, -7, 1, 1, 1, 1};
constexpr float kSide = 1.0f / 18.0f, kCentre = 10.0f / 18.0f;
float afSoftKernel[9] = {kSide, kSide, kSide, kSide, kCentre, kSide, kSide, kSide, kSide};

/// What the controls ask for.
struct Settings {
    float halo;
    int blend;  ///< 0 to 255
    int edges;  ///< likewise
    float color;
    float brightness;
    float contrast;

    explicit Settings(const Parameters& p)
        : halo(p.Slider(kHalo)),
          blend(Truncate(p.Slider(kBlend) * 255.0f)),
          edges(Truncate(p.Slider(kEdges) * 255.0f)),
          color(p.Slider(kColor)),
          brightness(p.Slider(kBrightness)),
          contrast(p.Slider(kContrast)) {}
};

/// The ellipse's width: odd, in parts of the picture's full height.
int GlowWidth(int height, float halo, int fields) {
    return (Truncate(static_cast<float>(fields * height) * halo * 0.1f) & ~1) + 1;
}

/// The two frames of the glow take turns; both have a margin as wide as the ellipse.
class Glow {
  public:
    /// False where memory cannot be had.
    bool Open(const CFrame& picture, int width, MemoryAllocator& allocator) {
        m_margin = width;
        for (CFrame* frame : {&m_front, &m_back})
            if (!frame->Init(picture.m_nWidth + 2 * width, picture.m_nHeight + 2 * width, 4,
                             &allocator, PixelFormatBGRA8, false))
                return false;
        return true;
    }

    /// The tuned picture in front, and behind it with its edges repeated into the margin, so that
    /// no dark border grows inwards.
    void TakeIn(CFrame& picture, const Settings& set, MemoryAllocator& allocator) {
        CFrame inner;
        inner.Init(&m_front, m_margin, m_margin, picture.m_nWidth, picture.m_nHeight, false);
        Processors::CColorTwist().Process(&picture, &inner, set.contrast, set.brightness, set.color,
                                          kNeutralHue, allocator);
        // Two pixels of the picture go too; one of four pixels or less has none left.
        if (!Processors::CFillBorder().Process(&m_front, &m_back, m_margin + 2, m_margin + 2))
            Processors::CSetColor().Process(&m_back, 0);
    }

    void Spread(int width, int height, MemoryAllocator& allocator) {
        Processors::CDilateEllipse().Process(&m_back, &m_front, width, height, &allocator);
    }

    void MarkEdges(int edges) {
        Processors::CFilter().Process(&m_front, &m_back, afSharpenKernel, 3, false);
        Processors::CAdd().Process(&m_front, &m_back, 255 - edges, edges);
    }

    void Soften() { Processors::CFilter().Process(&m_back, &m_front, afSoftKernel, 3, false); }

    /// The source and the glow, mixed.
    void Finish(CFrame& source, CFrame& destination, int blend) {
        const int width = source.m_nWidth, height = source.m_nHeight;
        Processors::CCopy().Process(&m_front, m_margin, m_margin, width, height, &destination, 0,
                                    0);
        CFrame scratch;  // the sum uses up its first operand, which must not be the host's
        scratch.Init(&m_front, 0, 0, width, height, false);
        Processors::CCopy().Process(&source, &scratch);
        Processors::CAdd().Process(&scratch, &destination, 255 - blend, blend);
    }

  private:
    CFrame m_front, m_back;
    int m_margin = 0;
};

}  // namespace

bool CAurascope::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    WorkingFrames work;
    if (!work.Open(job)) return true;

    const int fields = job.bFields ? 2 : 1;
    const int width = GlowWidth(work.source.m_nHeight, set.halo, fields);
    Glow glow;
    if (!glow.Open(work.source, width, job.allocator)) return true;
    glow.TakeIn(work.source, set, job.allocator);
    glow.Spread(width, std::max(width / fields, 1), job.allocator);
    glow.MarkEdges(set.edges);
    glow.Soften();
    glow.Finish(work.source, work.destination, set.blend);
    work.Finish(job);
    return true;
}

}  // namespace brushworks
