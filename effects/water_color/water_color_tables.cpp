// Parameters, presets and tooltips of Water Color.
#include "effects/water_color/water_color.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Color Shift", 0.53, {-100, 100}, {0, 0, 48, 30}, "Shifts colors around the color wheel"),
    Slider("Color", 0.69, {-100, 100}, {66, 0, 48, 30}, "Adjusts saturation of image"),
    Slider("Brightness", 0.435, {-100, 100}, {132, 0, 48, 30}, "Sets overall light level"),
    Slider("Contrast", 0.64, {-100, 100}, {0, 90, 48, 30}, "Sets image contrast"),
    Slider("Brush Width", 1.0, {1, 10}, {66, 90, 48, 30}, "Sets size of paint brush"),
    Slider("Blend", 0.885, {0, 100}, {132, 90, 48, 30}, "Sets mix between original and painted image"),
};

// In the order of the parameters: Color Shift, Color, Brightness, Contrast, Brush Width, Blend.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Accurate",           {0.5001, 0.4301, 0.5001, 0.5001, 0.3851, 0.695}},
    {"Bright Colors",      {0.5001, 1.0,    0.5001, 0.5001, 0.5251, 0.695}},
    {"Burnt",              {0.0,    0.23,   0.285,  1.0,    0.53,   0.5}},
    {"Flowing Paint",      {0.5001, 0.98,   0.5001, 0.5001, 1.0,    1.0}},
    {"Fun Day Out",        {0.4757, 0.9223, 0.5001, 0.5049, 0.1165, 0.6262}},
    {"Glow in the Dark",   {0.5001, 0.715,  0.17,   1.0,    0.32,   1.0}},
    {"Painted Photograph", {0.49,   1.0,    0.51,   1.0,    0.78,   0.52}},
    {"Pastels",            {0.5001, 0.715,  0.37,   1.0,    0.575,  1.0}},
    {"Posterize",          {0.525,  1.0,    0.295,  1.0,    0.085,  1.0}},
    {"Reset to None",      {0.5001, 0.5001, 0.5001, 0.5001, 0.0001, 0.0001}},
    {"Smokey",             {0.5001, 0.0,    0.5001, 0.5001, 1.0,    0.825}},
};
// clang-format on

constexpr auto kTables = MakeTables("Water Color", kParams, kPresets);

}  // namespace

CWaterColor::CWaterColor() : CEffect(kTables) {}

}  // namespace brushworks
