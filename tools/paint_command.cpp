// Puts the pieces together: reader, painters on their threads, writer.
#include "paint_command.h"

#include <filesystem>
#include <optional>
#include <stdexcept>

#include "dry_run.h"
#include "frame_painter.h"
#include "frame_source.h"
#include "host/names.h"
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

constexpr int kPreviewLines = 480;
constexpr double kPreviewSeconds = 2;

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

/// A slip in the extension is answered with the nearest one.
const media::OutputFormat& outputFormat(const std::string& path) {
    try {
        return media::outputFormatOf(path);
    } catch (const media::MediaUsageError& error) {
        std::vector<std::string> extensions;
        for (const media::OutputFormat& format : media::outputFormats()) {
            extensions.emplace_back(format.extension);
        }
        const std::string typed = std::filesystem::path(path).extension().string();
        const std::string nearest =
            typed.empty() ? "" : host::didYouMean(typed.substr(1), extensions);
        throw media::MediaUsageError(error.what() + nearest);
    }
}

/// What is to be done, from the options, the input and its first frame.
PaintPlan planned(const PaintOptions& options, const media::Reader& reader, const AVFrame& first,
                  const media::OutputFormat& format, const ChosenEffect& chosen) {
    Scaling scaling;
    if (!options.scale.empty()) {
        scaling = Scaling::parse(options.scale);
    } else if (options.preview) {
        scaling = Scaling::atMostLines(kPreviewLines);
    }
    const RenderSettings render = {.seed = options.seed, .fields = options.fields};
    PaintPlan plan = makePlan(reader, first, format, options.encoding, render, scaling);
    plan.paint.hold = options.hold;
    plan.paint.animations = chosen.animations;
    plan.paint.keptHalf = keptHalf(options.keptHalf);
    if (format.picture && !plan.paint.animations.empty()) {
        plan.notes.push_back("a picture has no time; values that move stand as they are at 0s");
    }
    if (options.preview && !format.picture) {
        plan.seconds = kPreviewSeconds;
        // Most lie behind the end.
        plan.companions.keepChapters = false;
    }
    return plan;
}

/// Runs all frames through the pool, in order, with the copied packets beside them.
void paintFrames(FrameSource& source, Pool& pool, media::Writer& writer, Progress& progress) {
    for (;;) {
        while (source.hasFrame() && pool.hasRoom()) {
            pool.submit(source.take());
            source.copyPackets(writer);
        }
        if (pool.empty()) return;
        writer.writeFrame(*pool.take());
        progress.step();
    }
}

ProgressStyle progressStyleOf(const PaintOptions& options, const media::OutputFormat& format) {
    const ProgressStyle style = progressStyle(options.progress, options.quiet);
    // A bar of one frame would be full before it is seen.
    return format.picture && style == ProgressStyle::Bar ? ProgressStyle::None : style;
}

}  // namespace

void paint(const host::Library& library, const PaintOptions& options, std::ostream& out) {
    media::captureLog();
    const Notes note(options.quiet);
    const media::OutputFormat& format = outputFormat(options.output);
    refuseSameFile(options);
    std::optional<OutputFile> file;  // a pipe needs none
    if (options.output != "-") {
        if (options.dryRun) {
            OutputFile::check(options.output, options.force);
        } else {
            file.emplace(options.output, options.force);
        }
    }

    media::Reader reader(options.input);
    checkKinds(reader, format, options);
    const ChosenEffect chosen = chooseEffect(library, options.choice, framesPerSecond(reader));
    media::FramePtr first = reader.next();
    const PaintPlan plan = planned(options, reader, *first, format, chosen);
    for (const std::string& text : plan.notes) note(text);
    if (options.dryRun) return dryRun(options, reader, *first, chosen, format, plan, out);
    const std::shared_ptr<FrameRenderer> renderer = chooseRenderer(
        options.gpu, chosen.effect, plan.paint.recordedWidth, plan.paint.recordedHeight, note);

    media::Writer writer(file ? file->temporaryPath() : options.output, format, plan.video,
                         plan.companions);
    const int jobs = format.picture ? 1 : jobCount(options.jobs);
    FrameSource source(reader, std::move(first), plan.seconds);
    Progress progress(source.expectedFrames(), {"frames", "fps", "frame", "fps"},
                      progressStyleOf(options, format));
    Pool pool(makeWorkers(chosen.effect, plan.paint, renderer, jobs),
              static_cast<std::size_t>(jobs) * 2);
    paintFrames(source, pool, writer, progress);
    writer.finish();
    if (file) file->commit();
    progress.finish();
}

}  // namespace brushworks::tools
