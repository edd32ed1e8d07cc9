// The grammar of an effect's tables: parameters, presets and tooltips, written as rows of constants
// and checked while they compile.
//
//     constexpr ParamRow kParams[] = {
//         Slider("Brush Size", 0.21, {1, 100}, {0, 90, 198, 30}, "Sets size of brush strokes"),
//         ...
//     };
//     constexpr PresetRow<std::size(kParams)> kPresets[] = {
//         {"Bright", {0.1, ...}},
//         ...
//     };
//     constexpr auto kTables = MakeTables("Oil", kParams, kPresets);
//
// A row of the wrong length, a value of the wrong type or outside its range, an option that does
// not exist and a text that does not fit its field do not compile.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "brushworks/parameter.h"

namespace brushworks {

/// What a slider shows at 0.0 and at 1.0, and its display step.
struct DisplayRange {
    float min = 0.0f;
    float max = 100.0f;
    std::uint32_t step = 1;
};

/// Place and extent in the host's panel.
struct Layout {
    std::int32_t top, left, width, height;
};

/// One parameter.
struct ParamRow {
    const char* name;
    ParamType type;
    std::uint64_t defaultWord;  ///< an EffectParam image
    DisplayRange range;
    std::array<const char*, EffectParamSetup::kMaxOptions> options;
    std::uint32_t optionCount;
    Layout layout;
    const char* toolTip;
};

/// A value in a row of a table. Fractions are sliders' values, whole numbers are everything else's.
struct TableValue {
    enum class Kind { Missing, Fraction, Whole };

    constexpr TableValue() = default;
    constexpr TableValue(double value)  // NOLINT: tables read best without casts
        : kind(Kind::Fraction), word(std::bit_cast<std::uint32_t>(static_cast<float>(value))) {}
    constexpr TableValue(float value)  // NOLINT
        : kind(Kind::Fraction), word(std::bit_cast<std::uint32_t>(value)) {}
    constexpr TableValue(int value)  // NOLINT
        : kind(Kind::Whole), word(static_cast<std::uint32_t>(value)) {}
    constexpr TableValue(bool value) : kind(Kind::Whole), word(value ? 1 : 0) {}  // NOLINT

    Kind kind = Kind::Missing;
    std::uint64_t word = 0;
};

/// One preset: its name and a value for each of N parameters.
template <std::size_t N>
struct PresetRow {
    const char* name;
    TableValue values[N];
};

constexpr ParamRow Slider(const char* name, double value, DisplayRange range, Layout layout,
                          const char* toolTip) {
    return {name, kParamFloat, TableValue(value).word, range, {}, 0, layout, toolTip};
}

constexpr ParamRow List(const char* name, int option, std::initializer_list<const char*> options,
                        Layout layout, const char* toolTip) {
    ParamRow row{name, kParamList, TableValue(option).word, {}, {}, 0, layout, toolTip};
    for (const char* text : options) row.options[row.optionCount++] = text;
    return row;
}

/// `color` has red in bits 0 to 7, green in 8 to 15, blue in 16 to 23.
constexpr ParamRow Color(const char* name, int color, Layout layout, const char* toolTip) {
    return {name, kParamColor, TableValue(color).word, {}, {}, 0, layout, toolTip};
}

constexpr ParamRow CheckBox(const char* name, bool on, Layout layout, const char* toolTip) {
    return {name, kParamCheckBox, TableValue(on).word, {}, {}, 0, layout, toolTip};
}

constexpr ParamRow GroupOpen(const char* name, Layout layout) {
    return {name, kParamGroupOpen, 0, {}, {}, 0, layout, nullptr};
}

constexpr ParamRow GroupClose(const char* name, Layout layout) {
    return {name, kParamGroupClose, 0, {}, {}, 0, layout, nullptr};
}

/// An effect's tables as the shared enumeration reads them.
struct EffectTables {
    const char* name;
    const ParamRow* params;
    std::uint32_t paramCount;
    const char* const* presetNames;
    std::uint32_t presetCount;
    const std::uint64_t* presetData;  ///< a row per preset, a word per parameter
    const char* const* toolTips;      ///< a text per parameter, or null
};

/// Tables of N parameters and P presets; the storage behind an EffectTables.
template <std::size_t N, std::size_t P>
struct TableSet {
    const char* s_szName;
    std::array<ParamRow, N> s_Params;
    std::array<const char*, P> s_szPresetNames;
    std::array<std::uint64_t, P * N> s_llPresetData;
    std::array<const char*, N> s_szToolTips;

    constexpr operator EffectTables() const {  // NOLINT: a view of the same thing
        return {s_szName,
                s_Params.data(),
                N,
                s_szPresetNames.data(),
                P,
                s_llPresetData.data(),
                s_szToolTips.data()};
    }
};

namespace table_checks {

// Not constexpr: a constant expression that reaches one of these does not compile, and the message
// names it.
inline void TheTextDoesNotFitItsField() {}
inline void TheDefaultIsOutsideItsRange() {}
inline void TheListHasNoSuchOption() {}
inline void ThePresetRowIsTooShort() {}
inline void TheValueHasTheWrongType() {}
inline void TheSliderValueIsOutsideItsRange() {}
inline void TheColorHasMoreThanThreeChannels() {}
inline void TheCheckBoxIsNeitherOnNorOff() {}

constexpr void CheckText(const char* text, int fieldBytes) {
    if (static_cast<int>(std::string_view(text).size()) >= fieldBytes) TheTextDoesNotFitItsField();
}

constexpr void CheckValue(const ParamRow& param, TableValue value) {
    using Kind = TableValue::Kind;
    if (value.kind == Kind::Missing) ThePresetRowIsTooShort();
    const float fraction = std::bit_cast<float>(static_cast<std::uint32_t>(value.word));
    const bool group = param.type == kParamGroupOpen || param.type == kParamGroupClose;
    if (!group && (value.kind == Kind::Fraction) != (param.type == kParamFloat))
        TheValueHasTheWrongType();
    // Presets may lie a hair above the end of the scale.
    if (value.kind == Kind::Fraction && !(fraction >= 0.0f && fraction <= 1.001f))
        TheSliderValueIsOutsideItsRange();
    if (param.type == kParamList && value.word >= param.optionCount) TheListHasNoSuchOption();
    if (param.type == kParamColor && value.word > 0xFFFFFF) TheColorHasMoreThanThreeChannels();
    if (param.type == kParamCheckBox && value.word > 1) TheCheckBoxIsNeitherOnNorOff();
}

constexpr void CheckParam(const ParamRow& param) {
    CheckText(param.name, EffectParamSetup::kNameBytes);
    for (std::uint32_t i = 0; i < param.optionCount; ++i)
        CheckText(param.options[i], EffectParamSetup::kOptionBytes);
    const float value = std::bit_cast<float>(static_cast<std::uint32_t>(param.defaultWord));
    if (param.type == kParamFloat &&
        !(value >= 0.0f && value <= 1.0f && param.range.min < param.range.max))
        TheDefaultIsOutsideItsRange();
    if (param.type == kParamList && param.defaultWord >= param.optionCount)
        TheListHasNoSuchOption();
    if (param.type == kParamColor && param.defaultWord > 0xFFFFFF)
        TheColorHasMoreThanThreeChannels();
}

}  // namespace table_checks

/// Checks the rows and lays them out as the contract's tables.
template <std::size_t N, std::size_t P>
consteval TableSet<N, P> MakeTables(const char* name, const ParamRow (&params)[N],
                                    const PresetRow<N> (&presets)[P]) {
    TableSet<N, P> tables{name, {}, {}, {}, {}};
    for (std::size_t n = 0; n < N; ++n) {
        table_checks::CheckParam(params[n]);
        tables.s_Params[n] = params[n];
        tables.s_szToolTips[n] = params[n].toolTip;
    }
    for (std::size_t p = 0; p < P; ++p) {
        tables.s_szPresetNames[p] = presets[p].name;
        for (std::size_t n = 0; n < N; ++n) {
            table_checks::CheckValue(params[n], presets[p].values[n]);
            tables.s_llPresetData[p * N + n] = presets[p].values[n].word;
        }
    }
    return tables;
}

}  // namespace brushworks
