// Puts the pieces together: reader, painters on their threads, writer.
#include "paint_command.h"

#include <filesystem>
#include <optional>
#include <stdexcept>

#include "frame_painter.h"
#include "job_count.h"
#include "media/log.h"
#include "media/output_format.h"
#include "media/reader.h"
#include "media/writer.h"
#include "notes.h"
#include "ordered_pool.h"
#include "output_file.h"
#include "paint_plan.h"
#include "progress.h"

namespace brushworks::tools {
namespace {

using Pool = OrderedPool<NumberedFrame, media::FramePtr>;

void refuseSameFile(const PaintOptions& options) {
    std::error_code ignored;
    if (std::filesystem::equivalent(options.input, options.output, ignored)) {
        throw std::runtime_error("input and output are the same file, " + options.input);
    }
}

void checkKinds(const media::Reader& reader, const media::OutputFormat& format,
                const PaintOptions& options) {
    if (reader.isPicture() == format.picture) return;
    throw media::MediaUsageError(
        options.input + " is a " + (reader.isPicture() ? "picture" : "video") +
        "; its output must end in one of " + media::extensionList(reader.isPicture()));
}

/// 0 where the file does not say.
double framesPerSecond(const media::Reader& reader) {
    const AVRational rate = reader.frameRate();
    return rate.num > 0 ? av_q2d(rate) : 0;
}

std::vector<Pool::Worker> makeWorkers(const host::Effect& effect, const PaintSettings& settings,
                                      const std::shared_ptr<FrameRenderer>& renderer, int jobs) {
    std::vector<Pool::Worker> workers;
    for (int i = 0; i < jobs; ++i) {
        const auto painter = std::make_shared<FramePainter>(effect.clone(), settings, renderer);
        workers.emplace_back(
            [painter](NumberedFrame frame) { return painter->paint(std::move(frame)); });
    }
    return workers;
}

NumberedFrame numbered(const media::Reader& reader, std::int64_t number, media::FramePtr frame) {
    const double seconds = frame ? reader.secondsOf(*frame) : 0;
    return {number, seconds, std::move(frame)};
}

/// Runs all frames through the pool, in order, with the copied packets beside them.
void paintFrames(media::Reader& reader, media::FramePtr first, Pool& pool, media::Writer& writer,
                 Progress& progress) {
    NumberedFrame next = numbered(reader, 0, std::move(first));
    for (;;) {
        while (next.frame && pool.hasRoom()) {
            const std::int64_t number = next.number;
            pool.submit(std::move(next));
            next = numbered(reader, number + 1, reader.next());
            for (const media::PacketPtr& packet : reader.takePackets()) writer.writePacket(*packet);
        }
        if (pool.empty()) return;
        writer.writeFrame(*pool.take());
        progress.step();
    }
}

}  // namespace

void paint(const host::Library& library, const PaintOptions& options) {
    media::captureLog();
    const Notes note(options.quiet);
    const media::OutputFormat& format = media::outputFormatOf(options.output);
    refuseSameFile(options);
    std::optional<OutputFile> file;  // a pipe needs none
    if (options.output != "-") file.emplace(options.output, options.force);

    media::Reader reader(options.input);
    checkKinds(reader, format, options);
    ChosenEffect chosen = chooseEffect(library, options.choice, framesPerSecond(reader));
    media::FramePtr first = reader.next();
    const RenderSettings render = {.seed = options.seed, .fields = options.fields};
    PaintPlan plan = makePlan(reader, *first, format, options.encoding, render);
    plan.paint.hold = options.hold;
    plan.paint.animations = std::move(chosen.animations);
    if (format.picture && !plan.paint.animations.empty()) {
        plan.notes.push_back("a picture has no time; values that move stand as they are at 0s");
    }
    for (const std::string& text : plan.notes) note(text);
    const std::shared_ptr<FrameRenderer> renderer = chooseRenderer(
        options.gpu, chosen.effect, plan.paint.recordedWidth, plan.paint.recordedHeight, note);

    media::Writer writer(file ? file->temporaryPath() : options.output, format, plan.video,
                         plan.companions);
    const int jobs = format.picture ? 1 : jobCount(options.jobs);
    Progress progress(reader.expectedFrames(), {"frames", "fps"}, options.quiet || format.picture);
    Pool pool(makeWorkers(chosen.effect, plan.paint, renderer, jobs),
              static_cast<std::size_t>(jobs) * 2);
    paintFrames(reader, std::move(first), pool, writer, progress);
    writer.finish();
    if (file) file->commit();
}

}  // namespace brushworks::tools
