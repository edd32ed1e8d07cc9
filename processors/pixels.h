// The typed layer of processors: raw pointers to pixels, width and height, row strides in pixels.
// The frame layer finds size, strides and pixel type, and calls it.
#pragma once

#include <algorithm>
#include <type_traits>

#include "frames/samples.h"
#include "primitives/blend.h"
#include "processors/region.h"

namespace brushworks::Processors {

/// The type of one sample of a pixel; planes are pixels of one sample.
template <class Pixel>
using ComponentOf = std::conditional_t<std::is_same_v<Pixel, VideoSampleFloat> ||
                                           std::is_same_v<Pixel, VideoSampleSwappedFloat> ||
                                           std::is_same_v<Pixel, float>,
                                       float, std::uint8_t>;

template <class Pixel>
inline constexpr int kSamplesOf = sizeof(Pixel) / sizeof(ComponentOf<Pixel>);

template <class Pixel>
inline constexpr AlphaAt kAlphaOf =
    std::is_same_v<Pixel, VideoSampleSwapped> || std::is_same_v<Pixel, VideoSampleSwappedFloat>
        ? AlphaAt::kFirst
        : AlphaAt::kLast;

template <class Pixel>
auto* Components(Pixel* pixels) {
    using Component = ComponentOf<std::remove_const_t<Pixel>>;
    return reinterpret_cast<
        std::conditional_t<std::is_const_v<Pixel>, const Component, Component>*>(pixels);
}

/// A stride in bytes; one that no frame can have is 0, which primitives refuse.
template <class Pixel>
int StepOf(int span) {
    const std::int64_t step = std::int64_t{span} * int{sizeof(Pixel)};
    return step == static_cast<int>(step) ? static_cast<int>(step) : 0;
}

/// Sizes that no picture has become 0, which primitives refuse.
inline IppiSize SizeOf(unsigned int width, unsigned int height) {
    constexpr unsigned int kMost = 0x7fffffff;
    return {width <= kMost ? static_cast<int>(width) : 0,
            height <= kMost ? static_cast<int>(height) : 0};
}

inline IppiSize CommonSize(const CFrame& a, const CFrame& b, const CFrame& c) {
    const IppiSize two = CommonSize(a, b);
    return {std::min(two.width, c.m_nWidth), std::min(two.height, c.m_nHeight)};
}

inline bool IsEmpty(IppiSize size) {
    return size.width < 1 || size.height < 1;
}

}  // namespace brushworks::Processors
