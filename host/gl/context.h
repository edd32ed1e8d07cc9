// An OpenGL context of our own without a window: on the graphics card where there is one, else on
// the processor through Mesa.
#pragma once

#include <string>

namespace brushworks::host::gl {

/// What a context must have.
struct ContextOptions {
    bool requireHardware = false;  ///< refuse a context that renders on the processor
    bool debug = false;            ///< ask the driver for messages about wrong use
};

/// Which OpenGL was found.
struct GLDescription {
    std::string vendor;
    std::string renderer;
    std::string version;
    std::string shadingLanguageVersion;
    bool hardware = false;  ///< a graphics card renders, not the processor
};

/// A compatibility-profile context. It is current on the thread that makes it, and may move to
/// another: release() there, makeCurrent() here. [one thread at a time]
class Context {
  public:
    /// Throws Error, which tells what to install where OpenGL is missing.
    explicit Context(const ContextOptions& options);
    ~Context();
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    /// False when the context is current on another thread.
    bool makeCurrent();
    /// Leaves the thread without a context, if this one is current.
    void release();
    bool isCurrent() const;

    /// The driver's entry point of that name. [any thread]
    static void* entryPoint(const char* name);

    const GLDescription& description() const { return m_description; }

  private:
    // EGL's handles.
    void* m_pDisplay = nullptr;
    void* m_pContext = nullptr;
    GLDescription m_description;
};

}  // namespace brushworks::host::gl
