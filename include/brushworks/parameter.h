// How an effect describes its controls. The host owns the values: it starts from the defaults, and
// hands the current values back through IVideoHost::GetParam on each render.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brushworks {

/// What a parameter is; the same numbers serve in EffectParamSetup, IVideoHost::GetParam and
/// presets.
enum ParamType : std::uint32_t {
    kParamPoint = 0,       ///< two floats
    kParamList = 1,        ///< index of an option, from 0
    kParamFloat = 2,       ///< slider: a float from 0.0 to 1.0 whatever the display range
    kParamColor = 3,       ///< red in bits 0 to 7, green in 8 to 15, blue in 16 to 23
    kParamCheckBox = 4,    ///< one byte, non-zero for on
    kParamGroupOpen = 5,   ///< opens a panel of controls; has no value
    kParamGroupClose = 6,  ///< closes it; has no value
};

/// The value of a parameter. It has no type of its own: the type comes from the context.
union EffectParam {
    struct {
        float x;
        float y;
    } point;
    std::int32_t index;   ///< list
    float value;          ///< slider
    std::uint32_t color;  ///< colour
    std::uint8_t on;      ///< check box
    std::uint64_t word;   ///< the whole image, as presets hold it
};
static_assert(sizeof(EffectParam) == 8);

/// One control. EnumParam fills it in a buffer that the caller owns and has cleared.
struct EffectParamSetup {
    static constexpr int kMaxOptions = 10;
    static constexpr int kOptionBytes = 20;
    static constexpr int kNameBytes = 40;

    struct Display {
        float fDisplayMax;           ///< what 1.0 shows
        std::uint32_t nDisplayStep;  ///< the display step, 1 for most
    };

    EffectParam defaultValue;  ///< initial value
    std::uint32_t nType;       ///< a ParamType
    union {
        std::uint32_t nOptionCount;  ///< list: how many options
        float fDisplayMin;           ///< slider: what 0.0 shows
    };
    union {
        Display slider;                             ///< slider: the rest of its display
        char szOptions[kMaxOptions][kOptionBytes];  ///< list: the options' names, null-terminated
    };
    char szName[kNameBytes];     ///< display name, null-terminated; not unique within an effect
    std::int32_t nLayoutTop;     ///< place in the host's panel, a hint
    std::int32_t nLayoutLeft;    ///< likewise
    std::int32_t nLayoutWidth;   ///< likewise
    std::int32_t nLayoutHeight;  ///< likewise
    bool bActive;                ///< set to true by EnumParam; the library never reads it
};
static_assert(sizeof(EffectParamSetup) == 280);
static_assert(offsetof(EffectParamSetup, nType) == 8 &&
              offsetof(EffectParamSetup, nOptionCount) == 12 &&
              offsetof(EffectParamSetup, fDisplayMin) == 12 &&
              offsetof(EffectParamSetup, slider.fDisplayMax) == 16 &&
              offsetof(EffectParamSetup, slider.nDisplayStep) == 20 &&
              offsetof(EffectParamSetup, szOptions) == 16 &&
              offsetof(EffectParamSetup, szName) == 216 &&
              offsetof(EffectParamSetup, nLayoutTop) == 256 &&
              offsetof(EffectParamSetup, nLayoutHeight) == 268 &&
              offsetof(EffectParamSetup, bActive) == 272);

}  // namespace brushworks
