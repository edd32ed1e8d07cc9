// Parameters, presets and tooltips of Aurascope Plus.
#include "effects/halo/halo.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Color", 0.575, {-100, 100}, {0, 0, 48, 30}, "Sets the color saturation"),
    Slider("Brightness", 0.44, {-100, 100}, {66, 0, 48, 30}, "Sets over all light level of the picture"),
    Slider("Contrast", 0.54, {-100, 100}, {132, 0, 48, 30}, "Sets the contrast between dark and light elements"),
    Slider("Halo", 0.36, {0, 100}, {0, 90, 48, 30}, "Sets width of halo"),
    Slider("Edges", 0.735, {0, 100}, {66, 90, 48, 30}, "Controls definition of halo edge"),
    Slider("Blend", 0.735, {0, 100}, {132, 90, 48, 30}, "Sets mix between original image and modified image"),
};

// In the order of the parameters: Color, Brightness, Contrast, Halo, Edges, Blend.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Angelic Vision",  {0.665,  0.3601, 0.6551, 0.8401, 0.705, 0.56}},
    {"Bright Edges",    {1.0,    0.4501, 0.9151, 0.4401, 0.905, 0.5}},
    {"Cotton",          {0.3551, 0.4151, 0.7651, 0.8801, 0.0,   1.0}},
    {"Edgy Blobs",      {0.5001, 0.5001, 0.5001, 0.8051, 0.845, 1.0}},
    {"Glowing Edges",   {0.31,   0.51,   0.545,  0.0,    1.0,   0.75}},
    {"Heaven",          {0.9551, 0.395,  0.715,  0.525,  0.865, 0.58}},
    {"Noir Abstract",   {0.0,    0.27,   1.0,    0.56,   1.0,   1.0}},
    {"Reset to None",   {0.5001, 0.5001, 0.5001, 0.0,    0.0,   0.0}},
    {"Soft Halos",      {0.5001, 0.4151, 0.6251, 0.8051, 0.845, 0.335}},
    {"Vibrant Texture", {0.9551, 0.395,  0.825,  0.0,    1.0,   0.69}},
    {"Vivi Blur",       {1.0,    0.305,  1.0,    0.56,   0.63,  1.0}},
};
// clang-format on

constexpr auto kTables = MakeTables("Aurascope Plus", kParams, kPresets);

}  // namespace

CAurascope::CAurascope() : CEffect(kTables) {}

}  // namespace brushworks
