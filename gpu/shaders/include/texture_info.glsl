// The coordinates of a texture, as the program is told them, and the three of the render target.
//
// RT is the target from outer edge to outer edge, NORM a texture's region from its first texel's
// centre to its last, TEX the region from edge to edge, TEXi a texel's index in the region, GL what
// texture2D takes. Each way between two is v * Scale + Shift.
struct TextureInfo {
    vec2 vScale, vShift;                      // NORM to GL
    vec2 vScaleTEXi, vShiftTEXi;              // TEXi to GL
    vec2 vRT2TEX_Scale, vRT2TEX_Shift;
    vec2 vRT2TEXi_Scale, vRT2TEXi_Shift;
    vec2 vTEX2NORM_Scale, vTEX2NORM_Shift;
    vec2 vTEX2TEXi_Scale, vTEX2TEXi_Shift;
    vec2 vTEXi2NORM_Scale, vTEXi2NORM_Shift;
    vec2 vNORM2TEXi_Scale;
    vec2 texelSize;                           // in NORM
    vec2 roiLeftTop, roiWH;                   // as vShift, vScale
};

uniform vec2 vRTSize;
uniform vec2 vRT2NORM_Scale;
uniform vec2 vRT2NORM_Shift;

// Where texture2D finds the texel under a pixel of the target: RT to GL.
vec2 texelUnder(TextureInfo info, vec2 rt) {
    return info.vShift + info.vScale * (vRT2NORM_Shift + vRT2NORM_Scale * rt);
}

// The index of that texel: RT to TEXi.
vec2 texelIndexUnder(TextureInfo info, vec2 rt) {
    return info.vRT2TEXi_Shift + info.vRT2TEXi_Scale * rt;
}

// Where texture2D finds the texel of an index, the nearest of the region for one outside: TEXi to GL.
vec2 texelAt(TextureInfo info, vec2 index) {
    vec2 last = info.vNORM2TEXi_Scale;
    return info.vShiftTEXi + info.vScaleTEXi * clamp(index, vec2(0.0), last);
}
