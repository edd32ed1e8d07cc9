// A counted reference that goes back at the end of its scope.
#pragma once

#include <memory>

namespace brushworks {

struct Releaser {
    template <class Face>
    void operator()(Face* object) const {
        object->Release();
    }
};

/// Takes over the reference that an object is handed out with; empty for null.
template <class Face>
using Reference = std::unique_ptr<Face, Releaser>;

}  // namespace brushworks
