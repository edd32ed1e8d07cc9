#include "gpu/processors/blend.h"

#include <iterator>

#include "gpu/probes.h"
#include "gpu/processors/copy.h"
#include "gpu/processors/two_sources.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

namespace {

/// The stage of a mode, or null for a type beyond them.
const ShaderStruct* StageOf(CBlend::BlendTypeEnum type) {
    using namespace CommonShaders;
    static constexpr const ShaderStruct* kStages[] = {
        &ssBlend_Hue,    &ssBlend_Pop,   &ssBlend_Screen,    &ssBlend_Multiply, &ssBlend_Lighten,
        &ssBlend_Darken, &ssBlend_Dodge, &ssBlend_ColorBurn, &ssBlend_Negation};
    static_assert(std::size(kStages) == CBlend::kNegation + 1);
    return type < std::size(kStages) ? kStages[type] : nullptr;
}

}  // namespace

bool CBlend::Process(const TextureParams& src0, const TextureParams& src1, const TextureParams& dst,
                     BlendTypeEnum eType, bool bMonochrome) {
    if (!m_pHelper || !CheckTexture(src0) || !CheckTexture(src1) || !CheckTexture(dst) ||
        !(IsTexturesEqual(src0, src1, /*bCompareFormat=*/true) ||
          IsTexturesEqual(src0, dst, /*bCompareFormat=*/true)))
        return false;
    const ShaderStruct* stage = StageOf(eType);
    if (!stage) return true;
    return Draw(*stage, src0, src1, dst, [&](GLShaderProgram& program) {
        return SetSwaps(program, src0, src1, dst) &&
               (eType != kDodge || program.SetInt1("Monochrome", bMonochrome ? 1 : 0));
    });
}

bool CBlend::IsSupported(BlendTypeEnum eType) {
    if (!CCopy(m_pHelper).IsSupported()) return false;
    const ShaderStruct* stage = StageOf(eType);
    return !stage || IsProgramSupported(*m_pHelper, {&CommonShaders::ssVertexBiTexture, stage});
}

}  // namespace brushworks::GPUProcessors
