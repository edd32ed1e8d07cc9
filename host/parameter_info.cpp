// Walks an effect's enumerations and turns their records into plain data.
#include "host/parameter_info.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "host/error.h"
#include "host/names.h"
#include "host/ref.h"

namespace brushworks::host {
namespace {

/// A text of a fixed field, which a broken effect may have left without its null.
std::string fieldText(const char* field, std::size_t bytes) {
    return std::string(field, strnlen(field, bytes));
}

/// A tooltip as one line: some end in a line feed.
std::string oneLine(const char* text) {
    if (text == nullptr) return "";
    std::string line = text;
    std::replace(line.begin(), line.end(), '\n', ' ');
    line.erase(line.find_last_not_of(" \t\r") + 1);
    return line;
}

Ref<IParamToolTip> toolTips(IVideoEffect& effect) {
    void* face = nullptr;
    if (effect.QueryInterface(IID_ParamToolTip, &face) != kInterfaceFound) return {};
    return Ref<IParamToolTip>::adopt(static_cast<IParamToolTip*>(face));
}

ParameterInfo fromSetup(unsigned int index, const EffectParamSetup& setup) {
    ParameterInfo info;
    info.index = index;
    info.name = fieldText(setup.szName, sizeof setup.szName);
    info.type = static_cast<ParamType>(setup.nType);
    info.defaultValue = setup.defaultValue;
    if (info.type == kParamFloat) {
        info.displayMin = setup.fDisplayMin;
        info.displayMax = setup.slider.fDisplayMax;
        info.displayStep = setup.slider.nDisplayStep;
    } else if (info.type == kParamList) {
        const unsigned int count = std::min<unsigned int>(setup.nOptionCount, setup.kMaxOptions);
        for (unsigned int i = 0; i < count; ++i) {
            info.options.push_back(fieldText(setup.szOptions[i], setup.kOptionBytes));
        }
    }
    return info;
}

std::vector<ParameterInfo> readParameters(IVideoEffect& effect) {
    const Ref<IParamToolTip> tips = toolTips(effect);
    std::vector<ParameterInfo> parameters;
    std::vector<std::string> openGroups;
    std::map<std::string, int> seen;
    for (unsigned int index = 0;; ++index) {
        EffectParamSetup setup = {};
        if (!effect.EnumParam(index, &setup)) break;
        ParameterInfo info = fromSetup(index, setup);
        if (tips) info.toolTip = oneLine(tips->EnumToolTip(index));
        if (info.type == kParamGroupClose && !openGroups.empty()) openGroups.pop_back();
        if (!openGroups.empty()) info.group = openGroups.back();
        if (info.type == kParamGroupOpen) openGroups.push_back(info.name);
        info.address = info.name;
        if (info.hasValue()) {
            const int count = ++seen[foldCase(info.name)];
            if (count > 1) info.address.append("#").append(std::to_string(count));
        }
        parameters.push_back(std::move(info));
    }
    return parameters;
}

std::vector<Preset> readPresets(IVideoEffect& effect, std::size_t parameterCount) {
    std::vector<Preset> presets;
    for (unsigned int index = 0; const char* name = effect.EnumPreset(index); ++index) {
        Preset preset{name, std::vector<EffectParam>(parameterCount, EffectParam{.word = 0})};
        for (unsigned int param = 0; param < parameterCount; ++param) {
            effect.EnumPresetData(index, param, &preset.values[param]);
        }
        presets.push_back(std::move(preset));
    }
    return presets;
}

}  // namespace

EffectInfo describeEffect(unsigned int index, IVideoEffect& effect) {
    EffectInfo info;
    info.index = index;
    info.name = effect.GetName();
    info.id = effectId(info.name);
    info.parameters = readParameters(effect);
    info.presets = readPresets(effect, info.parameters.size());
    return info;
}

const ParameterInfo& EffectInfo::parameter(std::string_view address) const {
    std::vector<std::string> right;
    for (const ParameterInfo& info : parameters) {
        if (!info.hasValue()) continue;
        if (sameName(address, info.address) || sameName(address, info.address + "#1")) return info;
        right.push_back(info.address);
    }
    throw UsageError(id + " has " + unknownName("parameter", address, right));
}

const Preset& EffectInfo::preset(std::string_view presetName) const {
    std::vector<std::string> right;
    for (const Preset& candidate : presets) {
        if (sameName(presetName, candidate.name)) return candidate;
        right.push_back(candidate.name);
    }
    throw UsageError(id + " has " + unknownName("preset", presetName, right));
}

std::string effectId(std::string_view displayName) {
    // Two display names are proper names; their ids say what the effects do.
    if (displayName == "Toonery Plus") return "cartoon";
    if (displayName == "Aurascope Plus") return "halo";
    std::string id = foldCase(displayName);
    std::replace(id.begin(), id.end(), ' ', '-');
    return id;
}

std::string_view typeName(ParamType type) {
    switch (type) {
        case kParamPoint:
            return "point";
        case kParamList:
            return "list";
        case kParamFloat:
            return "slider";
        case kParamColor:
            return "colour";
        case kParamCheckBox:
            return "check box";
        case kParamGroupOpen:
        case kParamGroupClose:
            return "group";
    }
    return "unknown";
}

}  // namespace brushworks::host
