// The subcommand that shows all effects on one picture.
#pragma once

#include <string>
#include <vector>

#include "host/library.h"

namespace brushworks::tools {

struct GalleryOptions {
    std::string input;
    std::string output;                ///< the folder
    std::vector<std::string> effects;  ///< id, display name or index each; all when there is none
    int width = 960;                   ///< of the pictures at most
    int jobs = 0;        ///< pictures painted at once, 0 for as many as there are cores
    std::string memory;  ///< what memoryLimit() takes, or ""
    bool force = false;
    std::string progress;  ///< one of progressStyleNames(), or ""
    bool quiet = false;
};

/// Paints `input` with the defaults and every preset of the effects, and writes the pictures and a
/// page of them into a folder. Throws host::UsageError and other std::exceptions with texts for the
/// user; then there is no output.
void gallery(const host::Library& library, const GalleryOptions& options);

}  // namespace brushworks::tools
