// Paints decoded frames: to the effect's layout, upright, through the effect, to the output's.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "before_after.h"
#include "host/animation.h"
#include "media/canvas.h"
#include "media/orientation.h"
#include "media/raster.h"
#include "render_frame.h"

namespace brushworks::tools {

/// A frame and its place in the video: what it is painted with depends on nothing else, so that a
/// part of a video painted alone comes out as in the whole.
struct NumberedFrame {
    std::int64_t number = 0;  ///< from 0
    double seconds = 0;       ///< since the first frame
    media::FramePtr frame;
    std::string file = {};  ///< the picture that `frame` is yet to be read from, where that is null
    std::int64_t time = 0;  ///< that such a frame gets
};

/// What all frames of a job have in common.
struct PaintSettings {
    int decodedWidth = 0;  ///< of every frame, as decoders give it
    int decodedHeight = 0;
    int recordedWidth = 0;  ///< that frames are scaled to, before they are made upright
    int recordedHeight = 0;
    bool deep = false;               ///< they hold more than bytes
    media::Orientation orientation;  ///< that makes them upright, as which they are painted
    bool turnBack = false;           ///< the output notes the turn as the input does
    media::Raster output;
    AVRational outputAspect = {0, 1};  ///< of the output's pixels, 0/1 where not known
    RenderSettings render;             ///< with the seed of the first frame
    int hold = 0;                      ///< frames before the seed counts on; 0: it never does
    std::vector<host::Animation> animations;
    KeptHalf keptHalf = KeptHalf::None;
};

/// One worker, with an effect object of its own and a renderer that it shares. [one thread at a
/// time]
class FramePainter {
  public:
    FramePainter(host::Effect effect, const PaintSettings& settings,
                 std::shared_ptr<FrameRenderer> renderer);

    /// The painted frame, ready for the encoder. Throws std::runtime_error when it cannot be read,
    /// has another size than the settings tell, or the effect cannot render it.
    media::FramePtr paint(NumberedFrame decoded);

  private:
    void checkSize(const AVFrame& input, const NumberedFrame& decoded) const;
    void render(const media::Canvas& source, const NumberedFrame& decoded);
    /// The painted canvas as the output stores it.
    const media::Canvas& stored();

    std::shared_ptr<FrameRenderer> m_pRenderer;
    host::Effect m_effect;
    PaintSettings m_settings;
    media::CanvasConverter m_converter;
    media::Canvas m_recorded;
    std::optional<media::Canvas> m_upright;  ///< where that is another picture
    media::Canvas m_painted;
    BeforeAfter m_beforeAfter;
};

}  // namespace brushworks::tools
