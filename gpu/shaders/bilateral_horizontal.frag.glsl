#version 120
// Smooths along the rows and keeps edges.
//
// Takes: Texture0, the source, of the target's size; SwapChannels, 1 when source and target differ
// in channel order; nKernelHalfSize, the texels to each side; fPosScale, fValScale, fPosAdjustment,
// which make the weights.
// Gives: the weighted mean in the target's order. Mirrors one pass of Processors::CSmooth, which
// weighs each channel by itself.
#include "swap_channels.glsl"
#include "texture_info.glsl"
#include "bilateral.glsl"

void main() {
    bilateral(vec2(1.0, 0.0));
}
