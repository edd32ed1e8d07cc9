#include "gpu/processors/segment_tree.h"

#include <bit>

#include "gpu/pixel_formats.h"
#include "gpu/probes.h"
#include "gpu/processors/copy.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {
namespace {

/// How often a reach of 1 doubles until it covers the length.
int PassesFor(int length) {
    return std::bit_width(static_cast<unsigned int>(length));
}

}  // namespace

bool CSegmentTree::Process(const TextureParams& src, const TextureParams& dst) {
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst)) return false;
    using namespace CommonShaders;
    ScratchTexture temporary(*m_pHelper);
    ScratchProgram rows(*m_pHelper), columns(*m_pHelper);
    if (!temporary.Make(src, FloatsLike(src.pfPixelFormat)) ||
        !rows.Make(ssVertexDefault, ssSegmentTree_Ver2H) ||
        !columns.Make(ssVertexDefault, ssSegmentTree_Ver2V))
        return false;

    const TextureParams* const pair[] = {&temporary, &dst};
    const auto add = [&](GLShaderProgram& program, const TextureParams& from, int target, int i) {
        return DrawWith(program, from, *pair[target], [&](GLShaderProgram& bound) {
            return bound.SetFloat1("fPixelShift", static_cast<float>(1u << i));
        });
    };
    const int nx = PassesFor(src.nWidth), ny = PassesFor(src.nHeight);
    for (int i = 0; i < nx; ++i)
        if (!add(rows, i == 0 ? src : *pair[(i + 1) % 2], i % 2, i)) return false;
    const int p = 1 - (nx - 1) % 2;
    for (int j = 0; j < ny; ++j)
        if (!add(columns, *pair[(p + j + 1) % 2], (p + j) % 2, j)) return false;
    return (p - ny) % 2 == 0 || CCopy(m_pHelper).Process(temporary, dst);
}

bool CSegmentTree::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && CCopy(m_pHelper).IsSupported() &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssSegmentTree_Ver2V}) &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssSegmentTree_Ver2H});
}

}  // namespace brushworks::GPUProcessors
