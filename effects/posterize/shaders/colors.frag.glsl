#version 120
// Scales hue, saturation and value.
//
// Takes: Texture0, the source, at vTex0; SwapChannelsSrc, 1 when its alpha comes first; fHUE,
// fSaturation and fLightness, the factors; fLargest, the largest sample of the processor's
// arithmetic, 255 or 65535.
// Gives: the colour in true channel order, alpha as it was. Mirrors Canvaskit::CHSV and the float
// formats of Posterize, sample by sample, so that the levels that follow cut at the same places.
#include "swap_channels.glsl"
#include "hsv_samples.glsl"
uniform sampler2D Texture0_texture;
uniform int SwapChannelsSrc;
uniform float fHUE;
uniform float fSaturation;
uniform float fLightness;
uniform float fLargest;

varying vec2 vTex0;

const float kLargestWord = 65535.0;

// A factor is a whole number of 128ths, and what it gives is rounded to nearest, ties to even.
float scaled(float value, float factor) {
    float wanted = value * floor(factor * 128.0) / 128.0;
    float rounded = floor(wanted + 0.5);
    bool tie = rounded - wanted == 0.5 && mod(rounded, 2.0) == 1.0;
    return min(tie ? rounded - 1.0 : rounded, kLargestWord);
}

void main() {
    vec4 color;
    SWAP_CHANNELS_WTO(SwapChannelsSrc, texture2D(Texture0_texture, vTex0), color);
    // The wheel starts at the sample that memory holds first, which is blue.
    vec3 samples = floor(clamp(color.bgr, 0.0, 1.0) * fLargest + 0.5);
    vec3 hsv = hsvFromSamples(samples);
    hsv = vec3(scaled(hsv.x, fHUE), scaled(hsv.y, fSaturation), scaled(hsv.z, fLightness));
    gl_FragColor = vec4(min(samplesFromHsv(hsv), fLargest).bgr / fLargest, color.a);
}
