#include "gpu/processors/median.h"

#include "gpu/probes.h"
#include "gpu/processors/copy.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

bool CMedian::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && CCopy(m_pHelper).IsSupported() &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssMedian_InitDiagonal}) &&
           IsProgramSupported(*m_pHelper, {&ssVertexTriTexture, &ssMedian_UpdateDiagonal}) &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssMedian_FMedian}) &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssMedian_Remap});
}

}  // namespace brushworks::GPUProcessors
