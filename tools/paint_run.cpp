// Turns options into settings, and keeps what has been said and done.
#include "paint_run.h"

extern "C" {
#include <libavutil/parseutils.h>
}

#include <signal.h>

#include <algorithm>
#include <filesystem>

#include "host/error.h"
#include "output_file.h"

namespace brushworks::tools {
namespace {

constexpr int kPreviewLines = 480;
constexpr double kPreviewSeconds = 2;

AVRational rateOf(const std::string& text) {
    AVRational rate = {0, 1};
    if (av_parse_video_rate(&rate, text.c_str()) < 0) {
        throw host::UsageError("\"" + text + "\" is no rate of frames; write 25, 23.976 or " +
                               "30000/1001");
    }
    return rate;
}

}  // namespace

void PaintRun::tell(const std::vector<std::string>& notes) {
    for (const std::string& text : notes) {
        if (std::ranges::find(m_told, text) != m_told.end()) continue;
        m_told.push_back(text);
        m_note(text);
    }
}

Scaled PaintRun::scaled() const {
    return m_options.scale.empty() && !m_options.preview ? Scaled::No : Scaled::Yes;
}

media::Reader PaintRun::openPicture(const std::string& path) {
    const std::lock_guard lock(m_opening);
    return media::Reader(path, decodingLimit());
}

void PaintRun::begin(std::int64_t frames) {
    if (m_progress) return;
    ProgressStyle style = progressStyle(m_options.progress, m_options.quiet);
    // A bar of one frame would be full before it is seen.
    if (m_bSingle && frames == 1 && style == ProgressStyle::Bar) style = ProgressStyle::None;
    m_progress.emplace(m_bSingle ? frames : 0, ProgressWords{"frames", "fps", "frame", "fps"},
                       style);
}

void PaintRun::writePicture(const std::string& output, const std::string& bytes) {
    OutputFile file(output, m_options.force, m_inputs);
    file.write(bytes);
    file.commit();
    step();
}

void PaintRun::finish() {
    if (m_progress) m_progress->finish();
}

bool PaintRun::isDone(const std::string& output) const {
    if (!m_options.resume || output == "-") return false;
    m_inputs.refuse(output);
    std::error_code ignored;
    return std::filesystem::is_regular_file(output, ignored);
}

void PaintRun::checkOutput(const std::string& output) const {
    if (output == "-") {
        m_inputs.refuse(output);
    } else {
        OutputFile::check(output, m_options.force, m_inputs);
    }
}

PlanWishes wishesOf(const PaintOptions& options, AVRational usualRate) {
    PlanWishes wishes = {.encoding = options.encoding,
                         .render = {.seed = options.seed, .fields = options.fields},
                         .scaling = {},
                         .part = {}};
    if (!options.scale.empty()) {
        wishes.scaling = Scaling::parse(options.scale);
    } else if (options.preview) {
        wishes.scaling = Scaling::atMostLines(kPreviewLines);
    }
    if (!options.frames.empty()) wishes.part.range = FrameRange::parse(options.frames);
    if (options.preview) wishes.part.seconds = kPreviewSeconds;
    wishes.part.rate = options.rate.empty() ? usualRate : rateOf(options.rate);
    return wishes;
}

void failOnWriting() {
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
}

}  // namespace brushworks::tools
