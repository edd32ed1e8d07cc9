#include "gpu/gl_lookup.h"

#include <dlfcn.h>

#include <cstring>
#include <initializer_list>

namespace brushworks {
namespace {

using Procedure = void (*)();
using GetProcAddress = Procedure (*)(const char*);
using GetString = const unsigned char* (*)(unsigned int);

constexpr unsigned int kExtensions = 0x1F03;  // GL_EXTENSIONS

/// The system's OpenGL, opened once and kept: drivers do not like to be unloaded.
void* OpenGL() {
    static void* const library = [] {
        for (const char* name : {"libOpenGL.so.0", "libGL.so.1", "libGL.so"})
            if (void* opened = dlopen(name, RTLD_LAZY | RTLD_LOCAL)) return opened;
        return static_cast<void*>(nullptr);
    }();
    return library;
}

/// The lookup of the platform that the host made its context with: whichever is in the process. A
/// host may have loaded it for itself alone, so it is asked for by name.
GetProcAddress PlatformLookup() {
    struct Platform {
        const char *library, *function;
    };
    constexpr Platform kPlatforms[] = {{"libEGL.so.1", "eglGetProcAddress"},
                                       {"libGLX.so.0", "glXGetProcAddressARB"},
                                       {"libGL.so.1", "glXGetProcAddressARB"}};
    for (const Platform& platform : kPlatforms) {
        void* loaded = dlopen(platform.library, RTLD_LAZY | RTLD_NOLOAD);
        if (!loaded) continue;
        void* found = dlsym(loaded, platform.function);
        dlclose(loaded);  // the host's own reference holds it
        if (found) return reinterpret_cast<GetProcAddress>(found);
    }
    return nullptr;
}

}  // namespace

void* FindGLProcedure(const char* name) {
    if (void* library = OpenGL())
        if (void* found = dlsym(library, name)) return found;
    if (GetProcAddress lookup = PlatformLookup()) return reinterpret_cast<void*>(lookup(name));
    return nullptr;
}

bool ListHoldsExtension(const char* list, const char* name) {
    const std::size_t length = std::strlen(name);
    if (!list || length == 0) return false;
    for (const char* at = std::strstr(list, name); at; at = std::strstr(at + 1, name)) {
        const bool begins = at == list || at[-1] == ' ';
        const bool ends = at[length] == ' ' || at[length] == '\0';
        if (begins && ends) return true;
    }
    return false;
}

bool IsExtensionSupported(const char* name) {
    const auto getString = reinterpret_cast<GetString>(FindGLProcedure("glGetString"));
    if (!getString) return false;
    return ListHoldsExtension(reinterpret_cast<const char*>(getString(kExtensions)), name);
}

bool RefreshFeatures(ARBHelper& f) {
    f.glDrawArraysInstancedARB = FindGLProcedure("glDrawArraysInstancedARB");
    f.glDrawElementsInstancedARB = FindGLProcedure("glDrawElementsInstancedARB");
    f.glGetQueryObjecti64vEXT = FindGLProcedure("glGetQueryObjecti64vEXT");

    if (!(f.bShaderObjects = IsExtensionSupported("GL_ARB_shader_objects"))) return false;
    if (!(f.bFramebufferObject = IsExtensionSupported("GL_EXT_framebuffer_object"))) return false;
    if (!(f.bMultitexture = IsExtensionSupported("GL_ARB_multitexture"))) return false;
    f.bBlendColor = IsExtensionSupported("GL_EXT_blend_color");
    f.bBlendMinmax = IsExtensionSupported("GL_EXT_blend_minmax");
    f.bBlendFuncSeparate = IsExtensionSupported("GL_EXT_blend_func_separate");
    f.bBlendEquationSeparate = IsExtensionSupported("GL_EXT_blend_equation_separate");
    if (!f.bBlendColor || !f.bBlendMinmax || !f.bBlendFuncSeparate || !f.bBlendEquationSeparate)
        return false;

    f.bFramebufferBlit = IsExtensionSupported("GL_EXT_framebuffer_blit");
    f.bFramebufferMultisample = IsExtensionSupported("GL_EXT_framebuffer_multisample");
    f.bOcclusionQuery = IsExtensionSupported("GL_ARB_occlusion_query");
    f.bTimerQuery = IsExtensionSupported("GL_EXT_timer_query") && f.glGetQueryObjecti64vEXT;
    f.bPixelBufferObject = IsExtensionSupported("GL_ARB_pixel_buffer_object");
    f.bVertexBufferObject = IsExtensionSupported("GL_ARB_vertex_buffer_object");
    f.bVertexProgram = IsExtensionSupported("GL_ARB_vertex_program");
    f.bATIMemInfo = IsExtensionSupported("GL_ATI_meminfo");
    f.bNVXGpuMemoryInfo = IsExtensionSupported("GL_NVX_gpu_memory_info");
    f.bDrawInstanced = IsExtensionSupported("GL_ARB_draw_instanced") &&
                       f.glDrawArraysInstancedARB && f.glDrawElementsInstancedARB;
    f.bGeometryShader4 = IsExtensionSupported("GL_EXT_geometry_shader4");
    f.bUnusedFeature = false;
    f.bHalfFloatVertex = IsExtensionSupported("GL_ARB_half_float_vertex");
    return true;
}

}  // namespace brushworks
