// What changes from frame to frame while the picture stays.
#include "frame_painter.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>

#include "host/library.h"

namespace brushworks::tools {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

constexpr int kWidth = 64;
constexpr int kHeight = 48;

media::FramePtr stillFrame() {
    media::FramePtr frame = media::allocateFrame(media::bgraRaster(kWidth, kHeight));
    for (int i = 0; i < frame->linesize[0] * kHeight; ++i) {
        frame->data[0][i] = static_cast<std::uint8_t>(i / 16 * 73);
    }
    return frame;
}

PaintSettings settingsOfStill() {
    PaintSettings settings;
    settings.decodedWidth = settings.recordedWidth = kWidth;
    settings.decodedHeight = settings.recordedHeight = kHeight;
    settings.output = media::bgraRaster(kWidth, kHeight);
    return settings;
}

/// Six frames of one picture, painted: for each the first frame that it is like.
std::vector<int> firstAlike(const host::Effect& effect, int hold, std::int32_t seed = 0) {
    PaintSettings settings = settingsOfStill();
    settings.render.seed = seed;
    settings.hold = hold;
    FramePainter painter(effect.clone(), settings, std::make_shared<ProcessorRenderer>());
    std::vector<std::vector<std::uint8_t>> pictures;
    std::vector<int> alike;
    for (int number = 0; number < 6; ++number) {
        const media::FramePtr painted = painter.paint({number, number / 25.0, stillFrame()});
        const std::uint8_t* row = painted->data[0];
        std::vector<std::uint8_t>& pixels = pictures.emplace_back();
        for (int y = 0; y < kHeight; ++y, row += painted->linesize[0]) {
            pixels.insert(pixels.end(), row, row + kWidth * 4);
        }
        const auto first = std::find(pictures.begin(), pictures.end(), pictures.back());
        alike.push_back(static_cast<int>(first - pictures.begin()));
    }
    return alike;
}

TEST(FramePainter, KeepsAStillPictureStillUnlessFreeStrokesAreToChange) {
    const host::Library library = host::Library::load();
    for (const host::EffectEntry& entry : library.effects()) {
        EXPECT_THAT(firstAlike(library.open(entry.index), 0), Each(0)) << entry.id;
    }
    host::Effect effect = library.open("impressionist");
    effect.set("Lock Variations", "off");
    EXPECT_THAT(firstAlike(effect, 0), Each(0));
    EXPECT_THAT(firstAlike(effect, 2), ElementsAre(0, 0, 2, 2, 4, 4));
    for (const std::int32_t seed : {0, -2, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_THAT(firstAlike(effect, 1, seed), ElementsAre(0, 1, 2, 3, 4, 5)) << seed;
    }
}

/// A card that is lost after two frames.
class LostCard final : public FrameRenderer {
  public:
    bool render(host::Effect&, const FrameParams&, const FrameParams&, const RenderInfo&) override {
        return m_nFrames++ < 2;
    }
    std::string withWhat() const override { return " with a card"; }

  private:
    int m_nFrames = 0;
};

TEST(FramePainter, TellsWhichFrameTheCardCouldNotRender) {
    FramePainter painter(host::Library::load().open("posterize"), settingsOfStill(),
                         std::make_shared<LostCard>());
    painter.paint({0, 0, stillFrame()});
    painter.paint({1, 0.04, stillFrame()});
    try {
        painter.paint({2, 0.08, stillFrame()});
        ADD_FAILURE() << "it went on";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "the effect posterize could not render frame 2 with a card");
    }
}

}  // namespace
}  // namespace brushworks::tools
