// On what a job renders, as the option --gpu tells.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "frame_renderer.h"
#include "notes.h"

namespace brushworks::tools {

/// What the user wants of OpenGL.
enum class GpuUse {
    None,
    Any,       ///< a graphics card or, without one, OpenGL on the processor
    Auto,      ///< a graphics card; where it cannot render the job, the processor does
    Hardware,  ///< a graphics card and nothing else
};

/// The words for --gpu. The first is what the bare option means.
std::vector<std::string> gpuWords();
GpuUse gpuUseOf(const std::string& word);

/// The renderer for frames of that size; a note says on what they render, where that is not the
/// processor by the user's own choice. Throws host::Error where `use` cannot be met.
std::unique_ptr<FrameRenderer> chooseRenderer(GpuUse use, const host::Effect& effect, int width,
                                              int height, const Notes& note);

}  // namespace brushworks::tools
