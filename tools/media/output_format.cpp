// The table of file types.
#include "media/output_format.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "media/error.h"

namespace brushworks::media {
namespace {

constexpr OutputFormat picture(const char* extension, const char* encoder, const char* alpha,
                               const char* lossless) {
    // image2pipe writes what the encoder made and nothing around it, which is what a picture file
    // is.
    return {.extension = extension,
            .muxer = "image2pipe",
            .encoder = encoder,
            .alphaEncoder = alpha,
            .losslessYuv = lossless,
            .losslessRgb = lossless,
            .picture = true};
}

constexpr OutputFormat kFormats[] = {
    picture("png", "png", "png", "png"),
    picture("jpg", "mjpeg", nullptr, nullptr),
    picture("jpeg", "mjpeg", nullptr, nullptr),
    picture("tif", "tiff", "tiff", "tiff"),
    picture("tiff", "tiff", "tiff", "tiff"),
    picture("webp", "libwebp", "libwebp", "libwebp"),
    picture("ppm", "ppm", nullptr, "ppm"),
    {.extension = "mp4",
     .muxer = "mp4",
     .encoder = "libx264",
     .alphaEncoder = nullptr,
     .losslessYuv = "libx264",
     .losslessRgb = "libx264rgb",
     .keepsTurn = true,
     .keepsChapters = true,
     .keepsCover = true},
    {.extension = "mov",
     .muxer = "mov",
     .encoder = "libx264",
     .alphaEncoder = "prores_ks",
     .losslessYuv = "libx264",
     .losslessRgb = "png",
     .keepsTurn = true,
     .keepsChapters = true},
    {.extension = "mkv",
     .muxer = "matroska",
     .encoder = "libx264",
     .alphaEncoder = "ffv1",
     .losslessYuv = "ffv1",
     .losslessRgb = "ffv1",
     .keepsChapters = true,
     .keepsAttachments = true},
    {.extension = "webm",
     .muxer = "webm",
     .encoder = "libvpx-vp9",
     .alphaEncoder = "libvpx-vp9",
     .losslessYuv = "libvpx-vp9",
     .losslessRgb = "libvpx-vp9",
     .keepsChapters = true},
    {.extension = "gif",
     .muxer = "gif",
     .encoder = "gif",
     .alphaEncoder = "gif",
     .losslessYuv = nullptr,
     .losslessRgb = nullptr},
    {.extension = "avi",
     .muxer = "avi",
     .encoder = "mpeg4",
     .alphaEncoder = "ffv1",
     .losslessYuv = "ffv1",
     .losslessRgb = "ffv1",
     .evenTimes = true},
    {.extension = "y4m",
     .muxer = "yuv4mpegpipe",
     .encoder = "wrapped_avframe",
     .alphaEncoder = nullptr,
     .losslessYuv = "wrapped_avframe",
     .losslessRgb = nullptr,
     .evenTimes = true},
};

constexpr char kPipeExtension[] = ".y4m";

}  // namespace

std::span<const OutputFormat> outputFormats() {
    return kFormats;
}

const OutputFormat& outputFormatOf(const std::string& path) {
    std::string extension =
        path == "-" ? kPipeExtension : std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    for (const OutputFormat& format : kFormats) {
        if (extension.size() > 1 && extension.substr(1) == format.extension) return format;
    }
    throw MediaUsageError("cannot tell the type of the output from \"" + path +
                          "\"; pictures end in " + extensionList(true) + ", videos in " +
                          extensionList(false));
}

int muxerTakes(const OutputFormat& format, AVCodecID codec) {
    // Of these MOV's muxer says so, and then takes them in MP4 only.
    const bool mp4Only = codec == AV_CODEC_ID_VP9 || codec == AV_CODEC_ID_AV1 ||
                         codec == AV_CODEC_ID_OPUS || codec == AV_CODEC_ID_FLAC;
    if (mp4Only && std::string_view(format.muxer) == "mov") return 0;
    const AVOutputFormat* muxer = av_guess_format(format.muxer, nullptr, nullptr);
    return muxer == nullptr ? 0 : avformat_query_codec(muxer, codec, FF_COMPLIANCE_NORMAL);
}

std::string extensionList(bool picture) {
    std::string list;
    for (const OutputFormat& format : kFormats) {
        if (format.picture != picture) continue;
        if (!list.empty()) list += ", ";
        list.append(".").append(format.extension);
    }
    return list;
}

}  // namespace brushworks::media
