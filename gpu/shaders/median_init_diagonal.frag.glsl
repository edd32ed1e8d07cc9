#version 120
// Counts the windows of a diagonal's pixels from nothing.
//
// Takes: Texture0, the picture; nDiagonal and vRadius, as diagonal_histogram.glsl tells.
// Gives: a bucket of a row's pixel, in the picture's channel order. Mirrors Canvaskit::CMedian.
#include "texture_info.glsl"
#include "diagonal_histogram.glsl"
uniform sampler2D Texture0_texture;
uniform TextureInfo Texture0;

varying vec2 vRT;

void main() {
    vec2 target = targetIndex(vRT);
    vec2 pixel = vec2(float(nDiagonal) - target.y, target.y);
    vec4 count = vec4(0.0);
    for (float x = -vRadius.x; x <= vRadius.x; x += 1.0)
        count += countColumn(Texture0_texture, Texture0, pixel + vec2(x, 0.0), target.x);
    gl_FragColor = count;
}
