// The shared library while it is in memory. Internal to the host layer.
#pragma once

#include <string>

#include "brushworks/library.h"
#include "host/ref.h"
#include "host/video_host.h"

namespace brushworks::host {

/// Holds the file open, and its library object. Lives until the last effect is gone.
class LoadedLibrary {
  public:
    /// Throws Error.
    LoadedLibrary(const std::string& path, HostOptions options);
    ~LoadedLibrary();
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    /// The library's operations may be called on any thread, so a const holder may call them.
    IEffectLibrary& collection() const { return *m_pCollection; }
    const HostOptions& options() const { return m_options; }
    /// A new effect object; null past the last.
    Ref<IVideoEffect> create(unsigned int index) const {
        return Ref<IVideoEffect>::adopt(m_pCollection->CreateEffect(index));
    }

  private:
    HostOptions m_options;
    void* m_pFile = nullptr;
    CanUnloadDLLNowFunction* m_pfCanUnload = nullptr;
    Ref<IEffectLibrary> m_pCollection;
};

}  // namespace brushworks::host
