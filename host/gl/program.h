// Linked programs: the GL object with what it knows of its uniforms, and the face of it that the
// library holds.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brushworks/gl.h"
#include "host/gl/counted.h"
#include "host/gl/debug_log.h"

namespace brushworks::host::gl {

/// The texts of a program: vertex, fragment, geometry, the last "" where there is none.
using ProgramTexts = std::array<std::string, 3>;

/// A program that OpenGL has linked. [the context's thread, context current]
class LinkedProgram {
  public:
    /// A uniform, or an element of one that is an array.
    struct Uniform {
        int location;
        unsigned int type;
        int textureUnit;     ///< for a sampler
        bool saved = false;  ///< its first value is remembered
    };

    /// Takes over the GL program `name`, and gives each sampler a texture unit of its own.
    LinkedProgram(unsigned int name, ProgramTexts texts);

    unsigned int name() const { return m_nName; }
    const ProgramTexts& texts() const { return m_texts; }
    /// The active uniforms, built-in ones left out.
    const std::vector<std::string>& uniformNames() const { return m_uniformNames; }
    /// Null for a name that the program lacks.
    Uniform* uniform(std::string_view name);
    /// To be called before a value is given: reset() brings the first one back.
    void saveFirstValue(Uniform& uniform);
    /// Gives all uniforms the values that they had after linking, so that a program that is used
    /// again does what a new one would.
    void reset();
    void destroy() const;

  private:
    struct FirstValue {
        int location;
        unsigned int type;
        std::array<float, 16> floats;
        std::array<int, 4> ints;
    };

    unsigned int m_nName;
    ProgramTexts m_texts;
    std::vector<std::string> m_uniformNames;
    std::map<std::string, Uniform, std::less<>> m_uniforms;
    std::vector<FirstValue> m_firstValues;
};

/// Serves the library until its linked program is taken away. [the context's thread]
class Program final : public Counted<IGLShader> {
  public:
    Program(std::unique_ptr<LinkedProgram> linked, DebugLog& log)
        : m_pLinked(std::move(linked)), m_log(log) {}

    bool Bind(int width, int height) override;
    bool SetInt1(const char* name, int a) override;
    bool SetInt2(const char* name, int a, int b) override;
    bool SetFloat1(const char* name, float a) override;
    bool SetFloat2(const char* name, float a, float b) override;
    bool SetFloat3(const char* name, float a, float b, float c) override;
    bool SetFloat4(const char* name, float a, float b, float c, float d) override;
    bool SetMatf3(const char* name, float* matrix) override;
    bool SetMatf4(const char* name, float* matrix) override;
    bool SetTex2D(const char* name, IGLTexture* texture) override;
    int GetUniforms(void* buffer) override;
    bool GetAttribLocation(const char* name, int* location) override;
    bool IsValid() override { return m_pLinked != nullptr; }

    std::unique_ptr<LinkedProgram> takeLinked() { return std::move(m_pLinked); }

  private:
    ~Program() override = default;
    LinkedProgram::Uniform* settable(const char* name, unsigned int type, unsigned int boolType);

    std::unique_ptr<LinkedProgram> m_pLinked;
    DebugLog& m_log;
};

}  // namespace brushworks::host::gl
