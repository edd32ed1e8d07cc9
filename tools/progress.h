// Tells how far a job is: as a line on the terminal, or in lines for programs.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace brushworks::tools {

enum class ProgressStyle {
    Bar,    ///< a line that is drawn again and again, where standard error is a terminal
    Lines,  ///< blocks of KEY=VALUE, the last line of each being progress=continue or =end
    None,
};

/// The words for the styles on a command line.
const std::vector<std::string>& progressStyleNames();
/// The style of that name; for "" the bar, or nothing when the user wants quiet.
ProgressStyle progressStyle(const std::string& name, bool quiet);

/// What is counted, and what as many in a second are called: for people, and as keys.
struct ProgressWords {
    const char* things;
    const char* rate;
    const char* thingKey;
    const char* rateKey;
};

/// Writes to standard error.
class Progress {
  public:
    /// `total` are expected, 0 when that is not known.
    Progress(std::int64_t total, ProgressWords words, ProgressStyle style);
    /// Clears the line.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// One more is done.
    void step();
    /// The job is done. Without this call it has failed, and lines have no end.
    void finish();

  private:
    using Clock = std::chrono::steady_clock;
    void draw(Clock::time_point now) const;
    void drawBar(double rate) const;
    void writeLines(double rate, bool end) const;
    /// How many a second so far.
    double rateAt(Clock::time_point now) const;

    std::int64_t m_nTotal;
    ProgressWords m_words;
    std::int64_t m_nDone = 0;
    ProgressStyle m_style;
    Clock::time_point m_start = Clock::now();
    Clock::time_point m_drawn = m_start;
};

}  // namespace brushworks::tools
