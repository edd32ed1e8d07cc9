// What a run reads, so that it writes none of it.
#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <utility>

namespace brushworks::tools {

/// Tells where paths lead: two names of a file, through links and folders, are one place.
class FilePlaces {
  public:
    std::string of(const std::string& path);

  private:
    std::map<std::string, std::string> m_folders;  ///< found already: of many files there are few
};

/// The files that a run reads. Whatever opens an output asks here first.
class InputFiles {
  public:
    /// Adds a file, or standard input for "-".
    void add(const std::string& path);

    /// Throws std::runtime_error when `output`, or what standard output goes to for "-", is one of
    /// them: in the same place, or the same file by another name.
    void refuse(const std::string& output) const;

  private:
    using FileId = std::pair<dev_t, ino_t>;

    FilePlaces m_places;
    // Both: a file may be replaced under its name while the run goes on.
    std::map<std::string, std::string> m_byPlace;  ///< names as the user knows them
    std::map<FileId, std::string> m_byId;          ///< likewise
};

}  // namespace brushworks::tools
