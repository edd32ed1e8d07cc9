#include "gpu/processors/histogram.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstdint>

#include "gpu/gl_api.h"
#include "gpu/probes.h"
#include "gpu/processors/additive_blending.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {
namespace {

constexpr int kMostBuckets = 256;
constexpr unsigned int kPointsPerDrawing = 100000;

const GLApi& GL() {
    return *GLApi::Find();
}

/// A buffer bound to a target, for a while.
class Bound {
  public:
    Bound(GPUHelper& helper, unsigned int target, IGLBuffer& buffer)
        : m_helper(helper), m_nTarget(target), m_bBound(helper.BindBuffer(target, &buffer)) {}
    ~Bound() { m_helper.BindBuffer(m_nTarget, nullptr); }
    Bound(const Bound&) = delete;
    Bound& operator=(const Bound&) = delete;
    explicit operator bool() const { return m_bBound; }

  private:
    GPUHelper& m_helper;
    const unsigned int m_nTarget;
    const bool m_bBound;
};

/// A vertex attribute that is read from an array, for a while.
class EnabledAttribute {
  public:
    explicit EnabledAttribute(unsigned int index) : m_nIndex(index) {
        GL().glEnableVertexAttribArrayARB(m_nIndex);
    }
    ~EnabledAttribute() { GL().glDisableVertexAttribArrayARB(m_nIndex); }
    EnabledAttribute(const EnabledAttribute&) = delete;
    EnabledAttribute& operator=(const EnabledAttribute&) = delete;

  private:
    const unsigned int m_nIndex;
};

}  // namespace

/// The channels that are counted: `count` from `first` on, read in one format.
struct CHistogram::Planes {
    int first, count;
    unsigned int readFormat;

    static Planes Of(ColorPlane plane) {
        switch (plane) {
            case kRed:
                return {0, 1, GL_RED};
            case kGreen:
                return {1, 1, GL_GREEN};
            case kBlue:
                return {2, 1, GL_BLUE};
            case kAlpha:
                return {3, 1, GL_ALPHA};
            case kColors:
                return {0, 3, GL_RGB};
            default:
                return {0, 4, GL_RGBA};
        }
    }
};

bool CHistogram::ProcessGPU(const TextureParams& src, const TextureParams& dst, ColorPlane ePlane,
                            int nBuckets) {
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst) || dst.nHeight != 1 ||
        dst.nWidth != nBuckets || nBuckets > kMostBuckets)
        return false;
    if (!m_pHelper->bVertexBufferObject || !m_pHelper->bPixelBufferObject) return false;
    const Planes planes = Planes::Of(ePlane);
    const std::int64_t pixels = std::int64_t{src.nWidth} * src.nHeight;
    if (pixels * planes.count > INT_MAX) return false;

    ScratchBuffer samples(*m_pHelper);
    ScratchProgram program(*m_pHelper);
    if (!samples.Make(static_cast<int>(pixels) * planes.count, GL_DYNAMIC_DRAW) ||
        !program.Make(CommonShaders::ssHistogram_V1_Vert, CommonShaders::ssHistogram_V1_Frag))
        return false;
    src.pTexture->SetFilter(GL_NEAREST);
    m_pHelper->Blender().Disable();
    if (!ReadPixels(src, planes, *samples.get())) return false;

    int attribute = -1;
    if (!program.Shader() || !program.Shader()->GetAttribLocation("Color", &attribute) ||
        attribute < 0)
        return false;
    const Bound bound(*m_pHelper, GL_ARRAY_BUFFER, *samples.get());
    if (!bound) return false;
    const EnabledAttribute enabled(static_cast<unsigned int>(attribute));
    if (!m_pHelper->SetRenderTarget(&dst, false, false, false)) return false;
    m_pHelper->ClearCurrentRT(0, 0, 0, 0);
    const AdditiveBlending blending(*m_pHelper);
    return blending.IsEnabled() &&
           CountPoints(planes, static_cast<unsigned int>(pixels),
                       static_cast<unsigned int>(attribute), nBuckets, program);
}

bool CHistogram::ReadPixels(const TextureParams& src, const Planes& planes, IGLBuffer& samples) {
    if (!m_pHelper->SetRenderTarget(&src, false, false, /*b2=*/true)) return false;
    GL().glReadBuffer(GL_COLOR_ATTACHMENT0_EXT);
    const Bound bound(*m_pHelper, GL_PIXEL_PACK_BUFFER, samples);
    if (!bound) return false;
    if (planes.count < 4) GL().glPixelStorei(GL_PACK_ALIGNMENT, 1);
    GL().glReadPixels(src.nLeft, src.nTop, src.nWidth, src.nHeight, planes.readFormat,
                      GL_UNSIGNED_BYTE, nullptr);
    GL().glPixelStorei(GL_PACK_ALIGNMENT, 4);
    return true;
}

bool CHistogram::CountPoints(const Planes& planes, unsigned int nPixels, unsigned int nAttribute,
                             int nBuckets, GLShaderProgram& program) {
    if (!m_pHelper->BindShader(program) ||
        !program.SetFloat1("nBuckets", static_cast<float>(nBuckets)))
        return false;
    const auto stride = static_cast<unsigned int>(planes.count);
    for (unsigned int plane = 0; plane < stride; ++plane) {
        if (!program.SetInt1("nColorPlane", planes.first + static_cast<int>(plane))) return false;
        for (unsigned int i = 0; i < nPixels; i += kPointsPerDrawing) {
            // With a buffer bound, the pointer is the place in it.
            const std::uintptr_t place = plane + std::uintptr_t{stride} * i;
            GL().glVertexAttribPointerARB(nAttribute, 1, GL_UNSIGNED_BYTE, GL_FALSE, planes.count,
                                          std::bit_cast<const void*>(place));
            GL().glDrawArrays(GL_POINTS, 0,
                              static_cast<int>(std::min(nPixels - i, kPointsPerDrawing)));
        }
    }
    return true;
}

bool CHistogram::IsSupportedGPU() {
    using namespace CommonShaders;
    return m_pHelper && m_pHelper->bPixelBufferObject && m_pHelper->bVertexBufferObject &&
           IsProgramSupported(*m_pHelper, {&ssHistogram_V1_Vert, &ssHistogram_V1_Frag});
}

}  // namespace brushworks::GPUProcessors
