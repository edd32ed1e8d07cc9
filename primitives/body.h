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

/// An image argument with its types: rows of pixels that hold Channels samples each. The pointer
/// may stand at any channel of the first pixel.
template <class Sample, int Channels>
struct PixelRows {
    Sample* data;
    int step;

    static constexpr int kPixelBytes = Channels * int{sizeof(Sample)};
    operator ImageArgument() const { return {data, step, kPixelBytes}; }
    Sample* row(int y) const { return Row(data, step, y); }
    bool RowsAbut(int width) const {
        return step == static_cast<std::int64_t>(width) * kPixelBytes;
    }
};

/// The image argument of a pointer and a step.
template <int Channels, class Sample>
inline PixelRows<Sample, Channels> Pixels(Sample* data, int step) {
    return {data, step};
}

/// Checks the images, then calls body(pixels, row of each image...) for each row. Rows that abut in
/// all images are taken as one, which spares small pictures the ends of the vector loops.
template <class Body, class... Images>
inline int ForRows(IppiSize size, Body body, Images... images) {
    if (const int status = CheckImages({static_cast<ImageArgument>(images)...}, size))
        return status;
    std::ptrdiff_t pixels = size.width;
    int rows = size.height;
    if ((images.RowsAbut(size.width) && ...)) {
        pixels *= rows;
        rows = 1;
    }
    for (int y = 0; y < rows; ++y) body(pixels, images.row(y)...);
    return kStatusOk;
}

/// A four-channel pixel of bytes as one word, sample 0 in the low byte.
inline std::uint32_t LoadPixel(const std::uint8_t* from) {
    std::uint32_t pixel;
    std::memcpy(&pixel, from, sizeof pixel);
    return pixel;
}
inline void StorePixel(std::uint8_t* to, std::uint32_t pixel) {
    std::memcpy(to, &pixel, sizeof pixel);
}

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
