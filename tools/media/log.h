// FFmpeg's log, kept off the terminal: its lines serve our own messages, and tell of damage that
// its result codes pass over.
#pragma once

#include <string>

namespace brushworks::media {

/// How many lines of level error or worse demuxers, and decoders without threads of their own, have
/// logged on the thread that asks.
struct LoggedErrors {
    int demuxer = 0;
    int decoder = 0;
};

/// From here on FFmpeg logs here and nowhere else. May be called again.
void captureLog();

LoggedErrors loggedErrors();

/// A size of frames, 0 by 0 for none.
struct RefusedSize {
    int width = 0;
    int height = 0;
};
/// The last size that FFmpeg has refused on the thread that asks, which is then forgotten.
RefusedSize takeRefusedSize();

/// The last line of level error or worse, which is then forgotten; "" when there was none.
std::string takeLastError();

}  // namespace brushworks::media
