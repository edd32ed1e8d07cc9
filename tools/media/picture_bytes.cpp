// A picture file is what its encoder makes, and nothing around it.
#include "media/picture_bytes.h"

namespace brushworks::media {

std::string pictureBytes(AVFrame& frame, const OutputFormat& format,
                         const VideoSettings& settings) {
    const std::string failure = "cannot encode a picture";
    const CodecPtr encoder = openEncoder(format, settings, /*globalHeader=*/false);
    frame.quality = encoder->global_quality;
    check(avcodec_send_frame(encoder.get(), &frame), failure);
    check(avcodec_send_frame(encoder.get(), nullptr), failure);
    const PacketPtr packet = newPacket();
    std::string bytes;
    for (;;) {
        const int result = avcodec_receive_packet(encoder.get(), packet.get());
        if (result == AVERROR_EOF) return bytes;
        check(result, failure);
        bytes.append(reinterpret_cast<const char*>(packet->data),
                     static_cast<std::size_t>(packet->size));
    }
}

}  // namespace brushworks::media
