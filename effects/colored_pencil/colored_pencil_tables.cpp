// Parameters, presets and tooltips of Colored Pencil.
#include "effects/colored_pencil/colored_pencil.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Color Shift", 0.5, {-100, 100}, {0, 0, 48, 30}, "Shifts colors around the color wheel"),
    Slider("Color", 0.5, {-100, 100}, {66, 0, 48, 30}, "Sets the color saturation"),
    Slider("Brightness", 0.505, {-100, 100}, {132, 0, 48, 30}, "Sets over all light level of the picture"),
    Slider("Contrast", 0.735, {-100, 100}, {0, 90, 48, 30}, "Sets the contrast between dark and light elements"),
    Slider("Details", 0.0, {0, 100}, {66, 90, 48, 30}, "Controls number of lines and fine details to include"),
    Slider("Fill", 0.22, {0, 100}, {132, 90, 48, 30}, "Sets strength of pencil shading"),
};

// In the order of the parameters: Color Shift, Color, Brightness, Contrast, Details, Fill.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Colored Lines",   {0.5001, 0.5001, 0.405, 0.82,  0.265, 0.0}},
    {"Dark Colors",     {0.5001, 1.0,    0.315, 0.695, 1.0,   1.0}},
    {"Faded",           {0.2951, 0.455,  0.81,  0.335, 0.705, 0.39}},
    {"Night",           {0.5001, 0.7,    0.0,   0.695, 0.24,  1.0}},
    {"Pastels",         {0.5,    0.995,  0.8,   0.485, 0.0,   1.0}},
    {"Pencil Fill",     {0.5001, 0.6301, 0.385, 0.735, 0.0,   0.5}},
    {"Penciled Lines",  {0.5,    0.0,    0.58,  1.0,   0.38,  0.0}},
    {"Rubbed Charcoal", {0.5,    0.0,    0.68,  0.61,  0.0,   1.0}},
    {"Silky Fog",       {0.415,  0.57,   0.52,  0.41,  0.0,   0.5}},
    {"Strange Dream",   {0.0,    0.995,  0.8,   0.58,  0.67,  0.5}},
};
// clang-format on

constexpr auto kTables = MakeTables("Colored Pencil", kParams, kPresets);

}  // namespace

CColoredPencil::CColoredPencil() : CEffect(kTables) {}

}  // namespace brushworks
