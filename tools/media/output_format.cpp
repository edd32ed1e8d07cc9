// The table of file types.
#include "media/output_format.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "media/error.h"

namespace brushworks::media {
namespace {

// image2pipe writes what the encoder made and nothing around it, which is what a picture file is.
constexpr OutputFormat kFormats[] = {
    {"png", "image2pipe", "png", true, true},     {"jpg", "image2pipe", "mjpeg", true, false},
    {"jpeg", "image2pipe", "mjpeg", true, false}, {"tif", "image2pipe", "tiff", true, true},
    {"tiff", "image2pipe", "tiff", true, true},   {"webp", "image2pipe", "libwebp", true, true},
    {"ppm", "image2pipe", "ppm", true, false},    {"mp4", "mp4", "libx264", false, false},
    {"mov", "mov", "libx264", false, false},      {"mkv", "matroska", "libx264", false, false},
    {"webm", "webm", "libvpx-vp9", false, false},
};

}  // namespace

const OutputFormat& outputFormatOf(const std::string& path) {
    std::string extension = std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    for (const OutputFormat& format : kFormats) {
        if (extension.size() > 1 && extension.substr(1) == format.extension) return format;
    }
    throw MediaUsageError("cannot tell the type of the output from \"" + path +
                          "\"; pictures end in " + extensionList(true) + ", videos in " +
                          extensionList(false));
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
