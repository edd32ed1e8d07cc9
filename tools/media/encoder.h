// The encoders: what each is called, what its quality means, how it becomes lossless.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "media/av.h"
#include "media/output_format.h"

namespace brushworks::media {

/// What the quality of an encoder is set by.
enum class QualityScale {
    None,       ///< nothing: it keeps everything, or has ways of its own
    Crf,        ///< its option "crf"
    Quantizer,  ///< the quantizer that all frames share
    Percent,    ///< its option "quality"
};

/// Quality runs from 0 to 100 for all encoders; what the ends are on an encoder's own scale.
struct Quality {
    QualityScale scale = QualityScale::None;
    double worst = 0;
    double best = 0;
    int usual = 0;  ///< when none is asked for, of 100
};

/// What is particular about an encoder.
enum EncoderTraits : unsigned int {
    kFields = 1,       ///< marks interlaced frames as such
    kEvenTimes = 2,    ///< knows one frame rate alone
    kWholeChroma = 4,  ///< has no half colour samples at the edges of odd sizes
};

/// How many frames' worth of memory an encoder takes, as measured: with the frames that it looks
/// ahead, their copies and what it knows of them.
struct HeldFrames {
    int always = 4;
    int aCore = 0;  ///< more for each core that it may use
};

/// A row of the table of encoders.
struct EncoderRow {
    const char* name;    ///< of the encoder in FFmpeg
    const char* common;  ///< a second name for it: that of its codec
    Quality quality = {};
    const char* lossless = nullptr;  ///< options that make it so, "" where it always is, or null
    const char* options = "";        ///< that go with it always, as "name=value,name=value"
    unsigned int traits = 0;
    HeldFrames held = {};

    bool has(EncoderTraits trait) const { return (traits & trait) != 0; }
};

std::span<const EncoderRow> encoderRows();

/// What a user asks for; empty, or -1, where nothing is asked.
struct EncodingChoice {
    std::string codec = {};
    int quality = -1;
    std::string pixelFormat = {};
    bool lossless = false;
};

/// An encoder and how it is to work.
struct Encoding {
    const AVCodec* codec = nullptr;
    EncoderRow row = {};
    int quality = 0;  ///< of 100
    bool lossless = false;

    /// Fills in what makes the encoder work so.
    void apply(AVCodecContext& context, Dictionary& options) const;
};

/// The encoding of files of `format`, for frames of `source`. Throws MediaUsageError when what is
/// asked for does not go together, MediaError when this build of FFmpeg lacks the encoder.
Encoding chooseEncoding(const OutputFormat& format, const EncodingChoice& choice,
                        AVPixelFormat source);

/// The encoders of the table that this build of FFmpeg has and that `format` can hold.
std::vector<const EncoderRow*> encodersFor(const OutputFormat& format);

/// The quality on the encoder's own scale.
double ownQuality(const EncoderRow& row, int quality);

}  // namespace brushworks::media
