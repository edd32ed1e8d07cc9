// One render of a picture, whole or field by field.
#pragma once

#include <cstdint>

#include "brushworks/frame.h"
#include "frame_renderer.h"
#include "media/av.h"
#include "media/canvas.h"

namespace brushworks::tools {

/// What a render is told beside the pixels and the values.
struct RenderSettings {
    AVRational pixelAspect = {0, 1};  ///< width of a pixel over its height, 0/1 where not known
    std::int32_t seed = 0;            ///< of random strokes
    bool fields = false;              ///< render the two fields of the frame each for itself
    bool bottomFirst = false;         ///< the field of the lower rows is the earlier one
};

/// The pixels of a canvas, and of a frame of media::bgraRaster.
FrameParams recordOf(const media::Canvas& canvas);
FrameParams recordOf(const AVFrame& bgra);

/// Renders `source` into `destination`, both of one layout and size. False when the effect rendered
/// nothing useful.
bool renderFrame(FrameRenderer& renderer, host::Effect& effect, const RenderSettings& settings,
                 const FrameParams& source, const FrameParams& destination);

}  // namespace brushworks::tools
