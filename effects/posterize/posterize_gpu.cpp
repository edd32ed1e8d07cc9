// Posterize on the graphics card: HSV factors into the destination, fewer levels into a work
// texture, and that one back.
#include "effects/posterize/posterize.h"
#include "effects/posterize/settings.h"
#include "effects/posterize/shaders.h"
#include "gpu/channel_order.h"
#include "gpu/processors/segment_tree.h"
#include "gpu/shader_catalogue.h"

namespace brushworks {
namespace {

using CommonShaders::ssVertexDefault;

constexpr ProcessorProbe kProcessors[] = {Asks<GPUProcessors::CSegmentTree>};

/// The largest sample value of the processor's arithmetic on such pictures: both passes count in
/// these units, so that their results fall on the same side of a level's edge.
float LargestSample(const TextureParams& picture) {
    const PixelFormat format = picture.pfPixelFormat;
    return format == PixelFormatBGRA8 || format == PixelFormatARGB8 ? 255.0f : 65535.0f;
}

}  // namespace

bool CPosterize::GetGPUProbes(GPUProbes& probes) const {
    probes = {.programs = {}, .processors = kProcessors};
    return true;
}

bool CPosterize::PaintGL(GPURenderJob& job) {
    const posterize::Settings set(job.parameters);
    ScratchTexture work(*this), spare(*this);
    if (!work.Make(job.source, PixelFormatBGRA8) ||
        !spare.Make(job.source, job.source.pfPixelFormat))
        return false;
    ScratchProgram colors(*this), levels(*this);
    // The card knows two ways to dither: none, and the ordered pattern for all others.
    const ShaderStruct& reduction =
        set.dither == 0 ? ssPosterize_PosterizeCommon : ssPosterize_PosterizeBayer;
    if (!colors.Make(ssVertexDefault, ssPosterize_Colors) ||
        !levels.Make(ssVertexDefault, reduction))
        return false;

    StartPasses(job);
    bool drawn = SetRenderTarget(&job.destination, false, false, false);
    BindShader(colors);
    colors.SetFloat1("fSaturation", set.saturation);
    colors.SetFloat1("fHUE", set.hue);
    colors.SetFloat1("fLightness", set.value);
    colors.SetInt1("SwapChannelsSrc", SwapFlag(job.source.pfPixelFormat));
    colors.SetFloat1("fLargest", LargestSample(job.source));
    BuildQuad(job.source, /*bFlip=*/false, nullptr);

    drawn = SetRenderTarget(&work, false, false, false) && drawn;
    BindShader(levels);
    levels.SetInt1("nLevel", set.levels);
    levels.SetFloat1("fLargest", LargestSample(job.destination));
    BuildQuad(job.destination, /*bFlip=*/false, nullptr);
    return FinishPasses(job, work) && drawn;
}

}  // namespace brushworks
