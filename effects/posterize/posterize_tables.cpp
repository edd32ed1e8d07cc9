// Parameters, presets and tooltips of Posterize.
#include "effects/posterize/posterize.h"

namespace brushworks {
namespace {

// Values that are a bit above their nearest float; presets are compared by their words.
constexpr float k0_47 = std::bit_cast<float>(0x3EF0A3D8u);
constexpr float k0_49 = std::bit_cast<float>(0x3EFAE149u);
constexpr float k0_185 = std::bit_cast<float>(0x3E3D70A6u);

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Color Shift", 0.43, {-100, 100}, {0, 0, 48, 30}, "Shifts colors around the color wheel"),
    Slider("Color", 0.555, {-100, 100}, {66, 0, 48, 30}, "Sets the color saturation"),
    Slider("Brightness", 0.48, {-100, 100}, {132, 0, 48, 30}, "Sets over all light level of the picture"),
    List("Levels", 0, {"2", "3", "4", "5", "6", "7", "8", "9"}, {0, 90, 77, 20}, "Sets number of colors to use"),
    List("Dither", 0, {"None", "Option A", "Option B", "Option C", "Option D"}, {99, 90, 77, 20}, "Sets number of colors to use"),
};

// In the order of the parameters: Color Shift, Color, Brightness, Levels, Dither.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"6 Colors",        {k0_47,  0.5,    0.555,  0, 0}},
    {"Dark",            {k0_49,  0.0,    0.0,    0, 0}},
    {"Dots",            {k0_47,  0.5,    0.555,  0, 1}},
    {"Hell",            {1.0,    0.7451, 0.5051, 0, 0}},
    {"Offset Printing", {0.485,  0.235,  0.7001, 0, 4}},
    {"Subdued",         {k0_49,  0.0,    0.51,   7, 0}},
    {"Swapped Palette", {k0_185, 0.51,   0.51,   0, 0}},
    {"Washed Out",      {k0_47,  0.0,    1.0,    4, 1}},
};
// clang-format on

constexpr auto kTables = MakeTables("Posterize", kParams, kPresets);

}  // namespace

CPosterize::CPosterize() : CEffect(kTables) {}

}  // namespace brushworks
