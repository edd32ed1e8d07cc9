// References of the library.
#include "host/gl/handed_out.h"

namespace brushworks::host::gl {

std::uint32_t dropReference(IUnknown& object) {
    return object.Release();
}

}  // namespace brushworks::host::gl
