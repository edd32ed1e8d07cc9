// The shared shader stages. Each is a file in gpu/shaders, embedded by gpu/CMakeLists.txt; those of
// an effect stand in its own folder.
#pragma once

#include "gpu/shader_struct.h"

namespace brushworks::CommonShaders {

// Vertex stages of passes with one, two and three textures.
extern const ShaderStruct ssVertexDefault;
extern const ShaderStruct ssVertexBiTexture;
extern const ShaderStruct ssVertexTriTexture;

// CCopy, CResize.
extern const ShaderStruct ssCopy_FCopy;
extern const ShaderStruct ssCopy_FCopy_Channel;
// CBlur.
extern const ShaderStruct ssBlur_HBlur;
extern const ShaderStruct ssBlur_VBlur;
// CBilateralFast.
extern const ShaderStruct ssBilateralFast_Horizontal;
extern const ShaderStruct ssBilateralFast_Vertical;
// CSmooth.
extern const ShaderStruct ssSmooth_Contrast;
// CClamp.
extern const ShaderStruct ssClamp_FClamp;
// CColorTwist.
extern const ShaderStruct ssColorTwist_CTwist;
// CCombine.
extern const ShaderStruct ssCombine_FCombine;
// CMix.
extern const ShaderStruct ssMix_FMix;
// CFilter, CFilter3x3.
extern const ShaderStruct ssFilter_FShader;
extern const ShaderStruct ssFilter3x3_Filter;
// CHistogram.
extern const ShaderStruct ssHistogram_V1_Vert;
extern const ShaderStruct ssHistogram_V1_Frag;
// CSegmentTree.
extern const ShaderStruct ssSegmentTree_Ver2H;
extern const ShaderStruct ssSegmentTree_Ver2V;
// CDilateEllipseFast.
extern const ShaderStruct ssDilateEllipseFast;
extern const ShaderStruct ssEnlagre_gauss3x3;
// CMedian, whose programs are only asked for.
extern const ShaderStruct ssMedian_InitDiagonal;
extern const ShaderStruct ssMedian_UpdateDiagonal;
extern const ShaderStruct ssMedian_FMedian;
extern const ShaderStruct ssMedian_Remap;
// CBlend.
extern const ShaderStruct ssBlend_Hue;
extern const ShaderStruct ssBlend_Pop;
extern const ShaderStruct ssBlend_Screen;
extern const ShaderStruct ssBlend_Multiply;
extern const ShaderStruct ssBlend_Lighten;
extern const ShaderStruct ssBlend_Darken;
extern const ShaderStruct ssBlend_Dodge;
extern const ShaderStruct ssBlend_ColorBurn;
extern const ShaderStruct ssBlend_Negation;

}  // namespace brushworks::CommonShaders
