// Tries the graphics card before the first frame, so that no video changes its renderer in between.
#include "renderer_choice.h"

#include <algorithm>
#include <iterator>

#include "card_renderer.h"
#include "host/error.h"

namespace brushworks::tools {
namespace {

struct Word {
    const char* text;
    GpuUse use;
};
constexpr Word kWords[] = {
    {"any", GpuUse::Any}, {"auto", GpuUse::Auto}, {"hardware", GpuUse::Hardware}};

}  // namespace

std::vector<std::string> gpuWords() {
    std::vector<std::string> words;
    for (const Word& word : kWords) words.emplace_back(word.text);
    return words;
}

GpuUse gpuUseOf(const std::string& word) {
    const auto* const found = std::find_if(std::begin(kWords), std::end(kWords),
                                           [&](const Word& known) { return known.text == word; });
    return found != std::end(kWords) ? found->use : GpuUse::None;
}

RendererChoice::RendererChoice(GpuUse use) : m_use(use) {}
RendererChoice::~RendererChoice() = default;

/// Made when it is first needed; that there is none is found out once, too.
std::shared_ptr<CardRenderer> RendererChoice::card() {
    const std::lock_guard lock(m_mutex);
    if (!m_pCard && m_sWhyNoCard.empty()) {
        try {
            m_pCard = std::make_shared<CardRenderer>(m_use != GpuUse::Any);
        } catch (const host::Error& error) {
            m_sWhyNoCard = error.what();
        }
    }
    if (!m_pCard) throw host::Error(m_sWhyNoCard);
    return m_pCard;
}

std::shared_ptr<FrameRenderer> RendererChoice::rendererFor(const host::Effect& effect, int width,
                                                           int height,
                                                           std::vector<std::string>& notes) {
    if (m_use == GpuUse::None) return std::make_shared<ProcessorRenderer>();
    try {
        const std::shared_ptr<CardRenderer> renderer = card();
        const std::string reason = renderer->whyNot(effect, width, height);
        if (!reason.empty()) throw host::Error(reason);
        notes.push_back("rendering with " + renderer->name());
        return renderer;
    } catch (const host::Error& error) {
        if (m_use != GpuUse::Auto) {
            throw host::Error(std::string(error.what()) + "; leave out --gpu, or use --gpu=auto");
        }
        notes.push_back(std::string("rendering on the processor without OpenGL: ") + error.what());
        return std::make_shared<ProcessorRenderer>();
    }
}

}  // namespace brushworks::tools
