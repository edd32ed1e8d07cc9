// Hue, saturation and value of frames, and back.
//
// Converted frames hold H, S, V, A in this memory order, whatever the format. The hue wheel starts
// at blue: pure blue has hue 0, green 1/3, red 2/3.
#pragma once

#include "frames/frame.h"
#include "frames/samples.h"

namespace brushworks::Processors {

/// Hue, saturation and value from 0 to 1, and alpha.
struct HSVA {
    float h, s, v, a;
};

class CRGBToHSV {
  public:
    /// False for formats without colours.
    bool Process(CFrame* src, CFrame* dst);

    // One pixel.
    HSVA HSVAFromBGRA(const VideoSampleFloat& sample);
    HSVA HSVAFromARGB(const VideoSampleSwappedFloat& sample);
};

class CHSVToRGB {
  public:
    /// The format of `dst` decides; false for formats without colours.
    bool Process(CFrame* src, CFrame* dst);
};

}  // namespace brushworks::Processors
