#include "processors/invert.h"

#include "processors/region.h"

namespace brushworks::Processors {
namespace {

float Complement(float sample) {
    return 1.0f - sample;
}
unsigned char Complement(unsigned char sample) {
    return static_cast<unsigned char>(~sample);
}

template <class Sample>
bool InvertRows(const CFrame& src, const CFrame& dst, int channels) {
    const IppiSize size = CommonSize(src, dst);
    for (int y = 0; y < size.height; ++y) {
        const Sample* from = RowOf<const Sample>(src, y);
        Sample* to = RowOf<Sample>(dst, y);
        for (int i = 0; i < size.width * channels; ++i) to[i] = Complement(from[i]);
    }
    return true;
}

/// Every `pitch`th sample from `first` on, over the whole buffer.
template <class Sample>
bool InvertEvery(const CFrame& frame, int first, int pitch) {
    const auto count = static_cast<std::ptrdiff_t>(frame.m_nHeight) * frame.m_nPixelSpan * pitch;
    Sample* samples = Samples<Sample>(frame);
    for (std::ptrdiff_t i = first; i < count; i += pitch) samples[i] = Complement(samples[i]);
    return true;
}

}  // namespace

bool CInvert::Process(CFrame* src, CFrame* dst) {
    if (IsFloatColor(*src)) return InvertRows<float>(*src, *dst, 4);
    if (IsFloatPlane(*src)) return InvertRows<float>(*src, *dst, 1);
    if (dst->m_nDepth == 4) return InvertRows<unsigned char>(*src, *dst, 4);
    if (dst->m_nDepth == 1) return InvertRows<unsigned char>(*src, *dst, 1);
    return false;
}

bool CInvertChannel::Process(CFrame* frame, int channel) {
    const bool inPixel = channel >= 0 && channel <= 3;
    if (IsFloatColor(*frame)) return inPixel && InvertEvery<float>(*frame, channel, 4);
    if (IsFloatPlane(*frame)) return InvertEvery<float>(*frame, 0, 1);
    if (frame->m_nDepth == 4) return inPixel && InvertEvery<unsigned char>(*frame, channel, 4);
    if (frame->m_nDepth == 1) return InvertEvery<unsigned char>(*frame, 0, 1);
    return false;
}

}  // namespace brushworks::Processors
