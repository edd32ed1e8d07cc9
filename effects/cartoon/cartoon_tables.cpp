// Parameters, presets and tooltips of Toonery Plus.
#include "effects/cartoon/cartoon.h"

namespace brushworks {
namespace {

// clang-format off
constexpr ParamRow kParams[] = {
    GroupOpen("Lines", {0, 30, -18, 30}),
    Slider("Density", 0.485, {0, 100}, {11, 20, 48, 30}, "Determines how many lines to draw"),
    Slider("Clean Up", 0.285, {1, 100}, {77, 20, 48, 30}, "Removes dirt and noise between lines"),
    Slider("Width", 0.28, {0, 100}, {143, 20, 48, 30}, "Sets width of lines"),
    Slider("Mix", 0.485, {0, 100}, {209, 20, 48, 30}, "Determines mix of black lines into picture"),
    GroupClose("Lines", {0, 0, 264, 110}),
    GroupOpen("Paint", {0, 270, -18, 30}),
    Slider("Layers", 1.0, {0, 100}, {11, 135, 48, 30}, "Sets number of layers of paint to use"),
    Slider("Smooth", 0.38, {0, 100}, {77, 135, 48, 30}, "Controls smoothness of the layer edges"),
    Slider("Sharpen", 0.0, {0, 100}, {143, 135, 48, 30}, "Heightens the sharpness of the layer edges"),
    Slider("Shading", 1.0, {1, 100}, {209, 135, 48, 30}, "Adds bold shading to edges"),
    Slider("Color Shift", 0.49, {-100, 100}, {11, 225, 48, 30}, "Shifts colors around the color wheel"),
    Slider("Color", 0.545, {-100, 100}, {77, 225, 48, 30}, "Sets the color saturation"),
    Slider("Brightness", 0.305, {-100, 100}, {143, 225, 48, 30}, "Sets over all brightness of the picture"),
    Slider("Contrast", 0.665, {-100, 100}, {209, 225, 48, 30}, "Increases the contrast between dark and light elements"),
    Slider("Blend", 0.665, {0, 100}, {275, 225, 48, 30}, "Mixes original image with cartooned image"),
    GroupClose("Paint", {0, 120, 264, 200}),
};

// In the order of the parameters: Lines, Density, Clean Up, Width, Mix, Lines, Paint, Layers, Smooth,
// Sharpen, Shading, Color Shift, Color, Brightness, Contrast, Blend, Paint.
// The four group markers have a place in every row and mean nothing there.
constexpr PresetRow<std::size(kParams)> kPresets[] = {
    {"Animation",        {0,      0.585, 0.545,   0.08,  0.75,    0, 0, 0.26,  0.405,    0.0,   0.0,     0.5001,  0.57,    0.58,   0.375,  0.71,   0}},
    {"Architecture",     {0,      0.67,  0.26042, 0.0,   0.69792, 0, 0, 1.0,   0.072917, 0.0,   0.69792, 0.49479, 0.53646, 0.655,  0.71,   1.0,    0}},
    {"Dense Texture",    {0,      1.0,   0.0,     0.0,   0.795,   0, 0, 1.0,   0.38,     0.0,   0.235,   0.5001,  0.48,    0.615,  0.565,  1.0,    0}},
    {"Electric Night",   {0,      0.495, 0.0,     0.0,   0.55,    0, 0, 0.0,   0.0,      0.425, 0.0,     0.5001,  0.145,   0.0,    1.0,    0.995,  0}},
    {"Hallucination",    {0,      0.255, 0.165,   0.075, 0.64,    0, 0, 0.34,  0.78,     0.43,  0.655,   0.0,     0.635,   0.595,  0.71,   1.0,    0}},
    {"Hard",             {0,      0.48,  0.145,   0.855, 1.0,     0, 0, 1.0,   0.0,      0.675, 0.42,    0.5001,  0.26,    0.505,  1.0,    1.0,    0}},
    {"Illustrations",    {0,      0.66,  0.4,     0.08,  1.0,     0, 0, 0.0,   0.405,    0.0,   0.12,    0.5001,  1.0,     0.8,    1.0,    1.0,    0}},
    {"Light Cartoon",    {0,      0.505, 0.325,   0.08,  0.7,     0, 0, 0.37,  0.405,    0.0,   0.0,     0.5001,  0.3,     0.605,  0.625,  1.0,    0}},
    {"Light Drawing",    {0,      0.67,  0.255,   0.135, 0.27,    0, 0, 1.0,   0.35,     0.045, 0.905,   0.55,    0.515,   0.655,  0.71,   1.0,    0}},
    {"Night",            {0,      0.745, 0.605,   1.0,   0.42,    0, 0, 1.0,   0.0,      0.0,   0.525,   0.5001,  0.145,   0.0,    1.0,    1.0,    0}},
    {"Paint Blobs",      {0,      0.275, 0.0,     0.155, 0.0,     0, 0, 0.235, 0.555,    0.0,   0.0,     0.5001,  0.665,   0.61,   0.71,   1.0,    0}},
    {"Pencil Test",      {0,      0.565, 0.615,   0.165, 1.0,     0, 0, 0.73,  0.405,    0.49,  0.0,     0.5001,  0.0,     1.0,    1.0,    1.0,    0}},
    {"Radioactive",      {0,      0.415, 0.16,    0.155, 0.505,   0, 0, 0.26,  0.41,     0.0,   0.375,   0.2951,  0.665,   0.525,  1.0,    1.0,    0}},
    {"Really Bad Dream", {0,      0.495, 0.0,     0.0,   0.55,    0, 0, 0.375, 0.0,      1.0,   0.545,   1.0,     0.985,   0.0,    1.0,    0.995,  0}},
    {"Reset to None",    {0.5001, 0.0,   0.0,     0.0,   0.0,     0, 0, 0.0,   0.0,      0.0,   0.0,     0.5001,  0.5001,  0.5001, 0.5001, 0.0001, 0}},
    {"Rich Colors",      {0,      0.43,  0.25,    0.085, 0.695,   0, 0, 0.275, 0.29,     0.0,   0.19,    0.5001,  0.645,   0.61,   0.69,   1.0,    0}},
    {"Rough Texture",    {0,      0.0,   0.0,     0.0,   0.0,     0, 0, 1.0,   0.35,     1.0,   1.0,     0.55,    0.635,   0.595,  0.71,   1.0,    0}},
    {"Soft",             {0,      0.51,  0.6,     0.155, 0.38,    0, 0, 1.0,   0.2,      0.0,   0.0,     0.5001,  0.515,   0.535,  0.71,   1.0,    0}},
    {"Splashy Paint",    {0,      0.34,  0.28,    0.155, 0.545,   0, 0, 0.295, 0.94,     0.0,   0.28,    0.5001,  0.705,   0.61,   0.805,  1.0,    0}},
    {"Subtle",           {0,      0.335, 0.34,    0.155, 1.0,     0, 0, 0.445, 0.41,     0.0,   0.125,   0.5001,  0.46,    0.545,  1.0,    0.37,   0}},
    {"Vivid",            {0,      0.725, 0.545,   0.08,  0.33,    0, 0, 1.0,   0.22,     0.0,   1.0,     0.5001,  0.81,    0.58,   0.375,  0.71,   0}},
};
// clang-format on

constexpr auto kTables = MakeTables("Toonery Plus", kParams, kPresets);

}  // namespace

CCartoonPro::CCartoonPro() : CEffect(kTables) {}

}  // namespace brushworks
