// Uploads, renders, reads back; and in debug mode looks at what the render left behind.
#include "host/gl/renderer.h"

#include "host/gl/lending_host.h"

namespace brushworks::host::gl {
namespace {

/// The GPU face of an effect; null for one that has none.
Ref<IVideoGPUEffect> gpuFace(const Effect& effect) {
    void* face = nullptr;
    if (effect.object()->QueryInterface(IID_VideoGPUEffect, &face) != kInterfaceFound) return {};
    return Ref<IVideoGPUEffect>::adopt(static_cast<IVideoGPUEffect*>(face));
}

/// A texture that is freed at the end of its scope.
class ScopedTexture {
  public:
    ScopedTexture(HostGL& host, std::optional<TextureParams> texture)
        : m_host(host), m_texture(texture.value_or(TextureParams{})) {}
    ~ScopedTexture() { m_host.FreeTexture(&m_texture, m_texture.pTexture != nullptr); }
    ScopedTexture(const ScopedTexture&) = delete;
    ScopedTexture& operator=(const ScopedTexture&) = delete;

    explicit operator bool() const { return m_texture.pTexture != nullptr; }
    TextureParams* get() { return &m_texture; }
    const TextureParams& operator*() const { return m_texture; }

  private:
    HostGL& m_host;
    TextureParams m_texture;
};

std::optional<TextureParams> emptyTexture(HostGL& host, const FrameParams& frame) {
    TextureParams texture;
    if (!host.CreateTexture(nullptr, texture, nullptr, frame.nWidth, frame.nHeight,
                            frame.pfPixelFormat, nullptr, 0, nullptr)) {
        return std::nullopt;
    }
    texture.bFlipped = frame.bFlipped;
    return texture;
}

/// Logs what is still there of what a render made.
void inspectLeftovers(HostGL& host, std::uint64_t mark, bool rendered) {
    if (!host.log().enabled()) return;
    host.log().check("a call of the effect");
    for (const std::string& left : host.aliveSince(mark)) {
        host.log().add("the render did not free a " + left);
    }
    // A render that gave up has no duty to go on to its last step.
    if (rendered && host.targetsTexture()) {
        host.log().add("the render left a texture bound as its target");
    }
}

}  // namespace

Renderer::Renderer(Ref<GLContext> context, Ref<HostGL> hostGL, bool overlap)
    : m_pContext(std::move(context)), m_pHostGL(std::move(hostGL)), m_bOverlap(overlap) {}

Renderer Renderer::create(const RendererOptions& options) {
    auto context = Ref<GLContext>::adopt(
        new GLContext({.requireHardware = options.requireHardware, .debug = options.debug}));
    auto hostGL = HostGL::create(context, {.debug = options.debug, .garbage = options.garbage});
    const bool overlap = options.overlap.value_or(context->context().description().hardware);
    return Renderer(std::move(context), std::move(hostGL), overlap);
}

bool Renderer::supports(const Effect& effect) {
    const Ref<IVideoGPUEffect> face = gpuFace(effect);
    GPUCaps caps{};
    return face && m_pHostGL->TestEffect(face.get(), &caps) && caps.nGPUSupported == 1 &&
           caps.bGPUAllowed;
}

std::optional<TextureParams> Renderer::upload(const FrameParams& frame, int width, int height,
                                              int left, int top) {
    TextureParams texture;
    if (!m_pHostGL->CreateTexture(nullptr, texture, nullptr, width, height, frame.pfPixelFormat,
                                  nullptr, 0, nullptr)) {
        return std::nullopt;
    }
    texture.nLeft = left;
    texture.nTop = top;
    texture.nWidth = frame.nWidth;
    texture.nHeight = frame.nHeight;
    texture.bFlipped = frame.bFlipped;
    const Region region{left, top, frame.nWidth, frame.nHeight};
    Texture* storage = m_pHostGL->find(texture);
    if (!storage->holds(region) || !uploadPixels(storage->name(), region, storage->key().layout,
                                                 frame.pBuffer, frame.nByteSpan)) {
        m_pHostGL->FreeTexture(&texture, true);
        return std::nullopt;
    }
    m_pHostGL->log().check("upload");
    return texture;
}

bool Renderer::download(const TextureParams& texture, const FrameParams& frame) {
    TextureParams source = texture;
    source.pfPixelFormat = frame.pfPixelFormat;
    return m_pHostGL->ReadTexture(m_pContext.get(), &source, frame.nWidth, frame.nHeight,
                                  frame.nByteSpan, frame.pBuffer);
}

bool Renderer::render(const Effect& effect, const FrameParams& source,
                      const FrameParams& destination, const RenderInfo& info) {
    const Ref<IVideoGPUEffect> face = gpuFace(effect);
    return face && render(*face, *effect.host(), source, destination, info);
}

bool Renderer::render(IVideoGPUEffect& effect, IVideoHost& values, const FrameParams& source,
                      const FrameParams& destination, const RenderInfo& info) {
    return renderThrough(*m_pHostGL, effect, values, source, destination, info);
}

bool Renderer::renderThrough(IVideoHostGL& maker, IVideoGPUEffect& effect, IVideoHost& values,
                             const FrameParams& source, const FrameParams& destination,
                             const RenderInfo& info) {
    ScopedTexture from(*m_pHostGL, upload(source));
    ScopedTexture to(*m_pHostGL, emptyTexture(*m_pHostGL, destination));
    if (!from || !to) return false;
    return renderTexture(maker, effect, values, from.get(), to.get(), info) &&
           download(*to, destination);
}

bool Renderer::renderTexture(IVideoHostGL& maker, IVideoGPUEffect& effect, IVideoHost& values,
                             TextureParams* source, TextureParams* destination,
                             const RenderInfo& info) {
    const std::uint64_t mark = m_pHostGL->mark();
    const Ref<LendingHost> host = LendingHost::create(maker, &values);
    RenderInfo record = info;
    const bool rendered = effect.RenderGPU(kRenderFinal, host.get(), m_pContext.get(), source,
                                           nullptr, destination, &record);
    inspectLeftovers(*m_pHostGL, mark, rendered);
    return rendered;
}

bool Renderer::submit(const Effect& effect, const FrameParams& source,
                      const FrameParams& destination, const RenderInfo& info) {
    const Ref<IVideoGPUEffect> face = gpuFace(effect);
    return face && submit(*face, *effect.host(), source, destination, info);
}

bool Renderer::submit(IVideoGPUEffect& effect, IVideoHost& values, const FrameParams& source,
                      const FrameParams& destination, const RenderInfo& info) {
    ScopedTexture from(*m_pHostGL, upload(source));
    ScopedTexture to(*m_pHostGL, emptyTexture(*m_pHostGL, destination));
    if (!from || !to || !renderTexture(*m_pHostGL, effect, values, from.get(), to.get(), info)) {
        return false;
    }
    if (m_onTheirWay.size() == kFramesOnTheirWay && !collect()) return false;
    if (!m_bOverlap) {
        if (!download(*to, destination)) return false;
        m_onTheirWay.emplace_back();
        return true;
    }
    const Texture& result = *m_pHostGL->find(*to);
    m_onTheirWay.emplace_back(std::in_place, result.name(),
                              Region{0, 0, destination.nWidth, destination.nHeight},
                              result.key().layout, destination);
    m_pHostGL->log().check("submit");
    return true;
}

bool Renderer::collect() {
    if (m_onTheirWay.empty()) return false;
    std::optional<Readback>& oldest = m_onTheirWay.front();
    const bool whole = !oldest || oldest->finish();
    m_onTheirWay.pop_front();
    m_pHostGL->log().check("collect");
    return whole;
}

}  // namespace brushworks::host::gl
