// The library as C++ callers use it: load it, see what it has, open an effect.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brushworks/library.h"
#include "host/effect.h"
#include "host/video_host.h"

namespace brushworks::host {

/// An effect in the library's list.
struct EffectEntry {
    unsigned int index;
    std::string id;    ///< short name for command lines and files
    std::string name;  ///< display name
};

/// A loaded library. Effects that were opened keep it loaded. Copies share it. [any thread]
class Library {
  public:
    /// Loads the library from `path`; with an empty path from where the environment variable
    /// BRUSHWORKS_LIBRARY says; without that from where the system's loader finds it. Throws Error.
    static Library load(const std::string& path = "", HostOptions options = {});

    /// The collection's name.
    std::string name() const;
    /// All effects in the order of their indexes.
    const std::vector<EffectEntry>& effects() const;
    /// Opens an effect by id, display name (both in any letter case) or index. Throws UsageError.
    Effect open(std::string_view effect) const;
    Effect open(unsigned int index) const;

  private:
    explicit Library(std::shared_ptr<const LoadedLibrary> loaded);

    std::shared_ptr<const LoadedLibrary> m_pLoaded;
    std::shared_ptr<const std::vector<EffectEntry>> m_pEffects;
};

}  // namespace brushworks::host
