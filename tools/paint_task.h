// What becomes of each input: the output's name, and where numbers stand in names.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "input_files.h"
#include "media/output_format.h"
#include "paint_command.h"
#include "sequence.h"

namespace brushworks::tools {

/// One input and its output.
struct PaintTask {
    std::string input;
    std::string output;
    std::optional<Sequence> sequence = {};   ///< that the input is, where it is one
    std::optional<NumberedName> names = {};  ///< of the pictures that the output is, likewise

    std::int64_t firstName = 0;  ///< the number of frame 0 in them

    /// The name of a frame's picture.
    std::string pictureName(std::int64_t frame) const { return names->at(firstName + frame); }
    /// The type of what is written.
    const media::OutputFormat& format() const;
};

/// The tasks of a run, in the order of the inputs. Throws host::UsageError and
/// media::MediaUsageError when inputs and output do not go together.
std::vector<PaintTask> paintTasks(const PaintOptions& options);

/// All files that the run reads, each picture of a sequence among them.
InputFiles inputsOf(const std::vector<PaintTask>& tasks, const PaintOptions& options);

/// Whether the output is a folder that gets a file for each input.
bool isFolderOutput(const PaintOptions& options);

}  // namespace brushworks::tools
