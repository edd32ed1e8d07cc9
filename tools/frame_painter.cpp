// The way of one frame through an effect.
#include "frame_painter.h"

#include <stdexcept>
#include <utility>

namespace brushworks::tools {

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
    const bool fields = m_settings.render.fields || input.interlaced_frame != 0;
    m_toBgra.convert(input, media::rasterOf(input), *m_pRecorded,
                     media::bgraRaster(m_pRecorded->width, m_pRecorded->height), fields);
    if (m_pUpright) media::turnUpright(*m_pRecorded, m_settings.orientation, *m_pUpright);
    render(m_pUpright ? *m_pUpright : *m_pRecorded, *m_pPainted, decoded.number);

    media::FramePtr output = media::allocateFrame(m_settings.output);
    m_toOutput.convert(*m_pPainted, m_uprightRaster, *output, m_settings.output, fields);
    media::copyDescription(input, *output);
    output->sample_aspect_ratio = m_settings.render.pixelAspect;
    return output;
}

void FramePainter::render(const AVFrame& source, AVFrame& destination, std::int64_t number) {
    RenderSettings settings = m_settings.render;
    settings.seed = static_cast<std::int32_t>(static_cast<std::uint32_t>(settings.seed) +
                                              static_cast<std::uint32_t>(number));
    if (renderFrame(m_effect, settings, source, destination)) return;
    throw std::runtime_error("the effect " + m_effect.info().id + " could not render frame " +
                             std::to_string(number));
}

}  // namespace brushworks::tools
