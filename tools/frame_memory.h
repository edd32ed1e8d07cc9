// What frames cost in memory on their way, and how many of them may be on it at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "media/frame_limit.h"
#include "media/reader.h"
#include "paint_plan.h"
#include "scaling.h"

namespace brushworks::tools {

/// How many jobs there are, and how many frames they may have between them.
struct Parallel {
    std::size_t jobs = 1;
    std::size_t room = 1;
};

/// Bytes, as measured where the libraries beneath do not tell.
struct FrameMemory {
    std::int64_t once = 0;    ///< by the program, the decoder and the encoder
    std::int64_t job = 0;     ///< by each job while it paints
    std::int64_t queued = 0;  ///< by each frame that waits for a job, or for the encoder

    /// With so many jobs and frames between them.
    std::int64_t with(const Parallel& parallel) const {
        return once + static_cast<std::int64_t>(parallel.jobs) * job +
               static_cast<std::int64_t>(parallel.room) * queued;
    }
};

/// Of a video, or of a sequence, that is painted by a plan; it has so many frames, 0 if not known.
FrameMemory videoMemory(const PaintPlan& plan, const media::Reader& reader, const AVFrame& first,
                        std::int64_t frames);

/// Of a picture that is painted for itself, beside the program; `painted` is its size then.
std::int64_t pictureMemory(Size decoded, AVPixelFormat format, Size painted);
/// The program itself: code, tables, buffers of files and codecs.
constexpr std::int64_t kProgramMemory = 80 << 20;

/// As many as were asked for, or as fit into the limit: at least one.
Parallel parallelWithin(const FrameMemory& memory, std::int64_t limit, std::size_t asked);

/// The note that memory is the reason for less jobs than were asked for.
std::string fewerJobs(std::size_t jobs, std::size_t asked, std::int64_t limit);

/// The one of more pixels.
Size larger(Size a, Size b);

/// What is done with frames before they are painted.
enum class Scaled : bool { No, Yes };

/// Throws std::runtime_error with the size of the frame and the ways out where `needed` is more
/// than `limit`.
void checkFits(const std::string& name, Size size, std::int64_t needed, std::int64_t limit,
               Scaled scaled);

/// What a reader may decode at all: a frame that is larger could not be painted whatever its
/// layout.
media::FrameLimit decodingLimit(std::int64_t limit, Scaled scaled);

}  // namespace brushworks::tools
