// Asks by extension names and entry points. Apart from the calls of OpenGL, whose header makes
// macros of some of the record's names.
#include "host/gl/features.h"

#include "host/gl/context.h"
#include "host/gl/extension_list.h"

namespace brushworks::host::gl {

ARBHelper askFeatures(const char* extensions) {
    const auto has = [=](const char* name) { return listHolds(extensions, name); };
    ARBHelper f{};
    f.glDrawArraysInstancedARB = Context::entryPoint("glDrawArraysInstancedARB");
    f.glDrawElementsInstancedARB = Context::entryPoint("glDrawElementsInstancedARB");
    f.glGetQueryObjecti64vEXT = Context::entryPoint("glGetQueryObjecti64vEXT");
    f.bShaderObjects = has("GL_ARB_shader_objects");
    f.bFramebufferObject = has("GL_EXT_framebuffer_object");
    f.bMultitexture = has("GL_ARB_multitexture");
    f.bBlendColor = has("GL_EXT_blend_color");
    f.bBlendMinmax = has("GL_EXT_blend_minmax");
    f.bBlendFuncSeparate = has("GL_EXT_blend_func_separate");
    f.bBlendEquationSeparate = has("GL_EXT_blend_equation_separate");
    f.bFramebufferBlit = has("GL_EXT_framebuffer_blit");
    f.bFramebufferMultisample = has("GL_EXT_framebuffer_multisample");
    f.bOcclusionQuery = has("GL_ARB_occlusion_query");
    f.bTimerQuery = has("GL_EXT_timer_query") && f.glGetQueryObjecti64vEXT != nullptr;
    f.bPixelBufferObject = has("GL_ARB_pixel_buffer_object");
    f.bVertexBufferObject = has("GL_ARB_vertex_buffer_object");
    f.bVertexProgram = has("GL_ARB_vertex_program");
    f.bATIMemInfo = has("GL_ATI_meminfo");
    f.bNVXGpuMemoryInfo = has("GL_NVX_gpu_memory_info");
    f.bDrawInstanced = has("GL_ARB_draw_instanced") && f.glDrawArraysInstancedARB != nullptr &&
                       f.glDrawElementsInstancedARB != nullptr;
    // Every context of ours has geometry shaders in the core language, listed or not.
    f.bGeometryShader4 = true;
    f.bHalfFloatVertex = has("GL_ARB_half_float_vertex");
    return f;
}

}  // namespace brushworks::host::gl
