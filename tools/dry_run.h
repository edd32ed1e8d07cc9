// What a run of the command would do, told without doing it.
#pragma once

#include <cstdint>
#include <ostream>

#include "effect_choice.h"
#include "media/reader.h"
#include "paint_plan.h"
#include "paint_task.h"

namespace brushworks::tools {

/// Tells of input, effect, values, output and the memory that is needed, after the encoder and the
/// head of the file were tried where nothing is kept. Throws what the run itself would throw there.
void dryRun(const PaintTask& task, const media::Reader& reader, const AVFrame& first,
            const ChosenEffect& chosen, const media::OutputFormat& format, const PaintPlan& plan,
            std::int64_t memory, std::ostream& out);

}  // namespace brushworks::tools
