// Parameters, presets and tooltips of Paper Collage.
#include "effects/paper_collage/paper_collage.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    Slider("Rounding", 0.5, {0, 100}, {0, 0, 48, 30}, "Sets smoothness of the curves"),
    Slider("Layers", 0.5, {2, 8, 0}, {66, 0, 48, 30}, "Sets number of layers"),
    Slider("Balance", 0.5, {-100, 100, 0}, {132, 0, 48, 30}, "Controls range of slicing between light and dark"),
    Color("Foreground", 0xFFFFFF, {0, 90, 48, 30}, "Sets brightest colors for top of collage"),
    Color("Background", 0x7F7F7F, {66, 90, 48, 30}, "Sets darkest colors for bottom of collage"),
    Slider("Blend Colors", 1.0, {0, 100}, {132, 90, 48, 30}, "Controls mix of Foreground and Background colors"),
    Slider("Contrast", 1.0, {0, 100}, {198, 90, 48, 30}, "Sets the contrast between dark and light elements"),
    Slider("Distance", 0.5, {0, 100}, {0, 180, 48, 30}, "Sets height of each layer"),
    Slider("Angle", 0.0, {0, 360}, {66, 180, 48, 30}, "Controls angle of shadow between layers"),
    Color("Shadow", 0x000000, {132, 180, 48, 30}, "Tool to select color of shadow"),
    Slider("Shadow", 0.5, {0, 100}, {198, 180, 48, 30}, "Sets strength of Shadow color\n"),
};

// In the order of the parameters: Rounding, Layers, Balance, Foreground, Background, Blend Colors,
// Contrast, Distance, Angle, Shadow, Shadow.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Backlit",         {0.435, 0.52,  0.5001, 0xFFFFFF, 0x000000, 1.0,    0.355, 0.635, 0.65,  0xFFFFFF, 1.0}},
    {"Black and White", {0.125, 0.005, 0.5,    0xFFFFFF, 0x7F7F7F, 1.0,    1.0,   0.0,   0.0,   0x000000, 0.5}},
    {"Blue",            {0.275, 1.0,   0.5001, 0xFF8000, 0xFF0000, 0.5651, 0.245, 0.6,   0.15,  0x000000, 0.89}},
    {"Chill",           {0.33,  0.575, 0.5001, 0xFCF986, 0xFF6800, 0.1051, 0.595, 0.0,   0.15,  0x000000, 0.89}},
    {"Curvey Cuts",     {1.0,   0.61,  0.5001, 0x43FEFF, 0x5B4639, 1.0,    0.0,   1.0,   0.15,  0x000000, 1.0}},
    {"Dark",            {0.35,  1.0,   0.81,   0xC08000, 0x00376F, 0.28,   0.455, 0.635, 0.175, 0x000000, 1.0}},
    {"Etched",          {0.0,   1.0,   0.5001, 0xA8D3FF, 0x5B4639, 0.4201, 0.46,  0.225, 0.635, 0x000000, 1.0}},
    {"Heat",            {0.33,  1.0,   0.5001, 0x47FDFE, 0x0000FF, 0.1051, 0.28,  0.0,   0.15,  0x000000, 0.89}},
    {"Ice",             {0.0,   0.795, 0.435,  0xFFFF82, 0xFFFFFF, 0.0,    0.74,  0.575, 0.635, 0xFFFF00, 1.0}},
    {"Inverted",        {0.435, 0.875, 0.5001, 0x000000, 0xFFFFFF, 0.0,    0.57,  0.635, 0.65,  0x000000, 1.0}},
    {"Red",             {0.275, 1.0,   0.5001, 0x0000FF, 0x0000FF, 0.5901, 0.38,  0.6,   0.15,  0x000000, 0.89}},
    {"Silhouette",      {1.0,   0.0,   0.5001, 0x43FEFF, 0x5B4639, 1.0001, 0.165, 1.0,   0.15,  0x000000, 1.0}},
    {"Topagraphic Map", {0.43,  1.0,   0.5,    0xFFFF82, 0x000071, 0.0,    0.0,   0.465, 0.21,  0x000000, 1.0}},
    {"Yellow",          {0.275, 1.0,   0.5001, 0x47FDFE, 0x00FFFF, 0.4451, 0.245, 0.6,   0.15,  0x000000, 0.89}},
};
// clang-format on

constexpr auto kTables = MakeTables("Paper Collage", kParams, kPresets);

}  // namespace

CEmbossedPaper::CEmbossedPaper() : CEffect(kTables) {}

}  // namespace brushworks
