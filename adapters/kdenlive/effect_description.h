// An effect as Kdenlive describes it: the XML file that gives the effect's plug-in a panel.
#pragma once

#include <string>
#include <string_view>

#include "host/parameter_info.h"

namespace brushworks::kdenlive {

/// The file's name, such as "frei0r_brushworks_water_color.xml".
std::string descriptionFileName(std::string_view effectId);

/// The file's text, in UTF-8. Throws host::Error for a name that would fall apart in a list.
std::string effectDescription(const host::EffectInfo& effect);

}  // namespace brushworks::kdenlive
