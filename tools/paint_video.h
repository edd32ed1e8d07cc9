// A video or a sequence that becomes a video, and a video that becomes pictures.
#pragma once

#include "paint_run.h"
#include "paint_task.h"

namespace brushworks::tools {

/// Throws what paint() throws; of pictures those before the one that failed are there then.
void paintVideo(PaintRun& run, const PaintTask& task);

}  // namespace brushworks::tools
