#include "panels/testing_desktop.h"

#include <stdlib.h>

#include <fstream>
#include <utility>

namespace brushworks::testing {
namespace {

namespace fs = std::filesystem;

constexpr char kEndOfRun[] = "<end of run>";

}  // namespace

DesktopTest::DesktopTest() {
    std::string name = (fs::temp_directory_path() / "brushworks-panels-XXXXXX").string();
    m_folder = mkdtemp(name.data());
    Set("PATH", m_folder.c_str());
    Set("DISPLAY", ":0");
    for (const char* variable : {"WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"})
        Set(variable, nullptr);
}

DesktopTest::~DesktopTest() {
    for (const auto& [variable, value] : m_before) {
        if (value) {
            setenv(variable.c_str(), value->c_str(), 1);
        } else {
            unsetenv(variable.c_str());
        }
    }
    fs::remove_all(m_folder);
}

void DesktopTest::Set(const char* variable, const char* value) {
    const char* before = getenv(variable);
    m_before.try_emplace(variable, before ? std::optional<std::string>(before) : std::nullopt);
    if (value) {
        setenv(variable, value, 1);
    } else {
        unsetenv(variable);
    }
}

std::string DesktopTest::Before(const char* variable) const {
    const auto found = m_before.find(variable);
    return found == m_before.end() ? "" : found->second.value_or("");
}

void DesktopTest::Install(const std::string& program, const std::string& script) {
    std::ofstream(path(program)) << "#!/bin/sh\nprintf '%s\\0' \"$@\" '" << kEndOfRun << "' >> '"
                                 << path(program) << ".words'\n"
                                 << script << "\n";
    fs::permissions(path(program), fs::perms::owner_all);
}

std::vector<std::vector<std::string>> DesktopTest::RunsOf(const std::string& program) const {
    std::ifstream words(path(program) + ".words", std::ios::binary);
    std::vector<std::vector<std::string>> runs;
    std::vector<std::string> run;
    for (std::string word; std::getline(words, word, '\0');) {
        if (word == kEndOfRun) {
            runs.push_back(std::exchange(run, {}));
        } else {
            run.push_back(word);
        }
    }
    return runs;
}

}  // namespace brushworks::testing
