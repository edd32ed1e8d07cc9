// Frame operations that the library lends to hosts, to bring frames into a layout that an effect
// takes.
#pragma once

#include "brushworks/frame.h"
#include "brushworks/memory.h"
#include "brushworks/unknown.h"

namespace brushworks {

/// All operations work on the overlap of their frames and return false for a null frame, a null
/// buffer or a frame that the operation does not serve; no frame is kept past the call. [one call
/// at a time per object]
class IFrameProcessor : public IUnknown {
  public:
    virtual bool Copy(FrameParams* source, FrameParams* destination) = 0;
    /// Scales the whole source onto the whole destination; mode 0 nearest, 1 linear, 2 cubic.
    virtual bool Resize(FrameParams* source, FrameParams* destination, int mode) = 0;
    /// Reverses the order of the four channels.
    virtual bool ReverseChannels(FrameParams* source, FrameParams* destination) = 0;
    /// Packed 4:2:2 (Y0 Cb Y1 Cr) to B, G, R, A with the given alpha. `allocator` is not used.
    virtual bool YUY2ToRGBA(FrameParams* source, FrameParams* destination, unsigned char alpha,
                            IMemoryAllocator* allocator) = 0;
    /// B, G, R, A to packed 4:2:2. `allocator` is not used.
    virtual bool RGBAToYUY2(FrameParams* source, FrameParams* destination,
                            IMemoryAllocator* allocator) = 0;
    /// Fills one channel, named by its position in memory, with a byte.
    virtual bool SetChannelValue(FrameParams* frame, unsigned int channel, unsigned int value) = 0;
    virtual bool AlphaBlend(FrameParams* first, FrameParams* second, FrameParams* destination,
                            bool flag) = 0;
    /// Destination channel k takes the old channel order[k], in place.
    virtual bool SwapChannels(FrameParams* frame, unsigned int* order) = 0;
    virtual bool AlphaPremul(FrameParams* frame) = 0;
    virtual bool AppleR4FLToARGB32(FrameParams* source, FrameParams* destination) = 0;
    virtual bool ARGB32ToAppleR4FL(FrameParams* source, FrameParams* destination) = 0;
    /// Mirrors the rows top to bottom.
    virtual bool FlipFrame(FrameParams* source, FrameParams* destination) = 0;
    virtual bool FlipFrame(FrameParams* frame) = 0;
    virtual bool CopyChannel(FrameParams* source, FrameParams* destination, int sourceChannel,
                             int destinationChannel) = 0;
    virtual bool InvertChannel(FrameParams* frame, int channel) = 0;
    virtual bool SqrInPlace(FrameParams* frame) = 0;
    virtual bool SqrtInPlace(FrameParams* frame) = 0;
    /// Raises each sample to the bound of its channel; four bounds.
    virtual bool ThresholdLTInPlace(FrameParams* frame, const float* thresholds) = 0;
    /// Scales a rectangle of the source, right and bottom inclusive, onto the destination.
    virtual bool ResizeCrop(FrameParams* source, tagRECT* rect, FrameParams* destination,
                            int mode) = 0;
};

}  // namespace brushworks
