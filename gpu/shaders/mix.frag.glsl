#version 120
// Mixes two pictures, channel by channel.
//
// Takes: Texture0 and Texture1, the sources; SwapChannelsSrc0, SwapChannelsSrc1 and
// SwapChannelsDst, 1 for a texture with alpha first; vMix, the share of the second in red, green,
// blue and alpha.
// Gives: the mixture in the target's order. Mirrors Processors::CMix with shares that add up to 1.
#include "swap_channels.glsl"
#include "two_sources.glsl"
uniform vec4 vMix;

void main() {
    give(mix(source0(), source1(), vMix));
}
