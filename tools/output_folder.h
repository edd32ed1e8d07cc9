// A folder of files that appears only when it is whole.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "input_files.h"
#include "unfinished.h"

namespace brushworks::tools {

/// Reserves a folder: its files are written in temporaryPath(), which takes the folder's name in
/// commit(). The folder holds no further folders. It also gets a list of its files, by which a
/// later run knows it as its own; no other folder that holds anything is ever replaced. Without a
/// commit nothing is left behind, also when a signal ends the program. One at a time.
class OutputFolder {
  public:
    /// Throws std::runtime_error when the folder holds one of the run's inputs or other files, or
    /// files of its own while `replace` is false.
    OutputFolder(const std::string& path, bool replace, InputFiles inputs);

    const std::string& temporaryPath() const { return m_unfinished->path(); }
    /// Gives the folder its name, on disk and whole.
    void commit();

  private:
    enum class Holds { kNothing, kOwnFiles };

    Holds checkTarget() const;

    std::string m_sGiven;  ///< the path as the user knows it
    std::filesystem::path m_path;
    bool m_bReplace;
    InputFiles m_inputs;
    std::optional<Unfinished> m_unfinished;
};

}  // namespace brushworks::tools
