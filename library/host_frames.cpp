#include "library/host_frames.h"

#include <cstdint>

#include "processors/region.h"

namespace brushworks {
namespace {

int BytesPerSample(const CFrame& frame) {
    return Processors::IsFloatColor(frame) || Processors::IsFloatPlane(frame) ? 4 : 1;
}

/// The depth that the format asks for; any will do for formats that nothing is known of.
bool DepthSuits(const CFrame& frame) {
    if (Processors::IsByteColor(frame) || Processors::IsFloatPlane(frame))
        return frame.m_nDepth == 4;
    if (Processors::IsFloatColor(frame)) return frame.m_nDepth == 16;
    return frame.m_pfPixelFormat != PixelFormatMono8 || frame.m_nDepth == 1;
}

bool IsBytePlane(const CFrame& frame) {
    return frame.m_pfPixelFormat == PixelFormatMono8;
}

bool IsAligned(const CFrame& frame) {
    return reinterpret_cast<std::uintptr_t>(frame.m_pBuffer) % BytesPerSample(frame) == 0;
}

/// Rows of the known formats are stepped in pixels; of the others in bytes alone.
bool HasRowsOfWholePixels(const CFrame& frame) {
    const bool isKnown = Processors::IsByteColor(frame) || Processors::IsFloatColor(frame) ||
                         Processors::IsFloatPlane(frame) || IsBytePlane(frame);
    return !isKnown || frame.m_nByteSpan % frame.m_nDepth == 0;
}

}  // namespace

bool HasSoundRows(const CFrame& frame) {
    return frame.m_pBuffer && frame.m_nWidth > 0 && frame.m_nHeight > 0 && frame.m_nDepth > 0 &&
           std::int64_t{frame.m_nWidth} * frame.m_nDepth <= frame.m_nByteSpan;
}

bool OpenHostFrame(const FrameParams* params, CFrame& frame) {
    return frame.Init(params) && HasSoundRows(frame) && DepthSuits(frame) && IsAligned(frame) &&
           HasRowsOfWholePixels(frame);
}

bool HaveSamplesAlike(const CFrame& a, const CFrame& b) {
    return BytesPerSample(a) == BytesPerSample(b);
}

bool HavePixelsAlike(const CFrame& a, const CFrame& b) {
    return HaveSamplesAlike(a, b) && a.m_nDepth == b.m_nDepth;
}

bool HostFrames::Open(const FrameParams* sourceParams, const FrameParams* destinationParams) {
    if (!OpenHostFrame(sourceParams, m_wholeSource) ||
        !OpenHostFrame(destinationParams, m_wholeDestination) ||
        !(HavePixelsAlike(m_wholeSource, m_wholeDestination) || IsBytePlane(m_wholeSource)))
        return false;
    const IppiSize overlap = Processors::CommonSize(m_wholeSource, m_wholeDestination);
    source.Init(&m_wholeSource, 0, 0, overlap.width, overlap.height, m_wholeSource.m_bFlipped);
    destination.Init(&m_wholeDestination, 0, 0, overlap.width, overlap.height,
                     m_wholeDestination.m_bFlipped);
    return true;
}

}  // namespace brushworks
