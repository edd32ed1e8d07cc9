// What changes from frame to frame while the picture stays.
#include "frame_painter.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstring>
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
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const auto mixed = static_cast<std::uint32_t>(x / 3 * 7 + y / 5 * 131) * 2654435761U;
            const std::uint32_t argb = mixed >> 8 | 0xFF000000;
            std::memcpy(frame->data[0] + y * frame->linesize[0] + x * 4, &argb, 4);
        }
    }
    return frame;
}

/// Six frames of one picture, painted: for each the first frame that it is like.
std::vector<int> firstAlike(const host::Effect& effect, int hold, std::int32_t seed = 0) {
    PaintSettings settings;
    settings.recordedWidth = kWidth;
    settings.recordedHeight = kHeight;
    settings.output = media::bgraRaster(kWidth, kHeight);
    settings.render.seed = seed;
    settings.hold = hold;
    FramePainter painter(effect.clone(), settings);
    std::vector<std::string> pictures;
    std::vector<int> alike;
    for (int number = 0; number < 6; ++number) {
        const media::FramePtr painted = painter.paint({number, number / 25.0, stillFrame()});
        std::string pixels;
        for (int y = 0; y < kHeight; ++y) {
            const auto* row = painted->data[0] + y * painted->linesize[0];
            pixels.append(reinterpret_cast<const char*>(row), kWidth * 4);
        }
        pictures.push_back(std::move(pixels));
        const auto first = std::find(pictures.begin(), pictures.end(), pictures.back());
        alike.push_back(static_cast<int>(first - pictures.begin()));
    }
    return alike;
}

TEST(FramePainter, KeepsAStillPictureStillInEveryEffect) {
    const host::Library library = host::Library::load();
    for (const host::EffectEntry& entry : library.effects()) {
        EXPECT_THAT(firstAlike(library.open(entry.index), 0), Each(0)) << entry.id;
    }
}

TEST(FramePainter, ChangesFreeStrokesEveryFewFrames) {
    host::Effect effect = host::Library::load().open("impressionist");
    effect.set("Lock Variations", "off");
    EXPECT_THAT(firstAlike(effect, 0), Each(0));
    for (const std::int32_t seed : {0, -2, 7, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_THAT(firstAlike(effect, 1, seed), ElementsAre(0, 1, 2, 3, 4, 5)) << seed;
    }
    EXPECT_THAT(firstAlike(effect, 2), ElementsAre(0, 0, 2, 2, 4, 4));
    effect.set("Lock Variations", "on");
    EXPECT_THAT(firstAlike(effect, 1), Each(0));
}

}  // namespace
}  // namespace brushworks::tools
