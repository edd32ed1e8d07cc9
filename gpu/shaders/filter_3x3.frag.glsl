#version 120
// A convolution with 3 by 3 cells.
//
// Takes: Texture0, the source, its texels found by index and repeated at the region's edge; fMatrix,
// the cells, a column of the kernel in each of its columns, the middle on the pixel.
// Gives: the sum of nine texels times their cells, all four channels, in the source's order. Mirrors
// Processors::CFilter with its kernel turned by half a turn.
#include "texture_info.glsl"
uniform sampler2D Texture0_texture;
uniform TextureInfo Texture0;
uniform mat3 fMatrix;

varying vec2 vRT;

void main() {
    vec2 corner = texelIndexUnder(Texture0, vRT) - 1.0;
    vec4 sum = vec4(0.0);
    for (int x = 0; x < 3; ++x)
        for (int y = 0; y < 3; ++y)
            sum += fMatrix[x][y] *
                   texture2D(Texture0_texture, texelAt(Texture0, corner + vec2(x, y)));
    gl_FragColor = sum;
}
