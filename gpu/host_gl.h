// The host's maker of GL objects, asked for once and held for the length of a call.
#pragma once

#include "brushworks/gl.h"
#include "brushworks/host.h"

namespace brushworks {

/// A reference on it; empty where the host offers none.
class HostGL {
  public:
    explicit HostGL(IVideoHost* host) {
        void* face = nullptr;
        if (host && host->QueryInterface(IID_VideoHostGL, &face) == kInterfaceFound)
            m_pHostGL = static_cast<IVideoHostGL*>(face);
    }
    ~HostGL() {
        if (m_pHostGL) m_pHostGL->Release();
    }
    HostGL(const HostGL&) = delete;
    HostGL& operator=(const HostGL&) = delete;

    explicit operator bool() const { return m_pHostGL != nullptr; }
    IVideoHostGL* get() const { return m_pHostGL; }

  private:
    IVideoHostGL* m_pHostGL = nullptr;
};

}  // namespace brushworks
