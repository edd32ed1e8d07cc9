// Parameters, presets and tooltips of Mosaic.
#include "effects/mosaic/mosaic.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Size", 0.5, {0, 100, 0}, {0, 0, 48, 30}, "Sets size of tiles"),
    Slider("Shape", 0.5, {0, 100}, {66, 0, 48, 30}, "Sets shape of tiles"),
    CheckBox("Borders", false, {0, 90, 114, 10}, "Provides black line around tiles"),
};

// In the order of the parameters: Size, Shape, Borders.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Block Wall",    {0.365, 0.0,  true}},
    {"Layered Tiles", {0.11,  0.0,  true}},
    {"Pebbles",       {0.0,   0.99, false}},
    {"Slate Tiles",   {0.2,   1.0,  true}},
    {"Small Bricks",  {0.0,   0.0,  true}},
};
// clang-format on

constexpr auto kTables = MakeTables("Mosaic", kParams, kPresets);

}  // namespace

CStainedGlass::CStainedGlass() : CEffect(kTables) {}

}  // namespace brushworks
