// The simple front of the OpenGL host: frames in memory in, frames in memory out.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "brushworks/effect.h"
#include "brushworks/frame.h"
#include "host/effect.h"
#include "host/gl/host_gl.h"
#include "host/gl/readback.h"

namespace brushworks::host::gl {

struct RendererOptions {
    bool requireHardware = false;  ///< refuse to render on the processor
    bool debug = false;            ///< collect problems: wrong use of OpenGL, what was not freed
    bool garbage = false;          ///< fresh textures start as nonsense, so that reading them shows
    /// Whether submit() lets a result come over while the next frame is worked on. By default on
    /// graphics cards alone: on the processor the detour costs more than it gains.
    std::optional<bool> overlap = std::nullopt;
};

/// Renders effects with OpenGL. It serves on the thread that made it, or the one it was moved to.
class Renderer {
  public:
    /// Throws Error where no OpenGL fits.
    static Renderer create(const RendererOptions& options = {});

    /// Which OpenGL renders.
    const GLDescription& description() const { return m_pContext->context().description(); }
    /// Whether the effect can render with it.
    bool supports(const Effect& effect);

    /// Renders `source` into `destination`, which may differ in size and layout. False when the
    /// effect rendered nothing; the destination is then untouched.
    bool render(const Effect& effect, const FrameParams& source, const FrameParams& destination,
                const RenderInfo& info);
    /// The same for an effect object and a host that keeps its values, both of the caller.
    bool render(IVideoGPUEffect& effect, IVideoHost& values, const FrameParams& source,
                const FrameParams& destination, const RenderInfo& info);
    /// The same with another maker of GL objects that stands in front of this renderer's.
    bool renderThrough(IVideoHostGL& maker, IVideoGPUEffect& effect, IVideoHost& values,
                       const FrameParams& source, const FrameParams& destination,
                       const RenderInfo& info);

    /// Renders like render(), but the result may come over while the next frame is worked on: the
    /// destination is only whole when collect() has said so, once for each frame in their order.
    /// With kFramesOnTheirWay waiting already, the oldest is waited for here.
    bool submit(const Effect& effect, const FrameParams& source, const FrameParams& destination,
                const RenderInfo& info);
    bool submit(IVideoGPUEffect& effect, IVideoHost& values, const FrameParams& source,
                const FrameParams& destination, const RenderInfo& info);
    /// Waits for the oldest frame of submit(); false when none is on its way.
    bool collect();
    static constexpr std::size_t kFramesOnTheirWay = 2;

    /// A texture with a frame in the region that begins at `left`, `top` of an allocation of
    /// `width` by `height` texels. The caller frees it through hostGL(). None when refused.
    std::optional<TextureParams> upload(const FrameParams& frame, int width, int height,
                                        int left = 0, int top = 0);
    /// A texture of the frame's size and layout, holding the frame.
    std::optional<TextureParams> upload(const FrameParams& frame) {
        return upload(frame, frame.nWidth, frame.nHeight);
    }
    /// Stores the region of interest in a frame of its size.
    bool download(const TextureParams& texture, const FrameParams& frame);

    /// To move to another thread: release() there, makeCurrent() here.
    bool makeCurrent() { return m_pContext->context().makeCurrent(); }
    void release() { m_pContext->context().release(); }

    /// What the library takes: the context, and the maker of GL objects, which also serves as one
    /// of HostOptions::services.
    GLContext& context() { return *m_pContext; }
    HostGL& hostGL() { return *m_pHostGL; }
    /// In debug mode, the problems since the last call.
    std::vector<std::string> takeProblems() { return m_pHostGL->log().take(); }

  private:
    Renderer(Ref<GLContext> context, Ref<HostGL> hostGL, bool overlap);

    bool renderTexture(IVideoHostGL& maker, IVideoGPUEffect& effect, IVideoHost& values,
                       TextureParams* source, TextureParams* destination, const RenderInfo& info);

    Ref<GLContext> m_pContext;
    Ref<HostGL> m_pHostGL;
    bool m_bOverlap;
    /// Frames of submit() in their order; empty ones have arrived.
    std::deque<std::optional<Readback>> m_onTheirWay;
};

}  // namespace brushworks::host::gl
