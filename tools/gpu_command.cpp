// Asks the OpenGL host and every effect.
#include "gpu_command.h"

#include <iomanip>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "host/gl/renderer.h"

namespace brushworks::tools {
namespace {

using host::gl::GLDescription;
using host::gl::Renderer;

/// A feature as drivers name it.
struct Feature {
    const char* name;
    bool ARBHelper::*answer;
    bool required;
};

constexpr Feature kFeatures[] = {
    {"GL_ARB_shader_objects", &ARBHelper::bShaderObjects, true},
    {"GL_EXT_framebuffer_object", &ARBHelper::bFramebufferObject, true},
    {"GL_ARB_multitexture", &ARBHelper::bMultitexture, true},
    {"GL_EXT_blend_color", &ARBHelper::bBlendColor, true},
    {"GL_EXT_blend_minmax", &ARBHelper::bBlendMinmax, true},
    {"GL_EXT_blend_func_separate", &ARBHelper::bBlendFuncSeparate, true},
    {"GL_EXT_blend_equation_separate", &ARBHelper::bBlendEquationSeparate, true},
    {"GL_EXT_framebuffer_blit", &ARBHelper::bFramebufferBlit, false},
    {"GL_EXT_framebuffer_multisample", &ARBHelper::bFramebufferMultisample, false},
    {"GL_ARB_occlusion_query", &ARBHelper::bOcclusionQuery, false},
    {"GL_EXT_timer_query", &ARBHelper::bTimerQuery, false},
    {"GL_ARB_pixel_buffer_object", &ARBHelper::bPixelBufferObject, false},
    {"GL_ARB_vertex_buffer_object", &ARBHelper::bVertexBufferObject, false},
    {"GL_ARB_vertex_program", &ARBHelper::bVertexProgram, false},
    {"GL_ATI_meminfo", &ARBHelper::bATIMemInfo, false},
    {"GL_NVX_gpu_memory_info", &ARBHelper::bNVXGpuMemoryInfo, false},
    {"GL_ARB_draw_instanced", &ARBHelper::bDrawInstanced, false},
    {"GL_EXT_geometry_shader4", &ARBHelper::bGeometryShader4, false},
    {"GL_ARB_half_float_vertex", &ARBHelper::bHalfFloatVertex, false},
};

struct Answer {
    host::EffectEntry effect;
    bool renders;
};

std::vector<Answer> askEffects(const host::Library& library, Renderer& renderer) {
    std::vector<Answer> answers;
    for (const host::EffectEntry& entry : library.effects()) {
        answers.push_back({entry, renderer.supports(library.open(entry.index))});
    }
    return answers;
}

void writeText(const GLDescription& driver, const ARBHelper& features,
               const std::vector<Answer>& answers, std::ostream& out) {
    out << "Renderer  " << driver.renderer << (driver.hardware ? "" : " (on the processor)")
        << "\nVendor    " << driver.vendor << "\nOpenGL    " << driver.version << "\nGLSL      "
        << driver.shadingLanguageVersion << "\n\nFeatures\n";
    for (const Feature& feature : kFeatures) {
        out << "  " << std::left << std::setw(32) << feature.name
            << (features.*feature.answer ? "yes" : "no") << (feature.required ? "  (required)" : "")
            << '\n';
    }
    out << "\nEffects that render with it\n";
    for (const Answer& answer : answers) {
        out << "  " << std::left << std::setw(16) << answer.effect.id
            << (answer.renders ? "yes" : "no, on the processor alone") << '\n';
    }
}

void writeJson(const GLDescription& driver, const ARBHelper& features,
               const std::vector<Answer>& answers, std::ostream& out) {
    nlohmann::ordered_json json = {{"renderer", driver.renderer},
                                   {"vendor", driver.vendor},
                                   {"version", driver.version},
                                   {"glsl", driver.shadingLanguageVersion},
                                   {"hardware", driver.hardware}};
    for (const Feature& feature : kFeatures) {
        json["features"][feature.name] = features.*feature.answer;
    }
    for (const Answer& answer : answers) json["effects"][answer.effect.id] = answer.renders;
    out << json.dump(2) << '\n';
}

}  // namespace

void describeGpu(const host::Library& library, const GpuOptions& options, std::ostream& out) {
    Renderer renderer = Renderer::create({.requireHardware = options.hardware});
    const ARBHelper features = *renderer.context().GetARBHelper();
    const std::vector<Answer> answers = askEffects(library, renderer);
    (options.json ? writeJson : writeText)(renderer.description(), features, answers, out);
}

}  // namespace brushworks::tools
