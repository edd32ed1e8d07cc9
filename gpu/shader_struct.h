// The record of one shader text, as it goes to the host's CreateShader.
//
// Records are constants named ss... Those of the shared stages stand in gpu/shader_catalogue.h,
// those of an effect beside its passes. A build step makes each from a file of GLSL.
#pragma once

#include <cstdint>

namespace brushworks {

/// Passed by value; the text is a constant of the library.
struct ShaderStruct {
    const std::uint8_t* pData;  ///< the text, not terminated
    std::uint32_t nSize;        ///< its bytes
    std::uint32_t nSize2;       ///< second size of a stored form; 0 for a clear text
    std::uint64_t nCheck;       ///< check value of a stored form; 0 for a clear text
};

}  // namespace brushworks
