// Names of files, made from names for people.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace brushworks::tools {

/// Small letters, digits and hyphens, told apart on every file system.
class FileNames {
  public:
    /// All names end in `extension`, which starts with a point.
    explicit FileNames(std::string extension) : m_sExtension(std::move(extension)) {}

    /// A name that was not given before.
    std::string make(std::string_view name);

  private:
    std::string m_sExtension;
    std::set<std::string> m_used;
};

}  // namespace brushworks::tools
