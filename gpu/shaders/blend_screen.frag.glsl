#version 120
// Multiplies the inverted samples and inverts the product: never darker than either.
//
// Takes: Texture0, the base; Texture1, the layer over it; SwapChannelsSrc0, SwapChannelsSrc1 and
// SwapChannelsDst, 1 for a texture with alpha first.
// Gives: the blended colour with the base's alpha, in the target's order.
#include "swap_channels.glsl"
#include "two_sources.glsl"
#include "blend.glsl"

vec3 blend(vec3 base, vec3 layer) {
    return 1.0 - (1.0 - base) * (1.0 - layer);
}
