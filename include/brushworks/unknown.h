// The root of all reference-counted interfaces.
//
// The order of the virtual operations in every interface of these headers is a binary contract
// under the Itanium C++ ABI: operations are never reordered, removed or inserted.
#pragma once

#include <cstdint>

#include "brushworks/guid.h"

namespace brushworks {

/// A reference-counted object that may show several faces. An object starts with one reference,
/// which belongs to whoever created it; it is destroyed by the Release that drops the last one.
class IUnknown {
  public:
    /// Stores the face `iid` in `*face` with a reference added and returns 0, or stores null and
    /// returns 0x80004002. [any thread]
    virtual std::uint32_t QueryInterface(const _GUID& iid, void** face) = 0;
    /// Adds a reference; returns the count after it. [any thread]
    virtual std::uint32_t AddRef() = 0;
    /// Drops a reference; returns the count after it, 0 when the object is gone. [any thread]
    virtual std::uint32_t Release() = 0;

    /// Two entries of the table. Never call or delete across the boundary: Release does.
    virtual ~IUnknown() = default;
};

}  // namespace brushworks
