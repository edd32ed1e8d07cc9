// Keeps the values of an instance and paints its frames.
#include "frei0r/instance.h"

#include <algorithm>
#include <utility>

#include "frei0r/parameter_value.h"
#include "frei0r/picture_seed.h"
#include "host/error.h"
#include "host/frame_params.h"
#include "host/value_text.h"

namespace brushworks::frei0r {
namespace {

/// Cartoon leaves a mark in its source's first pixel. A host's source is not ours to write, and
/// other threads may be reading it.
bool writesSource(const host::EffectInfo& effect) {
    return effect.id == "cartoon";
}

}  // namespace

Instance::Instance(host::Effect effect, const std::vector<PluginParameter>& parameters,
                   unsigned int width, unsigned int height)
    : m_effect(std::move(effect)),
      m_parameters(parameters),
      m_nWidth(width),
      m_nHeight(height),
      m_lent(parameters.size()) {}

const PluginParameter* Instance::parameter(int index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= m_parameters.size()) return nullptr;
    return &m_parameters[static_cast<std::size_t>(index)];
}

void Instance::setValue(int index, f0r_param_t value) {
    const PluginParameter* const target = parameter(index);
    if (target == nullptr || value == nullptr) return;
    if (target->type != F0R_PARAM_STRING) {
        m_effect.setValue(*target->source, fromHost(*target->source, value));
    } else if (const char* const text = *static_cast<const f0r_param_string*>(value)) {
        setText(*target, text);
    }
}

void Instance::setText(const PluginParameter& target, const char* text) {
    const std::string_view given = text;
    if (target.source == nullptr) {
        if (!given.empty()) m_effect.applyPreset(given);
        m_sPreset = given;
    } else if (!given.empty()) {
        m_effect.setValue(*target.source, optionFromText(*target.source, given));
    }
}

void Instance::getValue(int index, f0r_param_t target) {
    const PluginParameter* const origin = parameter(index);
    if (origin == nullptr || target == nullptr) return;
    if (origin->type != F0R_PARAM_STRING) {
        toHost(*origin->source, m_effect.value(*origin->source), target);
        return;
    }
    std::string& lent = m_lent[static_cast<std::size_t>(index)];
    lent = origin->source != nullptr
               ? host::printValue(*origin->source, m_effect.value(*origin->source))
               : m_sPreset;
    *static_cast<f0r_param_string*>(target) = lent.data();
}

/// The host's own pixels wherever nobody writes there while they are read.
std::uint8_t* Instance::writableSource(const std::uint32_t* source,
                                       const std::uint32_t* destination) {
    if (source != destination && !writesSource(m_effect.info())) {
        // The library takes its source as if it might write there.
        return reinterpret_cast<std::uint8_t*>(const_cast<std::uint32_t*>(source));
    }
    m_copy.assign(source, source + pixelCount());
    return reinterpret_cast<std::uint8_t*>(m_copy.data());
}

void Instance::update(const std::uint32_t* source, std::uint32_t* destination) {
    RenderInfo info = {};
    info.dwFlags = kRenderHasFieldMode;
    info.nFieldMode = kFieldModeFrame;
    info.nRandomSeed = pictureSeed(source, m_nWidth, m_nHeight);
    const auto record = [&](std::uint8_t* pixels) {
        const int width = static_cast<int>(m_nWidth);
        return host::frameParams(pixels, width, static_cast<int>(m_nHeight),
                                 width * host::bytesPerPixel(PixelFormatBGRA8), PixelFormatBGRA8);
    };
    if (m_effect.render(record(writableSource(source, destination)),
                        record(reinterpret_cast<std::uint8_t*>(destination)), info)) {
        return;
    }
    if (source != destination) std::copy_n(source, pixelCount(), destination);
    throw host::Error("the effect could not paint a frame of " + std::to_string(m_nWidth) + " by " +
                      std::to_string(m_nHeight));
}

}  // namespace brushworks::frei0r
