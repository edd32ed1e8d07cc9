// What goes from input to output beside the painted frames: streams, chapters and descriptions.
#pragma once

#include <string>

#include "media/av.h"
#include "media/output_format.h"

namespace brushworks::media {

/// What a file of a type does with a stream of an input.
enum class Fit {
    Held,     ///< it is copied as it is
    NoRoom,   ///< the type has no room for its codec
    NoKind,   ///< nor for any other of its kind
    Implied,  ///< the output makes its own, from chapters or descriptions that are copied
};

Fit fitOf(const AVStream& stream, const OutputFormat& format);

/// A stream in words: "subtitle (subrip, eng)".
std::string streamWords(const AVStream& stream);

/// Copies the stream's description into a new one of `output`, whose packets follow.
AVStream* copyStream(const AVStream& source, AVFormatContext& output);

/// Copies what describes the painted frames as well as it described the recorded ones: words, and
/// what displays need to know. `keepTurn` is for outputs that note how they are to be turned.
void describeVideo(const AVStream& source, AVStream& target, bool keepTurn);

void copyChapters(const AVFormatContext& input, AVFormatContext& output);

}  // namespace brushworks::media
