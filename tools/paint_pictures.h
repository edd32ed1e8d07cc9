// Pictures that become pictures, each for itself: several at once, written in their order.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "paint_run.h"
#include "paint_task.h"

namespace brushworks::tools {

/// A picture to paint.
struct PictureTask {
    const PaintTask* task;  ///< that it belongs to
    std::string input;
    std::string output;
    std::int64_t number = 0;  ///< its place in a sequence, by which strokes and values change
    double seconds = 0;
};

/// The pictures of a sequence that are painted, or the one picture that the task is.
std::vector<PictureTask> picturesOf(const PaintTask& task, const PaintOptions& options);

/// Throws what paint() throws; the pictures before the one that failed are there then.
void paintPictures(PaintRun& run, const std::vector<PictureTask>& pictures);

}  // namespace brushworks::tools
