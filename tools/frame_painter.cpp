// The way of one frame through an effect.
#include "frame_painter.h"

#include <stdexcept>
#include <utility>

namespace brushworks::tools {
namespace {

media::Canvas uprightCanvas(const PaintSettings& settings) {
    int width = settings.recordedWidth;
    int height = settings.recordedHeight;
    if (settings.orientation.swapsSides()) std::swap(width, height);
    return media::Canvas(width, height, settings.deep);
}

}  // namespace

FramePainter::FramePainter(host::Effect effect, const PaintSettings& settings)
    : m_effect(std::move(effect)),
      m_settings(settings),
      m_recorded(settings.recordedWidth, settings.recordedHeight, settings.deep),
      m_painted(uprightCanvas(settings)) {
    if (!settings.orientation.isUpright()) m_upright.emplace(uprightCanvas(settings));
}

media::FramePtr FramePainter::paint(NumberedFrame decoded) {
    const AVFrame& input = *decoded.frame;
    const bool fields = m_settings.render.fields || input.interlaced_frame != 0;
    m_converter.read(input, m_recorded, fields);
    if (m_upright) media::turn(m_recorded.view(), m_settings.orientation, m_upright->view());
    render(m_upright ? *m_upright : m_recorded, decoded);

    media::FramePtr output = m_converter.write(stored(), m_settings.output, fields);
    media::copyDescription(input, *output);
    output->sample_aspect_ratio = m_settings.outputAspect;
    return output;
}

void FramePainter::render(const media::Canvas& source, const NumberedFrame& decoded) {
    RenderSettings settings = m_settings.render;
    settings.seed = static_cast<std::int32_t>(static_cast<std::uint32_t>(settings.seed) +
                                              static_cast<std::uint32_t>(decoded.number));
    // Fields are rows of the recording; of a turned picture they are no rows any more.
    if (decoded.frame->interlaced_frame != 0 && !m_upright) {
        settings.fields = true;
        settings.bottomFirst = decoded.frame->top_field_first == 0;
    }
    if (renderFrame(m_effect, settings, recordOf(source), recordOf(m_painted))) return;
    throw std::runtime_error("the effect " + m_effect.info().id + " could not render frame " +
                             std::to_string(decoded.number));
}

const media::Canvas& FramePainter::stored() {
    if (!m_upright || !m_settings.turnBack) return m_painted;
    media::turn(m_painted.view(), m_settings.orientation.inverse(), m_recorded.view());
    return m_recorded;
}

}  // namespace brushworks::tools
