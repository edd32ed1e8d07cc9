// Any bytes for the loader of presets. What it takes must print, and the print must read as the
// same.
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "presets/preset_serializer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using brushworks::CPresetSerializer;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto preset = std::make_unique<brushworks::CEffectPreset>();
    if (!CPresetSerializer::Parse(text, preset.get())) return 0;
    const auto print = CPresetSerializer::Print(preset.get());
    if (!print || !CPresetSerializer::Parse(*print, preset.get()) ||
        CPresetSerializer::Print(preset.get()) != print)
        std::abort();
    return 0;
}
