// Work memory of one call of a primitive.
#pragma once

#include <cstdlib>

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Work memory that is given back; null where it cannot be had. Starts as zeros, so that the lanes
/// behind a row's end hold numbers.
class Scratch {
  public:
    explicit Scratch(std::size_t bytes)
        : data_(
              std::aligned_alloc(kAlignment, (bytes + kAlignment - 1) / kAlignment * kAlignment)) {
        if (data_) std::memset(data_, 0, bytes);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch() { std::free(data_); }

    template <class Element>
    Element* as() const {
        return static_cast<Element*>(data_);
    }

  private:
    static constexpr std::size_t kAlignment = 64;
    void* data_;
};

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
