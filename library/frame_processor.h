// The frame service: each operation checks the host's frames and hands them to the processor or
// primitive that does the work.
#pragma once

#include "brushworks/frame_processor.h"
#include "library/atomic.h"

namespace brushworks {

/// Keeps nothing between calls, so one object may serve several threads.
class FrameProcessor final : public IFrameProcessor {
  public:
    std::uint32_t QueryInterface(const _GUID& iid, void** face) override;
    std::uint32_t AddRef() override { return m_references.Add(); }
    std::uint32_t Release() override;

    bool Copy(FrameParams* source, FrameParams* destination) override;
    bool Resize(FrameParams* source, FrameParams* destination, int mode) override;
    bool ReverseChannels(FrameParams* source, FrameParams* destination) override;
    bool YUY2ToRGBA(FrameParams* source, FrameParams* destination, unsigned char alpha,
                    IMemoryAllocator* allocator) override;
    bool RGBAToYUY2(FrameParams* source, FrameParams* destination,
                    IMemoryAllocator* allocator) override;
    bool SetChannelValue(FrameParams* frame, unsigned int channel, unsigned int value) override;
    bool AlphaBlend(FrameParams* first, FrameParams* second, FrameParams* destination,
                    bool premultiplied) override;
    bool SwapChannels(FrameParams* frame, unsigned int* order) override;
    bool AlphaPremul(FrameParams* frame) override;
    bool AppleR4FLToARGB32(FrameParams* source, FrameParams* destination) override;
    bool ARGB32ToAppleR4FL(FrameParams* source, FrameParams* destination) override;
    bool FlipFrame(FrameParams* source, FrameParams* destination) override;
    bool FlipFrame(FrameParams* frame) override;
    bool CopyChannel(FrameParams* source, FrameParams* destination, int sourceChannel,
                     int destinationChannel) override;
    bool InvertChannel(FrameParams* frame, int channel) override;
    bool SqrInPlace(FrameParams* frame) override;
    bool SqrtInPlace(FrameParams* frame) override;
    bool ThresholdLTInPlace(FrameParams* frame, const float* thresholds) override;
    bool ResizeCrop(FrameParams* source, tagRECT* rect, FrameParams* destination,
                    int mode) override;

  private:
    RefCount m_references;
};

}  // namespace brushworks
