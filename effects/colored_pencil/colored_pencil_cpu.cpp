// Colored Pencil on the processor: smoothing, strokes by how much the neighbours differ, colours.
#include "effects/colored_pencil/colored_pencil.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "frames/truncate.h"
#include "library/working_frames.h"
#include "processors/canvaskit/fill_border.h"
#include "processors/color_twist.h"
#include "processors/region.h"
#include "processors/smooth.h"

namespace brushworks {
namespace {

enum Param : unsigned int { kColorShift, kColor, kBrightness, kContrast, kDetails, kFill };

/// What the controls ask for.
struct Settings {
    float shade;   ///< how far flat areas fade to white
    float detail;  ///< 0 to -0.85
    float contrast;
    float brightness;
    float saturation;
    float hue;  ///< 0.35 to 0.65; 0.5 is neutral

    explicit Settings(const Parameters& p) {
        shade = 1.0f - p.Slider(kFill);
        detail = p.Slider(kDetails) * -0.85f;
        const float slider = p.Slider(kContrast);
        contrast = (slider * 0.5f + 0.5f) * (slider * 0.5f + 0.5f);
        brightness = slider * -0.13000001f + 0.3f +
                     (slider * -0.26999998f + 0.39999998f) * p.Slider(kBrightness);
        saturation = p.Slider(kColor);
        hue = (p.Slider(kColorShift) - 0.5f) * 0.3f + 0.5f;
    }
};

void Smooth(CFrame& from, CFrame& to, float detail, bool field) {
    constexpr float kSpatial = 1.0f, kRadius = 0.25f, kNoTone = 0.0f;
    Processors::CSmooth().Process(&from, &to, nullptr, nullptr, kSpatial,
                                  (detail + 0.85f) * 0.5f + 0.1f, kRadius, kNoTone, field, nullptr,
                                  nullptr);
}

/// What pencils leave of a sample, by the sample and by how much its neighbours differ.
class Pencils {
  public:
    explicit Pencils(float shade) {
        const float strength = shade * 0.7f + 0.3f;
        for (int sample = 0; sample < 256; ++sample) {
            const auto row = static_cast<float>(sample + 1);
            const int loss = sample / 100;  // bright samples lose strength along edges
            for (int difference = 0; difference < 256; ++difference) {
                const auto j = static_cast<float>(difference);
                const float fade = (256.0f - row) / (j / std::sqrt(row) / 3.0f + 1.0f);
                const float value = (fade - static_cast<float>(difference * loss)) * strength +
                                    static_cast<float>(sample);
                m_marks[Index(sample, difference)] =
                    static_cast<unsigned char>(std::clamp(Truncate(value), 0, 255));
            }
        }
    }

    /// Draws the picture that `bordered` holds one pixel further in.
    void Draw(const CFrame& bordered, CFrame& drawing) const {
        const int samples = 4 * drawing.m_nWidth;
        std::vector<unsigned char> differences(static_cast<std::size_t>(samples));
        for (int y = 0; y < drawing.m_nHeight; ++y) {
            Compare(bordered, y, samples, differences.data());
            const auto* from = Processors::RowOf<const unsigned char>(bordered, y + 1) + 4;
            auto* to = Processors::RowOf<unsigned char>(drawing, y);
            for (int i = 0; i < samples; i += 4) {
                for (int c = 0; c < 3; ++c)
                    to[i + c] = m_marks[Index(from[i + c], differences[i + c])];
                to[i + 3] = from[i + 3];
            }
        }
    }

  private:
    static std::size_t Index(int sample, int difference) {
        return std::size_t{256} * static_cast<unsigned>(sample) + static_cast<unsigned>(difference);
    }

    /// The largest difference from the neighbours in the pixel's own column and the one to its
    /// left, three rows each. On purpose the column to the right takes no part.
    static void Compare(const CFrame& bordered, int y, int samples, unsigned char* differences) {
        const auto* above = Processors::RowOf<const unsigned char>(bordered, y);
        const auto* here = Processors::RowOf<const unsigned char>(bordered, y + 1);
        const auto* below = Processors::RowOf<const unsigned char>(bordered, y + 2);
        for (int i = 0; i < samples; ++i) {
            const unsigned char own = here[i + 4];
            const unsigned char most =
                std::max({above[i], above[i + 4], here[i], below[i], below[i + 4], own});
            const unsigned char least =
                std::min({above[i], above[i + 4], here[i], below[i], below[i + 4], own});
            differences[i] = static_cast<unsigned char>(std::max(most - own, own - least));
        }
    }

    std::array<unsigned char, 256 * 256> m_marks;
};

}  // namespace

bool CColoredPencil::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    WorkingFrames work;
    if (!work.Open(job)) return true;
    CFrame& drawing = work.destination;

    Smooth(work.source, drawing, set.detail, job.bFields);
    CFrame bordered;
    Canvaskit::CFillBorder().Process(drawing, bordered, 1, 1, nullptr);
    if (bordered.m_pBuffer) Pencils(set.shade).Draw(bordered, drawing);
    Processors::CColorTwist().Process(&drawing, &drawing, set.contrast, set.brightness,
                                      set.saturation, set.hue, job.allocator);
    work.Finish(job);
    return true;
}

}  // namespace brushworks
