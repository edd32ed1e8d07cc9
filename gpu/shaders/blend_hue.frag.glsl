#version 120
// The layer's hue with the saturation and the luminosity of the base.
//
// Takes: Texture0, the base; Texture1, the layer over it; SwapChannelsSrc0, SwapChannelsSrc1 and
// SwapChannelsDst, 1 for a texture with alpha first.
// Gives: the blended colour with the base's alpha, in the target's order.
#include "swap_channels.glsl"
#include "two_sources.glsl"
#include "blend.glsl"

float luminosity(vec3 colour) {
    return dot(colour, vec3(0.3, 0.59, 0.11));
}

float least(vec3 colour) {
    return min(min(colour.r, colour.g), colour.b);
}

float greatest(vec3 colour) {
    return max(max(colour.r, colour.g), colour.b);
}

float saturation(vec3 colour) {
    return greatest(colour) - least(colour);
}

// The hue of a colour, its least sample 0; no hue is black.
vec3 withSaturation(vec3 colour, float wanted) {
    float own = saturation(colour);
    return own > 0.0 ? (colour - least(colour)) * (wanted / own) : vec3(0.0);
}

// Moves the colour along the grays, then towards the gray of the wanted luminosity until all
// samples lie from 0 to 1.
vec3 withLuminosity(vec3 colour, float wanted) {
    colour += wanted - luminosity(colour);
    float low = least(colour), high = greatest(colour);
    if (low < 0.0) colour = wanted + (colour - wanted) * (wanted / (wanted - low));
    if (high > 1.0) colour = wanted + (colour - wanted) * ((1.0 - wanted) / (high - wanted));
    return colour;
}

vec3 blend(vec3 base, vec3 layer) {
    base = clamp(base, 0.0, 1.0);
    return withLuminosity(withSaturation(layer, saturation(base)), luminosity(base));
}
