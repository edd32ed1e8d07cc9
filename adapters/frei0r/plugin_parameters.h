// An effect as frei0r hosts see it: the names of its plug-in, and its list of parameters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/parameter_info.h"

namespace brushworks::frei0r {

/// One parameter of a plug-in; its place in the list is its index there.
struct PluginParameter {
    std::string name;         ///< unique within the plug-in, in every host's spelling of it
    int type = 0;             ///< F0R_PARAM_BOOL and its kin
    std::string explanation;  ///< the tooltip, and what the values stand for
    /// The effect's parameter; null for the preset. Lives as long as the EffectInfo.
    const host::ParameterInfo* source = nullptr;
};

/// The effect's parameters in its order, without the markers of its panels, and behind them a
/// string "Preset" that sets all others.
std::vector<PluginParameter> pluginParameters(const host::EffectInfo& effect);

/// The plug-in's file without ".so", which FFmpeg and MLT take for its name:
/// "brushworks_water_color".
std::string pluginFileName(std::string_view effectId);

/// What the plug-in calls itself, "Brushworks Water Color". GStreamer takes it in small letters and
/// with dashes, and so comes to the same name as the file's.
std::string pluginName(std::string_view effectId);

}  // namespace brushworks::frei0r
