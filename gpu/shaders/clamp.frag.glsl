#version 120
// Limits all four channels to a range.
//
// Takes: Texture0, the source; fMin and fMax, the range.
// Gives: the limited texel in the source's channel order.
uniform sampler2D Texture0_texture;
uniform float fMin;
uniform float fMax;

varying vec2 vTex0;

void main() {
    gl_FragColor = clamp(texture2D(Texture0_texture, vTex0), fMin, fMax);
}
