#version 120
// A sum of two pictures, each times a factor of its own.
//
// Takes: Texture0 and Texture1, the sources; SwapChannelsSrc0, SwapChannelsSrc1 and
// SwapChannelsDst, 1 for a texture with alpha first; vCoefficients, the two factors; vClamp, the
// least and the largest result.
// Gives: the limited sum, alpha like the colours, in the target's order.
#include "swap_channels.glsl"
#include "two_sources.glsl"
uniform vec2 vCoefficients;
uniform vec2 vClamp;

void main() {
    give(clamp(vCoefficients.x * source0() + vCoefficients.y * source1(), vClamp.x, vClamp.y));
}
