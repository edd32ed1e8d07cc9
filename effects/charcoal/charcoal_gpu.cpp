// Charcoal on the graphics card: the same order of work as on the processor, the inks and the
// contrast in one last pass.
#include <cmath>
#include <memory>

#include "effects/charcoal/charcoal.h"
#include "effects/charcoal/settings.h"
#include "effects/charcoal/shaders.h"
#include "gpu/channel_order.h"
#include "gpu/processors/filter.h"
#include "gpu/processors/filter_3x3.h"
#include "gpu/processors/smooth.h"
#include "gpu/shader_catalogue.h"
#include "processors/canvaskit/edge.h"
#include "processors/canvaskit/gaussian.h"

namespace brushworks {
namespace {

using charcoal::Settings;
using CommonShaders::ssVertexBiTexture;
using CommonShaders::ssVertexDefault;

constexpr ProgramProbe kPrograms[] = {{&ssVertexDefault, &ssCharcoal_ToGray},
                                      {&ssVertexBiTexture, &ssCharcoal_Fragment}};
constexpr ProcessorProbe kProcessors[] = {Asks<GPUProcessors::CSmooth>};

/// From `smoothed` to `edges`; a kernel that cannot be had leaves what is there.
bool FindEdges(GPUHelper& helper, TextureParams& smoothed, TextureParams& edges) {
    float* built = nullptr;
    if (!Canvaskit::CEdge().BuildKernel(3, built)) return true;
    const std::unique_ptr<float[]> kernel(built);
    return GPUProcessors::CFilter3x3(&helper).Process(smoothed, edges, kernel.get(),
                                                      /*bTransposed=*/false);
}

/// From `edges` to `strokes`, likewise.
bool SpreadStrokes(GPUHelper& helper, TextureParams& edges, TextureParams& strokes, float sigma,
                   bool bFields) {
    float* built = nullptr;
    int width = 0, height = 0;
    if (!Canvaskit::CGuassian().BuildKernel(sigma, bFields, built, width, height)) return true;
    const std::unique_ptr<float[]> kernel(built);
    return GPUProcessors::CFilter(&helper).Process(edges, strokes, width, height, kernel.get(),
                                                   width / 2, height / 2);
}

/// Half the height of the contrast curve, as CreateGammaTable has it.
float CurveBase(float contrast) {
    return static_cast<float>(std::atan2(contrast * 1.25f, double{0.1f}) + 0.004999999888241291);
}

void SetColor(GLShaderProgram& program, const char* name, std::uint32_t color) {
    auto sample = [color](int shift) { return static_cast<float>(color >> shift & 255) / 255.0f; };
    program.SetFloat3(name, sample(0), sample(8), sample(16));
}

}  // namespace

bool CCharcoal::GetGPUProbes(GPUProbes& probes) const {
    probes = {.programs = kPrograms, .processors = kProcessors};
    return true;
}

bool CCharcoal::PaintGL(GPURenderJob& job) {
    const Settings set(job.parameters);
    ScratchTexture a(*this), b(*this);
    if (!a.Make(job.source, PixelFormatBGRA8) || !b.Make(job.source, PixelFormatBGRA8))
        return false;
    ScratchProgram toGray(*this), draw(*this);
    if (!toGray.Make(ssVertexDefault, ssCharcoal_ToGray) ||
        !draw.Make(ssVertexBiTexture, ssCharcoal_Fragment))
        return false;

    StartPasses(job);
    if (!SetRenderTarget(&a, false, false, false)) return false;
    BindShader(toGray);
    toGray.SetInt1("SwapChannelsSrc", SwapFlag(job.source.pfPixelFormat));
    BuildQuad(job.source, /*bFlip=*/false, nullptr);

    const float sigma = set.Sigma(job.source.nHeight, job.bFields);
    if (!GPUProcessors::CSmooth(this).Process(a, b, Settings::kSpatial, set.Range(),
                                              Settings::kRadius, Settings::kNoTone, job.bFields) ||
        !FindEdges(*this, b, a) || !SpreadStrokes(*this, a, b, sigma, job.bFields))
        return false;

    if (!SetRenderTarget(&a, false, false, false)) return false;
    BindShader(draw);
    draw.SetInt1("SwapChannelsSrc0", SwapFlag(job.source.pfPixelFormat));
    draw.SetInt1("SwapChannelsDst", SwapFlag(a.pfPixelFormat));
    draw.SetFloat1("fA", 1.0f);
    draw.SetFloat1("fB", 0.0f);
    draw.SetFloat1("fColorPen", set.color);
    SetColor(draw, "vPenColor", set.surface);  // the names run the other way
    SetColor(draw, "vPaperColor", set.charcoal);
    draw.SetFloat1("fContrast", set.contrast);
    draw.SetFloat1("fMaxAtan", CurveBase(set.contrast));
    BuildQuad(job.source, b, /*bFlip=*/false, nullptr);
    return FinishPasses(job, a);
}

}  // namespace brushworks
