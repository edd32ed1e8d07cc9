// For tests: colours whatever the format, and a processor against a formula for one pixel.
#pragma once

#include <functional>

#include "processors/testing.h"

namespace brushworks::testing {

/// A pixel's samples by name, as the frame holds them: 0 to 255 or floats.
struct Rgba {
    float r, g, b, a;
};

inline bool HasFloats(PixelFormat format) {
    return format == PixelFormatBGRA32f || format == PixelFormatARGB32f ||
           format == PixelFormatMono32f;
}

inline bool HasAlphaFirst(PixelFormat format) {
    return format == PixelFormatARGB8 || format == PixelFormatARGB32f;
}

inline Rgba ColourAt(const CFrame& frame, int x, int y) {
    const auto sample = [&](int i) { return SampleAt(frame, y, 4 * x + i); };
    if (HasAlphaFirst(frame.m_pfPixelFormat)) return {sample(1), sample(2), sample(3), sample(0)};
    return {sample(2), sample(1), sample(0), sample(3)};
}

inline void SetColour(const CFrame& frame, int x, int y, Rgba p) {
    const bool first = HasAlphaFirst(frame.m_pfPixelFormat);
    const float samples[4] = {first ? p.a : p.b, first ? p.r : p.g, first ? p.g : p.r,
                              first ? p.b : p.a};
    for (int i = 0; i < 4; ++i)
        if (HasFloats(frame.m_pfPixelFormat))
            Processors::RowOf<float>(frame, y)[4 * x + i] = samples[i];
        else
            Processors::RowOf<unsigned char>(frame, y)[4 * x + i] =
                static_cast<unsigned char>(samples[i]);
}

/// A processor of two sources on colour frames of differing sizes, against a formula that gets the
/// two colours and the destination's old one; what lies beyond the common rectangle must stay.
inline void ExpectColours(PixelFormat format,
                          const std::function<bool(CFrame&, CFrame&, CFrame&)>& process,
                          const std::function<Rgba(Rgba, Rgba, Rgba)>& formula) {
    SCOPED_TRACE(format);
    RandomFrame a(21, 9, format, 1), b(19, 12, format, 2), dst(23, 11, format, 3);
    RandomFrame before(23, 11, format, 3);
    ASSERT_TRUE(process(a, b, dst));
    for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 19; ++x)
            SetColour(before, x, y,
                      formula(ColourAt(a, x, y), ColourAt(b, x, y), ColourAt(before, x, y)));
    for (int y = 0; y < 11; ++y)
        for (int i = 0; i < 4 * 23; ++i)
            ASSERT_EQ(SampleAt(dst, y, i), SampleAt(before, y, i)) << i / 4 << ", " << y;
}

}  // namespace brushworks::testing
