// Fills in the records of a render.
#include "render_frame.h"

#include "host/frame_params.h"

namespace brushworks::tools {
namespace {

constexpr std::int16_t kFieldModeField = 2;

}  // namespace

FrameParams recordOf(const media::Canvas& canvas) {
    return host::frameParams(canvas.pixels(), canvas.width(), canvas.height(), canvas.rowBytes(),
                             canvas.isDeep() ? PixelFormatBGRA32f : PixelFormatBGRA8);
}

FrameParams recordOf(const AVFrame& bgra) {
    return host::frameParams(bgra.data[0], bgra.width, bgra.height, bgra.linesize[0],
                             PixelFormatBGRA8);
}

bool renderFrame(FrameRenderer& renderer, host::Effect& effect, const RenderSettings& settings,
                 const FrameParams& source, const FrameParams& destination) {
    RenderInfo info = {};
    info.dwFlags = kRenderHasFieldMode;
    info.nFieldMode = settings.fields ? kFieldModeField : kFieldModeFrame;
    info.nRandomSeed = settings.seed;
    if (settings.pixelAspect.num > 0) {
        info.dwFlags |= kRenderHasPixelAspect;
        info.dPixelAspect = av_q2d(settings.pixelAspect);
    }
    if (!settings.fields) return renderer.render(effect, source, destination, info);
    const int first = settings.bottomFirst ? 1 : 0;
    for (const int field : {first, 1 - first}) {
        const FrameParams rows = host::fieldOf(source, field);
        // A picture of one row has no second field.
        if (rows.nHeight == 0) continue;
        if (!renderer.render(effect, rows, host::fieldOf(destination, field), info)) return false;
    }
    return true;
}

}  // namespace brushworks::tools
