#version 120
// Turns a picture gray.
//
// Takes: Texture0, the source, at vTex0; SwapChannelsSrc, 1 when its alpha comes first.
// Gives: the gray in red, green and blue, and an alpha of 1. Mirrors Canvaskit::CRGBToGray: the
// weights, in 4096ths, go by the place of a sample in memory, so that blue has the one of red.
#include "swap_channels.glsl"
uniform sampler2D Texture0_texture;
uniform int SwapChannelsSrc;

varying vec2 vTex0;

void main() {
    vec4 color;
    SWAP_CHANNELS_WTO(SwapChannelsSrc, texture2D(Texture0_texture, vTex0), color);
    vec3 samples = floor(clamp(color.bgr, 0.0, 1.0) * 255.0 + 0.5);
    float gray = floor(dot(samples, vec3(1225.0, 2404.0, 467.0)) / 4096.0);
    gl_FragColor = vec4(vec3(gray / 255.0), 1.0);
}
