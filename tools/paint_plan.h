// Decides how an input is painted and written: what is kept, and what the output has no room for.
#pragma once

#include <string>
#include <vector>

#include "frame_painter.h"
#include "frame_range.h"
#include "media/encoder.h"
#include "media/output_format.h"
#include "media/reader.h"
#include "media/writer.h"
#include "scaling.h"

namespace brushworks::tools {

struct PaintPlan {
    PaintSettings paint;
    media::VideoSettings video;
    media::Companions companions;
    Part part;
    std::vector<std::string> notes;  ///< what the user should know of losses
};

/// What the user set.
struct PlanWishes {
    media::EncodingChoice encoding;
    RenderSettings render;
    Scaling scaling;
    Part part;
};

/// The plan for an input whose first frame is `first`. Throws media::MediaUsageError, and
/// media::MediaError where sound could not be kept.
PaintPlan makePlan(const media::Reader& reader, const AVFrame& first,
                   const media::OutputFormat& format, const PlanWishes& wishes);

}  // namespace brushworks::tools
