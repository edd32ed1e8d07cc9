// Fills whole frames, or one channel of them.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CSetColor {
  public:
    /// Fills every pixel with a colour word: bits 0 to 7 blue, 8 to 15 green, 16 to 23 red, 24 to
    /// 31 alpha, the same colour in every channel order. Single planes take the low byte. False for
    /// a frame that no fill serves.
    bool Process(CFrame* frame, unsigned int color);
};

class CSetChannelColor {
  public:
    /// Fills one channel, named by its place in memory, with the low byte of `value`. False but for
    /// frames of four channels.
    bool Process(CFrame* frame, unsigned int channel, unsigned int value);
};

}  // namespace brushworks::Processors
