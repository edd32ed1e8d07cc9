// Opens a writer on the null device, then prints the plan.
#include "dry_run.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>

#include "host/printable.h"
#include "host/value_text.h"
#include "media/output_raster.h"
#include "media/stream_copy.h"
#include "media/writer.h"
#include "memory_limit.h"
#include "parameter_table.h"

namespace brushworks::tools {
namespace {

constexpr char kNullDevice[] = "/dev/null";

std::string sizeText(int width, int height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

std::string samplesText(AVPixelFormat format) {
    return std::string(av_get_pix_fmt_name(format)) + " (" +
           std::to_string(media::depthOf(format)) + " bits)";
}

const char* kindOf(const PaintTask& task, const media::Reader& reader) {
    if (task.sequence) return "sequence of pictures";
    return reader.isPicture() ? "picture" : "video";
}

void describeInput(const PaintTask& task, const media::Reader& reader, const AVFrame& first,
                   std::ostream& out) {
    out << "Input    " << host::printable(task.input) << ": " << kindOf(task, reader) << ", "
        << avcodec_get_name(reader.video().codecpar->codec_id) << ", "
        << sizeText(first.width, first.height) << ", "
        << samplesText(static_cast<AVPixelFormat>(first.format));
    if (!reader.isPicture()) {
        const AVRational rate = reader.frameRate();
        if (rate.num > 0) {
            out << ", " << host::printNumber(static_cast<float>(av_q2d(rate))) << " fps";
        }
        if (first.interlaced_frame != 0) out << ", interlaced";
        if (reader.expectedFrames() > 0) out << ", " << reader.expectedFrames() << " frames";
    }
    if (task.sequence) {
        out << ", " << task.sequence->count << " from " << host::printable(task.sequence->at(0))
            << " on";
    }
    out << '\n';
}

void describeOutput(const PaintTask& task, const media::OutputFormat& format, const PaintPlan& plan,
                    std::ostream& out) {
    const media::Encoding& encoding = plan.video.encoding;
    const media::Raster& raster = plan.video.raster;
    out << "Output   " << host::printable(task.output) << ": "
        << (format.picture ? task.names ? "pictures" : "picture" : "video") << ", "
        << encoding.codec->name << ", " << sizeText(raster.width, raster.height) << ", "
        << samplesText(raster.format);
    const bool always = encoding.row.lossless != nullptr && *encoding.row.lossless == '\0';
    if (encoding.lossless || always) {
        out << ", lossless";
    } else if (encoding.row.quality.scale != media::QualityScale::None) {
        out << ", quality " << encoding.quality;
    }
    const FrameRange& range = plan.part.range;
    if (!range.isWhole()) {
        out << ", from frame " << range.first;
        if (range.last != FrameRange::kEnd) out << " to " << range.last;
    }
    if (plan.part.seconds > 0) {
        out << ", the first " << host::printNumber(static_cast<float>(plan.part.seconds)) << " s";
    }
    for (const AVStream* stream : plan.companions.streams) {
        out << ", with " << media::streamWords(*stream);
    }
    out << '\n';
}

}  // namespace

void dryRun(const PaintTask& task, const media::Reader& reader, const AVFrame& first,
            const ChosenEffect& chosen, const media::OutputFormat& format, const PaintPlan& plan,
            std::int64_t memory, std::ostream& out) {
    const media::Writer trial(kNullDevice, format, plan.video, plan.companions);
    const host::EffectInfo& effect = chosen.effect.info();
    describeInput(task, reader, first, out);
    out << "Effect   " << effect.name << " (" << effect.id << ")\n";
    describeOutput(task, format, plan, out);
    out << "Memory   about " << bytesText(memory) << '\n';
    out << "\nParameters: name, value\n";
    writeParameterTable(effect.parameters, out, [&](const host::ParameterInfo& parameter) {
        const auto moves = [&](const host::Animation& animation) {
            return animation.parameter().index == parameter.index;
        };
        const auto& moving = plan.paint.animations;
        const auto found = std::find_if(moving.begin(), moving.end(), moves);
        const EffectParam start =
            found != moving.end() ? found->valueAt(0) : chosen.effect.value(parameter);
        return std::vector<std::string>{
            parameter.address,
            host::printValue(parameter, start) + (found != moving.end() ? ", then moves" : "")};
    });
}

}  // namespace brushworks::tools
