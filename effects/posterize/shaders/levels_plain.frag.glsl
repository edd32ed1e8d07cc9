#version 120
// Leaves a few levels of each colour, the nearest one.
//
// Takes: Texture0, a picture in true channel order, at vTex0; nLevel and fLargest as levels.glsl
// says.
// Gives: the picture in true channel order, alpha as it was. Mirrors ippiReduceBits without dither.
#include "levels.glsl"
uniform sampler2D Texture0_texture;

varying vec2 vTex0;

void main() {
    vec4 color = texture2D(Texture0_texture, vTex0);
    vec3 v = floor(clamp(color.rgb, 0.0, 1.0) * fLargest + 0.5);
    vec3 k = floor((v * float(nLevel - 1) + (fLargest - 1.0) / 2.0 + 0.25) / fLargest);
    gl_FragColor = vec4(valueOfLevel(k), color.a);
}
