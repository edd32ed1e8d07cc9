#version 120
// Puts a picture together from the medians of its diagonals.
//
// Takes: Texture0, a column for each diagonal, in whose row y stands the pixel of the picture's row.
// Gives: pixel (x, y) from row y of diagonal x + y, in the order of channels that it has.
#include "texture_info.glsl"
uniform sampler2D Texture0_texture;
uniform TextureInfo Texture0;

varying vec2 vRT;

void main() {
    vec2 pixel = floor(vRT * vRTSize);
    gl_FragColor = texture2D(Texture0_texture, texelAt(Texture0, vec2(pixel.x + pixel.y, pixel.y)));
}
