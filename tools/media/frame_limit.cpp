// The bound of av_image_check_size, which all frames and scalers go through: 8 bytes a pixel, with
// 128 more columns and rows than there are, are counted by 31 bits.
#include "media/frame_limit.h"

namespace brushworks::media {
namespace {

constexpr std::int64_t kEdge = 128;
constexpr std::int64_t kMostArea = std::numeric_limits<std::int32_t>::max() / 8;
constexpr int kMostSquare = 16255;

constexpr bool fits(std::int64_t width, std::int64_t height) {
    // Either side alone first, so that the product is no overflow.
    return width > 0 && height > 0 && width < kMostArea && height < kMostArea &&
           (width + kEdge) * (height + kEdge) <= kMostArea;
}
static_assert(fits(kMostSquare, kMostSquare) && !fits(kMostSquare + 1, kMostSquare + 1));

}  // namespace

bool isPossibleSize(int width, int height) {
    return fits(width, height);
}

std::string tooLargeText(int width, int height) {
    const std::string most = std::to_string(kMostSquare);
    std::string text = std::to_string(width) + "x" + std::to_string(height) +
                       " is too large: frames may have up to " + most + "x" + most;
    const std::int64_t lines = kMostArea / (width + kEdge) - kEdge;
    if (width > kMostSquare && lines > 0) {
        text += ", and " + std::to_string(lines) + " lines of that width";
    }
    return text;
}

}  // namespace brushworks::media
