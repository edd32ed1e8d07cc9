// Rendering in tests: any effect, any format, from random frames.
#pragma once

#include <gtest/gtest.h>

#include "frames/testing_host.h"
#include "library/class_table.h"
#include "library/reference.h"
#include "processors/testing.h"

namespace brushworks::testing {

/// Effects are numbered from 0.
inline constexpr unsigned int kEffects = 12;

using EffectPointer = Reference<IVideoEffect>;

/// Puts the effect's defaults into the host's values.
inline void UseDefaults(IVideoEffect& effect, TestHost& host) {
    EffectParamSetup setup{};
    for (unsigned int i = 0; effect.EnumParam(i, &setup); ++i) host.values[i] = setup.defaultValue;
}

/// Puts a preset's values into the host's.
inline void UsePreset(IVideoEffect& effect, TestHost& host, unsigned int preset) {
    EffectParam value{};
    for (unsigned int i = 0; effect.EnumPresetData(preset, i, &value); ++i) host.values[i] = value;
}

/// Renders `source` into `destination`; the records cross as a host's would.
inline bool Render(IVideoEffect& effect, TestHost& host, const CFrame& source, CFrame& destination,
                   RenderInfo* info = nullptr) {
    FrameParams from = source.GetFrameParams(), to = destination.GetFrameParams();
    return effect.Render(&host, &from, nullptr, &to, info);
}

}  // namespace brushworks::testing
