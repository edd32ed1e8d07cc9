// A desktop made of scripts: a folder as the only one in PATH, and an environment put back
// afterwards.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace brushworks::testing {

/// Has a display, no bus and no dialog program, until a test says otherwise.
class DesktopTest : public ::testing::Test {
  protected:
    DesktopTest();
    ~DesktopTest() override;

    std::string path(const std::string& name) const { return (m_folder / name).string(); }
    /// Null unsets the variable.
    void Set(const char* variable, const char* value);
    /// The value that a variable had before the test.
    std::string Before(const char* variable) const;

    /// Puts a program in PATH that records its arguments and then runs `script` in the shell.
    void Install(const std::string& program, const std::string& script);
    /// The arguments of each run of the program so far.
    std::vector<std::vector<std::string>> RunsOf(const std::string& program) const;

  private:
    std::filesystem::path m_folder;
    std::map<std::string, std::optional<std::string>> m_before;
};

}  // namespace brushworks::testing
