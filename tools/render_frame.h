// One render of a frame in the effect's layout, whole or field by field.
#pragma once

#include <cstdint>

#include "host/effect.h"
#include "media/av.h"

namespace brushworks::tools {

/// What a render is told beside the pixels and the values.
struct RenderSettings {
    AVRational pixelAspect = {0, 1};  ///< width of a pixel over its height, 0/1 where not known
    std::int32_t seed = 0;            ///< of random strokes
    bool fields = false;              ///< render the two fields of the frame each for itself
};

/// Renders `source` into `destination`, both of media::bgraRaster and of one size. False when the
/// effect rendered nothing useful.
bool renderFrame(host::Effect& effect, const RenderSettings& settings, const AVFrame& source,
                 AVFrame& destination);

}  // namespace brushworks::tools
