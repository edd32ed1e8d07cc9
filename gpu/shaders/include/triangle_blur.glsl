// The weighted mean of the texels along one axis, for the two passes of CBlur.
// Needs texture_info.glsl and quad_1.vert.glsl.
uniform TextureInfo Texture0;
uniform sampler2D Texture0_texture;
uniform int blurSize;
uniform int isOdd;

varying vec2 vRT;

// The weights are 1, 2, 3 ... 3, 2, 1; of the two alike in the middle of an even number the first
// stands on the pixel. The outermost two rows and columns of the region (fewer where nothing would
// be left) take no part: they and all outside are repeats of the texel nearest to them further in.
// No weights at all leave the texel as it is.
vec4 triangleBlur(vec2 axis) {
    vec2 index = texelIndexUnder(Texture0, vRT);
    if (blurSize + isOdd == 0) return texture2D(Texture0_texture, texelAt(Texture0, index));

    vec2 last = Texture0.vNORM2TEXi_Scale;
    vec2 inset = min(vec2(2.0), floor(0.5 * last));
    vec2 first = texelAt(Texture0, inset);
    vec2 end = texelAt(Texture0, last - inset);
    vec2 centre = Texture0.vShiftTEXi + Texture0.vScaleTEXi * index;
    vec2 toNext = Texture0.vScaleTEXi * axis;

    float odd = float(isOdd);
    float top = float(blurSize) + 1.0;
    vec4 sum = odd * top * texture2D(Texture0_texture, clamp(centre, first, end));
    vec2 before = centre + (1.0 - odd) * toNext;
    vec2 behind = centre;
    for (float weight = float(blurSize); weight > 0.5; weight -= 1.0) {
        before -= toNext;
        behind += toNext;
        sum += weight * (texture2D(Texture0_texture, clamp(before, first, end)) +
                         texture2D(Texture0_texture, clamp(behind, first, end)));
    }
    return sum / (top * (float(blurSize) + odd));
}
