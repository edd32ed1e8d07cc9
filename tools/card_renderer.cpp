// Passes the context from worker to worker.
#include "card_renderer.h"

#include <algorithm>

namespace brushworks::tools {
namespace {

using host::gl::Renderer;

constexpr unsigned int kMaxTextureSize = 0x0D33;  // GL_MAX_TEXTURE_SIZE

/// The context is this thread's while this lives.
class Current {
  public:
    explicit Current(Renderer& renderer)
        : m_renderer(renderer), m_bCurrent(renderer.makeCurrent()) {}
    ~Current() { m_renderer.release(); }
    Current(const Current&) = delete;
    Current& operator=(const Current&) = delete;

    explicit operator bool() const { return m_bCurrent; }

  private:
    Renderer& m_renderer;
    bool m_bCurrent;
};

}  // namespace

CardRenderer::CardRenderer(bool requireHardware)
    : m_renderer(Renderer::create({.requireHardware = requireHardware})) {
    m_renderer.release();
}

std::string CardRenderer::whyNot(const host::Effect& effect, int width, int height) {
    const std::lock_guard lock(m_mutex);
    const Current current(m_renderer);
    if (!current || !m_renderer.supports(effect)) {
        return "the effect " + effect.info().id + " does not render on the graphics card here";
    }
    int side = 0;
    m_renderer.context().GetIntegerv(kMaxTextureSize, &side, 1);
    if (std::max(width, height) <= side) return "";
    return "frames of " + std::to_string(width) + "x" + std::to_string(height) +
           " are too large for " + name() + ", which takes " + std::to_string(side) +
           " pixels a side";
}

bool CardRenderer::render(host::Effect& effect, const FrameParams& source,
                          const FrameParams& destination, const RenderInfo& info) {
    const std::lock_guard lock(m_mutex);
    const Current current(m_renderer);
    return current && m_renderer.render(effect, source, destination, info);
}

std::string CardRenderer::name() const {
    const host::gl::GLDescription& opengl = m_renderer.description();
    return opengl.renderer + (opengl.hardware ? "" : ", OpenGL on the processor");
}

}  // namespace brushworks::tools
