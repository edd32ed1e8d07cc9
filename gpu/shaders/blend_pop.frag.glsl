#version 120
// Stretches the contrast of the base by the layer: its dark half burns, its bright half dodges.
//
// Takes: Texture0, the base; Texture1, the layer over it; SwapChannelsSrc0, SwapChannelsSrc1 and
// SwapChannelsDst, 1 for a texture with alpha first.
// Gives: the blended colour with the base's alpha, in the target's order.
#include "swap_channels.glsl"
#include "two_sources.glsl"
#include "dodge_burn.glsl"
#include "blend.glsl"

float pop(float base, float layer) {
    return layer < 0.5 ? burn(base, 2.0 * layer) : dodge(base, 2.0 * layer - 1.0);
}

vec3 blend(vec3 base, vec3 layer) {
    return vec3(pop(base.r, layer.r), pop(base.g, layer.g), pop(base.b, layer.b));
}
