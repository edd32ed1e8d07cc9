#version 120
// Mixes an S-shaped curve into the tones and lifts them a little.
//
// Takes: Texture0, the source; SwapChannelsSrc and SwapChannelsDst, 1 for a texture with alpha
// first; fContrast, the curve's share.
// Gives: the colours through the curve, alpha as it is, in the target's order. Mirrors the table of
// tones in Processors::CSmooth.
#include "swap_channels.glsl"
#include "one_source.glsl"
uniform float fContrast;

void main() {
    const float kPi = 3.1415927;
    vec4 colour = source();
    vec3 curve = sin((colour.rgb - 0.5) * kPi) * 0.5 + 0.5;
    float lift = float(int(fContrast * 5.0)) / 255.0;
    give(vec4(clamp(mix(colour.rgb, curve, fContrast) + lift, 0.0, 1.0), colour.a));
}
