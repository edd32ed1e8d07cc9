// Puts the pieces together: reader, painters on their threads, writer.
#include "paint_command.h"

#include <cstdio>
#include <filesystem>
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

PaintSettings paintSettings(const PaintOptions& options, const media::OutputFormat& format,
                            const media::Reader& reader, const AVFrame& first) {
    PaintSettings settings;
    settings.recordedWidth = first.width;
    settings.recordedHeight = first.height;
    settings.orientation = reader.orientation(first);
    int width = first.width;
    int height = first.height;
    AVRational aspect = reader.sampleAspect(first);
    if (settings.orientation.swapsSides()) {
        std::swap(width, height);
        if (aspect.num > 0) std::swap(aspect.num, aspect.den);
    }
    settings.output = media::outputRaster(format, media::rasterOf(first), width, height);
    settings.render = {aspect, options.seed, options.fields};
    settings.hold = options.hold;
    return settings;
}

media::VideoSettings videoSettings(const PaintSettings& paint, const media::Reader& reader,
                                   const AVFrame& first) {
    const media::Raster decoded = media::rasterOf(first);
    media::VideoSettings settings;
    settings.raster = paint.output;
    settings.timeBase = reader.timeBase();
    settings.frameRate = reader.frameRate();
    settings.pixelAspect = paint.render.pixelAspect;
    settings.primaries = first.color_primaries;
    settings.transfer = first.color_trc;
    // What was open in the input stays open, unless the matrix is one that we chose.
    settings.tagMatrix = first.colorspace == decoded.matrix || decoded.matrix == AVCOL_SPC_RGB;
    settings.tagRange = first.color_range == decoded.range || decoded.matrix == AVCOL_SPC_RGB;
    settings.interlaced = first.interlaced_frame != 0;
    settings.metadata = reader.metadata();
    settings.streamMetadata = reader.video().metadata;
    return settings;
}

void tellLosses(const Notes& note, const media::Reader& reader, const media::OutputFormat& format,
                const PaintSettings& settings, const AVFrame& first) {
    for (const std::string& stream : reader.leftOut()) note("left out: " + stream);
    const auto decoded = static_cast<AVPixelFormat>(first.format);
    if (media::hasAlpha(decoded) && !format.keepAlpha) {
        note(std::string(".") + format.extension + " has no room for transparency; it is left out");
    }
    if (format.picture && !settings.animations.empty()) {
        note("a picture has no time; values that move stand as they are at 0s");
    }
    if (!format.picture && settings.output.format == AV_PIX_FMT_YUV444P) {
        note("the size " + std::to_string(settings.output.width) + "x" +
             std::to_string(settings.output.height) +
             " is odd; encoding with full colour resolution (4:4:4)");
    }
}

std::vector<Pool::Worker> makeWorkers(const host::Effect& effect, const PaintSettings& settings,
                                      int jobs) {
    std::vector<Pool::Worker> workers;
    for (int i = 0; i < jobs; ++i) {
        const auto painter = std::make_shared<FramePainter>(effect.clone(), settings);
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
    OutputFile file(options.output, options.force);

    media::Reader reader(options.input);
    checkKinds(reader, format, options);
    ChosenEffect chosen = chooseEffect(library, options.choice, framesPerSecond(reader));
    media::FramePtr first = reader.next();
    PaintSettings settings = paintSettings(options, format, reader, *first);
    settings.animations = std::move(chosen.animations);
    tellLosses(note, reader, format, settings, *first);

    media::Writer writer(file.temporaryPath(), format, videoSettings(settings, reader, *first),
                         reader.copiedStreams());
    const int jobs = format.picture ? 1 : jobCount(options.jobs);
    Progress progress(reader.expectedFrames(), {"frames", "fps"}, options.quiet || format.picture);
    Pool pool(makeWorkers(chosen.effect, settings, jobs), static_cast<std::size_t>(jobs) * 2);
    paintFrames(reader, std::move(first), pool, writer, progress);
    writer.finish();
    file.commit();
}

}  // namespace brushworks::tools
