// What all processors share: the region they work on, and typed access to a frame's rows.
//
// A processor is a stateless class made on the stack at the call. Process takes the source first,
// the destination last, then scalars; it works on the top-left rectangle common to its frames,
// leaves samples outside it alone, and returns false when it refuses or a primitive does: the
// destination may then hold anything. Null frames are refused only where a processor says so.
#pragma once

#include <cstddef>

#include "frames/frame.h"
#include "primitives/types.h"

namespace brushworks::Processors {

inline IppiSize SizeOf(const CFrame& frame) {
    return {frame.m_nWidth, frame.m_nHeight};
}

/// Width and height common to both frames.
inline IppiSize CommonSize(const CFrame& a, const CFrame& b) {
    return {a.m_nWidth < b.m_nWidth ? a.m_nWidth : b.m_nWidth,
            a.m_nHeight < b.m_nHeight ? a.m_nHeight : b.m_nHeight};
}

/// The pixels as samples of a type; null stays null.
template <class Sample>
Sample* Samples(const CFrame& frame) {
    return reinterpret_cast<Sample*>(frame.m_pBuffer);
}

/// Row `y` as samples of a type.
template <class Sample>
Sample* RowOf(const CFrame& frame, int y) {
    return reinterpret_cast<Sample*>(frame.m_pBuffer +
                                     static_cast<std::ptrdiff_t>(y) * frame.m_nByteSpan);
}

// Families of pixel formats that branches tell apart.
inline bool IsByteColor(const CFrame& f) {
    return f.m_pfPixelFormat == PixelFormatBGRA8 || f.m_pfPixelFormat == PixelFormatARGB8;
}
inline bool IsFloatColor(const CFrame& f) {
    return f.m_pfPixelFormat == PixelFormatBGRA32f || f.m_pfPixelFormat == PixelFormatARGB32f;
}
inline bool IsFloatPlane(const CFrame& f) {
    return f.m_pfPixelFormat == PixelFormatMono32f;
}

/// The place of alpha in a pixel's memory order: 0 where alpha comes first, else 3.
inline int AlphaPlane(const CFrame& f) {
    return f.m_pfPixelFormat == PixelFormatARGB8 || f.m_pfPixelFormat == PixelFormatARGB32f ? 0 : 3;
}

/// The plane that the colour matrix and the blur bring back from their source: 3 where alpha comes
/// last, and 0 in all other formats, those without alpha among them.
inline int RestoredPlane(const CFrame& f) {
    return f.m_pfPixelFormat == PixelFormatBGRA8 || f.m_pfPixelFormat == PixelFormatBGRA32f ? 3 : 0;
}

}  // namespace brushworks::Processors
