#include "gpu/processors/filter.h"

#include "gpu/gl_api.h"
#include "gpu/pixel_formats.h"
#include "gpu/probes.h"
#include "gpu/processors/additive_blending.h"
#include "gpu/processors/copy.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {
namespace {

/// Pixels a side of the piece of a kernel that one drawing adds.
constexpr int kTile = 4;

}  // namespace

struct CFilter::Kernel {
    int width, height;
    const float* cells;
    int anchorX, anchorY;

    int Columns() const { return (width + kTile - 1) / kTile; }
    int Rows() const { return (height + kTile - 1) / kTile; }

    /// The tile whose first cell is (left, top), row by row; what the kernel lacks is 0.
    void ReadTile(int left, int top, float* tile) const {
        for (int y = 0; y < kTile; ++y)
            for (int x = 0; x < kTile; ++x) {
                const bool inside = left + x < width && top + y < height;
                *tile++ = inside ? cells[(top + y) * width + left + x] : 0.0f;
            }
    }
};

bool CFilter::Process(const TextureParams& src, const TextureParams& dst, int nKernelW,
                      int nKernelH, float* pKernel, int nAnchorX, int nAnchorY) {
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst) || !pKernel || nAnchorX < 0 ||
        nAnchorX >= nKernelW || nAnchorY < 0 || nAnchorY >= nKernelH)
        return false;
    const Kernel kernel = {nKernelW, nKernelH, pKernel, nAnchorX, nAnchorY};
    if (IsFloating(dst.pfPixelFormat)) return AddTiles(src, dst, kernel);

    ScratchTexture sum(*m_pHelper);
    return sum.Make(dst, FloatsLike(dst.pfPixelFormat)) && AddTiles(src, sum, kernel) &&
           CCopy(m_pHelper).Process(sum, dst);
}

bool CFilter::AddTiles(const TextureParams& src, const TextureParams& sum, const Kernel& kernel) {
    ScratchProgram program(*m_pHelper);
    if (!program.Make(CommonShaders::ssVertexDefault, CommonShaders::ssFilter_FShader))
        return false;
    src.pTexture->SetFilter(GL_NEAREST);
    m_pHelper->Blender().Disable();
    if (!m_pHelper->SetRenderTarget(&sum, false, false, false)) return false;
    m_pHelper->ClearCurrentRT(0, 0, 0, 0);

    const AdditiveBlending blending(*m_pHelper);
    bool added = blending.IsEnabled();
    for (int by = 0; added && by < kernel.Rows(); ++by)
        for (int bx = 0; added && bx < kernel.Columns(); ++bx) {
            float tile[kTile * kTile];
            kernel.ReadTile(kTile * bx, kTile * by, tile);
            added = m_pHelper->BindShader(program) &&
                    program.SetMatf4("fMatrix", /*bTranspose=*/true, tile) &&
                    program.SetInt2("vShift", kTile * bx - kernel.anchorX,
                                    kTile * by - kernel.anchorY) &&
                    m_pHelper->BuildQuad(src, /*bFlip=*/false, nullptr);
        }
    return added;
}

bool CFilter::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && CCopy(m_pHelper).IsSupported() &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssFilter_FShader});
}

}  // namespace brushworks::GPUProcessors
