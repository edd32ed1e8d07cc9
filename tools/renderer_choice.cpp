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

std::unique_ptr<FrameRenderer> cardRenderer(GpuUse use, const host::Effect& effect, int width,
                                            int height, const Notes& note) {
    auto card = std::make_unique<CardRenderer>(use != GpuUse::Any);
    const std::string reason = card->whyNot(effect, width, height);
    if (!reason.empty()) throw host::Error(reason);
    note("rendering with " + card->name());
    return card;
}

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

std::unique_ptr<FrameRenderer> chooseRenderer(GpuUse use, const host::Effect& effect, int width,
                                              int height, const Notes& note) {
    if (use == GpuUse::None) return std::make_unique<ProcessorRenderer>();
    try {
        return cardRenderer(use, effect, width, height, note);
    } catch (const host::Error& error) {
        if (use != GpuUse::Auto) {
            throw host::Error(std::string(error.what()) + "; leave out --gpu, or use --gpu=auto");
        }
        note(std::string("rendering on the processor without OpenGL: ") + error.what());
        return std::make_unique<ProcessorRenderer>();
    }
}

}  // namespace brushworks::tools
