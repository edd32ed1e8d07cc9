// An effect's parameters and presets as plain data, read once from its enumerations.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "brushworks/effect.h"
#include "brushworks/parameter.h"

namespace brushworks::host {

/// One parameter.
struct ParameterInfo {
    unsigned int index = 0;  ///< in EnumParam, GetParam and Preset::values
    std::string name;        ///< as the effect calls it; not unique
    std::string address;     ///< the name as people type it: a second "Shadow" is "Shadow#2"
    std::string group;       ///< the panel that it stands in, or ""
    ParamType type = kParamFloat;
    EffectParam defaultValue = {.word = 0};
    float displayMin = 0;              ///< slider: what 0.0 shows
    float displayMax = 0;              ///< slider: what 1.0 shows
    unsigned int displayStep = 0;      ///< slider: the step of the control, 0 for any
    std::vector<std::string> options;  ///< list: the options' names
    std::string toolTip;               ///< one line, or ""

    /// False for the markers that open and close a panel: they only hold a place among the indexes.
    bool hasValue() const { return type != kParamGroupOpen && type != kParamGroupClose; }
};

/// One preset: a value for each parameter, markers included.
struct Preset {
    std::string name;
    std::vector<EffectParam> values;
};

/// What an effect says of itself.
struct EffectInfo {
    unsigned int index = 0;  ///< in IEffectLibrary::CreateEffect
    std::string id;          ///< short name for command lines and files: small letters and hyphens
    std::string name;        ///< display name
    std::vector<ParameterInfo> parameters;
    std::vector<Preset> presets;

    /// The parameter of that address, in any letter case; throws UsageError.
    const ParameterInfo& parameter(std::string_view address) const;
    /// The preset of that name, in any letter case; throws UsageError.
    const Preset& preset(std::string_view presetName) const;
};

/// Reads what `effect` says of itself.
EffectInfo describeEffect(unsigned int index, IVideoEffect& effect);

/// The id that belongs to a display name.
std::string effectId(std::string_view displayName);

/// A word for a type: "point", "list", "slider", "colour", "check box", "group".
std::string_view typeName(ParamType type);

}  // namespace brushworks::host
