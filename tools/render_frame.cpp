// Fills in the records of a render.
#include "render_frame.h"

#include "host/frame_params.h"

namespace brushworks::tools {
namespace {

constexpr std::int16_t kFieldModeField = 2;

FrameParams recordOf(const AVFrame& frame) {
    return host::frameParams(frame.data[0], frame.width, frame.height, frame.linesize[0],
                             PixelFormatBGRA8);
}

}  // namespace

bool renderFrame(host::Effect& effect, const RenderSettings& settings, const AVFrame& source,
                 AVFrame& destination) {
    RenderInfo info = {};
    info.dwFlags = kRenderHasFieldMode;
    info.nFieldMode = settings.fields ? kFieldModeField : kFieldModeFrame;
    info.nRandomSeed = settings.seed;
    if (settings.pixelAspect.num > 0) {
        info.dwFlags |= kRenderHasPixelAspect;
        info.dPixelAspect = av_q2d(settings.pixelAspect);
    }
    const FrameParams whole = recordOf(source);
    const FrameParams painted = recordOf(destination);
    if (!settings.fields) return effect.render(whole, painted, info);
    for (int field = 0; field < 2; ++field) {
        const FrameParams rows = host::fieldOf(whole, field);
        // A picture of one row has no second field.
        if (rows.nHeight == 0) continue;
        if (!effect.render(rows, host::fieldOf(painted, field), info)) return false;
    }
    return true;
}

}  // namespace brushworks::tools
