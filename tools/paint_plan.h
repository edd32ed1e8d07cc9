// Decides how an input is painted and written: what is kept, and what the output has no room for.
#pragma once

#include <string>
#include <vector>

#include "frame_painter.h"
#include "media/encoder.h"
#include "media/output_format.h"
#include "media/reader.h"
#include "media/writer.h"

namespace brushworks::tools {

struct PaintPlan {
    PaintSettings paint;
    media::VideoSettings video;
    media::Companions companions;
    std::vector<std::string> notes;  ///< what the user should know of losses
};

/// The plan for an input whose first frame is `first`; `render` holds what the user set. Throws
/// media::MediaUsageError, and media::MediaError where sound could not be kept.
PaintPlan makePlan(const media::Reader& reader, const AVFrame& first,
                   const media::OutputFormat& format, const media::EncodingChoice& choice,
                   const RenderSettings& render);

}  // namespace brushworks::tools
