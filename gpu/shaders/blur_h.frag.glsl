#version 120
// Blurs along the rows with a triangle of weights.
//
// Takes: Texture0, the source, of the target's size; blurSize, half the number of weights, rounded
// down; isOdd, 1 when that number is odd.
// Gives: the blurred texel, all channels alike, in the source's channel order. Mirrors one pass of
// Processors::CBlur.
#include "texture_info.glsl"
#include "triangle_blur.glsl"

void main() {
    gl_FragColor = triangleBlur(vec2(1.0, 0.0));
}
