#version 120
// Adds one tile of a convolution's kernel, 4 by 4 cells.
//
// Takes: Texture0, the source, its texels found by index and repeated at the region's edge; vShift,
// where the tile's first cell lies from the pixel, in texels; fMatrix, the cells, a column of the
// kernel in each of its columns.
// Gives: the sum of sixteen texels times their cells, in the source's channel order, to be blended
// by addition. Mirrors Processors::CFilter with its kernel turned by half a turn.
#include "texture_info.glsl"
uniform sampler2D Texture0_texture;
uniform TextureInfo Texture0;
uniform mat4 fMatrix;
uniform ivec2 vShift;

varying vec2 vRT;

void main() {
    vec2 corner = texelIndexUnder(Texture0, vRT) + vec2(vShift);
    vec4 sum = vec4(0.0);
    for (int x = 0; x < 4; ++x)
        for (int y = 0; y < 4; ++y)
            sum += fMatrix[x][y] *
                   texture2D(Texture0_texture, texelAt(Texture0, corner + vec2(x, y)));
    gl_FragColor = sum;
}
