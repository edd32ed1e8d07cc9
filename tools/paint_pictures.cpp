// Workers read, paint and encode; the driving thread writes whole files.
#include "paint_pictures.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>

#include "dry_run.h"
#include "frame_painter.h"
#include "frame_source.h"
#include "host/error.h"
#include "job_count.h"
#include "media/picture_bytes.h"
#include "media/reader.h"
#include "ordered_pool.h"
#include "output_file.h"

namespace brushworks::tools {
namespace {

constexpr AVRational kUsualRate = {25, 1};

struct PaintedPicture {
    std::string output;
    std::string bytes;
    std::vector<std::string> notes;
};

using Pool = OrderedPool<PictureTask, PaintedPicture>;

/// What painting a picture takes, by what the head of its file tells.
std::int64_t memoryFor(const media::Reader& reader, const std::string& input,
                       const PlanWishes& wishes, const PaintRun& run) {
    const AVCodecParameters& video = *reader.video().codecpar;
    const Size size = {video.width, video.height};
    // Where it tells nothing, all that there is.
    if (size.width <= 0 || size.height <= 0 || video.format < 0) return run.memory();
    const auto format = static_cast<AVPixelFormat>(video.format);
    std::int64_t needed = 0;
    Size largest = size;
    // Whether it is to be turned is seen later.
    for (const Size& upright : {size, Size{size.height, size.width}}) {
        const Size painted = wishes.scaling.sizeFor(upright, /*even=*/false);
        needed = std::max(needed, pictureMemory(size, format, painted));
        largest = larger(largest, painted);
    }
    checkFits(input, largest, needed + kProgramMemory, run.memory(), run.scaled());
    return needed;
}

/// What a picture is painted with and into.
struct Prepared {
    media::Reader reader;
    MemoryGate::Share share;
    media::FramePtr frame;
    const media::OutputFormat& format;
    PaintPlan plan;

    Prepared(PaintRun& run, const PictureTask& picture, const PlanWishes& wishes,
             const ChosenEffect& chosen)
        : reader(run.openPicture(picture.input)),
          share(run.gate().take(memoryFor(reader, picture.input, wishes, run))),
          format(media::outputFormatOf(picture.output)) {
        const PaintOptions& options = run.options();
        if (!reader.isPicture()) {
            throw media::MediaUsageError(
                picture.input + " is a video; its output must end in one of " +
                media::extensionList(false) + ", or be pictures, such as out-%04d.png");
        }
        frame = reader.next();
        plan = makePlan(reader, *frame, format, wishes);
        plan.paint.hold = options.hold;
        plan.paint.animations = chosen.animations;
        plan.paint.keptHalf = keptHalf(options.keptHalf);
        if (!picture.task->sequence && !chosen.animations.empty()) {
            plan.notes.emplace_back(
                "a picture has no time; values that move stand as they are at 0s");
        }
    }
};

/// The times of a picture are those of its own file.
PlanWishes pictureWishes(const PaintOptions& options) {
    PlanWishes wishes = wishesOf(options, {0, 1});
    wishes.part = {};
    return wishes;
}

/// Values that move may count frames.
double framesPerSecond(const PaintOptions& options) {
    return av_q2d(wishesOf(options, kUsualRate).part.rate);
}

/// Runs on any thread.
PaintedPicture paintPicture(const PictureTask& picture, const PlanWishes& wishes,
                            const ChosenEffect& chosen, PaintRun& run) {
    Prepared prepared(run, picture, wishes, chosen);
    const PaintSettings& settings = prepared.plan.paint;
    FramePainter painter(chosen.effect.clone(), settings,
                         run.renderers().rendererFor(chosen.effect, settings.recordedWidth,
                                                     settings.recordedHeight, prepared.plan.notes));
    const media::FramePtr painted =
        painter.paint({picture.number, picture.seconds, std::move(prepared.frame)});
    return {picture.output, media::pictureBytes(*painted, prepared.format, prepared.plan.video),
            std::move(prepared.plan.notes)};
}

}  // namespace

std::vector<PictureTask> picturesOf(const PaintTask& task, const PaintOptions& options) {
    if (!task.sequence) {
        if (!options.frames.empty()) {
            throw host::UsageError(task.input + " is one picture, of which --frames has nothing " +
                                   "to choose");
        }
        return {{&task, task.input, task.names ? task.pictureName(0) : task.output}};
    }
    std::vector<PictureTask> pictures;
    SequenceSource source(*task.sequence, wishesOf(options, kUsualRate).part);
    while (source.hasFrame()) {
        const NumberedFrame frame = source.take();
        pictures.push_back(
            {&task, frame.file, task.pictureName(frame.number), frame.number, frame.seconds});
    }
    return pictures;
}

void paintPictures(PaintRun& run, const std::vector<PictureTask>& pictures) {
    const PaintOptions& options = run.options();
    std::vector<PictureTask> left;
    for (const PictureTask& picture : pictures) {
        if (run.isDone(picture.output)) continue;
        run.checkOutput(picture.output);
        left.push_back(picture);
    }
    const PlanWishes wishes = pictureWishes(options);
    const ChosenEffect chosen =
        chooseEffect(run.library(), options.choice, framesPerSecond(options));
    if (options.dryRun) {
        const PaintTask* told = nullptr;
        for (const PictureTask& picture : pictures) {
            // The pictures of a sequence are alike.
            if (std::exchange(told, picture.task) == picture.task) continue;
            const Prepared prepared(run, picture, wishes, chosen);
            run.tell(prepared.plan.notes);
            dryRun(*picture.task, prepared.reader, *prepared.frame, chosen, prepared.format,
                   prepared.plan, kProgramMemory + prepared.share.bytes(), run.out());
        }
        return;
    }

    run.begin(static_cast<std::int64_t>(left.size()));
    const std::size_t jobs = std::min(static_cast<std::size_t>(jobCount(options.jobs)),
                                      std::max<std::size_t>(left.size(), 1));
    const Pool::Worker work = [&](const PictureTask& picture) {
        return paintPicture(picture, wishes, chosen, run);
    };
    Pool pool(std::vector<Pool::Worker>(jobs, work), jobs * 2);
    const auto finishOne = [&] {
        const PaintedPicture picture = pool.take();
        run.tell(picture.notes);
        if (run.gate().hasWaited()) {
            run.tell({"painting fewer pictures at once, as " + bytesText(run.memory()) +
                      " may be used; --memory allows more"});
        }
        run.writePicture(picture.output, picture.bytes);
    };
    for (const PictureTask& picture : left) {
        if (!pool.hasRoom()) finishOne();
        pool.submit(picture);
    }
    while (!pool.empty()) finishOne();
}

}  // namespace brushworks::tools
