// On what a job renders, as the option --gpu tells.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "frame_renderer.h"

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

class CardRenderer;

/// The renderers of a run: all that render on the card share one context. [any thread]
class RendererChoice {
  public:
    explicit RendererChoice(GpuUse use);
    ~RendererChoice();

    /// The renderer for frames of that size, to be asked before the first. A note is added that
    /// says on what they render, where that is not the processor by the user's own choice. Throws
    /// host::Error where the choice cannot be met.
    std::shared_ptr<FrameRenderer> rendererFor(const host::Effect& effect, int width, int height,
                                               std::vector<std::string>& notes);

  private:
    std::shared_ptr<CardRenderer> card();

    const GpuUse m_use;
    std::mutex m_mutex;
    std::shared_ptr<CardRenderer> m_pCard;
    std::string m_sWhyNoCard;
};

}  // namespace brushworks::tools
