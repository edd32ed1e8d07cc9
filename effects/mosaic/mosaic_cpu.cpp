// Mosaic on the processor: a white frame takes the bricks, in bytes with blue first.
#include <new>

#include "effects/mosaic/facets.h"
#include "effects/mosaic/mosaic.h"
#include "frames/aspect.h"
#include "library/working_frames.h"
#include "processors/region.h"
#include "processors/set_color.h"

namespace brushworks {
namespace {

enum Param : unsigned int { kSize, kShape, kBorders };

constexpr unsigned int kWhite = 0xffffffff;

/// What the controls ask for.
struct Settings {
    float size;    ///< 0.02 to 1: 0.3 frame heights make a brick's half
    float jitter;  ///< 0 to 0.68; the less, the wider the points are shaken
    bool borders;

    explicit Settings(const Parameters& p)
        : size(p.Slider(kSize) * 0.98f + 0.02f),
          jitter((1.0f - p.Slider(kShape)) * 0.68f),
          borders(p.IsOn(kBorders)) {}
};

bool HasColors(const CFrame& frame) {
    return Processors::IsByteColor(frame) || Processors::IsFloatColor(frame);
}

}  // namespace

bool CStainedGlass::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    if (!HasColors(job.source)) return true;
    AspectHelper aspect;
    aspect.Init(job.info, /*fieldsHalveHeight=*/true, /*keepAxis=*/false);
    WorkingFrames work;
    if (!work.Open(job)) return true;

    Processors::CSetColor().Process(&work.destination, kWhite);
    try {
        AddFacets(&work.source, &work.destination, set.size, 0.0f, set.jitter, set.jitter,
                  /*wantOutlines=*/true, set.borders, aspect.fAspect, &job.allocator);
    } catch (const std::bad_alloc&) {
        // The wall stays as far as it has come.
    }
    work.Finish(job);
    return true;
}

}  // namespace brushworks
