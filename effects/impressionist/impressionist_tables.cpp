// Parameters, presets and tooltips of Impressionist.
#include "effects/impressionist/impressionist.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Color Shift", 0.535, {-100, 100}, {0, 0, 198, 30}, "Shifts colors around the color wheel"),
    Slider("Color", 0.66, {-100, 100}, {66, 0, 198, 30}, "Sets the color saturation"),
    Slider("Brightness", 0.5, {-100, 100}, {132, 0, 198, 30}, "Sets over all light level of the picture"),
    Slider("Contrast", 0.6, {-100, 100}, {198, 0, 198, 30}, "Sets the contrast between dark and light elements"),
    Slider("Brush Size", 0.2, {0, 100}, {0, 90, 198, 30}, "Sets size and quantity of brush strokes"),
    Slider("Brush Stroke", 0.1, {0, 100}, {66, 90, 198, 30}, "Sets shape of brush"),
    Slider("Brush Angle", 0.155, {0, 360}, {132, 90, 198, 30}, "Sets direction of brush stroke"),
    Slider("Smoothing", 0.5, {0, 100}, {198, 90, 198, 30}, "Rounds the brush strokes"),
    CheckBox("Random Size", false, {0, 180, 198, 10}, "Sets variable brush size"),
    CheckBox("Random Angle", true, {0, 205, 198, 10}, "Sets variable brush angle"),
    CheckBox("Lock Variations", true, {0, 230, 198, 10}, "Sets same brush positions for all frames"),
    Slider("Blend", 0.74, {10, 100}, {198, 180, 198, 30}, "Mixes original image and modified image"),
};

// In the order of the parameters: Color Shift, Color, Brightness, Contrast, Brush Size, Brush Stroke,
// Brush Angle, Smoothing, Random Size, Random Angle, Lock Variations, Blend.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Abstract",         {0.5451, 1.0,    0.42,  0.91,   0.855, 0.815, 0.62,  0.505, false, true,  true,  1.0}},
    {"Broad Strokes",    {0.525,  0.675,  0.47,  0.54,   0.475, 0.75,  0.9,   0.66,  false, false, true,  1.0}},
    {"Confetti Storm",   {0.5001, 0.5001, 0.5,   0.5001, 1.0,   0.0,   0.115, 0.0,   false, true,  false, 1.0}},
    {"Dark Murk",        {0.525,  0.21,   0.47,  0.54,   0.21,  0.35,  0.63,  1.0,   true,  true,  true,  1.0}},
    {"Detailed",         {0.455,  0.525,  0.49,  0.5,    0.105, 0.42,  0.0,   0.08,  false, false, true,  1.0}},
    {"Dramatic",         {0.455,  1.0,    0.335, 1.0,    0.165, 0.42,  0.0,   0.115, false, false, true,  0.865}},
    {"Electrified Hair", {0.525,  0.54,   0.53,  0.525,  0.82,  1.0,   0.63,  0.0,   true,  true,  true,  0.855}},
    {"Mottled Haze",     {0.695,  0.235,  0.425, 0.675,  0.19,  0.205, 0.54,  1.0,   false, true,  true,  0.5}},
    {"Noise",            {0.5001, 0.5001, 0.5,   0.5001, 0.135, 0.0,   0.115, 0.0,   false, true,  false, 0.39}},
    {"Refined",          {0.525,  0.675,  0.47,  0.54,   0.145, 0.23,  0.9,   0.175, false, false, true,  0.73}},
    {"Reset to None",    {0.5001, 0.5001, 0.5,   0.5001, 0.0,   0.0,   0.0,   0.0,   false, true,  true,  0.0}},
    {"Splashed Paint",   {0.5451, 1.0,    0.455, 1.0,    0.855, 0.53,  0.35,  1.0,   false, false, true,  1.0}},
    {"Water Color",      {0.5451, 0.5951, 0.5,   0.5001, 0.125, 0.0,   0.0,   0.795, false, true,  true,  0.65}},
};
// clang-format on

constexpr auto kTables = MakeTables("Impressionist", kParams, kPresets);

}  // namespace

CImpressionist::CImpressionist() : CEffect(kTables) {}

}  // namespace brushworks
