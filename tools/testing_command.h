// Runs the built command line in a folder of its own.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace brushworks::tools::testing {

/// How a run ended.
struct Result {
    int status = -1;  ///< exit status, or -1 after a signal
    int signal = 0;   ///< that ended it, or 0
    std::string out;
    std::string err;
    std::int64_t peakBytes = 0;  ///< of memory
};

/// A test in a fresh folder, which is the current one of all runs.
class CommandTest : public ::testing::Test {
  protected:
    CommandTest();
    ~CommandTest() override;

    std::string path(const std::string& name) const { return (m_folder / name).string(); }
    /// The names of all files in the folder.
    std::set<std::string> files() const;

    /// Starts a run; `library` replaces the real effect library unless it is empty.
    pid_t start(const std::vector<std::string>& arguments, const std::string& library = "");
    Result wait(pid_t process) const;
    Result run(const std::vector<std::string>& arguments, const std::string& library = "") {
        return wait(start(arguments, library));
    }
    /// `paint` with Posterize.
    Result paint(const std::string& input, const std::string& output,
                 std::vector<std::string> more = {});

  private:
    std::filesystem::path m_folder;
};

std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& bytes);

}  // namespace brushworks::tools::testing
