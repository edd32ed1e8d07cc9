// Looks at the first frame and the streams of the input.
#include "paint_plan.h"

#include <utility>

#include "host/names.h"
#include "media/output_raster.h"
#include "media/stream_copy.h"
#include "still_picture.h"

namespace brushworks::tools {
namespace {

/// The raster of the first frame, without an alpha that only its decoder made up: GIF files are
/// opaque unless they show it at once.
media::Raster sourceRaster(const media::Reader& reader, const AVFrame& first) {
    media::Raster raster = media::rasterOf(first);
    const bool gif = reader.video().codecpar->codec_id == AV_CODEC_ID_GIF;
    if (gif && raster.format == AV_PIX_FMT_BGRA && !isTransparent(first)) {
        raster.format = AV_PIX_FMT_BGR0;
    }
    return raster;
}

/// A slip in the name of an encoder is answered with the nearest one.
media::Encoding encodingFor(const media::OutputFormat& format, const media::EncodingChoice& choice,
                            AVPixelFormat source) {
    try {
        return media::chooseEncoding(format, choice, source);
    } catch (const media::MediaUsageError& error) {
        if (avcodec_find_encoder_by_name(choice.codec.c_str()) != nullptr) throw;
        std::vector<std::string> names;
        for (const media::EncoderRow* row : media::encodersFor(format)) {
            names.insert(names.end(), {row->name, row->common});
        }
        throw media::MediaUsageError(error.what() + host::didYouMean(choice.codec, names));
    }
}

/// The size that the frames are scaled to, as they were recorded.
Size scaledSize(const AVFrame& first, const media::Orientation& orientation, const Scaling& scaling,
                const media::OutputFormat& format) {
    Size size = {first.width, first.height};
    if (orientation.swapsSides()) std::swap(size.width, size.height);
    size = scaling.sizeFor(size, /*even=*/!format.picture);
    if (orientation.swapsSides()) std::swap(size.width, size.height);
    return size;
}

/// The shape of pixels with which the picture still looks as it did.
AVRational stretched(AVRational aspect, const AVFrame& first, Size size) {
    if (aspect.num <= 0) return aspect;
    constexpr std::int64_t kMost = 1 << 16;
    AVRational result = {0, 1};
    av_reduce(&result.num, &result.den, std::int64_t{aspect.num} * first.width * size.height,
              std::int64_t{aspect.den} * first.height * size.width, kMost);
    return result;
}

PaintSettings paintSettings(const media::Reader& reader, const AVFrame& first,
                            const media::OutputFormat& format, const media::Encoding& encoding,
                            const media::Raster& source, const std::string& pixelFormat,
                            const RenderSettings& render, const Scaling& scaling) {
    PaintSettings settings;
    settings.decodedWidth = first.width;
    settings.decodedHeight = first.height;
    settings.deep = media::isDeep(static_cast<AVPixelFormat>(first.format));
    settings.orientation = reader.orientation(first);
    settings.turnBack = format.keepsTurn && !settings.orientation.isUpright();
    settings.render = render;
    const Size recorded = scaledSize(first, settings.orientation, scaling, format);
    settings.recordedWidth = recorded.width;
    settings.recordedHeight = recorded.height;
    settings.outputAspect = reader.sampleAspect(first);
    if (!scaling.keepsShape())
        settings.outputAspect = stretched(settings.outputAspect, first, recorded);
    AVRational upright = settings.outputAspect;
    int width = recorded.width;
    int height = recorded.height;
    if (settings.orientation.swapsSides()) {
        if (upright.num > 0) std::swap(upright.num, upright.den);
        if (!settings.turnBack) {
            std::swap(width, height);
            settings.outputAspect = upright;
        }
    }
    settings.render.pixelAspect = upright;
    settings.output = media::outputRaster(encoding, source, width, height, pixelFormat);
    return settings;
}

media::VideoSettings videoSettings(const media::Encoding& encoding, const PaintSettings& paint,
                                   const media::Reader& reader, const AVFrame& first) {
    const media::Raster decoded = media::rasterOf(first);
    media::VideoSettings settings;
    settings.encoding = encoding;
    settings.raster = paint.output;
    settings.timeBase = reader.timeBase();
    settings.frameRate = reader.frameRate();
    settings.pixelAspect = paint.outputAspect;
    settings.primaries = first.color_primaries;
    settings.transfer = first.color_trc;
    settings.chromaLocation = first.chroma_location;
    // What was open in the input stays open, unless the matrix is one that we chose.
    // From another size a player would guess another matrix.
    const bool resized = first.width != paint.recordedWidth || first.height != paint.recordedHeight;
    const bool chosen = decoded.matrix != paint.output.matrix || resized;
    settings.tagMatrix = first.colorspace == decoded.matrix || chosen;
    settings.tagRange = first.color_range == decoded.range || chosen;
    if (first.interlaced_frame != 0) {
        settings.fields = first.top_field_first != 0 ? media::FieldOrder::TopFirst
                                                     : media::FieldOrder::BottomFirst;
    }
    return settings;
}

/// Sorts the other streams into those that are copied and those that are told of.
void planStreams(const media::Reader& reader, const media::OutputFormat& format, PaintPlan& plan) {
    const std::string type = std::string(".") + format.extension;
    for (const AVStream* stream : reader.otherStreams()) {
        const media::Fit fit = media::fitOf(*stream, format);
        if (fit == media::Fit::Held) plan.companions.streams.push_back(stream);
        if (fit == media::Fit::Held || fit == media::Fit::Implied) continue;
        const bool sound = stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
        if (sound && fit == media::Fit::NoRoom) {
            throw media::MediaError("the type of the output cannot hold " +
                                    std::string(avcodec_get_name(stream->codecpar->codec_id)) +
                                    " sound as it is; .mkv can");
        }
        plan.notes.push_back("left out: " + media::streamWords(*stream) + ", for which " + type +
                             " has no room");
    }
    const unsigned int chapters = reader.input().nb_chapters;
    if (chapters > 0 && !format.keepsChapters) {
        plan.notes.push_back("left out: " + std::to_string(chapters) + " chapters, for which " +
                             type + " has no room");
    }
}

void noteRate(const media::Reader& reader, const media::OutputFormat& format, PaintPlan& plan) {
    const bool encoder = plan.video.encoding.row.has(media::kEvenTimes);
    if (!reader.variesRate() || (!format.evenTimes && !encoder)) return;
    const AVRational rate = plan.video.frameRate;
    plan.notes.push_back(
        "the frame rate of the input varies; " +
        (format.evenTimes ? std::string(".") + format.extension : plan.video.encoding.codec->name) +
        " has only one, here " + std::to_string(rate.num) + "/" + std::to_string(rate.den));
}

/// Chapters tell times of the whole.
void leaveChapters(const media::Reader& reader, PaintPlan& plan) {
    if (!plan.companions.keepChapters || reader.input().nb_chapters == 0) return;
    plan.companions.keepChapters = false;
    plan.notes.push_back("left out: " + std::to_string(reader.input().nb_chapters) +
                         " chapters, whose times are those of the whole input");
}

/// Gives the frames other times, to which what goes beside them does not fit any more.
void changeRate(const media::Reader& reader, AVRational rate, PaintPlan& plan) {
    for (const AVStream* stream : plan.companions.streams) {
        if (stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO) {
            throw media::MediaError(
                "with another rate the sound would not fit the frames any "
                "more; take one of the two out of the input first");
        }
    }
    std::erase_if(plan.companions.streams, [&](const AVStream* stream) {
        if (stream->codecpar->codec_type != AVMEDIA_TYPE_SUBTITLE) return false;
        plan.notes.push_back("left out: " + media::streamWords(*stream) +
                             ", which does not fit another rate");
        return true;
    });
    leaveChapters(reader, plan);
    plan.video.frameRate = rate;
    plan.video.timeBase = av_inv_q(rate);
}

void noteLosses(const media::OutputFormat& format, PaintPlan& plan, AVPixelFormat decoded) {
    const media::Raster& output = plan.video.raster;
    const std::string encoder = plan.video.encoding.codec->name;
    const int had = media::depthOf(decoded);
    const int has = media::depthOf(output.format);
    if (media::hasAlpha(decoded) && !media::hasAlpha(output.format) &&
        output.format != AV_PIX_FMT_PAL8) {
        const bool type = format.alphaEncoder == nullptr;
        plan.notes.push_back((type ? std::string(".") + format.extension : encoder) +
                             " has no room for transparency; it is left out");
    }
    if (plan.paint.deep && has < had) {
        plan.notes.push_back(encoder + " takes " + std::to_string(has) + " bits of the " +
                             std::to_string(had) + " bits of a sample");
    }
    if (plan.video.fields != media::FieldOrder::Progressive &&
        !plan.video.encoding.row.has(media::kFields)) {
        plan.notes.push_back(encoder +
                             " has no mark for interlaced frames; they keep their fields");
    }
    const bool odd = output.width % 2 != 0 || output.height % 2 != 0;
    if (odd && plan.video.encoding.row.has(media::kWholeChroma) &&
        output.format == AV_PIX_FMT_YUV444P && decoded != AV_PIX_FMT_YUV444P) {
        plan.notes.push_back("the size " + std::to_string(output.width) + "x" +
                             std::to_string(output.height) +
                             " is odd; encoding with full colour resolution (4:4:4)");
    }
}

}  // namespace

PaintPlan makePlan(const media::Reader& reader, const AVFrame& first,
                   const media::OutputFormat& format, const PlanWishes& wishes) {
    const media::Raster source = sourceRaster(reader, first);
    const media::Encoding encoding = encodingFor(format, wishes.encoding, source.format);
    PaintPlan plan;
    plan.paint = paintSettings(reader, first, format, encoding, source, wishes.encoding.pixelFormat,
                               wishes.render, wishes.scaling);
    plan.video = videoSettings(encoding, plan.paint, reader, first);
    plan.companions = {&reader.input(), &reader.video(), plan.paint.turnBack, {}, true};
    planStreams(reader, format, plan);
    noteLosses(format, plan, source.format);
    plan.part = wishes.part;
    if (wishes.part.rate.num > 0) {
        changeRate(reader, wishes.part.rate, plan);
    } else {
        noteRate(reader, format, plan);
    }
    if (format.keepsChapters && !wishes.part.isWhole()) leaveChapters(reader, plan);
    return plan;
}

}  // namespace brushworks::tools
