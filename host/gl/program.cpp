// Uniforms by name, without the program having to be current.
#include "host/gl/program.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <cstring>

#include "host/gl/texture.h"

namespace brushworks::host::gl {
namespace {

bool isSampler(GLenum type) {
    return type == GL_SAMPLER_2D;
}

/// How many numbers a uniform of that type has, and whether they are whole.
struct Shape {
    int count;
    bool whole;
};

Shape shapeOf(GLenum type) {
    switch (type) {
        case GL_FLOAT:
            return {1, false};
        case GL_FLOAT_VEC2:
            return {2, false};
        case GL_FLOAT_VEC3:
            return {3, false};
        case GL_FLOAT_VEC4:
            return {4, false};
        case GL_FLOAT_MAT3:
            return {9, false};
        case GL_FLOAT_MAT4:
            return {16, false};
        case GL_INT:
        case GL_BOOL:
            return {1, true};
        case GL_INT_VEC2:
        case GL_BOOL_VEC2:
            return {2, true};
        default:
            return {0, false};
    }
}

void setFloats(GLuint program, GLint location, int count, const float* values) {
    switch (count) {
        case 1:
            return glProgramUniform1fv(program, location, 1, values);
        case 2:
            return glProgramUniform2fv(program, location, 1, values);
        case 3:
            return glProgramUniform3fv(program, location, 1, values);
        case 4:
            return glProgramUniform4fv(program, location, 1, values);
        case 9:
            return glProgramUniformMatrix3fv(program, location, 1, GL_FALSE, values);
        case 16:
            return glProgramUniformMatrix4fv(program, location, 1, GL_FALSE, values);
        default:
            return;
    }
}

void setInts(GLuint program, GLint location, int count, const int* values) {
    if (count == 1) glProgramUniform1iv(program, location, 1, values);
    if (count == 2) glProgramUniform2iv(program, location, 1, values);
}

}  // namespace

LinkedProgram::LinkedProgram(unsigned int name, ProgramTexts texts)
    : m_nName(name), m_texts(std::move(texts)) {
    GLint count = 0;
    GLint longest = 0;
    glGetProgramiv(name, GL_ACTIVE_UNIFORMS, &count);
    glGetProgramiv(name, GL_ACTIVE_UNIFORM_MAX_LENGTH, &longest);
    std::vector<char> text(std::size_t(std::max(longest, 1)));
    int units = 0;
    for (GLint i = 0; i < count; ++i) {
        GLsizei length = 0;
        GLint elements = 0;
        GLenum type = 0;
        glGetActiveUniform(name, GLuint(i), GLsizei(text.size()), &length, &elements, &type,
                           text.data());
        std::string uniformName(text.data(), std::size_t(length));
        const int location = glGetUniformLocation(name, uniformName.c_str());
        if (uniformName.starts_with("gl_") || location < 0) continue;
        if (uniformName.ends_with("[0]")) uniformName.resize(uniformName.size() - 3);
        int unit = 0;
        if (isSampler(type)) {
            unit = units++;
            glProgramUniform1i(name, location, unit);
        }
        m_uniformNames.push_back(uniformName);
        m_uniforms.emplace(std::move(uniformName), Uniform{location, type, unit});
    }
}

LinkedProgram::Uniform* LinkedProgram::uniform(std::string_view name) {
    const auto known = m_uniforms.find(name);
    if (known != m_uniforms.end()) return &known->second;
    if (!name.ends_with(']')) return nullptr;
    const auto array = m_uniforms.find(name.substr(0, name.rfind('[')));
    if (array == m_uniforms.end() || isSampler(array->second.type)) return nullptr;
    std::string element(name);
    const int location = glGetUniformLocation(m_nName, element.c_str());
    if (location < 0) return nullptr;
    const Uniform uniform{location, array->second.type, 0};
    return &m_uniforms.emplace(std::move(element), uniform).first->second;
}

void LinkedProgram::saveFirstValue(Uniform& uniform) {
    if (uniform.saved) return;
    uniform.saved = true;
    FirstValue first{uniform.location, uniform.type, {}, {}};
    if (shapeOf(uniform.type).whole) {
        glGetUniformiv(m_nName, uniform.location, first.ints.data());
    } else {
        glGetUniformfv(m_nName, uniform.location, first.floats.data());
    }
    m_firstValues.push_back(first);
}

void LinkedProgram::reset() {
    for (const FirstValue& first : m_firstValues) {
        const Shape shape = shapeOf(first.type);
        if (shape.whole) {
            setInts(m_nName, first.location, shape.count, first.ints.data());
        } else {
            setFloats(m_nName, first.location, shape.count, first.floats.data());
        }
    }
}

void LinkedProgram::destroy() const {
    glDeleteProgram(m_nName);
}

bool Program::Bind(int /*width*/, int /*height*/) {
    if (!IsValid()) return false;
    glUseProgram(m_pLinked->name());
    m_log.check("IGLShader::Bind");
    return true;
}

LinkedProgram::Uniform* Program::settable(const char* name, unsigned int type,
                                          unsigned int boolType) {
    if (!IsValid() || name == nullptr) return nullptr;
    LinkedProgram::Uniform* uniform = m_pLinked->uniform(name);
    if (uniform == nullptr) return nullptr;
    if (uniform->type != type && uniform->type != boolType) {
        m_log.add(std::string("uniform ") + name + " was given a value of another type");
        return nullptr;
    }
    if (!isSampler(type)) m_pLinked->saveFirstValue(*uniform);
    return uniform;
}

bool Program::SetInt1(const char* name, int a) {
    const LinkedProgram::Uniform* uniform = settable(name, GL_INT, GL_BOOL);
    if (uniform == nullptr) return false;
    setInts(m_pLinked->name(), uniform->location, 1, &a);
    return true;
}

bool Program::SetInt2(const char* name, int a, int b) {
    const LinkedProgram::Uniform* uniform = settable(name, GL_INT_VEC2, GL_BOOL_VEC2);
    if (uniform == nullptr) return false;
    const int values[] = {a, b};
    setInts(m_pLinked->name(), uniform->location, 2, values);
    return true;
}

bool Program::SetFloat1(const char* name, float a) {
    const LinkedProgram::Uniform* uniform = settable(name, GL_FLOAT, GL_BOOL);
    if (uniform == nullptr) return false;
    setFloats(m_pLinked->name(), uniform->location, 1, &a);
    return true;
}

bool Program::SetFloat2(const char* name, float a, float b) {
    const LinkedProgram::Uniform* uniform = settable(name, GL_FLOAT_VEC2, GL_BOOL_VEC2);
    if (uniform == nullptr) return false;
    const float values[] = {a, b};
    setFloats(m_pLinked->name(), uniform->location, 2, values);
    return true;
}

bool Program::SetFloat3(const char* name, float a, float b, float c) {
    const LinkedProgram::Uniform* uniform = settable(name, GL_FLOAT_VEC3, GL_FLOAT_VEC3);
    if (uniform == nullptr) return false;
    const float values[] = {a, b, c};
    setFloats(m_pLinked->name(), uniform->location, 3, values);
    return true;
}

bool Program::SetFloat4(const char* name, float a, float b, float c, float d) {
    const LinkedProgram::Uniform* uniform = settable(name, GL_FLOAT_VEC4, GL_FLOAT_VEC4);
    if (uniform == nullptr) return false;
    const float values[] = {a, b, c, d};
    setFloats(m_pLinked->name(), uniform->location, 4, values);
    return true;
}

bool Program::SetMatf3(const char* name, float* matrix) {
    const LinkedProgram::Uniform* uniform = settable(name, GL_FLOAT_MAT3, GL_FLOAT_MAT3);
    if (uniform == nullptr) return false;
    setFloats(m_pLinked->name(), uniform->location, 9, matrix);
    return true;
}

bool Program::SetMatf4(const char* name, float* matrix) {
    const LinkedProgram::Uniform* uniform = settable(name, GL_FLOAT_MAT4, GL_FLOAT_MAT4);
    if (uniform == nullptr) return false;
    setFloats(m_pLinked->name(), uniform->location, 16, matrix);
    return true;
}

bool Program::SetTex2D(const char* name, IGLTexture* texture) {
    const LinkedProgram::Uniform* uniform = settable(name, GL_SAMPLER_2D, GL_SAMPLER_2D);
    if (uniform == nullptr || texture == nullptr || !texture->IsValid()) return false;
    glBindTextureUnit(GLuint(uniform->textureUnit), static_cast<Texture*>(texture)->name());
    m_log.check("SetTex2D");
    return true;
}

int Program::GetUniforms(void* buffer) {
    if (!IsValid()) return 0;
    const std::vector<std::string>& names = m_pLinked->uniformNames();
    auto* entry = static_cast<char*>(buffer);
    for (const std::string& name : names) {
        if (entry == nullptr) break;
        std::memset(entry, 0, kUniformEntryBytes);
        name.copy(entry, kUniformEntryBytes - 1);
        entry += kUniformEntryBytes;
    }
    return static_cast<int>(names.size());
}

bool Program::GetAttribLocation(const char* name, int* location) {
    if (!IsValid() || name == nullptr) return false;
    *location = glGetAttribLocation(m_pLinked->name(), name);
    return *location >= 0;
}

}  // namespace brushworks::host::gl
