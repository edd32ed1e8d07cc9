// Adds up the frames that stand beside each other. What effects, decoders and encoders hold was
// measured as the peak of a process on pictures of two sizes; tests hold the sums to the truth.
#include "frame_memory.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <stdexcept>

#include "job_count.h"
#include "memory_limit.h"

namespace brushworks::tools {
namespace {

/// Bytes a pixel.
constexpr std::int64_t kCanvas = 4;
constexpr std::int64_t kDeepCanvas = 16;
constexpr std::int64_t kDeepSamples = 8;   ///< between floats and FFmpeg
constexpr std::int64_t kScratch = 12;      ///< of an effect while it renders bytes
constexpr std::int64_t kDeepScratch = 68;  ///< likewise floats
constexpr std::int64_t kPalette = 24;      ///< while 256 colours are chosen

/// The least that a pixel takes, in a layout that is not known yet: as it is decoded and kept, and
/// then as it is painted.
constexpr std::int64_t kLeastDecoded = 2;
constexpr std::int64_t kLeastPainted = 2 * kCanvas + kScratch;

std::int64_t pixelsOf(Size size) {
    return std::int64_t{size.width} * size.height;
}

std::int64_t frameBytes(AVPixelFormat format, Size size) {
    constexpr int kByte = 8;
    return pixelsOf(size) * av_get_padded_bits_per_pixel(av_pix_fmt_desc_get(format)) / kByte;
}

std::int64_t canvasBytes(bool deep, Size size) {
    return pixelsOf(size) * (deep ? kDeepCanvas : kCanvas);
}

/// Canvases, and what stands between them and FFmpeg.
std::int64_t painterBytes(bool deep, bool turned, Size size) {
    return canvasBytes(deep, size) * (turned ? 3 : 2) + (deep ? pixelsOf(size) * kDeepSamples : 0);
}

std::int64_t scratchBytes(bool deep, Size size) {
    return pixelsOf(size) * (deep ? kDeepScratch : kScratch);
}

std::int64_t paletteBytes(Size size) {
    constexpr std::int64_t kTables = 24 << 20;
    return kTables + pixelsOf(size) * kPalette;
}

/// An encoded picture at its largest, twice: as the encoder gives it, and as it is written.
std::int64_t encodedBytes(std::int64_t frame) {
    return 2 * frame;
}

/// Encoders take memory for frames as they come.
std::int64_t encoderFrames(const media::HeldFrames& held, std::int64_t frames) {
    constexpr std::int64_t kForEach = 4;
    const std::int64_t all = held.always + std::int64_t{held.aCore} * jobCount(0);
    return frames > 0 ? std::min(all, kForEach * (frames + 1)) : all;
}

std::string refusal(Size size, const std::string& needed, std::int64_t limit, Scaled scaled) {
    return "a frame of " + std::to_string(size.width) + "x" + std::to_string(size.height) +
           " needs " + needed + ", and " + bytesText(limit) + " may be used; --memory allows more" +
           (scaled == Scaled::No ? ", --scale makes frames smaller" : "");
}

}  // namespace

FrameMemory videoMemory(const PaintPlan& plan, const media::Reader& reader, const AVFrame& first,
                        std::int64_t frames) {
    const PaintSettings& paint = plan.paint;
    const Size recorded = {paint.recordedWidth, paint.recordedHeight};
    const std::int64_t decoded =
        frameBytes(static_cast<AVPixelFormat>(first.format), {first.width, first.height});
    const std::int64_t output = frameBytes(paint.output.format, recorded);
    // The first frame is kept, and one is read ahead; one is on its way to the encoder.
    constexpr std::int64_t kRead = 2;
    const std::int64_t encoding = encoderFrames(plan.video.encoding.row.held, frames) + 1;

    FrameMemory memory;
    memory.once = kProgramMemory + (reader.decoderFrames() + kRead) * decoded + encoding * output;
    const bool palette = paint.output.format == AV_PIX_FMT_PAL8;
    memory.job = painterBytes(paint.deep, !paint.orientation.isUpright(), recorded) +
                 std::max(scratchBytes(paint.deep, recorded), palette ? paletteBytes(recorded) : 0);
    memory.queued = std::max(decoded, output);
    return memory;
}

std::int64_t pictureMemory(Size decoded, AVPixelFormat format, Size painted) {
    const bool deep = media::isDeep(format);
    // In the layouts of pictures, whichever they become.
    const std::int64_t stored = frameBytes(format, painted);
    constexpr std::int64_t kKept = 2;  // decoders keep theirs
    return kKept * frameBytes(format, decoded) + painterBytes(deep, false, painted) +
           std::max(scratchBytes(deep, painted), stored + encodedBytes(stored));
}

Parallel parallelWithin(const FrameMemory& memory, std::int64_t limit, std::size_t asked) {
    // Twice the jobs: while one is waited for, the others have something to do.
    for (std::size_t jobs = asked; jobs > 0; --jobs) {
        const Parallel parallel = {jobs, jobs * 2};
        if (memory.with(parallel) <= limit) return parallel;
    }
    return {1, 1};
}

std::string fewerJobs(std::size_t jobs, std::size_t asked, std::int64_t limit) {
    return "painting " + std::to_string(jobs) + " at once in place of " + std::to_string(asked) +
           ", as " + bytesText(limit) + " of memory may be used; --memory allows more";
}

Size larger(Size a, Size b) {
    return pixelsOf(a) < pixelsOf(b) ? b : a;
}

void checkFits(const std::string& name, Size size, std::int64_t needed, std::int64_t limit,
               Scaled scaled) {
    if (needed > limit)
        throw std::runtime_error(name + ": " +
                                 refusal(size, "about " + bytesText(needed), limit, scaled));
}

media::FrameLimit decodingLimit(std::int64_t limit, Scaled scaled) {
    const std::int64_t least = kLeastDecoded + (scaled == Scaled::No ? kLeastPainted : 0);
    constexpr std::int64_t kShareAhead = 8;
    media::FrameLimit decoding;
    decoding.pixels = std::min(limit / least, media::kMostPixels);
    decoding.bytesAhead = limit / kShareAhead;
    decoding.refusal = [=](int width, int height) {
        const Size size = {width, height};
        const Size painted = scaled == Scaled::No ? size : Size{};
        // Of the layout of most pictures; which one it is does not change the answer.
        const std::int64_t needed = pictureMemory(size, AV_PIX_FMT_RGB24, painted);
        return refusal(size, bytesText(needed) + " or more", limit, scaled);
    };
    return decoding;
}

}  // namespace brushworks::tools
