// What a pass with two sources reads and gives, in true channel order whatever the textures'.
// Needs swap_channels.glsl and quad_2.vert.glsl.
uniform sampler2D Texture0_texture;
uniform sampler2D Texture1_texture;
uniform int SwapChannelsSrc0;
uniform int SwapChannelsSrc1;
uniform int SwapChannelsDst;

varying vec2 vTex0;
varying vec2 vTex1;

// The colours under the pixel.
vec4 source0() {
    vec4 colour;
    SWAP_CHANNELS_WTO(SwapChannelsSrc0, texture2D(Texture0_texture, vTex0), colour);
    return colour;
}

vec4 source1() {
    vec4 colour;
    SWAP_CHANNELS_WTO(SwapChannelsSrc1, texture2D(Texture1_texture, vTex1), colour);
    return colour;
}

void give(vec4 colour) {
    SWAP_CHANNELS_WTO(SwapChannelsDst, colour, gl_FragColor);
}
