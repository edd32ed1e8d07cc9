// The way of one frame through an effect.
#include "frame_painter.h"

#include <stdexcept>
#include <utility>

#include "host/frame_params.h"

namespace brushworks::tools {
namespace {

constexpr std::int16_t kFieldModeField = 2;

FrameParams recordOf(const AVFrame& frame) {
    return host::frameParams(frame.data[0], frame.width, frame.height, frame.linesize[0],
                             PixelFormatBGRA8);
}

}  // namespace

FramePainter::FramePainter(host::Effect effect, const PaintSettings& settings)
    : m_effect(std::move(effect)),
      m_settings(settings),
      m_uprightRaster(media::bgraRaster(settings.output.width, settings.output.height)),
      m_pRecorded(
          media::allocateFrame(media::bgraRaster(settings.recordedWidth, settings.recordedHeight))),
      m_pPainted(media::allocateFrame(m_uprightRaster)) {
    if (!settings.orientation.isUpright()) m_pUpright = media::allocateFrame(m_uprightRaster);
}

media::FramePtr FramePainter::paint(NumberedFrame decoded) {
    const AVFrame& input = *decoded.frame;
    const bool fields = m_settings.fields || input.interlaced_frame != 0;
    m_toBgra.convert(input, media::rasterOf(input), *m_pRecorded,
                     media::bgraRaster(m_pRecorded->width, m_pRecorded->height), fields);
    if (m_pUpright) media::turnUpright(*m_pRecorded, m_settings.orientation, *m_pUpright);
    render(m_pUpright ? *m_pUpright : *m_pRecorded, *m_pPainted, decoded.number);

    media::FramePtr output = media::allocateFrame(m_settings.output);
    m_toOutput.convert(*m_pPainted, m_uprightRaster, *output, m_settings.output, fields);
    media::copyDescription(input, *output);
    output->sample_aspect_ratio = m_settings.pixelAspect;
    return output;
}

void FramePainter::render(const AVFrame& source, AVFrame& destination, std::int64_t number) {
    RenderInfo info = {};
    info.dwFlags = kRenderHasFieldMode;
    info.nFieldMode = m_settings.fields ? kFieldModeField : kFieldModeFrame;
    info.nRandomSeed = static_cast<std::int32_t>(static_cast<std::uint32_t>(m_settings.seed) +
                                                 static_cast<std::uint32_t>(number));
    if (m_settings.pixelAspect.num > 0) {
        info.dwFlags |= kRenderHasPixelAspect;
        info.dPixelAspect = av_q2d(m_settings.pixelAspect);
    }
    const FrameParams whole = recordOf(source);
    const FrameParams painted = recordOf(destination);
    bool done = true;
    if (m_settings.fields) {
        for (int field = 0; field < 2 && done; ++field) {
            const FrameParams rows = host::fieldOf(whole, field);
            // A picture of one row has no second field.
            if (rows.nHeight == 0) continue;
            done = m_effect.render(rows, host::fieldOf(painted, field), info);
        }
    } else {
        done = m_effect.render(whole, painted, info);
    }
    if (!done) {
        throw std::runtime_error("the effect " + m_effect.info().id + " could not render frame " +
                                 std::to_string(number));
    }
}

}  // namespace brushworks::tools
