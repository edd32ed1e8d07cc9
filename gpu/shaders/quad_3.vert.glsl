#version 120
// The vertex stage of passes with three textures.
//
// Takes: a quad in the plane of the projection, with the target's edge coordinates (RT, 0 to 1) in
// texture unit 0; Texture0 to Texture2.
// Gives: vRT, and vTex0 to vTex2, where the texels under the current pixel lie for texture2D.
#include "texture_info.glsl"
uniform TextureInfo Texture0;
uniform TextureInfo Texture1;
uniform TextureInfo Texture2;

varying vec2 vRT;
varying vec2 vTex0;
varying vec2 vTex1;
varying vec2 vTex2;

void main() {
    gl_Position = gl_ModelViewProjectionMatrix * gl_Vertex;
    vRT = gl_MultiTexCoord0.xy;
    vTex0 = texelUnder(Texture0, vRT);
    vTex1 = texelUnder(Texture1, vRT);
    vTex2 = texelUnder(Texture2, vRT);
}
