// The subcommand that paints a picture or a video.
#pragma once

#include <cstdint>
#include <string>

#include "effect_choice.h"
#include "host/library.h"
#include "media/encoder.h"
#include "renderer_choice.h"

namespace brushworks::tools {

struct PaintOptions {
    std::string input;   ///< "-" for standard input
    std::string output;  ///< "-" for standard output
    EffectChoice choice;
    media::EncodingChoice encoding;
    int jobs = 0;           ///< frames rendered at once, 0 for as many as there are cores
    std::int32_t seed = 0;  ///< of random strokes
    int hold = 0;           ///< frames before the strokes change; 0: they never do
    GpuUse gpu = GpuUse::None;
    bool fields = false;
    bool force = false;
    bool quiet = false;
};

/// Paints `input` into `output`. Throws host::UsageError, media::MediaUsageError and other
/// std::exceptions with texts for the user; then there is no output.
void paint(const host::Library& library, const PaintOptions& options);

}  // namespace brushworks::tools
