// Count, rate and time left, drawn as a bar or written in lines.
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

const std::vector<std::string>& progressStyleNames() {
    static const std::vector<std::string> names = {"bar", "kv", "none"};
    return names;
}

ProgressStyle progressStyle(const std::string& name, bool quiet) {
    if (name.empty()) return quiet ? ProgressStyle::None : ProgressStyle::Bar;
    if (name == "kv") return ProgressStyle::Lines;
    return name == "bar" ? ProgressStyle::Bar : ProgressStyle::None;
}

Progress::Progress(std::int64_t total, ProgressWords words, ProgressStyle style)
    : m_nTotal(total), m_words(words), m_style(style) {
    if (style == ProgressStyle::Bar && isatty(STDERR_FILENO) == 0) m_style = ProgressStyle::None;
    // Whoever reads them learns at once what is to come.
    if (style == ProgressStyle::Lines) writeLines(0, /*end=*/false);
}

Progress::~Progress() {
    if (m_style == ProgressStyle::Bar) std::fputs(kClearLine, stderr);
}

void Progress::step() {
    ++m_nDone;
    if (m_style == ProgressStyle::None) return;
    const Clock::time_point now = Clock::now();
    if (now - m_drawn < kInterval) return;
    m_drawn = now;
    draw(now);
}

void Progress::finish() {
    // An estimate may have been wrong; what is done is all there was.
    m_nTotal = m_nDone;
    if (m_style == ProgressStyle::Lines) writeLines(rateAt(Clock::now()), /*end=*/true);
}

double Progress::rateAt(Clock::time_point now) const {
    const double seconds = std::chrono::duration<double>(now - m_start).count();
    return seconds > 0 ? static_cast<double>(m_nDone) / seconds : 0;
}

void Progress::draw(Clock::time_point now) const {
    if (m_style == ProgressStyle::Bar) drawBar(rateAt(now));
    if (m_style == ProgressStyle::Lines) writeLines(rateAt(now), /*end=*/false);
}

void Progress::drawBar(double rate) const {
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

void Progress::writeLines(double rate, bool end) const {
    char left[32] = "N/A";
    char total[32] = "N/A";
    if (m_nTotal > 0) {
        std::snprintf(total, sizeof total, "%lld", static_cast<long long>(m_nTotal));
        const auto remaining = static_cast<double>(std::max(m_nTotal - m_nDone, std::int64_t{0}));
        if (rate > 0) std::snprintf(left, sizeof left, "%.1f", remaining / rate);
    }
    // In one call, so that no other line comes between.
    std::fprintf(stderr, "%s=%lld\ntotal=%s\n%s=%.2f\neta_s=%s\nprogress=%s\n", m_words.thingKey,
                 static_cast<long long>(m_nDone), total, m_words.rateKey, rate, left,
                 end ? "end" : "continue");
}

}  // namespace brushworks::tools
