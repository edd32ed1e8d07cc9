// Loads the library for a plug-in and makes its instances.
#include "frei0r/plugin.h"

#include <cstdint>
#include <cstdio>
#include <limits>
#include <set>

#include "host/error.h"
#include "host/library.h"
#include "host/printable.h"

namespace brushworks::frei0r {
namespace {

/// Rows, and a whole picture, are counted in bytes by 31 bits.
bool isPossible(unsigned int width, unsigned int height) {
    constexpr std::uint64_t kMostPixels = std::numeric_limits<std::int32_t>::max() / 4;
    return width > 0 && height > 0 && width <= kMostPixels / height;
}

}  // namespace

Plugin::Plugin(std::string_view effectId)
    : m_sEffectId(effectId),
      m_sName(pluginName(effectId)),
      m_sExplanation("Paints like the effect " + m_sEffectId + " of the Brushworks collection") {}

Plugin::~Plugin() {
    // A host that leaves without an end comes here when the library's own statics are gone already.
    static_cast<void>(m_pEffect.release());
}

void Plugin::begin() {
    const std::lock_guard lock(m_mutex);
    if (!m_pEffect) {
        m_pEffect = std::make_unique<host::Effect>(host::Library::load().open(m_sEffectId));
        if (m_parameters.empty()) {
            m_info = m_pEffect->info();
            m_parameters = pluginParameters(m_info);
        }
    }
    ++m_nBegun;
}

void Plugin::end() {
    const std::lock_guard lock(m_mutex);
    if (m_nBegun > 0 && --m_nBegun == 0) m_pEffect.reset();
}

std::unique_ptr<Instance> Plugin::construct(unsigned int width, unsigned int height) const {
    if (!isPossible(width, height)) {
        throw host::UsageError("no picture is " + std::to_string(width) + " by " +
                               std::to_string(height));
    }
    const std::lock_guard lock(m_mutex);
    if (!m_pEffect) throw host::Error("there is no effect to paint with");
    return std::make_unique<Instance>(m_pEffect->clone(), m_parameters, width, height);
}

void warnOnce(std::string_view effectId, std::string_view message) noexcept {
    // Hosts set the values of a clip anew with each frame, and in as many instances as they like.
    constexpr std::size_t kMostMessages = 64;
    // What is wrong stands at the beginning of a message, the way out at its end.
    constexpr std::size_t kMostBytes = 600;
    static std::mutex mutex;
    static std::set<std::string, std::less<>> told;
    try {
        const std::lock_guard lock(mutex);
        const std::string text = host::shortened(host::printable(message), kMostBytes);
        if (told.size() >= kMostMessages || !told.insert(text).second) return;
        std::fprintf(stderr, "%s: %s\n", pluginFileName(effectId).c_str(), text.c_str());
    } catch (...) {  // a warning is not worth more trouble
        return;
    }
}

}  // namespace brushworks::frei0r
