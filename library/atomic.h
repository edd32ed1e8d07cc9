// Atomic counting, for references that are taken and dropped on any thread.
#pragma once

#include <atomic>
#include <cstdint>

namespace brushworks {

/// Adds 1; returns the earlier value.
inline std::int32_t IncrementAtomic(std::int32_t* value) {
    return std::atomic_ref(*value).fetch_add(1);
}

/// Takes 1; returns the earlier value.
inline std::int32_t DecrementAtomic(std::int32_t* value) {
    return std::atomic_ref(*value).fetch_sub(1);
}

/// The count of a reference-counted object, which begins with one reference.
class RefCount {
  public:
    /// Returns the count after it.
    std::uint32_t Add() { return static_cast<std::uint32_t>(IncrementAtomic(&m_nCount) + 1); }
    /// Returns the count after it; at 0 the owner deletes itself.
    std::uint32_t Drop() { return static_cast<std::uint32_t>(DecrementAtomic(&m_nCount) - 1); }

  private:
    std::int32_t m_nCount = 1;
};

}  // namespace brushworks
