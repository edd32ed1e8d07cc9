// What went wrong on a context, for whoever debugs: the driver's messages about wrong use, errors
// after the host's own operations, and what the host itself has to complain about.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace brushworks::host::gl {

/// Collects problems while enabled; costs nothing while not. [the context's thread]
class DebugLog {
  public:
    /// Listens to the current context, whose driver keeps a pointer to this object.
    explicit DebugLog(bool enabled);
    DebugLog(const DebugLog&) = delete;
    DebugLog& operator=(const DebugLog&) = delete;

    /// To be called before the log goes, while its context is current.
    void stopListening();

    bool enabled() const { return m_bEnabled; }
    void add(std::string problem);
    /// Takes the pending errors, which are collected with the name of the operation that just ended
    /// unless the driver has told about them by itself.
    void check(const char* operation);
    /// The problems so far, which are forgotten.
    std::vector<std::string> take() { return std::exchange(m_problems, {}); }

    /// While one lives, the driver's messages are dropped: an allocation that may fail is tried.
    class Muted {
      public:
        explicit Muted(DebugLog& log) : m_log(log) { m_log.m_bMuted = true; }
        ~Muted() { m_log.m_bMuted = false; }
        Muted(const Muted&) = delete;
        Muted& operator=(const Muted&) = delete;

      private:
        DebugLog& m_log;
    };

  private:
    struct Callback;

    bool m_bEnabled;
    bool m_bListening = false;
    bool m_bMuted = false;
    std::vector<std::string> m_problems;
};

/// Takes all pending errors away; whether there were any.
bool drainErrors();

}  // namespace brushworks::host::gl
