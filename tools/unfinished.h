// A file or a folder under a name of its own until it is whole.
#pragma once

#include <filesystem>
#include <string>

namespace brushworks::tools {

/// Throws std::runtime_error that says what cannot be written and why.
[[noreturn]] void failWriting(const std::filesystem::path& path, int error);

/// Puts a file, or the names in a folder, on the disk.
void syncToDisk(const std::string& path);

/// Where a path leads to when it is a link; else the path.
std::filesystem::path behindLink(const std::filesystem::path& path);

/// Makes a file or folder beside `target`, and removes it again unless it was kept, also when a
/// signal ends the program. One at a time.
class Unfinished {
  public:
    /// Makes what the path names, if there is nothing yet; an error number, or 0.
    using Make = int (*)(const std::string& path);

    Unfinished(const std::filesystem::path& target, Make make);
    ~Unfinished();
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

    const std::string& path() const { return m_sPath; }
    /// Nothing is removed any more: it is whole and has another name.
    void keep();

  private:
    std::string m_sPath;
    bool m_bPending = false;
};

}  // namespace brushworks::tools
