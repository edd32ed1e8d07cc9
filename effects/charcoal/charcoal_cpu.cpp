// Charcoal on the processor: a smoothed gray copy, its edges blurred into strokes, inks, contrast.
#include "effects/charcoal/charcoal.h"

#include <cmath>

#include "effects/charcoal/settings.h"
#include "effects/tone_table.h"
#include "frames/truncate.h"
#include "library/working_frames.h"
#include "processors/canvaskit/edge.h"
#include "processors/canvaskit/gaussian.h"
#include "processors/canvaskit/gray.h"
#include "processors/region.h"
#include "processors/smooth.h"

namespace brushworks {
namespace {

using charcoal::Settings;

/// The strokes as a plane: 255 where the paper is bare. False when a step fails.
class Strokes {
  public:
    Strokes(const RenderJob& job, CFrame& picture) : m_job(job), m_picture(picture) {}

    bool Find(const Settings& set, CFrame& strokes) {
        CFrame gray, edges;
        if (!MakePlane(gray) || !MakePlane(edges) || !MakePlane(strokes)) return false;
        if (!Canvaskit::CRGBToGray().Process(m_picture, gray)) return false;
        Smooth(gray, set);
        return Canvaskit::CEdge().Process(gray, edges, 3) &&
               Canvaskit::CGuassian().Process(edges, strokes,
                                              set.Sigma(m_picture.m_nHeight, m_job.bFields),
                                              m_job.bFields, nullptr) &&
               Canvaskit::CNegate().Process(strokes);
    }

  private:
    bool MakePlane(CFrame& plane) const {
        return plane.Init(m_picture.m_nWidth, m_picture.m_nHeight, 1, &m_job.allocator,
                          PixelFormatMono8, m_picture.m_bFlipped);
    }

    void Smooth(CFrame& gray, const Settings& set) const {
        Processors::CSmooth().Process(&gray, &gray, nullptr, nullptr, Settings::kSpatial,
                                      set.Range(), Settings::kRadius, Settings::kNoTone,
                                      m_job.bFields, nullptr, nullptr);
    }

    const RenderJob& m_job;
    CFrame& m_picture;
};

/// What a stroke's strength makes of the picture: by gray of the strokes and colour, the part that
/// charcoal and surface give, and the share of the picture's own colour, all in 256ths.
class Inks {
  public:
    explicit Inks(const Settings& set) {
        const int color = Truncate(set.color * 255.0f);
        for (int gray = 0; gray < 256; ++gray) {
            const int bare = Truncate(static_cast<float>((3 * gray) >> 3) / 96.0f * 255.0f);
            const int own = (color * (255 - bare)) >> 8;
            Mix& mix = m_mixes[static_cast<std::size_t>(gray)];
            mix.own = own;
            for (int sample = 0; sample < 3; ++sample) {
                const int shift = 8 * (2 - sample);  // the words hold red in the low byte
                mix.inks[sample] = byteOf(set.charcoal, shift) * (255 - bare - own) +
                                   byteOf(set.surface, shift) * bare;
            }
        }
    }

    void Draw(const CFrame& strokes, const CFrame& picture, CFrame& drawing) const {
        for (int y = 0; y < drawing.m_nHeight; ++y) {
            const auto* gray = Processors::RowOf<const unsigned char>(strokes, y);
            const auto* from = Processors::RowOf<const unsigned char>(picture, y);
            auto* to = Processors::RowOf<unsigned char>(drawing, y);
            for (int x = 0; x < drawing.m_nWidth; ++x, from += 4, to += 4) {
                const Mix& mix = m_mixes[gray[x]];
                for (int i = 0; i < 3; ++i)
                    to[i] = static_cast<unsigned char>((mix.inks[i] + from[i] * mix.own) >> 8);
                to[3] = 255;
            }
        }
    }

  private:
    struct Mix {
        int inks[3];
        int own;
    };

    static int byteOf(std::uint32_t word, int shift) {
        return static_cast<int>(word >> shift & 255);
    }

    std::array<Mix, 256> m_mixes;
};

}  // namespace

void CCharcoal::CreateGammaTable(float contrast, unsigned char* table) {
    const double base = std::atan2(contrast * 1.25f, double{0.1f}) + 0.005;
    for (int i = 0; i < 128; ++i) {
        const float x = static_cast<float>(i) / 255.0f;
        const float u = x * 2.5f * contrast + contrast * -1.25f;
        const double w = std::sin(x * 0.15707964f);
        const double g =
            (u * 0.85 * w * 4.0 + std::atan2(u, double{0.1f}) * (1.0 - w) + base) / (2 * base);
        // Only the very first contrast is a ramp: all others are the curve as it stands.
        const double v =
            contrast == 0.0f ? (g * contrast + x * (1.0 - contrast)) * 256.0 : g * 256.0;
        table[i] = static_cast<unsigned char>(static_cast<int>(v));
        table[255 - i] = static_cast<unsigned char>(static_cast<int>(255.0 - v));
    }
}

void CCharcoal::Contrast(CFrame* src, CFrame* dst, float contrast) {
    ToneTable table;
    CreateGammaTable(contrast, table.data());
    LookUp(*src, *dst, table);
}

bool CCharcoal::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    WorkingFrames work;
    if (!work.Open(job)) return false;

    CFrame strokes;
    if (!Strokes(job, work.source).Find(set, strokes)) return false;
    Inks(set).Draw(strokes, work.source, work.destination);
    Contrast(&work.destination, &work.destination, set.contrast);
    work.Finish(job);
    return true;
}

}  // namespace brushworks
