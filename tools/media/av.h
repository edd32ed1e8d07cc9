// FFmpeg's objects with owners, and its error codes as exceptions.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#include <memory>
#include <new>
#include <string>

#include "media/error.h"

namespace brushworks::media {

namespace detail {
struct FrameCloser {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
struct PacketCloser {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct CodecCloser {
    void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
};
struct InputCloser {
    void operator()(AVFormatContext* input) const { avformat_close_input(&input); }
};
struct OutputCloser {
    void operator()(AVFormatContext* output) const { avformat_free_context(output); }
};
struct IoCloser {
    void operator()(AVIOContext* io) const { avio_closep(&io); }
};
struct ScalerCloser {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};
}  // namespace detail

using FramePtr = std::unique_ptr<AVFrame, detail::FrameCloser>;
using PacketPtr = std::unique_ptr<AVPacket, detail::PacketCloser>;
using CodecPtr = std::unique_ptr<AVCodecContext, detail::CodecCloser>;
using InputPtr = std::unique_ptr<AVFormatContext, detail::InputCloser>;
using OutputPtr = std::unique_ptr<AVFormatContext, detail::OutputCloser>;
using IoPtr = std::unique_ptr<AVIOContext, detail::IoCloser>;
using ScalerPtr = std::unique_ptr<SwsContext, detail::ScalerCloser>;

/// Options for one call; what the call did not use is freed.
class Dictionary {
  public:
    Dictionary() = default;
    ~Dictionary() { av_dict_free(&m_pDict); }
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;
    void set(const char* key, const char* value) { av_dict_set(&m_pDict, key, value, 0); }
    void set(const char* key, int64_t value) { av_dict_set_int(&m_pDict, key, value, 0); }
    /// Adds "name=value,name=value".
    void parse(const char* text) {
        if (av_dict_parse_string(&m_pDict, text, "=", ",", 0) < 0) throw std::bad_alloc();
    }
    AVDictionary** pointer() { return &m_pDict; }

  private:
    AVDictionary* m_pDict = nullptr;
};

/// Takes over an object that FFmpeg made, or throws when it made none.
template <class Pointer>
Pointer owned(typename Pointer::pointer object) {
    if (object == nullptr) throw std::bad_alloc();
    return Pointer(object);
}

inline FramePtr newFrame() {
    return owned<FramePtr>(av_frame_alloc());
}
inline PacketPtr newPacket() {
    return owned<PacketPtr>(av_packet_alloc());
}

/// What went wrong: the code in words, and the last line that FFmpeg logged, if it logged any.
std::string reason(int code);

/// Hands a result on; throws MediaError with `what` and the reason for a negative one.
inline int check(int result, const std::string& what) {
    if (result < 0) throw MediaError(what + ": " + reason(result));
    return result;
}

/// The path as FFmpeg takes it, so that no name is read as a protocol or a pattern.
inline std::string fileUrl(const std::string& path) {
    return "file:" + path;
}

}  // namespace brushworks::media
