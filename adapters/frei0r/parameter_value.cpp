// Turns frei0r's values, from 0 to 1 all of them, into the effect's and back.
#include "frei0r/parameter_value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "host/error.h"
#include "host/names.h"
#include "host/value_text.h"

namespace brushworks::frei0r {
namespace {

constexpr double kColorScale = 255;

/// Smooth animations swing a little past the ends of a slider, and mean the end; a number from
/// another scale is a slip. How far a swing goes at most.
constexpr double kSwing = 0.5;

/// The number, brought to 0 to 1.
double unit(const host::ParameterInfo& parameter, double number) {
    if (number >= -kSwing && number <= 1 + kSwing) return std::clamp(number, 0.0, 1.0);
    throw host::UsageError(parameter.name + " takes numbers from 0 to 1, not " +
                           host::printNumber(static_cast<float>(number)));
}

/// A packed colour's channel, 0 red to 2 blue.
float channel(std::uint32_t color, int index) {
    return static_cast<float>((color >> (8 * index) & 0xFF) / kColorScale);
}

std::uint32_t packed(double number, int index) {
    return static_cast<std::uint32_t>(std::lround(number * kColorScale)) << (8 * index);
}

std::optional<std::size_t> indexFromText(std::string_view text) {
    std::size_t index = 0;
    const char* const textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, index);
    if (error != std::errc() || end != textEnd) return std::nullopt;
    return index;
}

}  // namespace

EffectParam fromHost(const host::ParameterInfo& parameter, f0r_param_t value) {
    EffectParam result = {.word = 0};
    if (parameter.type == kParamColor) {
        const auto& color = *static_cast<const f0r_param_color*>(value);
        result.color = packed(unit(parameter, color.r), 0) | packed(unit(parameter, color.g), 1) |
                       packed(unit(parameter, color.b), 2);
        return result;
    }
    if (parameter.type == kParamPoint) {
        const auto& position = *static_cast<const f0r_param_position*>(value);
        result.point = {static_cast<float>(unit(parameter, position.x)),
                        static_cast<float>(unit(parameter, position.y))};
        return result;
    }
    const double number = unit(parameter, *static_cast<const double*>(value));
    if (parameter.type == kParamCheckBox) {
        result.on = number >= 0.5 ? 1 : 0;
    } else {
        result.value = static_cast<float>(number);
    }
    return result;
}

EffectParam optionFromText(const host::ParameterInfo& list, std::string_view text) {
    const bool isName =
        std::any_of(list.options.begin(), list.options.end(),
                    [&](const std::string& option) { return host::sameName(text, option); });
    const std::optional<std::size_t> index = indexFromText(text);
    if (isName || !index || *index >= list.options.size()) return host::parseValue(list, text);
    EffectParam value = {.word = 0};
    value.index = static_cast<std::int32_t>(*index);
    return value;
}

void toHost(const host::ParameterInfo& parameter, EffectParam value, f0r_param_t target) {
    switch (parameter.type) {
        case kParamColor:
            *static_cast<f0r_param_color*>(target) = {
                channel(value.color, 0), channel(value.color, 1), channel(value.color, 2)};
            break;
        case kParamPoint:
            *static_cast<f0r_param_position*>(target) = {value.point.x, value.point.y};
            break;
        case kParamCheckBox:
            *static_cast<f0r_param_bool*>(target) = value.on != 0 ? 1 : 0;
            break;
        default:
            // A few presets go a hair past the end of a slider, where hosts expect nothing.
            *static_cast<f0r_param_double*>(target) = std::clamp(value.value, 0.0F, 1.0F);
            break;
    }
}

}  // namespace brushworks::frei0r
