// What the body files share: argument checks and row addressing. Everything stands in the anonymous
// namespace of the variant that is being built, so that no inline function built for a wide
// instruction set can be picked by the linker for a machine without it. For the same reason bodies
// call no function template of the standard library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "primitives/types.h"

#ifndef BRUSHWORKS_VARIANT
#define BRUSHWORKS_VARIANT mx  // for tools that look at one file alone
#endif

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// The row of index y of an image whose rows are `step` bytes apart.
template <class Sample>
inline Sample* Row(Sample* image, int step, int y) {
    using Byte = std::conditional_t<std::is_const_v<Sample>, const std::uint8_t, std::uint8_t>;
    return reinterpret_cast<Sample*>(reinterpret_cast<Byte*>(image) +
                                     static_cast<std::ptrdiff_t>(step) * y);
}

/// One image of a call as its checks see it.
struct ImageArgument {
    const void* data;
    int step;
    int pixelBytes;
};

/// The checks that every primitive makes, in their order: null pointers, the size, the steps.
template <int N>
inline int CheckImages(const ImageArgument (&images)[N], IppiSize size) {
    for (const ImageArgument& image : images)
        if (!image.data) return kStatusNullPointer;
    if (size.width < 1 || size.height < 1) return kStatusSizeError;
    for (const ImageArgument& image : images)
        if (image.step < 1 || image.step < static_cast<std::int64_t>(size.width) * image.pixelBytes)
            return kStatusStepError;
    return kStatusOk;
}

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
