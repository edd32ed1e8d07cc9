// A bus of its own, and a desktop portal on it that does as it is told.
#pragma once

#include <sys/types.h>

#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <thread>

namespace brushworks::testing {

/// A bus daemon with nothing on it. `folder` keeps its files.
class TestingBus {
  public:
    TestingBus(const std::string& daemon, const std::string& folder);
    TestingBus(const TestingBus&) = delete;
    TestingBus& operator=(const TestingBus&) = delete;
    ~TestingBus() { Stop(); }

    const std::string& address() const { return m_address; }
    void Stop();

  private:
    std::FILE* m_daemon = nullptr;
    pid_t m_process = 0;
    std::string m_address;
};

enum class Reaction {
    kAnswers,     ///< sends `code` and `uri`
    kIsImitated,  ///< has another on the bus answer first, with a path of theirs, and then answers
    kLeaves,      ///< accepts, and leaves the bus
    kHasNoChooser,  ///< knows nothing of files
    kIsSilent,      ///< never answers at all
};

/// What the portal was asked for.
struct PortalRequest {
    std::string method;
    std::string parent;
    std::string title;
    std::string name;
    std::string pattern;
    std::string folder;
};

/// Runs until the bus stops.
class TestingPortal {
  public:
    TestingPortal(const std::string& address, Reaction reaction, unsigned int code,
                  const std::string& uri);
    TestingPortal(const TestingPortal&) = delete;
    TestingPortal& operator=(const TestingPortal&) = delete;
    /// To be called when the bus has stopped.
    const PortalRequest& Requested();
    ~TestingPortal();

  private:
    PortalRequest m_request;
    std::thread m_thread;
};

}  // namespace brushworks::testing
