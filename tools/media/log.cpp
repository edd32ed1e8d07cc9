// Receives FFmpeg's log from whatever thread it comes.
#include "media/log.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdio>
#include <mutex>
#include <utility>

#include "media/av.h"

namespace brushworks::media {
namespace {

struct Record {
    std::mutex mutex;
    std::string lastError;
};

/// Readers of pictures run side by side, each on one thread.
thread_local LoggedErrors t_counts;

thread_local RefusedSize t_refused;

/// Only the log tells it, for the decoder forgets it at once.
void rememberSize(const char* line) {
    unsigned int width = 0;
    unsigned int height = 0;
    if (std::sscanf(line, "Picture size %ux%u", &width, &height) != 2) return;
    t_refused = {static_cast<int>(std::min<unsigned int>(width, INT_MAX)),
                 static_cast<int>(std::min<unsigned int>(height, INT_MAX))};
}

Record& record() {
    static Record instance;
    return instance;
}

AVClassCategory categoryOf(void* source) {
    if (source == nullptr) return AV_CLASS_CATEGORY_NA;
    const AVClass* description = *static_cast<AVClass**>(source);
    if (description == nullptr) return AV_CLASS_CATEGORY_NA;
    return description->get_category != nullptr ? description->get_category(source)
                                                : description->category;
}

void receive(void* source, int level, const char* format, va_list arguments) {
    if (level > AV_LOG_ERROR) return;
    char line[512];
    int prefix = 0;
    av_log_format_line(nullptr, level, format, arguments, line, sizeof line, &prefix);
    rememberSize(line);
    std::string text = line;
    text.erase(text.find_last_not_of(" \r\n.") + 1);
    const AVClassCategory category = categoryOf(source);
    if (category == AV_CLASS_CATEGORY_DEMUXER) ++t_counts.demuxer;
    if (category == AV_CLASS_CATEGORY_DECODER) ++t_counts.decoder;
    Record& log = record();
    const std::lock_guard lock(log.mutex);
    if (!text.empty()) log.lastError = text;
}

}  // namespace

void captureLog() {
    av_log_set_callback(receive);
}

LoggedErrors loggedErrors() {
    return t_counts;
}

RefusedSize takeRefusedSize() {
    return std::exchange(t_refused, {});
}

std::string takeLastError() {
    const std::lock_guard lock(record().mutex);
    return std::exchange(record().lastError, {});
}

std::string reason(int code) {
    char text[AV_ERROR_MAX_STRING_SIZE];
    std::string words = av_make_error_string(text, sizeof text, code);
    if (words.empty()) words = "unknown error";
    words[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(words[0])));
    const std::string logged = takeLastError();
    return logged.empty() ? words : words + " (" + logged + ")";
}

}  // namespace brushworks::media
