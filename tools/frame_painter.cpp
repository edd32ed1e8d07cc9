// The way of one frame through an effect.
#include "frame_painter.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "media/reader.h"

namespace brushworks::tools {
namespace {

/// Counts on from the first layer's seed. The generator draws the same from 0 and from 1, so 0 is
/// left out: no two layers in a row are alike.
std::int32_t seedOf(std::int64_t layer, std::int32_t first) {
    std::uint64_t seed = static_cast<std::uint64_t>(first) + static_cast<std::uint64_t>(layer);
    if (first <= 0 && static_cast<std::int64_t>(seed) >= 0) ++seed;
    return static_cast<std::int32_t>(seed);
}

media::Canvas uprightCanvas(const PaintSettings& settings) {
    int width = settings.recordedWidth;
    int height = settings.recordedHeight;
    if (settings.orientation.swapsSides()) std::swap(width, height);
    return media::Canvas(width, height, settings.deep);
}

constexpr std::int64_t kSmall = 1 << 20;  ///< pixels that need no care

std::string sizeText(int width, int height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

/// Another size is no use, and nothing much larger is even decoded.
void readPicture(NumberedFrame& frame, const PaintSettings& settings) {
    media::FrameLimit limit;
    limit.pixels =
        std::min(2 * std::int64_t{settings.decodedWidth} * settings.decodedHeight + kSmall,
                 media::kMostPixels);
    limit.refusal = [&](int width, int height) {
        return "it is " + sizeText(width, height) + ", and the frames before it " +
               sizeText(settings.decodedWidth, settings.decodedHeight) + "; a video has one size";
    };
    media::Reader reader(frame.file, limit);
    if (!reader.isPicture()) throw media::MediaError(frame.file + " is a video, not a picture");
    frame.frame = reader.next();
    frame.frame->pts = frame.time;
    frame.frame->pkt_duration = 1;
}

}  // namespace

FramePainter::FramePainter(host::Effect effect, const PaintSettings& settings,
                           std::shared_ptr<FrameRenderer> renderer)
    : m_pRenderer(std::move(renderer)),
      m_effect(std::move(effect)),
      m_settings(settings),
      m_recorded(settings.recordedWidth, settings.recordedHeight, settings.deep),
      m_painted(uprightCanvas(settings)),
      m_beforeAfter(settings.keptHalf) {
    if (!settings.orientation.isUpright()) m_upright.emplace(uprightCanvas(settings));
}

media::FramePtr FramePainter::paint(NumberedFrame decoded) {
    if (!decoded.frame) readPicture(decoded, m_settings);
    const AVFrame& input = *decoded.frame;
    checkSize(input, decoded);
    const bool fields = m_settings.render.fields || input.interlaced_frame != 0;
    m_converter.read(input, m_recorded, fields);
    if (m_upright) media::turn(m_recorded.view(), m_settings.orientation, m_upright->view());
    const media::Canvas& source = m_upright ? *m_upright : m_recorded;
    m_beforeAfter.remember(source.view());
    render(source, decoded);
    m_beforeAfter.restore(m_painted.view());

    media::FramePtr output = m_converter.write(stored(), m_settings.output, fields);
    media::copyDescription(input, *output);
    output->sample_aspect_ratio = m_settings.outputAspect;
    return output;
}

void FramePainter::checkSize(const AVFrame& input, const NumberedFrame& decoded) const {
    const PaintSettings& settings = m_settings;
    if (input.width == settings.decodedWidth && input.height == settings.decodedHeight) return;
    const std::string name =
        decoded.file.empty() ? "frame " + std::to_string(decoded.number) : decoded.file;
    throw std::runtime_error(
        name + " is " + sizeText(input.width, input.height) + ", and the frames before it " +
        sizeText(settings.decodedWidth, settings.decodedHeight) + "; a video has one size");
}

void FramePainter::render(const media::Canvas& source, const NumberedFrame& decoded) {
    for (const host::Animation& animation : m_settings.animations) {
        m_effect.setValue(animation.parameter(), animation.valueAt(decoded.seconds));
    }
    RenderSettings settings = m_settings.render;
    const std::int64_t layer = m_settings.hold > 0 ? decoded.number / m_settings.hold : 0;
    settings.seed = seedOf(layer, settings.seed);
    // Fields are rows of the recording; of a turned picture they are no rows any more.
    if (decoded.frame->interlaced_frame != 0 && !m_upright) {
        settings.fields = true;
        settings.bottomFirst = decoded.frame->top_field_first == 0;
    }
    if (renderFrame(*m_pRenderer, m_effect, settings, recordOf(source), recordOf(m_painted)))
        return;
    throw std::runtime_error("the effect " + m_effect.info().id + " could not render frame " +
                             std::to_string(decoded.number) + m_pRenderer->withWhat());
}

const media::Canvas& FramePainter::stored() {
    if (!m_upright || !m_settings.turnBack) return m_painted;
    media::turn(m_painted.view(), m_settings.orientation.inverse(), m_recorded.view());
    return m_recorded;
}

}  // namespace brushworks::tools
