// Parameters, presets and tooltips of Oil.
#include "effects/oil/oil.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Color Shift", 0.47, {-100, 100}, {0, 0, 198, 30}, "Shifts colors around the color wheel"),
    Slider("Color", 0.595, {-100, 100}, {66, 0, 198, 30}, "Sets the color saturation"),
    Slider("Brightness", 0.48, {-100, 100}, {132, 0, 198, 30}, "Sets over all light level of the picture"),
    Slider("Brush Size", 0.21, {1, 100}, {0, 90, 198, 30}, "Sets size of brush strokes"),
    Slider("Smoothing", 0.38, {0, 100}, {66, 90, 198, 30}, "Smoothes lines between colors"),
    Slider("Blend", 0.59, {0, 100}, {132, 90, 198, 30}, "Mixes original image and modified image"),
};

// In the order of the parameters: Color Shift, Color, Brightness, Brush Size, Smoothing, Blend.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Bright",           {0.5,    0.98,   0.77,   0.1,    0.575,  0.75}},
    {"Broad Strokes",    {0.5,    0.64,   0.555,  1.0,    0.39,   1.0}},
    {"Dark",             {0.745,  0.09,   0.0,    0.1,    0.34,   0.58}},
    {"Dreary",           {0.46,   0.0,    0.52,   0.1,    0.34,   0.75}},
    {"Fine Details",     {0.5,    1.0,    0.59,   0.0,    0.39,   0.525}},
    {"Gritty",           {0.47,   1.0,    0.98,   0.0,    0.0,    1.0}},
    {"Modified Palette", {0.205,  1.0,    0.54,   0.115,  0.475,  0.82}},
    {"Reset to None",    {0.5001, 0.5001, 0.5001, 0.0001, 0.0001, 0.0001}},
};
// clang-format on

constexpr auto kTables = MakeTables("Oil", kParams, kPresets);

}  // namespace

COilPaint::COilPaint() : CEffect(kTables) {}

}  // namespace brushworks
