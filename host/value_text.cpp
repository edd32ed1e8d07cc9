// Reads and writes parameter values as text, in the same words both ways and whatever the locale.
#include "host/value_text.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "host/error.h"
#include "host/names.h"

namespace brushworks::host {
namespace {

std::optional<EffectParam> parsePoint(std::string_view text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    const std::optional<double> x = parseNumber(text.substr(0, comma));
    const std::optional<double> y = parseNumber(text.substr(comma + 1));
    if (!x || !y) return std::nullopt;
    const EffectParam value = {.point = {static_cast<float>(*x), static_cast<float>(*y)}};
    if (!std::isfinite(value.point.x) || !std::isfinite(value.point.y)) return std::nullopt;
    return value;
}

std::optional<EffectParam> parseOption(const ParameterInfo& list, std::string_view text) {
    for (std::size_t i = 0; i < list.options.size(); ++i) {
        if (!sameName(text, list.options[i])) continue;
        EffectParam value = {.word = 0};
        value.index = static_cast<std::int32_t>(i);
        return value;
    }
    return std::nullopt;
}

/// The slider position that shows `number`.
float normalized(const ParameterInfo& slider, double number) {
    const double range = double{slider.displayMax} - slider.displayMin;
    return range == 0 ? 0.0F : static_cast<float>((number - slider.displayMin) / range);
}

std::optional<EffectParam> parseSlider(const ParameterInfo& slider, std::string_view text) {
    const std::optional<double> number = parseNumber(text);
    if (!number || *number < slider.displayMin || *number > slider.displayMax) return std::nullopt;
    EffectParam value = {.word = 0};
    value.value = normalized(slider, *number);
    return value;
}

std::optional<EffectParam> parseColor(std::string_view text) {
    if (text.size() != 7 || text[0] != '#') return std::nullopt;
    std::uint32_t rgb = 0;
    const auto [end, error] = std::from_chars(text.data() + 1, text.data() + 7, rgb, 16);
    if (error != std::errc() || end != text.data() + 7) return std::nullopt;
    EffectParam value = {.word = 0};
    value.color = (rgb >> 16 & 0xFF) | (rgb & 0xFF00) | (rgb & 0xFF) << 16;
    return value;
}

std::optional<EffectParam> parseCheckBox(std::string_view text) {
    EffectParam value = {.word = 0};
    for (const char* word : {"on", "true", "yes", "1"}) {
        if (!sameName(text, word)) continue;
        value.on = 1;
        return value;
    }
    for (const char* word : {"off", "false", "no", "0"}) {
        if (sameName(text, word)) return value;
    }
    return std::nullopt;
}

std::optional<EffectParam> parse(const ParameterInfo& parameter, std::string_view text) {
    switch (parameter.type) {
        case kParamPoint:
            return parsePoint(text);
        case kParamList:
            return parseOption(parameter, text);
        case kParamFloat:
            return parseSlider(parameter, text);
        case kParamColor:
            return parseColor(text);
        case kParamCheckBox:
            return parseCheckBox(text);
        case kParamGroupOpen:
        case kParamGroupClose:
            break;
    }
    return std::nullopt;
}

/// `number` with the fewest decimals for which `same` holds.
template <class Same>
std::string shortest(double number, Same same) {
    char text[64];
    if (std::abs(number) < 1e15) {
        for (int decimals = 0; decimals <= 15; ++decimals) {
            const auto end =
                std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, decimals)
                    .ptr;
            const std::optional<double> read = parseNumber({text, end});
            if (read && same(*read)) return *read == 0 ? "0" : std::string(text, end);
        }
    }
    return std::string(text, std::to_chars(text, text + sizeof text, number).ptr);
}

}  // namespace

std::optional<double> parseNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

EffectParam parseValue(const ParameterInfo& parameter, std::string_view text) {
    if (const std::optional<EffectParam> value = parse(parameter, text)) return *value;
    throw UsageError(parameter.address + " takes " + expectedText(parameter) + ", not \"" +
                     std::string(text) + "\"" + didYouMean(text, parameter.options));
}

double displayValue(const ParameterInfo& slider, float position) {
    return slider.displayMin + position * (double{slider.displayMax} - slider.displayMin);
}

std::string printNumber(float number) {
    return shortest(number, [=](double read) { return static_cast<float>(read) == number; });
}

std::string printValue(const ParameterInfo& parameter, EffectParam value) {
    switch (parameter.type) {
        case kParamPoint:
            return printNumber(value.point.x) + "," + printNumber(value.point.y);
        case kParamList: {
            const auto index = static_cast<std::size_t>(value.index);
            return index < parameter.options.size() ? parameter.options[index]
                                                    : std::to_string(value.index);
        }
        case kParamFloat:
            return shortest(displayValue(parameter, value.value), [&](double read) {
                return normalized(parameter, read) == value.value;
            });
        case kParamColor: {
            char text[8];
            std::snprintf(text, sizeof text, "#%02x%02x%02x", value.color & 0xFF,
                          value.color >> 8 & 0xFF, value.color >> 16 & 0xFF);
            return text;
        }
        case kParamCheckBox:
            return value.on != 0 ? "on" : "off";
        case kParamGroupOpen:
        case kParamGroupClose:
            break;
    }
    return "";
}

std::string expectedText(const ParameterInfo& parameter) {
    switch (parameter.type) {
        case kParamPoint:
            return "a point such as 0.5,0.5";
        case kParamList:
            return "one of " + joinNames(parameter.options);
        case kParamFloat:
            return "a number from " + printNumber(parameter.displayMin) + " to " +
                   printNumber(parameter.displayMax);
        case kParamColor:
            return "a colour such as #ff8000";
        case kParamCheckBox:
            return "on or off";
        case kParamGroupOpen:
        case kParamGroupClose:
            break;
    }
    return "no value";
}

}  // namespace brushworks::host
