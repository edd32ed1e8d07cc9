#version 120
// Doubles the reach of sums along columns of sums of rows: pass by pass a pixel comes to hold all
// that lies above and left of it.
//
// Takes: Texture0, the sums so far; fPixelShift, their reach in texels.
// Gives: residues as summed_table.glsl tells, in the picture's channel order.
#include "texture_info.glsl"
#include "summed_table.glsl"
uniform sampler2D Texture0_texture;
uniform TextureInfo Texture0;
uniform float fPixelShift;

varying vec2 vRT;

void main() {
    vec2 index = floor(texelIndexUnder(Texture0, vRT) + 0.5);
    gl_FragColor =
        addResidues(sumUpTo(Texture0_texture, Texture0, index),
                    sumUpTo(Texture0_texture, Texture0, index - vec2(0.0, fPixelShift)));
}
