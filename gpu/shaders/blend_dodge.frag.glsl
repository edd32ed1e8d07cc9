#version 120
// Brightens the base the more, the brighter the layer is.
//
// Takes: Texture0, the base; Texture1, the layer over it; SwapChannelsSrc0, SwapChannelsSrc1 and
// SwapChannelsDst, 1 for a texture with alpha first; Monochrome, 1 to blend red alone and give it in
// all colours.
// Gives: the blended colour with the base's alpha, in the target's order. Mirrors
// Processors::CDodgeBlend.
#include "swap_channels.glsl"
#include "two_sources.glsl"
#include "dodge_burn.glsl"
#include "blend.glsl"

uniform int Monochrome;

vec3 blend(vec3 base, vec3 layer) {
    if (Monochrome == 1) return vec3(dodge(base.r, layer.r));
    return vec3(dodge(base.r, layer.r), dodge(base.g, layer.g), dodge(base.b, layer.b));
}
