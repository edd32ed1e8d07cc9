#version 120
// Reads mean colours from a table of sums, for tests.
//
// Takes: Texture0, the table; Texture1, a rectangle a texel: first x, first y, last x, last y.
// Gives: the mean over the pixel's rectangle.
#include "texture_info.glsl"
#include "summed_table.glsl"
uniform sampler2D Texture0_texture;
uniform sampler2D Texture1_texture;
uniform TextureInfo Texture0;

varying vec2 vTex1;

void main() {
    vec4 rectangle = texture2D(Texture1_texture, vTex1);
    gl_FragColor = meanOf(Texture0_texture, Texture0, rectangle.xy, rectangle.zw);
}
