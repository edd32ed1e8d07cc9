// Finds OpenGL at run time and makes a context on the best device that has one.
#include "host/gl/context.h"

#include <dlfcn.h>
#include <epoxy/egl.h>
#include <epoxy/gl.h>

#include <array>
#include <cstdlib>
#include <mutex>
#include <vector>

#include "host/error.h"
#include "host/gl/extension_list.h"

namespace brushworks::host::gl {
namespace {

constexpr char kInstall[] =
    "install libegl1, libopengl0 and libgl1-mesa-dri (Mesa, which also renders without a graphics "
    "card) or the graphics card's driver";

bool opens(const char* library) {
    // Kept open: the dispatch layer opens it next, and drivers do not like to be unloaded.
    return dlopen(library, RTLD_LAZY | RTLD_LOCAL) != nullptr;
}

/// The dispatch layer ends the process where these are missing, so they are looked for first.
void requireLibraries() {
    if (!opens("libEGL.so.1")) throw Error(std::string("no libEGL.so.1; ") + kInstall);
    if (!opens("libOpenGL.so.0") && !opens("libGL.so.1")) {
        throw Error(std::string("neither libOpenGL.so.0 nor libGL.so.1; ") + kInstall);
    }
}

/// Mesa has geometry shaders in the core language but does not list the older extension by which
/// effects ask for them. It reads this variable once, when the first context is made.
void declareGeometryShaders() {
    static std::once_flag once;
    std::call_once(once, [] {
        constexpr char kVariable[] = "MESA_EXTENSION_OVERRIDE";
        constexpr char kName[] = "GL_EXT_geometry_shader4";
        const char* before = std::getenv(kVariable);
        std::string value = before != nullptr ? before : "";
        if (value.find(kName) != std::string::npos) return;
        if (!value.empty()) value += ' ';
        setenv(kVariable, (value + '+' + kName).c_str(), 1);
    });
}

EGLDisplay platformDisplay(EGLenum platform, void* native) {
    return eglGetPlatformDisplayEXT(platform, native, nullptr);
}

/// One for each device that is not the processor itself.
std::vector<EGLDisplay> hardwareDisplays(const char* clientExtensions) {
    std::vector<EGLDisplay> displays;
    if (!listHolds(clientExtensions, "EGL_EXT_device_enumeration") ||
        !listHolds(clientExtensions, "EGL_EXT_platform_device")) {
        return displays;
    }
    std::array<EGLDeviceEXT, 32> devices{};
    EGLint count = 0;
    if (eglQueryDevicesEXT(EGLint(devices.size()), devices.data(), &count) == EGL_FALSE) return {};
    for (EGLint i = 0; i < count; ++i) {
        EGLDeviceEXT device = devices.at(std::size_t(i));
        const char* extensions = eglQueryDeviceStringEXT(device, EGL_EXTENSIONS);
        if (listHolds(extensions, "EGL_MESA_device_software")) continue;
        displays.push_back(platformDisplay(EGL_PLATFORM_DEVICE_EXT, device));
    }
    return displays;
}

/// A context on the display, current on this thread; null where it has none of our kind.
EGLContext openOn(EGLDisplay display, bool debug) {
    EGLint major = 0;
    EGLint minor = 0;
    if (display == EGL_NO_DISPLAY || eglInitialize(display, &major, &minor) == EGL_FALSE) {
        return EGL_NO_CONTEXT;
    }
    const char* extensions = eglQueryString(display, EGL_EXTENSIONS);
    if (!listHolds(extensions, "EGL_KHR_no_config_context") ||
        !listHolds(extensions, "EGL_KHR_surfaceless_context") ||
        eglBindAPI(EGL_OPENGL_API) == EGL_FALSE) {
        return EGL_NO_CONTEXT;
    }
    // Without a version asked for, drivers give their newest compatibility profile.
    std::vector<EGLint> attributes;
    if (debug && (major > 1 || minor >= 5)) attributes = {EGL_CONTEXT_OPENGL_DEBUG, EGL_TRUE};
    attributes.push_back(EGL_NONE);
    EGLContext context =
        eglCreateContext(display, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, attributes.data());
    if (context == EGL_NO_CONTEXT) return context;
    if (eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context) == EGL_FALSE) {
        eglDestroyContext(display, context);
        return EGL_NO_CONTEXT;
    }
    return context;
}

std::string glText(GLenum name) {
    const GLubyte* text = glGetString(name);
    return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

bool rendersOnProcessor(const std::string& renderer) {
    for (const char* name : {"llvmpipe", "softpipe", "swrast", "Software Rasterizer"}) {
        if (renderer.find(name) != std::string::npos) return true;
    }
    return false;
}

GLDescription describe() {
    GLDescription description{glText(GL_VENDOR), glText(GL_RENDERER), glText(GL_VERSION),
                              glText(GL_SHADING_LANGUAGE_VERSION), false};
    description.hardware = !rendersOnProcessor(description.renderer);
    return description;
}

/// What the current context lacks of what this host and the effects build on, or "".
std::string whatIsLacking() {
    GLint major = 0;
    GLint minor = 0;
    glGetIntegerv(GL_MAJOR_VERSION, &major);
    glGetIntegerv(GL_MINOR_VERSION, &minor);
    if (major < 3 || (major == 3 && minor < 2)) return "OpenGL 3.2";
    GLint profile = 0;
    glGetIntegerv(GL_CONTEXT_PROFILE_MASK, &profile);
    if ((profile & GL_CONTEXT_COMPATIBILITY_PROFILE_BIT) == 0) return "the compatibility profile";
    const std::string extensions = glText(GL_EXTENSIONS);
    for (const char* name : {"GL_ARB_direct_state_access", "GL_ARB_get_texture_sub_image",
                             "GL_ARB_separate_shader_objects"}) {
        if (!listHolds(extensions.c_str(), name)) return name;
    }
    return "";
}

}  // namespace

Context::Context(const ContextOptions& options) {
    requireLibraries();
    declareGeometryShaders();
    const char* clientExtensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    std::vector<EGLDisplay> displays = hardwareDisplays(clientExtensions);
    if (listHolds(clientExtensions, "EGL_MESA_platform_surfaceless")) {
        displays.push_back(platformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY));
    }

    std::string refused;
    for (EGLDisplay display : displays) {
        EGLContext context = openOn(display, options.debug);
        if (context == EGL_NO_CONTEXT) continue;
        m_pDisplay = display;
        m_pContext = context;
        m_description = describe();
        std::string lacking = whatIsLacking();
        if (lacking.empty() && options.requireHardware && !m_description.hardware) {
            lacking = "a graphics card";
        }
        if (lacking.empty()) return;
        refused +=
            "; " + m_description.renderer + " (" + m_description.version + ") lacks " + lacking;
        release();
        eglDestroyContext(m_pDisplay, m_pContext);
    }
    throw Error("no OpenGL context for effects" + refused + "; " + kInstall);
}

Context::~Context() {
    release();
    // The display stays open: EGL has one per process, which other contexts may share.
    eglDestroyContext(m_pDisplay, m_pContext);
}

bool Context::makeCurrent() {
    // Each thread begins with another API bound.
    eglBindAPI(EGL_OPENGL_API);
    return eglMakeCurrent(m_pDisplay, EGL_NO_SURFACE, EGL_NO_SURFACE, m_pContext) == EGL_TRUE;
}

void Context::release() {
    if (!isCurrent()) return;
    eglMakeCurrent(m_pDisplay, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

bool Context::isCurrent() const {
    eglBindAPI(EGL_OPENGL_API);
    return eglGetCurrentContext() == m_pContext;
}

void* Context::entryPoint(const char* name) {
    return reinterpret_cast<void*>(eglGetProcAddress(name));
}

}  // namespace brushworks::host::gl
