// Parameters, presets and tooltips of Charcoal.
#include "effects/charcoal/charcoal.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Details", 0.09, {0, 100}, {0, 0, 48, 30}, "Sets how many details to include in drawing"),
    Slider("Width", 0.525, {0, 100}, {66, 0, 48, 30}, "Sets width of charcoal lines"),
    Slider("Contrast", 0.6, {0, 100}, {132, 0, 48, 30}, "Increases the contrast between dark and light elements"),
    Color("Charcoal", 0x000000, {0, 90, 48, 30}, "Sets pen color for drawing lines"),
    Color("Surface", 0xFFFFFF, {66, 90, 48, 30}, "Sets background color"),
    Slider("Color", 0.6, {0, 100}, {132, 90, 48, 30}, "Increase to draw lines with colors from original image"),
};

// In the order of the parameters: Details, Width, Contrast, Charcoal, Surface, Color.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Charcoal",        {0.395, 0.6,   0.385, 0x000000, 0xE6E6E6, 0.0}},
    {"Colored Chalk",   {0.61,  0.7,   0.46,  0xFFFFFF, 0x000000, 1.0}},
    {"Colored Pencils", {0.67,  0.73,  0.45,  0x000000, 0xFFFFFF, 1.0}},
    {"Green",           {0.0,   1.0,   1.0,   0xCF8A63, 0x40FF00, 0.605}},
    {"Light Gray",      {1.0,   0.32,  0.055, 0x0200FE, 0xB2B2B2, 1.0}},
    {"Light Sketch",    {0.965, 0.255, 0.0,   0x000000, 0xFFFFFF, 0.425}},
    {"Scratched Blue",  {0.88,  0.34,  0.65,  0xCF8A63, 0xC13E44, 1.0}},
    {"Soft Pink",       {0.84,  0.94,  0.0,   0x0200FE, 0xCCCCFF, 1.0}},
    {"Turquoise",       {0.315, 0.94,  0.605, 0xD38F6A, 0xC6FFC6, 0.29}},
    {"Yellow",          {0.84,  0.94,  0.55,  0x0200FE, 0x00FFFF, 1.0}},
};
// clang-format on

constexpr auto kTables = MakeTables("Charcoal", kParams, kPresets);

}  // namespace

CCharcoal::CCharcoal() : CEffect(kTables) {}

}  // namespace brushworks
