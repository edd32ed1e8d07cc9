#include "library/parameters.h"

namespace brushworks {

EffectParam Parameters::Read(unsigned int index, ParamType type) const {
    EffectParam value{};
    m_host.GetParam(index, &value, type);
    return value;
}

float Parameters::Slider(unsigned int index) const {
    constexpr float kTop = 1.001f;  // what the tables' highest presets reach
    const float value = Read(index, kParamFloat).value;
    if (!(value > 0.0f)) return 0.0f;
    return value < kTop ? value : kTop;
}

std::int32_t Parameters::Option(unsigned int index) const {
    const std::int32_t option = Read(index, kParamList).index;
    return option >= 0 && static_cast<std::uint32_t>(option) < m_tables.params[index].optionCount
               ? option
               : -1;
}

std::uint32_t Parameters::Color(unsigned int index) const {
    return Read(index, kParamColor).color & 0xFFFFFF;
}

bool Parameters::IsOn(unsigned int index) const {
    return Read(index, kParamCheckBox).on != 0;
}

}  // namespace brushworks
