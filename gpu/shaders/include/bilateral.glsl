// The mean of the texels along one axis, weighted by how near they lie and how alike they are, for
// the two directions of CBilateralFast. Needs swap_channels.glsl, texture_info.glsl and
// quad_1.vert.glsl.
uniform TextureInfo Texture0;
uniform sampler2D Texture0_texture;
uniform int SwapChannels;
uniform int nKernelHalfSize;
uniform float fPosScale;
uniform float fValScale;
uniform float fPosAdjustment;

varying vec2 vRT;

// The weight of a texel k steps away is
// exp(k * k * fPosScale + difference * difference * fValScale + fPosAdjustment). All four channels
// count alike, since the pass is not told which of them is alpha. Outside the region its outermost
// texels are repeated.
void bilateral(vec2 axis) {
    vec2 index = texelIndexUnder(Texture0, vRT);
    vec4 centre = texture2D(Texture0_texture, texelAt(Texture0, index));
    // Differences are summed: they are small numbers, and the centre's own is none.
    vec4 sum = vec4(0.0);
    float weights = exp(fPosAdjustment);
    for (int i = 1; i <= nKernelHalfSize; ++i) {
        float k = float(i);
        float position = k * k * fPosScale + fPosAdjustment;
        vec4 before = texture2D(Texture0_texture, texelAt(Texture0, index - k * axis)) - centre;
        vec4 behind = texture2D(Texture0_texture, texelAt(Texture0, index + k * axis)) - centre;
        float weightBefore = exp(position + fValScale * dot(before, before));
        float weightBehind = exp(position + fValScale * dot(behind, behind));
        sum += weightBefore * before + weightBehind * behind;
        weights += weightBefore + weightBehind;
    }
    SWAP_CHANNELS_WTO(SwapChannels, (centre + sum / weights), gl_FragColor);
}
