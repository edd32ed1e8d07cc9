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

/// A row of the table of encoders. Quality runs from 0 to 100 for all of them.
struct EncoderRow {
    const char* name;    ///< of the encoder in FFmpeg
    const char* common;  ///< a second name for it: that of its codec
    QualityScale scale = QualityScale::None;
    double worst = 0;  ///< what quality 0 is on the encoder's own scale
    double best = 0;   ///< and quality 100
    int usual = 0;     ///< the quality when none is asked for
    const char* lossless =
        nullptr;               ///< options that make it lossless, "" where it always is, or null
    const char* options = "";  ///< that go with it always, as "name=value,name=value"
    bool fields = false;       ///< codes interlaced frames as such
    bool evenTimes = false;    ///< knows one frame rate alone
    bool wholeChroma = false;  ///< has no half colour samples at the edges of odd sizes
};

std::span<const EncoderRow> encoderRows();

/// What a user asks for; empty, or -1, where nothing is asked.
struct EncodingChoice {
    std::string codec;
    int quality = -1;
    std::string pixelFormat;
    bool lossless = false;
};

/// An encoder and how it is to work.
struct Encoding {
    const AVCodec* codec = nullptr;
    EncoderRow row = {};
    int quality = 0;
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
