// Small pictures and videos for tests of the command line, made with our own writer, and what the
// tests read back from its outputs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "media/av.h"
#include "media/output_format.h"

namespace brushworks::tools::testing {

/// Frames show their number as black and white bars, so that it survives painting and encoding.
constexpr int kBars = 8;

struct Clip {
    int width = 64;
    int height = 48;
    int frames = 12;
    bool sound = false;
    AVRational frameRate = {25, 1};
    AVRational pixelAspect = {1, 1};
    bool uneven = false;  ///< each frame stays one tick longer than the one before
    const media::OutputFormat* format = nullptr;  ///< or that of the path's extension
};

/// A video; `path` ends in one of the extensions that can be written, or a format is given. Sound
/// needs .mkv.
void makeClip(const std::string& path, const Clip& clip);

/// A picture of bars; with `alpha` its opacity runs from left to right.
void makePicture(const std::string& path, int width, int height, bool alpha);

/// A picture of all colours with fine detail.
void makeColors(const std::string& path, int width, int height);

/// Noise in samples of this pixel format, without loss: a picture, or three frames of a video.
/// `bottomFirst` are interlaced.
void makeNoise(const std::string& path, const std::string& pixelFormat, bool bottomFirst = false);

/// All samples of a file as they are decoded.
struct Samples {
    std::string format;
    std::vector<std::uint8_t> bytes;  ///< of all frames, without padding
    bool interlaced = false;
    bool bottomFirst = false;
};
/// Appends those of a frame.
void appendSamples(const AVFrame& frame, std::vector<std::uint8_t>& bytes);
Samples samplesOf(const std::string& path);

/// What a test wants to know of a file.
struct Content {
    int width = 0;
    int height = 0;
    std::string format;                ///< of the samples, in FFmpeg's words
    std::vector<int> numbers;          ///< that the bars of the frames show, in order
    std::vector<std::int64_t> times;   ///< of the frames, in microseconds
    std::vector<std::uint8_t> first;   ///< the first frame, B, G, R, A without padding
    std::vector<std::string> packets;  ///< of the sound
    AVRational pixelAspect = {0, 1};
};

/// Reads a whole file; throws when it is damaged.
Content contentOf(const std::string& path);

}  // namespace brushworks::tools::testing
