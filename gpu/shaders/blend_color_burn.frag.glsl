#version 120
// Darkens the base the more, the darker the layer is.
//
// Takes: Texture0, the base; Texture1, the layer over it; SwapChannelsSrc0, SwapChannelsSrc1 and
// SwapChannelsDst, 1 for a texture with alpha first.
// Gives: the blended colour with the base's alpha, in the target's order.
#include "swap_channels.glsl"
#include "two_sources.glsl"
#include "dodge_burn.glsl"
#include "blend.glsl"

vec3 blend(vec3 base, vec3 layer) {
    return vec3(burn(base.r, layer.r), burn(base.g, layer.g), burn(base.b, layer.b));
}
