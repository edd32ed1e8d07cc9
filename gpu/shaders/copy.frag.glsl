#version 120
// Copies the texel under the pixel; with linear filtering, what lies between texels.
//
// Takes: Texture0, the source; SwapChannels, 1 when source and target differ in channel order.
// Gives: the colour in the target's order. Mirrors Processors::CCopy.
#include "swap_channels.glsl"
uniform sampler2D Texture0_texture;
uniform int SwapChannels;

varying vec2 vTex0;

void main() {
    SWAP_CHANNELS_WTO(SwapChannels, texture2D(Texture0_texture, vTex0), gl_FragColor);
}
