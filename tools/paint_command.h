// The subcommand that paints a picture or a video.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "effect_choice.h"
#include "host/library.h"
#include "media/encoder.h"
#include "renderer_choice.h"

namespace brushworks::tools {

struct PaintOptions {
    std::vector<std::string> inputs;  ///< files, sequences, or "-" for standard input
    std::string output;               ///< file, sequence, folder, or "-" for standard output
    EffectChoice choice;
    media::EncodingChoice encoding;
    int jobs = 0;             ///< frames rendered at once, 0 for as many as there are cores
    std::string memory;       ///< what memoryLimit() takes, or ""
    std::int32_t seed = 0;    ///< of random strokes
    int hold = 0;             ///< frames before the strokes change; 0: they never do
    std::string scale;        ///< what Scaling::parse takes, or ""
    std::string keptHalf;     ///< one of keptHalfNames(), or ""
    std::string progress;     ///< one of progressStyleNames(), or ""
    std::string frames;       ///< what FrameRange::parse takes, or ""
    std::string rate;         ///< frames a second, or ""
    std::int64_t start = -1;  ///< first number of a sequence, less than 0 for the lowest
    bool resume = false;      ///< outputs that are there are left and count as done
    bool preview = false;     ///< small, and the start of a video
    bool dryRun = false;      ///< nothing is painted or written
    GpuUse gpu = GpuUse::None;
    bool fields = false;
    bool force = false;
    bool quiet = false;
};

/// Paints the inputs into the output; a dry run tells on `out` what would be done. Throws
/// host::UsageError, media::MediaUsageError and other std::exceptions with texts for the user; of
/// the outputs those that were whole before are there then.
void paint(const host::Library& library, const PaintOptions& options, std::ostream& out);

}  // namespace brushworks::tools
