// Parameters, presets and tooltips of Mural.
#include "effects/mural/mural.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Color", 0.5, {-100, 100}, {0, 0, 48, 30}, "Sets the color saturation"),
    Slider("Brightness", 0.5, {-100, 100}, {66, 0, 48, 30}, "Sets over all light level of the picture"),
    Slider("Contrast", 0.5, {-100, 100}, {132, 0, 48, 30}, "Sets the contrast between dark and light elements"),
    Slider("Smoothing", 0.8, {0, 100}, {0, 90, 48, 30}, "Smoothes lines between colors"),
    Slider("Shading", 0.66, {0, 100}, {66, 90, 48, 30}, "Introduces shadows into image"),
    Slider("Blend", 0.83, {0, 100}, {132, 90, 48, 30}, "Mixes original image and modified image"),
};

// In the order of the parameters: Color, Brightness, Contrast, Smoothing, Shading, Blend.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Bold",              {0.595,  0.4651, 0.5351, 0.645,  0.725,  1.0}},
    {"Colored Haze",      {1.0,    0.79,   0.305,  0.59,   0.0,    0.775}},
    {"Dark",              {0.33,   0.3801, 0.5351, 0.765,  0.88,   1.0}},
    {"Dark Colors",       {1.0,    0.175,  1.0,    0.705,  0.725,  1.0}},
    {"Hazy Grey",         {0.0,    0.5151, 0.5701, 1.0,    0.0,    1.0}},
    {"Heaven",            {0.2651, 0.5001, 0.7451, 1.0,    0.0,    0.81}},
    {"High Contrast",     {0.205,  0.395,  0.96,   0.765,  0.0,    1.0}},
    {"Hollywood Touchup", {0.445,  0.4251, 0.585,  0.835,  0.81,   0.395}},
    {"Poster",            {1.0,    0.5801, 0.4351, 0.6,    0.905,  1.0}},
    {"Reset to None",     {0.5001, 0.5001, 0.5001, 0.0001, 0.0001, 0.0001}},
    {"Smeared Pastels",   {0.85,   0.51,   0.535,  1.0,    0.0,    1.0}},
    {"Stark",             {0.395,  0.49,   0.635,  0.0,    1.0,    1.0}},
};
// clang-format on

constexpr auto kTables = MakeTables("Mural", kParams, kPresets);

}  // namespace

CSmoother::CSmoother() : CEffect(kTables) {}

}  // namespace brushworks
