// Draws the progress line: a bar, the count, the rate and the time left.
#include "progress.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace brushworks::tools {
namespace {

constexpr auto kInterval = std::chrono::milliseconds(200);
constexpr int kBarWidth = 30;
constexpr char kClearLine[] = "\r\033[K";

std::string timeText(double seconds) {
    const auto whole = std::llround(seconds);
    char text[32];
    if (whole >= 3600) {
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60,
                      whole % 60);
    } else {
        std::snprintf(text, sizeof text, "%lld:%02lld", whole / 60, whole % 60);
    }
    return text;
}

}  // namespace

Progress::Progress(std::int64_t total, ProgressWords words, bool quiet)
    : m_nTotal(total), m_words(words), m_bShown(!quiet && isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() {
    if (m_bShown) std::fputs(kClearLine, stderr);
}

void Progress::step() {
    ++m_nDone;
    if (!m_bShown) return;
    const Clock::time_point now = Clock::now();
    if (now - m_drawn < kInterval) return;
    m_drawn = now;
    draw(now);
}

void Progress::draw(Clock::time_point now) const {
    const double seconds = std::chrono::duration<double>(now - m_start).count();
    const double rate = seconds > 0 ? static_cast<double>(m_nDone) / seconds : 0;
    if (m_nTotal <= 0) {
        std::fprintf(stderr, "%s%lld %s, %.1f %s", kClearLine, static_cast<long long>(m_nDone),
                     m_words.things, rate, m_words.rate);
        return;
    }
    // The expected number may be an estimate.
    const std::int64_t total = std::max(m_nTotal, m_nDone);
    const double share = static_cast<double>(m_nDone) / static_cast<double>(total);
    std::string bar(static_cast<std::size_t>(share * kBarWidth), '#');
    bar.resize(kBarWidth, '.');
    const double left = rate > 0 ? static_cast<double>(total - m_nDone) / rate : 0;
    std::fprintf(stderr, "%s[%s] %3.0f%%  %lld of %lld %s, %.1f %s, %s left", kClearLine,
                 bar.c_str(), share * 100, static_cast<long long>(m_nDone),
                 static_cast<long long>(total), m_words.things, rate, m_words.rate,
                 timeText(left).c_str());
}

}  // namespace brushworks::tools
