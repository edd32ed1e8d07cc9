// Aligned memory for images and vectors. Nothing here depends on the processor.
//
// Each block starts at a multiple of 64 bytes and so does each row of an image; the bytes from row
// to row come back through `step`. A size below 1, a step that an int cannot hold and exhausted
// memory give null, with `step` untouched. The caller owns the block and frees it with ippiFree,
// vectors with ippsFree; null may be freed.
#pragma once

#include <cstdint>

namespace brushworks {

std::uint8_t* ippiMalloc_8u_C1(int width, int height, int* step);
std::uint8_t* ippiMalloc_8u_C2(int width, int height, int* step);
std::uint8_t* ippiMalloc_8u_C3(int width, int height, int* step);
std::uint8_t* ippiMalloc_8u_C4(int width, int height, int* step);
std::uint16_t* ippiMalloc_16u_C1(int width, int height, int* step);
std::uint16_t* ippiMalloc_16u_C2(int width, int height, int* step);
std::uint16_t* ippiMalloc_16u_C3(int width, int height, int* step);
std::uint16_t* ippiMalloc_16u_C4(int width, int height, int* step);
float* ippiMalloc_32f_C4(int width, int height, int* step);
void ippiFree(void* image);

std::uint8_t* ippsMalloc_8u(int length);
void ippsFree(void* vector);

}  // namespace brushworks
