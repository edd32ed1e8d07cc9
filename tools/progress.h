// A line on the terminal that tells how far a job is.
#pragma once

#include <chrono>
#include <cstdint>

namespace brushworks::tools {

/// What is counted, and what as many in a second are called.
struct ProgressWords {
    const char* things;
    const char* rate;
};

/// Shows nothing unless standard error is a terminal.
class Progress {
  public:
    /// `total` are expected, 0 when that is not known.
    Progress(std::int64_t total, ProgressWords words, bool quiet);
    /// Clears the line.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// One more is done.
    void step();

  private:
    using Clock = std::chrono::steady_clock;
    void draw(Clock::time_point now) const;

    std::int64_t m_nTotal;
    ProgressWords m_words;
    std::int64_t m_nDone = 0;
    bool m_bShown;
    Clock::time_point m_start = Clock::now();
    Clock::time_point m_drawn = m_start;
};

}  // namespace brushworks::tools
