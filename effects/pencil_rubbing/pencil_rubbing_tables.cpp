// Parameters, presets and tooltips of Pencil Rubbing.
#include "effects/pencil_rubbing/pencil_rubbing.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Color Shift", 0.5, {-100, 100}, {0, 0, 48, 30}, "Shifts colors around the color wheel"),
    Slider("Color", 0.5, {-100, 100}, {66, 0, 48, 30}, "Sets the color saturation"),
    Slider("Brightness", 0.5, {-100, 100}, {132, 0, 48, 30}, "Sets over all light level of the picture"),
    Slider("Contrast", 0.5, {-100, 100}, {0, 90, 48, 30}, "Sets the contrast between dark and light elements"),
    Slider("Angle", 0.5, {0, 360, 0}, {66, 90, 48, 30}, "Sets the contrast between dark and light elements"),
};

// In the order of the parameters: Color Shift, Color, Brightness, Contrast, Angle.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Black and White", {0.425,  0.0,    0.45,   0.75,   0.5}},
    {"Bleached",        {0.47,   1.0,    0.95,   0.32,   0.69}},
    {"Bright Colors",   {0.5001, 1.0001, 0.3751, 0.55,   0.0}},
    {"Changed Colors",  {0.0,    0.5001, 0.3401, 0.5851, 0.6834}},
    {"Faded",           {0.0,    0.325,  0.5351, 0.5,    0.15}},
    {"Gray",            {0.5701, 0.43,   1.0,    0.0,    0.575}},
    {"High Contrast",   {0.47,   1.0,    0.165,  1.0,    0.48}},
};
// clang-format on

constexpr auto kTables = MakeTables("Pencil Rubbing", kParams, kPresets);

}  // namespace

CPencilRubbing::CPencilRubbing() : CEffect(kTables) {}

}  // namespace brushworks
