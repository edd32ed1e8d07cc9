// Puts the pieces together: source, painters on their threads, writer.
#include "paint_video.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "dry_run.h"
#include "frame_painter.h"
#include "frame_source.h"
#include "job_count.h"
#include "media/picture_bytes.h"
#include "media/reader.h"
#include "media/writer.h"
#include "ordered_pool.h"
#include "output_file.h"

namespace brushworks::tools {
namespace {

constexpr AVRational kUsualRate = {25, 1};

template <class Out>
using Pool = OrderedPool<NumberedFrame, Out>;

struct PaintedPicture {
    std::string output;
    std::string bytes;
};

/// The input, read as far as a plan needs.
struct Opened {
    std::optional<media::Reader> reader;  ///< of a sequence its first picture
    media::FramePtr first;                ///< of the whole, by which all is planned
    std::unique_ptr<FrameSource> source;
};

void checkKinds(const PaintTask& task, const media::Reader& reader) {
    if (task.sequence && !reader.isPicture()) {
        throw media::MediaError(task.sequence->at(0) + " is a video, not a picture");
    }
    if (task.sequence || !reader.isPicture()) return;
    throw media::MediaUsageError(task.input + " is a picture; its output must end in one of " +
                                 media::extensionList(true));
}

[[noreturn]] void failBehindEnd(const PaintTask& task, std::int64_t number) {
    throw std::runtime_error(task.input + " ends before frame " + std::to_string(number) +
                             ", counted from 0");
}

/// The frame where the range begins, null where there is none. The reader has given frame 0.
media::FramePtr frameAt(const PaintRun& run, Opened& opened, const std::string& input,
                        std::int64_t number) {
    if (number == 0) return media::FramePtr(av_frame_clone(opened.first.get()));
    if (!opened.reader->skipTo(number)) {
        opened.reader.emplace(input, run.decodingLimit());
        for (std::int64_t i = 0; i < number; ++i) {
            if (!opened.reader->next()) return nullptr;
        }
    }
    return opened.reader->next();
}

Opened open(const PaintRun& run, const PaintTask& task) {
    Opened opened;
    opened.reader.emplace(task.sequence ? task.sequence->at(0) : task.input, run.decodingLimit());
    checkKinds(task, *opened.reader);
    opened.first = opened.reader->next();
    return opened;
}

/// The frames that are painted; `begin` is where, when part of them are there already.
void startSource(const PaintRun& run, Opened& opened, const PaintTask& task, Part part,
                 std::int64_t begin) {
    if (task.sequence) {
        opened.source = std::make_unique<SequenceSource>(*task.sequence, part);
        return;
    }
    const std::int64_t start = opened.first->pts;
    media::FramePtr frame = frameAt(run, opened, task.input, begin);
    if (!frame && begin == part.range.first) failBehindEnd(task, begin);
    part.range.first = begin;
    opened.source = std::make_unique<VideoSource>(*opened.reader, std::move(frame), start, part);
}

PaintPlan planned(const PaintRun& run, const Opened& opened, const media::OutputFormat& format,
                  const PlanWishes& wishes, const ChosenEffect& chosen) {
    PaintPlan plan = makePlan(*opened.reader, *opened.first, format, wishes);
    plan.paint.hold = run.options().hold;
    plan.paint.animations = chosen.animations;
    plan.paint.keptHalf = keptHalf(run.options().keptHalf);
    return plan;
}

/// As many at once as there is memory for.
Parallel parallelOf(PaintRun& run, const FrameMemory& memory) {
    const auto asked = static_cast<std::size_t>(jobCount(run.options().jobs));
    const Parallel parallel = parallelWithin(memory, run.memory(), asked);
    if (parallel.jobs < asked) run.tell({fewerJobs(parallel.jobs, asked, run.memory())});
    return parallel;
}

std::vector<std::shared_ptr<FramePainter>> makePainters(PaintRun& run, const ChosenEffect& chosen,
                                                        const PaintPlan& plan, std::size_t jobs) {
    std::vector<std::string> notes;
    const auto renderer = run.renderers().rendererFor(chosen.effect, plan.paint.recordedWidth,
                                                      plan.paint.recordedHeight, notes);
    run.tell(notes);
    std::vector<std::shared_ptr<FramePainter>> painters;
    painters.reserve(jobs);
    for (std::size_t i = 0; i < jobs; ++i) {
        painters.push_back(
            std::make_shared<FramePainter>(chosen.effect.clone(), plan.paint, renderer));
    }
    return painters;
}

/// Runs all frames through the pool, in order, with the copied packets beside them.
void paintInto(media::Writer& writer, PaintRun& run, FrameSource& source,
               Pool<media::FramePtr>& pool) {
    for (;;) {
        while (source.hasFrame() && pool.hasRoom()) {
            pool.submit(source.take());
            for (const media::PacketPtr& packet : source.takePackets()) writer.writePacket(*packet);
        }
        if (pool.empty()) return;
        writer.writeFrame(*pool.take());
        run.step();
    }
}

void writeVideo(PaintRun& run, const PaintTask& task, FrameSource& source,
                const ChosenEffect& chosen, const PaintPlan& plan, Parallel parallel) {
    std::optional<OutputFile> file;  // a pipe needs none
    if (task.output != "-") file.emplace(task.output, run.options().force, run.inputs());
    media::Writer writer(file ? file->temporaryPath() : task.output, task.format(), plan.video,
                         plan.companions);
    std::vector<Pool<media::FramePtr>::Worker> workers;
    for (const auto& painter : makePainters(run, chosen, plan, parallel.jobs)) {
        workers.emplace_back(
            [painter](NumberedFrame frame) { return painter->paint(std::move(frame)); });
    }
    Pool<media::FramePtr> pool(std::move(workers), parallel.room);
    paintInto(writer, run, source, pool);
    writer.finish();
    if (file) file->commit();
}

void writePictures(PaintRun& run, const PaintTask& task, FrameSource& source,
                   const ChosenEffect& chosen, const PaintPlan& plan, Parallel parallel) {
    std::vector<Pool<PaintedPicture>::Worker> workers;
    for (const auto& painter : makePainters(run, chosen, plan, parallel.jobs)) {
        workers.emplace_back([&task, &plan, painter](NumberedFrame frame) {
            const std::string output = task.pictureName(frame.number);
            const media::FramePtr painted = painter->paint(std::move(frame));
            return PaintedPicture{output, media::pictureBytes(*painted, task.format(), plan.video)};
        });
    }
    Pool<PaintedPicture> pool(std::move(workers), parallel.room);
    const auto finishOne = [&] {
        const PaintedPicture picture = pool.take();
        run.writePicture(picture.output, picture.bytes);
    };
    while (source.hasFrame()) {
        NumberedFrame frame = source.take();
        source.takePackets();  // nothing goes beside pictures
        if (run.isDone(task.pictureName(frame.number))) continue;
        if (!pool.hasRoom()) finishOne();
        pool.submit(std::move(frame));
    }
    while (!pool.empty()) finishOne();
}

/// The first frame of the range that is not painted yet.
std::int64_t firstLeft(const PaintRun& run, const PaintTask& task, const FrameRange& range) {
    std::int64_t number = range.first;
    if (!task.names) return number;
    while (number < range.last && run.isDone(task.pictureName(number))) ++number;
    return number;
}

/// Throws when a picture is there that must not be replaced, as far as the video tells its frames.
void checkPictures(const PaintRun& run, const PaintTask& task, media::Reader& reader,
                   const Part& part) {
    const std::int64_t first = part.range.first;
    const std::int64_t count = VideoSource(reader, nullptr, 0, part).expectedFrames();
    for (std::int64_t number = first; number < first + std::max<std::int64_t>(count, 1); ++number) {
        const std::string name = task.pictureName(number);
        if (!run.isDone(name)) run.checkOutput(name);
    }
}

}  // namespace

void paintVideo(PaintRun& run, const PaintTask& task) {
    if (!task.names) {
        if (run.isDone(task.output)) return;
        run.checkOutput(task.output);
    }
    const media::OutputFormat& format = task.format();
    const PlanWishes wishes =
        wishesOf(run.options(), task.sequence ? kUsualRate : AVRational{0, 1});
    Opened opened = open(run, task);
    if (task.names) checkPictures(run, task, *opened.reader, wishes.part);
    const double rate =
        wishes.part.rate.num > 0 ? av_q2d(wishes.part.rate) : framesPerSecond(*opened.reader);
    const ChosenEffect chosen = chooseEffect(run.library(), run.options().choice, rate);
    if (!run.options().dryRun) {
        startSource(run, opened, task, wishes.part, firstLeft(run, task, wishes.part.range));
    }
    const PaintPlan plan = planned(run, opened, format, wishes, chosen);
    run.tell(plan.notes);
    const AVFrame& first = *opened.first;
    const FrameMemory memory =
        videoMemory(plan, *opened.reader, first,
                    task.sequence ? task.sequence->count : opened.reader->expectedFrames());
    const Size painted = {plan.paint.recordedWidth, plan.paint.recordedHeight};
    checkFits(task.input, larger({first.width, first.height}, painted), memory.with({}),
              run.memory(), run.scaled());
    const Parallel parallel = parallelOf(run, memory);
    if (run.options().dryRun) {
        return dryRun(task, *opened.reader, first, chosen, format, plan, memory.with(parallel),
                      run.out());
    }
    run.begin(opened.source->expectedFrames());
    if (task.names) {
        writePictures(run, task, *opened.source, chosen, plan, parallel);
    } else {
        writeVideo(run, task, *opened.source, chosen, plan, parallel);
    }
}

}  // namespace brushworks::tools
