// Asks muxers what they hold, and copies descriptions without those that are true no more.
#include "media/stream_copy.h"

#include <algorithm>
#include <string_view>

namespace brushworks::media {
namespace {

constexpr std::uint32_t kTimecodeTag = MKTAG('t', 'm', 'c', 'd');

/// Words about the recorded stream's encoding, which is not that of the painted one.
bool isOutdated(std::string_view key) {
    constexpr std::string_view kKeys[] = {"encoder", "alpha_mode", "rotate", "duration"};
    constexpr std::string_view kStarts[] = {"_STATISTICS", "BPS", "NUMBER_OF_", "DURATION"};
    return std::ranges::count(kKeys, key) != 0 ||
           std::ranges::any_of(kStarts, [&](auto start) { return key.starts_with(start); });
}

bool isCover(const AVStream& stream) {
    return (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
}

}  // namespace

Fit fitOf(const AVStream& stream, const OutputFormat& format) {
    const AVCodecParameters& codec = *stream.codecpar;
    const AVOutputFormat* muxer = av_guess_format(format.muxer, nullptr, nullptr);
    if (muxer == nullptr) return Fit::NoRoom;
    const int queried = muxerTakes(format, codec.codec_id);
    switch (codec.codec_type) {
        case AVMEDIA_TYPE_AUDIO:
            if (muxer->audio_codec == AV_CODEC_ID_NONE) return Fit::NoKind;
            return codec.codec_id != AV_CODEC_ID_NONE && queried != 0 ? Fit::Held : Fit::NoRoom;
        case AVMEDIA_TYPE_SUBTITLE:
            return queried == 1 ? Fit::Held : Fit::NoRoom;
        case AVMEDIA_TYPE_ATTACHMENT:
            return format.keepsAttachments ? Fit::Held : Fit::NoKind;
        case AVMEDIA_TYPE_VIDEO:
            return isCover(stream) && format.keepsCover ? Fit::Held : Fit::NoRoom;
        default:
            // Tracks of MOV files that hold the chapters, and one that repeats a description.
            if (codec.codec_id == AV_CODEC_ID_BIN_DATA) return Fit::Implied;
            if (codec.codec_tag == kTimecodeTag && format.keepsChapters) return Fit::Implied;
            return Fit::NoKind;
    }
}

std::string streamWords(const AVStream& stream) {
    const AVCodecParameters& codec = *stream.codecpar;
    const char* kind = isCover(stream) ? "cover" : av_get_media_type_string(codec.codec_type);
    std::string name = avcodec_get_name(codec.codec_id);
    if (codec.codec_id == AV_CODEC_ID_NONE && codec.codec_tag != 0) {
        char tag[AV_FOURCC_MAX_STRING_SIZE];
        name = av_fourcc_make_string(tag, codec.codec_tag);
    }
    for (const char* key : {"filename", "language"}) {
        const AVDictionaryEntry* entry = av_dict_get(stream.metadata, key, nullptr, 0);
        if (entry != nullptr) name.append(", ").append(entry->value);
    }
    return std::string(kind != nullptr ? kind : "unknown data") + " (" + name + ")";
}

AVStream* copyStream(const AVStream& source, AVFormatContext& output) {
    AVStream* copy = avformat_new_stream(&output, nullptr);
    if (copy == nullptr) throw std::bad_alloc();
    check(avcodec_parameters_copy(copy->codecpar, source.codecpar), "cannot copy a stream");
    copy->codecpar->codec_tag = 0;  // the number belongs to the input's type
    copy->time_base = source.time_base;
    copy->disposition = source.disposition;
    av_dict_copy(&copy->metadata, source.metadata, 0);
    return copy;
}

void describeVideo(const AVStream& source, AVStream& target, bool keepTurn) {
    const AVDictionaryEntry* entry = nullptr;
    while ((entry = av_dict_get(source.metadata, "", entry, AV_DICT_IGNORE_SUFFIX)) != nullptr) {
        if (!isOutdated(entry->key)) av_dict_set(&target.metadata, entry->key, entry->value, 0);
    }
    target.disposition = source.disposition;
    for (const AVPacketSideDataType type :
         {AV_PKT_DATA_MASTERING_DISPLAY_METADATA, AV_PKT_DATA_CONTENT_LIGHT_LEVEL,
          AV_PKT_DATA_SPHERICAL, AV_PKT_DATA_STEREO3D, AV_PKT_DATA_DISPLAYMATRIX}) {
        if (type == AV_PKT_DATA_DISPLAYMATRIX && !keepTurn) continue;
        std::size_t size = 0;
        const std::uint8_t* data = av_stream_get_side_data(&source, type, &size);
        if (data == nullptr) continue;
        std::uint8_t* copy = av_stream_new_side_data(&target, type, size);
        if (copy == nullptr) throw std::bad_alloc();
        std::copy_n(data, size, copy);
    }
}

void copyChapters(const AVFormatContext& input, AVFormatContext& output) {
    if (input.nb_chapters == 0) return;
    output.chapters = static_cast<AVChapter**>(
        av_calloc(input.nb_chapters, sizeof(AVChapter*)));  // which the output frees
    if (output.chapters == nullptr) throw std::bad_alloc();
    for (unsigned int i = 0; i < input.nb_chapters; ++i) {
        auto* chapter = static_cast<AVChapter*>(av_mallocz(sizeof(AVChapter)));
        if (chapter == nullptr) throw std::bad_alloc();
        *chapter = *input.chapters[i];
        chapter->metadata = nullptr;
        output.chapters[output.nb_chapters++] = chapter;
        av_dict_copy(&chapter->metadata, input.chapters[i]->metadata, 0);
    }
}

}  // namespace brushworks::media
