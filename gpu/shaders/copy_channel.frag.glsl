#version 120
// Copies the red channel of the texel under the pixel into all four.
//
// Takes: Texture0, the source.
// Gives: its first channel in every channel.
uniform sampler2D Texture0_texture;

varying vec2 vTex0;

void main() {
    gl_FragColor = texture2D(Texture0_texture, vTex0).rrrr;
}
