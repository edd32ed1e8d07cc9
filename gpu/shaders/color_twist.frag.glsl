#version 120
// Multiplies colours by a matrix and adds a constant.
//
// Takes: Texture0, the source; SwapChannelsSrc and SwapChannelsDst, 1 for a texture with alpha
// first; colorMatrix1 to colorMatrix4, the factors of red, green and blue and the constant.
// Gives: the new colour, not cut to any range, and alpha as it is, in the target's order. Mirrors
// Processors::CColorTwist.
#include "swap_channels.glsl"
#include "one_source.glsl"
uniform vec3 colorMatrix1;
uniform vec3 colorMatrix2;
uniform vec3 colorMatrix3;
uniform vec3 colorMatrix4;

void main() {
    vec4 colour = source();
    give(vec4(colour.r * colorMatrix1 + colour.g * colorMatrix2 + colour.b * colorMatrix3 +
                  colorMatrix4,
              colour.a));
}
