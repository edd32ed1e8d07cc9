// Compiles programs, and keeps those that were given back for the next who asks for the same texts.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "host/gl/program.h"

namespace brushworks::host::gl {

/// [the context's thread, context current]
class ProgramCache {
  public:
    /// An idle program of these texts, as good as new; null when there is none.
    std::unique_ptr<LinkedProgram> take(const ProgramTexts& texts);
    /// Compiles and links; null when that fails, and then lastError() tells why.
    std::unique_ptr<LinkedProgram> compile(const ProgramTexts& texts);
    void put(std::unique_ptr<LinkedProgram> program);
    void clear();

    /// The driver's words on the last failure, with the numbered lines of the stage; "" before any.
    const std::string& lastError() const { return m_sLastError; }

  private:
    std::multimap<ProgramTexts, std::unique_ptr<LinkedProgram>> m_idle;
    std::string m_sLastError;
};

}  // namespace brushworks::host::gl
