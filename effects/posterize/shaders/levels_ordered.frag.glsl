#version 120
// Leaves a few levels of each colour, by an ordered pattern of 8 by 8 dots.
//
// Takes: Texture0, a picture in true channel order, at vTex0; nLevel and fLargest as levels.glsl
// says. The pattern starts at the first texel of the region.
// Gives: the picture in true channel order, alpha as it was. Mirrors ippiReduceBits with the ordered
// dither.
#include "texture_info.glsl"
#include "levels.glsl"
uniform TextureInfo Texture0;
uniform sampler2D Texture0_texture;

varying vec2 vRT;
varying vec2 vTex0;

// One step of Bayer's matrix, [0 2; 3 1], at a place of two bits.
float bayer2(vec2 bit) {
    return 2.0 * bit.x + 3.0 * bit.y - 4.0 * bit.x * bit.y;
}

// Bayer's matrix of 8 by 8, 0 to 63: the lowest bits of the place decide the coarsest step.
float bayer8(vec2 place) {
    vec2 b0 = mod(place, 2.0), b1 = mod(floor(place / 2.0), 2.0), b2 = mod(floor(place / 4.0), 2.0);
    return 16.0 * bayer2(b0) + 4.0 * bayer2(b1) + bayer2(b2);
}

void main() {
    vec4 color = texture2D(Texture0_texture, vTex0);
    vec2 place = floor(texelIndexUnder(Texture0, vRT) + 0.5);
    float threshold = fLargest * (2.0 * bayer8(place) + 1.0) / 128.0;
    vec3 v = floor(clamp(color.rgb, 0.0, 1.0) * fLargest + 0.5);
    vec3 k = floor((v * float(nLevel - 1) + threshold + 1.0 / 512.0) / fLargest);
    gl_FragColor = vec4(valueOfLevel(min(k, float(nLevel - 1))), color.a);
}
