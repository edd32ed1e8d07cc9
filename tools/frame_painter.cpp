// The way of one frame through an effect.
#include "frame_painter.h"

#include <stdexcept>
#include <utility>

namespace brushworks::tools {
namespace {

/// Counts on from the first layer's seed. The generator draws the same from 0 and from 1, so 0 is
/// left out: no two layers in a row are alike.
std::int32_t seedOf(std::int64_t layer, std::int32_t first) {
    std::uint64_t seed = static_cast<std::uint64_t>(first) + static_cast<std::uint64_t>(layer);
    if (first <= 0 && static_cast<std::int64_t>(seed) >= 0) ++seed;
    return static_cast<std::int32_t>(seed);
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
    const bool fields = m_settings.render.fields || input.interlaced_frame != 0;
    m_toBgra.convert(input, media::rasterOf(input), *m_pRecorded,
                     media::bgraRaster(m_pRecorded->width, m_pRecorded->height), fields);
    if (m_pUpright) media::turnUpright(*m_pRecorded, m_settings.orientation, *m_pUpright);
    render(m_pUpright ? *m_pUpright : *m_pRecorded, *m_pPainted, decoded);

    media::FramePtr output = media::allocateFrame(m_settings.output);
    m_toOutput.convert(*m_pPainted, m_uprightRaster, *output, m_settings.output, fields);
    media::copyDescription(input, *output);
    output->sample_aspect_ratio = m_settings.render.pixelAspect;
    return output;
}

void FramePainter::render(const AVFrame& source, AVFrame& destination, const NumberedFrame& place) {
    for (const host::Animation& animation : m_settings.animations) {
        m_effect.setValue(animation.parameter(), animation.valueAt(place.seconds));
    }
    RenderSettings settings = m_settings.render;
    const std::int64_t layer = m_settings.hold > 0 ? place.number / m_settings.hold : 0;
    settings.seed = seedOf(layer, settings.seed);
    if (renderFrame(m_effect, settings, source, destination)) return;
    throw std::runtime_error("the effect " + m_effect.info().id + " could not render frame " +
                             std::to_string(place.number));
}

}  // namespace brushworks::tools
