// Makes, lends and takes back. Everything made is on a list until it is freed, so that what the
// library forgets is neither lost nor left in its hands.
#include "host/gl/host_gl.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "brushworks/effect.h"
#include "host/gl/lending_host.h"

namespace brushworks::host::gl {
namespace {

/// The kind of GetInfoString that asks for a text about the GL stack.
constexpr int kInfoGL = 7;

std::string sizeText(int width, int height) {
    return std::to_string(width) + " by " + std::to_string(height);
}

Region regionOf(const TextureParams& texture) {
    return {texture.nLeft, texture.nTop, texture.nWidth, texture.nHeight};
}

bool fitsDevice(int width, int height) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    return width > 0 && height > 0 && width <= largest && height <= largest;
}

/// The text of a stage; "" for an absent one. A terminator that was counted is no part of it.
std::string stageText(const std::uint8_t* data, std::uint32_t size) {
    if (data == nullptr) return "";
    std::string text(reinterpret_cast<const char*>(data), size);
    return text.substr(0, text.find_last_not_of('\0') + 1);
}

}  // namespace

Ref<HostGL> HostGL::create(Ref<GLContext> context, const HostGLOptions& options) {
    return Ref<HostGL>::adopt(new HostGL(std::move(context), options));
}

HostGL::HostGL(Ref<GLContext> context, const HostGLOptions& options)
    : m_pContext(std::move(context)),
      m_options(options),
      m_log(options.debug),
      m_targets(m_log, options.poolBytes, options.garbage),
      m_texturePool(options.poolBytes),
      m_bufferPool(options.poolBytes) {}

HostGL::~HostGL() {
    Context& context = m_pContext->context();
    const bool wasCurrent = context.isCurrent();
    const bool current = wasCurrent || context.makeCurrent();
    // What is still out becomes invalid. Where the context is out of reach its own end takes the
    // GL objects along.
    m_textures.removeAll([&](Texture& texture) {
        const TextureStorage storage = texture.takeStorage();
        if (current && storage.texture != 0) storage.destroy();
    });
    for (const auto& [name, texture] : m_named) {
        const TextureStorage storage = texture->takeStorage();
        if (current && storage.texture != 0) storage.destroy();
    }
    m_buffers.removeAll([&](Buffer& buffer) {
        if (current) buffer.takeStorage().destroy();
    });
    m_shaders.removeAll([&](Program& program) {
        const auto linked = program.takeLinked();
        if (current) linked->destroy();
    });
    if (!current) return;
    m_targets.destroyAll();
    m_texturePool.clear();
    m_bufferPool.clear();
    m_programs.clear();
    m_log.stopListening();
    if (!wasCurrent) context.release();
}

bool HostGL::usable(const char* operation) {
    if (!m_pContext->context().isCurrent()) {
        m_log.add(std::string(operation) + " without the context being current");
        return false;
    }
    m_log.check("a call of the effect");
    return true;
}

Ref<Texture> HostGL::makeTexture(const TextureKey& key) {
    std::optional<TextureStorage> storage = m_texturePool.take(key);
    int& counter = storage ? m_counters.texturesReused : m_counters.texturesMade;
    if (!storage) storage = TextureStorage::create(key, m_log);
    if (!storage) {
        // The idle ones may be what the memory is missing for.
        m_texturePool.clear();
        storage = TextureStorage::create(key, m_log);
    }
    if (!storage) return {};
    ++counter;
    auto texture = Ref<Texture>::adopt(new Texture(key, *storage, m_log));
    if (m_options.garbage) texture->fillWithGarbage(++m_nSerial);
    return texture;
}

Ref<Texture> HostGL::namedTexture(const std::string& name, const TextureKey& key, bool& existed) {
    const auto kept = m_named.find(name);
    if (kept != m_named.end() && kept->second->key() == key) {
        existed = true;
        return kept->second;
    }
    Ref<Texture> texture = makeTexture(key);
    if (!texture) return {};
    if (kept != m_named.end() && m_textures.find(kept->second.get()) == nullptr) {
        retire(*kept->second);
    }
    m_named[name] = texture;
    return texture;
}

bool HostGL::CreateTexture(IGLContext* /*context*/, TextureParams& texture, const char* name,
                           int width, int height, PixelFormat format, const void* data, int rowSpan,
                           bool* existed) {
    texture.pTexture = nullptr;
    if (existed != nullptr) *existed = false;
    const std::optional<PixelLayout> layout = pixelLayout(format);
    if (!usable("CreateTexture") || !layout || !fitsDevice(width, height)) return false;

    const TextureKey key{width, height, *layout};
    bool found = false;
    const bool named = name != nullptr && *name != '\0';
    Ref<Texture> made = named ? namedTexture(name, key, found) : makeTexture(key);
    if (!made) return false;
    if (!found && data != nullptr && !made->Upload(format, data, rowSpan)) {
        if (named) m_named.erase(name);
        retire(*made);
        return false;
    }
    if (existed != nullptr) *existed = found;
    m_textures.add(made.get(), m_nSerial++, "texture of " + sizeText(width, height));
    made->AddRef();
    texture = {made.get(), format, width, height, width, height, 0, 0, false};
    m_log.check("CreateTexture");
    return true;
}

bool HostGL::CreateBuffer(IGLContext* /*context*/, IGLBuffer** buffer, const void* data, int size,
                          unsigned int usage, int /*reserved0*/, int /*reserved1*/) {
    *buffer = nullptr;
    if (!usable("CreateBuffer") || size <= 0) return false;
    const BufferKey key{size, usage};
    std::optional<BufferStorage> storage = m_bufferPool.take(key);
    int& counter = storage ? m_counters.buffersReused : m_counters.buffersMade;
    if (!storage) storage = BufferStorage::create(key, m_log);
    if (!storage) return false;
    ++counter;
    auto* made = new Buffer(key, *storage, m_log);
    if (data != nullptr) made->write(data);
    m_buffers.add(made, m_nSerial++, "buffer of " + std::to_string(size) + " bytes");
    *buffer = made;
    m_log.check("CreateBuffer");
    return true;
}

bool HostGL::CreateShader(IGLContext* /*context*/, IGLShader** shader,
                          const std::uint8_t* vertexData, const std::uint8_t* fragmentData,
                          const std::uint8_t* geometryData, std::uint32_t vertexSize,
                          std::uint32_t fragmentSize, std::uint32_t geometrySize,
                          std::uint32_t vertexSize2, std::uint32_t fragmentSize2,
                          std::uint32_t geometrySize2, std::uint64_t vertexCheck,
                          std::uint64_t fragmentCheck, std::uint64_t geometryCheck) {
    *shader = nullptr;
    // Clear texts are the only stored form that this host knows.
    const bool clear = vertexSize2 == 0 && fragmentSize2 == 0 && geometrySize2 == 0 &&
                       vertexCheck == 0 && fragmentCheck == 0 && geometryCheck == 0;
    const ProgramTexts texts = {stageText(vertexData, vertexSize),
                                stageText(fragmentData, fragmentSize),
                                stageText(geometryData, geometrySize)};
    if (!usable("CreateShader") || !clear || texts[0].empty() || texts[1].empty()) return false;

    std::unique_ptr<LinkedProgram> linked = m_programs.take(texts);
    int& counter = linked ? m_counters.programsReused : m_counters.programsCompiled;
    if (!linked) linked = m_programs.compile(texts);
    if (!linked) {
        if (m_options.debug) std::fprintf(stderr, "%s\n", m_programs.lastError().c_str());
        return false;
    }
    ++counter;
    auto* made = new Program(std::move(linked), m_log);
    m_shaders.add(made, m_nSerial++, "program with the fragment stage\n" + texts[1]);
    *shader = made;
    m_log.check("CreateShader");
    return true;
}

void HostGL::dropLastReference(IUnknown& freed, const char* kind) {
    // One more is our caller's own.
    if (dropReference(freed) > 1) m_log.add(std::string("a reference is left on a freed ") + kind);
}

void HostGL::FreeBuffer(IGLBuffer* buffer, bool /*valid*/) {
    const Ref<Buffer> freed = m_buffers.remove(buffer);
    if (!freed) {
        if (buffer != nullptr) m_log.add("FreeBuffer of what is no buffer of this host");
        return;
    }
    if (usable("FreeBuffer")) m_bufferPool.put(freed->key(), freed->takeStorage());
    dropLastReference(*freed, "buffer");
}

void HostGL::retire(Texture& texture) {
    m_targets.forget(texture);
    const TextureKey key = texture.key();
    m_texturePool.put(key, texture.takeStorage());
}

void HostGL::FreeTexture(TextureParams* texture, bool /*valid*/) {
    IGLTexture* const given = texture->pTexture;
    texture->pTexture = nullptr;
    const Ref<Texture> freed = m_textures.remove(given);
    if (!freed) {
        if (given != nullptr) m_log.add("FreeTexture of what is no texture of this host");
        return;
    }
    const bool named = std::any_of(m_named.begin(), m_named.end(), [&](const auto& entry) {
        return entry.second.get() == freed.get();
    });
    if (named || m_textures.find(freed.get()) != nullptr) {
        dropReference(*freed);
        return;
    }
    if (usable("FreeTexture")) retire(*freed);
    dropLastReference(*freed, "texture");
}

void HostGL::FreeShader(IGLShader* shader) {
    const Ref<Program> freed = m_shaders.remove(shader);
    if (!freed) {
        if (shader != nullptr) m_log.add("FreeShader of what is no program of this host");
        return;
    }
    if (usable("FreeShader")) m_programs.put(freed->takeLinked());
    dropLastReference(*freed, "program");
}

bool HostGL::SetRenderTarget(IGLContext* /*context*/, const TextureParams* target, int samples,
                             bool /*reserved*/, bool forReading) {
    if (!usable("SetRenderTarget")) return false;
    if (target == nullptr) {
        m_targets.bindOwn();
        m_log.check("SetRenderTarget");
        return true;
    }
    Texture* texture = find(*target);
    const Region region = regionOf(*target);
    if (texture == nullptr || !texture->holds(region)) return false;
    const bool multisampled = samples > 0 && !forReading;
    const bool bound = multisampled ? m_targets.bindMultisampled(*texture, region, samples)
                                    : m_targets.bind(*texture, region);
    m_log.check("SetRenderTarget");
    return bound;
}

bool HostGL::ResolveRenderTarget(IGLContext* /*context*/, TextureParams* target) {
    Texture* texture = target != nullptr ? find(*target) : nullptr;
    if (!usable("ResolveRenderTarget") || texture == nullptr) return false;
    const bool resolved = m_targets.resolve(*texture);
    m_log.check("ResolveRenderTarget");
    return resolved;
}

bool HostGL::ReadTexture(IGLContext* /*context*/, TextureParams* texture, int width, int height,
                         int bytesPerRow, void* pixels) {
    Texture* source = texture != nullptr ? find(*texture) : nullptr;
    if (!usable("ReadTexture") || source == nullptr || pixels == nullptr) return false;
    const std::optional<PixelLayout> layout = pixelLayout(texture->pfPixelFormat);
    const Region region{texture->nLeft, texture->nTop, width, height};
    if (!layout || layout->channels != source->key().layout.channels || !source->holds(region)) {
        return false;
    }
    const bool read = readPixels(source->name(), region, *layout, pixels, bytesPerRow);
    m_log.check("ReadTexture");
    return read;
}

bool HostGL::TestEffect(IVideoGPUEffect* effect, GPUCaps* caps) {
    Context& context = m_pContext->context();
    const bool wasCurrent = context.isCurrent();
    if (!wasCurrent && !context.makeCurrent()) return false;
    const Ref<LendingHost> host = LendingHost::create(*this, nullptr);
    const bool answered = effect->GetGPUCaps(host.get(), m_pContext.get(), caps, 0);
    if (!wasCurrent) context.release();
    return answered;
}

int HostGL::GetInfoString(int kind, char* buffer, int size) {
    if (kind != kInfoGL) return 0;
    const GLDescription& gl = m_pContext->context().description();
    const std::string text =
        "OpenGL vendor: " + gl.vendor + "\nOpenGL renderer: " + gl.renderer +
        "\nOpenGL version: " + gl.version + "\nGLSL version: " + gl.shadingLanguageVersion +
        "\nRenders on: " + (gl.hardware ? "graphics card" : "processor") + "\n";
    if (buffer != nullptr && size > 0) {
        const std::size_t copied = text.copy(buffer, std::size_t(size));
        if (copied < std::size_t(size)) buffer[copied] = '\0';
    }
    return static_cast<int>(text.size());
}

std::vector<std::string> HostGL::aliveSince(std::uint64_t mark) const {
    std::vector<std::string> alive;
    m_textures.listSince(mark, alive);
    m_buffers.listSince(mark, alive);
    m_shaders.listSince(mark, alive);
    if (m_targets.unresolved() > 0) alive.emplace_back("multisampled render target");
    return alive;
}

}  // namespace brushworks::host::gl
