// An output file that appears only when it is whole.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "input_files.h"
#include "unfinished.h"

namespace brushworks::tools {

/// Reserves an output: what is written goes to temporaryPath(), in the folder of the output, and
/// takes the output's name in commit(). Without a commit nothing is left behind, also when a signal
/// ends the program. One at a time.
class OutputFile {
  public:
    /// Throws std::runtime_error when the path leads to one of the run's inputs, when there is such
    /// a file and `replace` is false, or when the folder takes no file.
    OutputFile(const std::string& path, bool replace, const InputFiles& inputs);

    /// Throws what the constructor would, and makes nothing.
    static void check(const std::string& path, bool replace, const InputFiles& inputs);

    const std::string& temporaryPath() const { return m_unfinished->path(); }
    /// Writes all that the file holds.
    void write(const std::string& bytes);
    /// Gives the file its name, on disk and whole.
    void commit();

  private:
    std::filesystem::path m_path;
    bool m_bReplace;
    std::optional<Unfinished> m_unfinished;
};

}  // namespace brushworks::tools
