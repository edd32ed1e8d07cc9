// The graphics card as the renderer of a job, or OpenGL on the processor in its place.
#pragma once

#include <mutex>

#include "frame_renderer.h"
#include "host/gl/renderer.h"

namespace brushworks::tools {

/// One context for all workers, so that programs are compiled once and textures serve again: each
/// has it for the length of a render, while the others read, convert and write frames.
class CardRenderer final : public FrameRenderer {
  public:
    /// Throws host::Error where no OpenGL fits.
    explicit CardRenderer(bool requireHardware);

    /// Why frames of that size cannot be rendered, or "".
    std::string whyNot(const host::Effect& effect, int width, int height);

    bool render(host::Effect& effect, const FrameParams& source, const FrameParams& destination,
                const RenderInfo& info) override;
    std::string withWhat() const override { return " with " + name(); }
    /// As OpenGL names it, with a remark where that is no graphics card.
    std::string name() const;

  private:
    std::mutex m_mutex;
    host::gl::Renderer m_renderer;
};

}  // namespace brushworks::tools
