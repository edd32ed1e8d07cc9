#version 120
// Doubles the reach of sums along rows: pass by pass a pixel comes to hold all of its row up to it.
//
// Takes: Texture0, the picture in the first pass and the sums so far in others; fPixelShift, their
// reach in texels, 1 in the first pass, where samples become whole numbers from 0 to 255.
// Gives: residues as summed_table.glsl tells, in the picture's channel order.
#include "texture_info.glsl"
#include "summed_table.glsl"
uniform sampler2D Texture0_texture;
uniform TextureInfo Texture0;
uniform float fPixelShift;

varying vec2 vRT;

vec4 valueAt(vec2 index) {
    vec4 value = sumUpTo(Texture0_texture, Texture0, index);
    return fPixelShift < 1.5 ? floor(clamp(value, 0.0, 1.0) * 255.0 + 0.5) : value;
}

void main() {
    vec2 index = floor(texelIndexUnder(Texture0, vRT) + 0.5);
    gl_FragColor = addResidues(valueAt(index), valueAt(index - vec2(fPixelShift, 0.0)));
}
