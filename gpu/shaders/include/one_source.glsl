// What a pass with one source reads and gives, in true channel order whatever the two textures'.
// Needs swap_channels.glsl and quad_1.vert.glsl.
uniform sampler2D Texture0_texture;
uniform int SwapChannelsSrc;
uniform int SwapChannelsDst;

varying vec2 vTex0;

// The colour under the pixel.
vec4 source() {
    vec4 colour;
    SWAP_CHANNELS_WTO(SwapChannelsSrc, texture2D(Texture0_texture, vTex0), colour);
    return colour;
}

void give(vec4 colour) {
    SWAP_CHANNELS_WTO(SwapChannelsDst, colour, gl_FragColor);
}
