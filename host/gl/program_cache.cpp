// From texts to programs.
#include "host/gl/program_cache.h"

#include <epoxy/gl.h>

#include <vector>

namespace brushworks::host::gl {
namespace {

struct Stage {
    GLenum type;
    const char* name;
};

constexpr Stage kStages[] = {{GL_VERTEX_SHADER, "vertex"},
                             {GL_FRAGMENT_SHADER, "fragment"},
                             {GL_GEOMETRY_SHADER, "geometry"}};

std::string numberedLines(const std::string& text) {
    std::string lines;
    int number = 0;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines += std::to_string(++number) + ": " + text.substr(start, end - start) + '\n';
        start = end + 1;
    }
    return lines;
}

std::string compileLog(GLuint shader) {
    GLint length = 0;
    glGetShaderiv(shader, GL_INFO_LOG_LENGTH, &length);
    std::vector<char> log(std::size_t(std::max(length, 1)));
    glGetShaderInfoLog(shader, GLsizei(log.size()), nullptr, log.data());
    return log.data();
}

std::string linkLog(GLuint program) {
    GLint length = 0;
    glGetProgramiv(program, GL_INFO_LOG_LENGTH, &length);
    std::vector<char> log(std::size_t(std::max(length, 1)));
    glGetProgramInfoLog(program, GLsizei(log.size()), nullptr, log.data());
    return log.data();
}

/// Compiles a stage into the program; returns what went wrong, or "".
std::string attachStage(GLuint program, const Stage& stage, const std::string& text) {
    const GLuint shader = glCreateShader(stage.type);
    const char* start = text.data();
    const auto length = GLint(text.size());
    glShaderSource(shader, 1, &start, &length);
    glCompileShader(shader);
    GLint compiled = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    std::string error;
    if (compiled == GL_FALSE) {
        error = std::string("the ") + stage.name + " stage does not compile:\n" +
                compileLog(shader) + numberedLines(text);
    } else {
        glAttachShader(program, shader);
    }
    // An attached stage lives on as long as its program.
    glDeleteShader(shader);
    return error;
}

std::string build(GLuint program, const ProgramTexts& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i].empty()) continue;
        std::string error = attachStage(program, kStages[i], texts[i]);
        if (!error.empty()) return error;
    }
    glLinkProgram(program);
    GLint linked = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &linked);
    if (linked != GL_FALSE) return "";
    std::string error = "the stages do not link:\n" + linkLog(program);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!texts[i].empty())
            error += std::string(kStages[i].name) + ":\n" + numberedLines(texts[i]);
    }
    return error;
}

}  // namespace

std::unique_ptr<LinkedProgram> ProgramCache::take(const ProgramTexts& texts) {
    const auto found = m_idle.find(texts);
    if (found == m_idle.end()) return nullptr;
    std::unique_ptr<LinkedProgram> program = std::move(found->second);
    m_idle.erase(found);
    program->reset();
    return program;
}

std::unique_ptr<LinkedProgram> ProgramCache::compile(const ProgramTexts& texts) {
    const GLuint program = glCreateProgram();
    std::string error = build(program, texts);
    if (error.empty()) return std::make_unique<LinkedProgram>(program, texts);
    glDeleteProgram(program);
    m_sLastError = std::move(error);
    return nullptr;
}

void ProgramCache::put(std::unique_ptr<LinkedProgram> program) {
    ProgramTexts texts = program->texts();
    m_idle.emplace(std::move(texts), std::move(program));
}

void ProgramCache::clear() {
    for (const auto& [texts, program] : m_idle) program->destroy();
    m_idle.clear();
}

}  // namespace brushworks::host::gl
