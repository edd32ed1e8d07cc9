// Frame operations that the library lends to hosts, to bring frames into a layout that an effect
// takes and back.
#pragma once

#include "brushworks/frame.h"
#include "brushworks/memory.h"
#include "brushworks/unknown.h"

namespace brushworks {

/// Records, pixels, rectangles and arrays stay the caller's; nothing is kept past the call, and no
/// record is written to. [any thread, several at once on frames of their own]
///
/// Two frames are worked on where they overlap: from the first row and column of both, over the
/// smaller width and the smaller height. Nothing outside that is touched, Resize and ResizeCrop
/// excepted, which take whole frames. Rows are counted as they lie in memory, from the lowest
/// address: a negative stride is taken for that alone, and neither it nor bFlipped turns a picture.
/// Two frames share all of their memory or none; where they share it, the result is defined for
/// Copy, ReverseChannels, AlphaBlend, FlipFrame, CopyChannel and the two Apple conversions.
///
/// True is done. False is refused, or out of memory: null records or buffers, sizes below 1, rows
/// that overlap in memory (a stride of 0 among them), a depth that does not suit the format, floats
/// that are not aligned to 4 bytes, a stride that is not a whole number of pixels in the formats of
/// PixelFormat, one frame of bytes with one of floats, and different bytes per pixel but where an
/// operation tells otherwise; further what it tells below. A channel is its place in the pixel's
/// memory order, 0 to 3, in colour formats.
class IFrameProcessor : public IUnknown {
  public:
    /// Copies pixels as they are, also between formats of the same samples. Formats that
    /// PixelFormat does not name are copied at 1 byte per pixel; at any other they are left alone,
    /// and that is true.
    virtual bool Copy(FrameParams* source, FrameParams* destination) = 0;
    /// Scales the whole source onto the whole destination, 8-bit colour alone; mode 0 nearest
    /// neighbour, 2 cubic, any other linear. Nothing is smoothed when shrinking.
    virtual bool Resize(FrameParams* source, FrameParams* destination, int mode) = 0;
    /// Reverses the order of the four channels, colour formats alone: B, G, R, A to A, R, G, B and
    /// back.
    virtual bool ReverseChannels(FrameParams* source, FrameParams* destination) = 0;
    /// Packed 4:2:2 (Y0 Cb Y1 Cr for two pixels; Rec. 601, studio range) to 8-bit B, G, R, A, in
    /// whichever 8-bit colour format the destination says it is, with `alpha` in the fourth byte.
    /// `allocator` is not used and may be null.
    ///
    /// Of the packed frame's record depth and format are not read: width counts pixels, and a
    /// row holds 2 bytes for each, Y and Cb for a last odd one. Strides are not 0, even for a
    /// single row, and have room for the whole width. An overlap of one pixel, half a pair, is
    /// enough. Where its width is odd, the last pixel takes the Cr of the pair before it, or 128.
    virtual bool YUY2ToRGBA(FrameParams* source, FrameParams* destination, unsigned char alpha,
                            IMemoryAllocator* allocator) = 0;
    /// The same back; alpha is dropped. Where the overlap's width is odd, the last pixel writes its
    /// Y and Cb and leaves the rest of that pair alone.
    virtual bool RGBAToYUY2(FrameParams* source, FrameParams* destination,
                            IMemoryAllocator* allocator) = 0;
    /// Fills one channel of a colour format with the low byte of `value`, as 255ths where samples
    /// are floats.
    virtual bool SetChannelValue(FrameParams* frame, unsigned int channel, unsigned int value) = 0;
    /// `first` over `second`, in formats as that of `first`, a colour format; `premultiplied` tells
    /// what their colours are.
    virtual bool AlphaBlend(FrameParams* first, FrameParams* second, FrameParams* destination,
                            bool premultiplied) = 0;
    /// Channel k takes the old channel order[k], in place; four entries, each 0 to 3. In float
    /// formats the result is false even when it is done, as it is whenever the order is valid.
    virtual bool SwapChannels(FrameParams* frame, unsigned int* order) = 0;
    /// Multiplies colours by alpha, in place, colour formats alone.
    virtual bool AlphaPremul(FrameParams* frame) = 0;
    /// Float Y'CbCr of Rec. 601 in studio range, colour differences around one half, to float RGB;
    /// alpha stays. Both frames are A, R, G, B floats: others are true with nothing done. Give one
    /// frame twice: each step reads the source, so that with two frames the last step alone counts.
    virtual bool AppleR4FLToARGB32(FrameParams* source, FrameParams* destination) = 0;
    /// The same back.
    virtual bool ARGB32ToAppleR4FL(FrameParams* source, FrameParams* destination) = 0;
    /// Mirrors the rows of the overlap top to bottom, whatever the pixels hold. bFlipped stays.
    virtual bool FlipFrame(FrameParams* source, FrameParams* destination) = 0;
    /// The same in place.
    virtual bool FlipFrame(FrameParams* frame) = 0;
    /// Copies one channel, also between a colour format and a plane of the same samples, where the
    /// plane's channel is not read. Two planes are refused.
    virtual bool CopyChannel(FrameParams* source, FrameParams* destination, int sourceChannel,
                             int destinationChannel) = 0;
    /// Complements one channel in place: 255 or 1.0 minus it. Planes whatever `channel` says.
    virtual bool InvertChannel(FrameParams* frame, int channel) = 0;
    /// Squares all four channels, float colour alone.
    virtual bool SqrInPlace(FrameParams* frame) = 0;
    /// Square roots of all four channels, float colour alone; NaN for a negative sample.
    virtual bool SqrtInPlace(FrameParams* frame) = 0;
    /// Raises each sample to the bound of its channel, float colour alone; four bounds.
    virtual bool ThresholdLTInPlace(FrameParams* frame, const float* thresholds) = 0;
    /// Scales a rectangle of the source, right and bottom inclusive, onto the whole destination;
    /// colour formats alone, `mode` as in Resize. A rectangle wider or higher than the destination
    /// is first cut to its width or height, at the right or bottom, and so is not shrunk. False
    /// where what is left of it is empty or leaves the source.
    virtual bool ResizeCrop(FrameParams* source, tagRECT* rect, FrameParams* destination,
                            int mode) = 0;
};

}  // namespace brushworks
