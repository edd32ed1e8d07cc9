#version 120
// Draws the strokes in their two inks and the picture's own colours, and puts the drawing through the
// contrast curve.
//
// Takes: Texture0, the source, at vTex0, and Texture1, the strength of the strokes, at vTex1;
// SwapChannelsSrc0 and SwapChannelsDst, 1 where alpha comes first; fA and fB, scale and offset of the
// strength; fColorPen, the picture's own share; vPenColor, the colour of the bare surface, and
// vPaperColor, the colour of the strokes: the names run the other way; fContrast, and fMaxAtan, half
// the height of the curve.
// Gives: the drawing with the source's alpha. Mirrors the inks and CCharcoal::Contrast, in whole
// samples of 0 to 255.
#include "swap_channels.glsl"
uniform sampler2D Texture0_texture;
uniform sampler2D Texture1_texture;
uniform int SwapChannelsSrc0;
uniform int SwapChannelsDst;
uniform float fA;
uniform float fB;
uniform float fColorPen;
uniform vec3 vPenColor;
uniform vec3 vPaperColor;
uniform float fContrast;
uniform float fMaxAtan;

varying vec2 vTex0;
varying vec2 vTex1;

vec3 wholeSamples(vec3 color) {
    return floor(clamp(color, 0.0, 1.0) * 255.0 + 0.5);
}

// The upper half of the curve is the lower one turned about its middle.
float toned(float value) {
    bool upper = value > 127.5;
    float x = (upper ? 255.0 - value : value) / 255.0;
    float u = x * 2.5 * fContrast - fContrast * 1.25;
    float w = sin(x * 0.15707964);
    float curve = (u * 0.85 * w * 4.0 + atan(u, 0.1) * (1.0 - w) + fMaxAtan) / (2.0 * fMaxAtan);
    // Only a contrast of 0 is the plain ramp.
    float v = (fContrast == 0.0 ? x : curve) * 256.0;
    return floor(upper ? 255.0 - v : v);
}

void main() {
    vec4 picture;
    SWAP_CHANNELS_WTO(SwapChannelsSrc0, texture2D(Texture0_texture, vTex0), picture);
    float strength = wholeSamples(vec3(fA * texture2D(Texture1_texture, vTex1).r + fB)).r;

    // A bare place has an index of 95 at most, so the surface is reached to 252 of 256.
    float index = floor(3.0 * (255.0 - strength) / 8.0);
    float bare = floor(index / 96.0 * 255.0);
    float own = floor(floor(fColorPen * 255.0) * (255.0 - bare) / 256.0);
    vec3 drawn = wholeSamples(vPaperColor) * (255.0 - bare - own) + wholeSamples(vPenColor) * bare +
                 wholeSamples(picture.rgb) * own;
    drawn = floor(drawn / 256.0);
    vec4 result = vec4(vec3(toned(drawn.r), toned(drawn.g), toned(drawn.b)) / 255.0, picture.a);
    SWAP_CHANNELS_WTO(SwapChannelsDst, result, gl_FragColor);
}
