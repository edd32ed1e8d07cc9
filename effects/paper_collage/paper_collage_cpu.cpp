// Paper Collage on the processor: blurred brightness, cut into levels, sheets in the levels'
// colours.
#include <algorithm>
#include <cmath>

#include "effects/paper_collage/cut.h"
#include "effects/paper_collage/paper_collage.h"
#include "effects/paper_collage/sheets.h"
#include "frames/truncate.h"
#include "library/working_frames.h"
#include "processors/blur.h"
#include "processors/copy_plane.h"
#include "processors/mono_chrome.h"

namespace brushworks {
namespace {

enum Param : unsigned int {
    kRounding,
    kLayers,
    kBalance,
    kForeground,
    kBackground,
    kBlendColors,
    kContrast,
    kDistance,
    kAngle,
    kShadowColor,
    kShadowStrength,
};

constexpr float kPi = 3.1415925f;  // one step of a float below the nearest to it

/// A parameter's colour with blue in the low byte.
std::uint32_t BlueFirst(std::uint32_t color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

/// 0 to 1 as 0 to 255.
int ToByte(float part) {
    return std::clamp(Truncate(part * 255.0f), 0, 255);
}

/// What the controls ask for. The host is asked in this order.
struct Settings {
    float balance;
    float rounding;
    int levels;  ///< 2 to kMostLevels
    std::uint32_t foreground;
    std::uint32_t background;
    float distance;
    std::uint32_t shadowColor;
    int blend;       ///< 0 to 255
    float angle;     ///< in radians, counter-clockwise on a picture whose first row is the top one
    int shadowKeep;  ///< 0 to 255: how little of the shadow's colour is seen
    float contrast;

    explicit Settings(const Parameters& p)
        : balance(p.Slider(kBalance)),
          rounding(p.Slider(kRounding)),
          levels(Truncate(p.Slider(kLayers) * 6.0f) + 2),
          foreground(BlueFirst(p.Color(kForeground))),
          background(BlueFirst(p.Color(kBackground))),
          distance(p.Slider(kDistance)),
          shadowColor(BlueFirst(p.Color(kShadowColor))),
          blend(ToByte(p.Slider(kBlendColors))),
          angle(2.0f * (1.0f - p.Slider(kAngle)) * kPi),
          shadowKeep(ToByte(1.0f - p.Slider(kShadowStrength))),
          contrast(p.Slider(kContrast)) {}

    SheetColors Colors() const { return {foreground, background, blend, contrast}; }
};

/// Away from zero, but for a rest below 0.3, which is dropped.
int RoundOffset(float v) {
    return Truncate(v > 0.0f ? std::floor(v + 0.7f) : std::ceil(v - 0.7f));
}

/// The shadow falls as many pixels away as `distance` tells for the picture's full height.
Shadow ShadowOf(const Settings& set, int height, int fields) {
    const auto lines = static_cast<float>(fields * height);
    const int length = Truncate(lines * set.distance * 0.03f);
    const auto far = static_cast<float>(length);
    return {.isThrown = length != 0,
            .dx = RoundOffset(std::cos(set.angle) * far),
            .dy = RoundOffset(std::sin(set.angle) * far / static_cast<float>(fields)),
            .color = set.shadowColor,
            .keep = set.shadowKeep};
}

/// The picture's brightness, blurred so that its shapes have rounded edges.
void TakeBrightness(WorkingFrames& work, CFrame& gray, const Settings& set, int fields,
                    MemoryAllocator& allocator) {
    Processors::CMonoChrome().Process(&work.source, &work.destination, 0xFFFFFF);
    Processors::CCopyPlane().Process(&work.destination, &gray, 2, 0);
    const int radius = Truncate(static_cast<float>(gray.m_nHeight) * set.rounding * 0.15f);
    Processors::CBlur().Process(&gray, &gray, static_cast<float>(fields * radius),
                                static_cast<float>(radius), &allocator, /*allChannels=*/true);
}

}  // namespace

bool CEmbossedPaper::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    const int width = job.source.m_nWidth, height = job.source.m_nHeight;
    WorkingFrames work;
    CFrame gray;
    Sheets sheets;
    if (!work.Open(job) || !gray.Init(width, height, 1, &job.allocator, PixelFormatMono8, false) ||
        !sheets.Open(width, height, set.levels, job.allocator))
        return true;  // the destination stays as it was

    const int fields = job.bFields ? 2 : 1;
    TakeBrightness(work, gray, set, fields, job.allocator);
    Level storage[kMostLevels];
    const std::span levels(storage, static_cast<std::size_t>(set.levels));
    CutIntoLevels(gray, work.source, set.balance, levels);
    ColorSheets(levels, set.Colors());
    sheets.Lay(gray, levels, ShadowOf(set, height, fields), work.destination);
    work.Finish(job);
    return true;
}

}  // namespace brushworks
