// Stages whose passes are not written yet. A host refuses an empty record, so that their effects
// answer that they do not render on the card.
#include "effects/cartoon/shaders.h"
#include "effects/colored_pencil/shaders.h"
#include "effects/halo/shaders.h"
#include "effects/impressionist/shaders.h"
#include "effects/mosaic/shaders.h"
#include "effects/oil/shaders.h"
#include "effects/paper_collage/shaders.h"

namespace brushworks {

const ShaderStruct ssTooneryPro_Contrast = {};
const ShaderStruct ssTooneryPro_ClasterizeHistogramm = {};
const ShaderStruct ssTooneryPro_ClasterizeStage1 = {};
const ShaderStruct ssTooneryPro_ClasterizeStage2 = {};
const ShaderStruct ssTooneryPro_ToGray = {};
const ShaderStruct ssTooneryPro_Invert = {};
const ShaderStruct ssTooneryPro_Merge = {};
const ShaderStruct ssTooneryPro_DetailEnchancer = {};
const ShaderStruct ssTooneryPro_Final = {};

const ShaderStruct ssColoredPencil_Fragment = {};

const ShaderStruct ssAurascope_AlphaLoad = {};
const ShaderStruct ssAurascope_DilateCircle = {};
const ShaderStruct ssAurascope_FilterAndMix = {};

const ShaderStruct ssImpressionist_Vertex = {};
const ShaderStruct ssImpressionist_Geometry = {};
const ShaderStruct ssImpressionist_Fragment = {};
const ShaderStruct ssImpressionist_AverageV = {};
const ShaderStruct ssImpressionist_AverageF = {};
const ShaderStruct ssImpressionist_Colorize = {};

const ShaderStruct ssMosaic_Vertex = {};
const ShaderStruct ssMosaic_Fragment = {};
const ShaderStruct ssMosaic_Outline = {};
const ShaderStruct ssMosaic_Fill = {};

const ShaderStruct ssOil_InitDiagonal = {};
const ShaderStruct ssOil_UpdateDiagonal = {};
const ShaderStruct ssOil_Process = {};
const ShaderStruct ssOil_Remap = {};
const ShaderStruct ssOil_ColorTune = {};

const ShaderStruct ssEmbossedPaper_MonoChrome = {};
const ShaderStruct ssEmbossedPaper_FirstPass = {};
const ShaderStruct ssEmbossedPaper_SecondPass = {};
const ShaderStruct ssEmbossedPaper_MakeShadow = {};

}  // namespace brushworks
