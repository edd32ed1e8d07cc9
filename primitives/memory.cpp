// Aligned memory over the C library's allocator.
#include "primitives/memory.h"

#include <cstddef>
#include <cstdlib>
#include <limits>

namespace brushworks {
namespace {

/// Bytes of the widest vector, and of a cache line.
constexpr std::int64_t kAlignment = 64;

constexpr std::int64_t RoundUp(std::int64_t bytes) {
    return (bytes + kAlignment - 1) / kAlignment * kAlignment;
}

void* AllocateRows(int width, int height, int pixelBytes, int* step) {
    if (width < 1 || height < 1 || !step) return nullptr;
    const std::int64_t rowBytes = RoundUp(std::int64_t{width} * pixelBytes);
    if (rowBytes > std::numeric_limits<int>::max()) return nullptr;
    // Below 2^62, so that only a 32-bit size can overflow.
    const std::int64_t bytes = rowBytes * height;
    if (bytes > std::numeric_limits<std::ptrdiff_t>::max()) return nullptr;
    void* image = std::aligned_alloc(kAlignment, static_cast<std::size_t>(bytes));
    if (image) *step = static_cast<int>(rowBytes);
    return image;
}

template <class Sample, int Channels>
Sample* AllocateImage(int width, int height, int* step) {
    return static_cast<Sample*>(AllocateRows(width, height, Channels * int{sizeof(Sample)}, step));
}

}  // namespace

std::uint8_t* ippiMalloc_8u_C1(int width, int height, int* step) {
    return AllocateImage<std::uint8_t, 1>(width, height, step);
}

std::uint8_t* ippiMalloc_8u_C2(int width, int height, int* step) {
    return AllocateImage<std::uint8_t, 2>(width, height, step);
}

std::uint8_t* ippiMalloc_8u_C3(int width, int height, int* step) {
    return AllocateImage<std::uint8_t, 3>(width, height, step);
}

std::uint8_t* ippiMalloc_8u_C4(int width, int height, int* step) {
    return AllocateImage<std::uint8_t, 4>(width, height, step);
}

std::uint16_t* ippiMalloc_16u_C1(int width, int height, int* step) {
    return AllocateImage<std::uint16_t, 1>(width, height, step);
}

std::uint16_t* ippiMalloc_16u_C2(int width, int height, int* step) {
    return AllocateImage<std::uint16_t, 2>(width, height, step);
}

std::uint16_t* ippiMalloc_16u_C3(int width, int height, int* step) {
    return AllocateImage<std::uint16_t, 3>(width, height, step);
}

std::uint16_t* ippiMalloc_16u_C4(int width, int height, int* step) {
    return AllocateImage<std::uint16_t, 4>(width, height, step);
}

float* ippiMalloc_32f_C4(int width, int height, int* step) {
    return AllocateImage<float, 4>(width, height, step);
}

void ippiFree(void* image) {
    std::free(image);
}

std::uint8_t* ippsMalloc_8u(int length) {
    if (length < 1) return nullptr;
    return static_cast<std::uint8_t*>(
        std::aligned_alloc(kAlignment, static_cast<std::size_t>(RoundUp(length))));
}

void ippsFree(void* vector) {
    std::free(vector);
}

}  // namespace brushworks
