#version 120
// The vertex stage of passes with one texture.
//
// Takes: a quad in the plane of the projection, with the target's edge coordinates (RT, 0 to 1) in
// texture unit 0; Texture0.
// Gives: vRT, and vTex0, where the texel under the current pixel lies for texture2D.
#include "texture_info.glsl"
uniform TextureInfo Texture0;

varying vec2 vRT;
varying vec2 vTex0;

void main() {
    gl_Position = gl_ModelViewProjectionMatrix * gl_Vertex;
    vRT = gl_MultiTexCoord0.xy;
    vTex0 = texelUnder(Texture0, vRT);
}
