#version 120
// Moves the windows of the diagonal before to those of a diagonal's pixels, one texel to the right.
//
// Takes: Texture0, the picture; Texture1, the histograms of the diagonal before; Texture2, those of
// this one counted from nothing, for the pixel that has no left neighbour; nDiagonal and vRadius, as
// diagonal_histogram.glsl tells.
// Gives: a bucket of a row's pixel, in the picture's channel order. Mirrors Canvaskit::CMedian.
#include "texture_info.glsl"
#include "diagonal_histogram.glsl"
uniform sampler2D Texture0_texture;
uniform sampler2D Texture1_texture;
uniform sampler2D Texture2_texture;
uniform TextureInfo Texture0;

varying vec2 vRT;
varying vec2 vTex1;
varying vec2 vTex2;

void main() {
    vec2 target = targetIndex(vRT);
    vec2 pixel = vec2(float(nDiagonal) - target.y, target.y);
    vec2 entering = pixel + vec2(vRadius.x, 0.0);
    vec2 leaving = pixel - vec2(vRadius.x + 1.0, 0.0);
    vec4 moved = texture2D(Texture1_texture, vTex1) +
                 countColumn(Texture0_texture, Texture0, entering, target.x) -
                 countColumn(Texture0_texture, Texture0, leaving, target.x);
    gl_FragColor = pixel.x < 0.5 ? texture2D(Texture2_texture, vTex2) : moved;
}
