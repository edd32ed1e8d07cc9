// Frames for tests: random pixels, exact comparison.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "frames/frame.h"
#include "processors/region.h"

namespace brushworks::testing {

inline int DepthOf(PixelFormat format) {
    switch (format) {
        case PixelFormatBGRA32f:
        case PixelFormatARGB32f:
            return 16;
        case PixelFormatMono8:
            return 1;
        default:
            return 4;
    }
}

/// Fills every pixel of the frame: bytes over their whole range, floats from 0 to 1.
inline void Randomize(CFrame& frame, unsigned seed) {
    std::mt19937 engine(seed);
    std::uniform_real_distribution<float> unit(0.0f, 1.0f);
    const bool floats = Processors::IsFloatColor(frame) || Processors::IsFloatPlane(frame);
    for (int y = 0; y < frame.m_nHeight; ++y) {
        if (floats) {
            auto* row = Processors::RowOf<float>(frame, y);
            for (int i = 0; i < frame.m_nWidth * frame.m_nDepth / 4; ++i) row[i] = unit(engine);
        } else {
            auto* row = Processors::RowOf<unsigned char>(frame, y);
            for (int i = 0; i < frame.m_nWidth * frame.m_nDepth; ++i)
                row[i] = static_cast<unsigned char>(engine());
        }
    }
}

/// An owning frame of random pixels.
struct RandomFrame : CFrame {
    RandomFrame(int width, int height, PixelFormat format, unsigned seed) {
        EXPECT_TRUE(Init(width, height, DepthOf(format), nullptr, format, false));
        Randomize(*this, seed);
    }
};

/// Sample `index` of row `y`, as a float whatever the frame holds.
inline float SampleAt(const CFrame& frame, int y, int index) {
    return Processors::IsFloatColor(frame) || Processors::IsFloatPlane(frame)
               ? Processors::RowOf<float>(frame, y)[index]
               : static_cast<float>(Processors::RowOf<unsigned char>(frame, y)[index]);
}

inline int SamplesPerPixel(const CFrame& frame) {
    return Processors::IsFloatColor(frame) || Processors::IsByteColor(frame) ? 4 : 1;
}

/// The pixels of both frames are the same to the byte.
inline bool SamePixels(const CFrame& a, const CFrame& b) {
    if (a.m_nWidth != b.m_nWidth || a.m_nHeight != b.m_nHeight || a.m_nDepth != b.m_nDepth)
        return false;
    for (int y = 0; y < a.m_nHeight; ++y)
        if (std::memcmp(Processors::RowOf<char>(a, y), Processors::RowOf<char>(b, y),
                        static_cast<std::size_t>(a.m_nWidth) * a.m_nDepth) != 0)
            return false;
    return true;
}

inline constexpr PixelFormat kColorFormats[] = {PixelFormatBGRA8, PixelFormatARGB8,
                                                PixelFormatBGRA32f, PixelFormatARGB32f};
inline constexpr PixelFormat kAllFormats[] = {PixelFormatBGRA8,   PixelFormatARGB8,
                                              PixelFormatBGRA32f, PixelFormatARGB32f,
                                              PixelFormatMono8,   PixelFormatMono32f};

}  // namespace brushworks::testing
