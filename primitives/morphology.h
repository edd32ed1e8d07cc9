// Dilation: the largest sample under a mask of any shape.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// A mask made ready for dilations of one sample type and layout.
struct IppiMorphologyState;

inline constexpr int kBorderReplicate = 1;

// Makes a state of the rows of a mask, which abut; bytes other than 0 belong to the mask. The
// mask itself is no longer needed afterwards. `rowWidth` is the greatest width of the images to
// come. A width or mask size below 1 gives -6, an anchor outside the mask and a mask of zeros -5,
// exhausted memory -9; then the state is null. The caller gives it back with ippiMorphologyFree.
int ippiMorphologyInitAlloc_8u_C1R(int rowWidth, const std::uint8_t* mask, IppiSize maskSize,
                                   IppiPoint anchor, IppiMorphologyState** state);
int ippiMorphologyInitAlloc_8u_C4R(int rowWidth, const std::uint8_t* mask, IppiSize maskSize,
                                   IppiPoint anchor, IppiMorphologyState** state);
int ippiMorphologyInitAlloc_32f_C1R(int rowWidth, const std::uint8_t* mask, IppiSize maskSize,
                                    IppiPoint anchor, IppiMorphologyState** state);
int ippiMorphologyInitAlloc_32f_C4R(int rowWidth, const std::uint8_t* mask, IppiSize maskSize,
                                    IppiPoint anchor, IppiMorphologyState** state);

/// Null may be freed.
void ippiMorphologyFree(IppiMorphologyState* state);

// The sample at (x, y) becomes the largest of its channel at (x + i - anchor.x, y + j - anchor.y)
// over the positions (i, j) of the mask. Where that lies outside the image the nearest pixel
// stands; nothing outside is read. Source and destination lie apart. A float that is no number
// counts as minus infinity, and minus zero as zero. A border type other than kBorderReplicate, a
// state of another type or layout, and an image wider than the state's rows give -5, scratch memory
// that cannot be had -9. Threads may share a state.
int ippiDilateBorderReplicate_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst,
                                     int dstStep, IppiSize size, int borderType,
                                     const IppiMorphologyState* state);
int ippiDilateBorderReplicate_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst,
                                     int dstStep, IppiSize size, int borderType,
                                     const IppiMorphologyState* state);
int ippiDilateBorderReplicate_32f_C1R(const float* src, int srcStep, float* dst, int dstStep,
                                      IppiSize size, int borderType,
                                      const IppiMorphologyState* state);
int ippiDilateBorderReplicate_32f_C4R(const float* src, int srcStep, float* dst, int dstStep,
                                      IppiSize size, int borderType,
                                      const IppiMorphologyState* state);

}  // namespace brushworks
