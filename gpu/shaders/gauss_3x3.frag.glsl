#version 120
// Smooths a picture while it is drawn at another size.
//
// Takes: Texture0, the source; SwapChannels, 1 when source and target differ in channel order.
// Gives: the nearest texel and its eight neighbours, weighted 1 2 1 along each axis, in the target's
// order.
#include "texture_info.glsl"
#include "swap_channels.glsl"
uniform sampler2D Texture0_texture;
uniform TextureInfo Texture0;
uniform int SwapChannels;

varying vec2 vRT;

void main() {
    vec2 middle = floor(texelIndexUnder(Texture0, vRT) + 0.5);
    vec4 sum = vec4(0.0);
    for (float y = -1.0; y <= 1.0; y += 1.0)
        for (float x = -1.0; x <= 1.0; x += 1.0)
            sum += (2.0 - abs(x)) * (2.0 - abs(y)) *
                   texture2D(Texture0_texture, texelAt(Texture0, middle + vec2(x, y)));
    vec4 mean = sum / 16.0;
    SWAP_CHANNELS_WTO(SwapChannels, mean, gl_FragColor);
}
