// Opens, demuxes and decodes one file, and watches for every sign of damage.
#include "media/reader.h"

extern "C" {
#include <libavutil/display.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <cmath>
#include <string_view>

#include "media/container_end.h"
#include "media/jpeg_end.h"

namespace brushworks::media {
namespace {

constexpr AVRational kMicroseconds = {1, AV_TIME_BASE};

bool readsPictures(const AVInputFormat& format) {
    const std::string_view name = format.name;
    return name.ends_with("_pipe") || name == "image2";
}

/// Whether frames may be decoded several at a time. The older decoders of FFmpeg 5 end the whole
/// program when they do so and meet damage.
bool bearsFrameThreads(AVCodecID codec) {
    return codec == AV_CODEC_ID_H264 || codec == AV_CODEC_ID_HEVC || codec == AV_CODEC_ID_VP8 ||
           codec == AV_CODEC_ID_VP9;
}

/// The decoder that gives all that a stream holds: FFmpeg's own for VP8 and VP9 leave alpha out.
const AVCodec* decoderOf(const AVStream& stream, const AVCodec* usual) {
    const AVDictionaryEntry* alpha = av_dict_get(stream.metadata, "alpha_mode", nullptr, 0);
    if (alpha == nullptr || std::string_view(alpha->value) != "1") return usual;
    const AVCodecID id = stream.codecpar->codec_id;
    if (id != AV_CODEC_ID_VP8 && id != AV_CODEC_ID_VP9) return usual;
    const AVCodec* whole =
        avcodec_find_decoder_by_name(id == AV_CODEC_ID_VP8 ? "libvpx" : "libvpx-vp9");
    return whole != nullptr ? whole : usual;
}

IoPtr openToRead(const std::string& url, const std::string& failure) {
    AVIOContext* io = nullptr;
    check(avio_open(&io, url.c_str(), AVIO_FLAG_READ), failure);
    return IoPtr(io);
}

/// So many bytes of a file.
std::string startUrl(const std::string& path, std::int64_t bytes) {
    return "subfile,,start,0,end," + std::to_string(bytes) + ",,:" + fileUrl(path);
}

/// Whether the file's own index tells of data behind the end of the file.
bool indexPassesEnd(AVStream* stream, std::int64_t fileSize) {
    const int count = avformat_index_get_entries_count(stream);
    for (int i = 0; i < count; ++i) {
        const AVIndexEntry* entry = avformat_index_get_entry(stream, i);
        if (entry->pos + entry->size > fileSize) return true;
    }
    return false;
}

}  // namespace

Reader::Reader(const std::string& path, FrameLimit limit)
    : m_sPath(path == "-" ? "standard input" : path),
      m_limit(std::move(limit)),
      m_bPipe(path == "-") {
    const std::string failure = "cannot read " + m_sPath;
    openInput(path);
    AVFormatContext* input = m_pInput.get();
    m_bPicture = readsPictures(*input->iformat);
    findStreams();

    const AVCodec* codec = nullptr;
    m_nVideo = av_find_best_stream(input, AVMEDIA_TYPE_VIDEO, -1, -1, &codec, 0);
    const bool cover = m_nVideo >= 0 && (video().disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
    if (m_nVideo < 0 || cover) throw MediaError(failure + ": it has no picture and no video");
    checkSize(video().codecpar->width, video().codecpar->height);
    skipOtherVideo();
    openDecoder(decoderOf(video(), codec));
    for (unsigned int i = 0; i < input->nb_streams && !m_bPipe; ++i) {
        const bool early = indexPassesEnd(input->streams[i], avio_size(m_pIo.get()));
        if (early) failDamaged("the file is cut short");
    }

    // Broadcast streams count their time from anywhere; files from their beginning.
    const bool anyStart = (input->iformat->flags & AVFMT_TS_DISCONT) != 0;
    if (anyStart && input->start_time != AV_NOPTS_VALUE) m_nShift = -input->start_time;
    // A look at the first frames may have met ones that lack their references.
    m_errorsAtStart.decoder = loggedErrors().decoder;
}

bool Reader::isPictureFile(const std::string& path) {
    Reader reader;
    reader.m_sPath = path;
    reader.openInput(path);
    return readsPictures(*reader.m_pInput->iformat);
}

void Reader::openInput(const std::string& path) {
    const std::string failure = "cannot read " + m_sPath;
    m_pIo = openToRead(m_bPipe ? "pipe:0" : fileUrl(path), failure);
    if (!m_bPipe) {
        const std::int64_t fileSize = avio_size(m_pIo.get());
        if (fileSize == 0) throw MediaError(failure + ": it is empty");
        const std::optional<std::int64_t> end = contentEnd(*m_pIo);
        if (!end) failDamaged("the file is cut short");
        // Demuxers go on behind the contents' end, and stumble.
        if (*end < fileSize) m_pIo = openToRead(startUrl(path, *end), failure);
    }

    // No name goes with the data: the type is known by content alone, and no pattern of a name
    // makes FFmpeg look for other files.
    AVFormatContext* input = avformat_alloc_context();
    if (input == nullptr) throw std::bad_alloc();
    input->pb = m_pIo.get();
    takeLastError();
    takeRefusedSize();
    m_errorsAtStart = loggedErrors();
    const AVInputFormat* format = m_bPipe ? av_find_input_format("yuv4mpegpipe") : nullptr;
    const int opened = avformat_open_input(&input, "", format, nullptr);
    if (opened < 0) {
        checkRefusedSize();
        check(opened, m_bPipe ? failure + " as YUV4MPEG2" : failure);
    }
    m_pInput.reset(input);
}

/// This decodes a first frame where the head of the file tells too little.
void Reader::findStreams() {
    const std::size_t count = m_pInput->nb_streams;
    for (std::size_t i = 0; i < count; ++i) {
        const AVCodecParameters& stream = *m_pInput->streams[i]->codecpar;
        const bool cover = (m_pInput->streams[i]->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
        if (stream.codec_type == AVMEDIA_TYPE_VIDEO && !cover) {
            checkSize(stream.width, stream.height);
        }
    }
    std::vector<AVDictionary*> options(count);
    for (AVDictionary*& each : options) av_dict_set_int(&each, "max_pixels", m_limit.pixels, 0);
    const int found = avformat_find_stream_info(m_pInput.get(), options.data());
    for (AVDictionary* each : options) av_dict_free(&each);
    takeRefusedSize();  // maybe a cover's; what matters is refused again
    check(found, "cannot read " + m_sPath);
}

void Reader::skipOtherVideo() {
    for (unsigned int i = 0; i < m_pInput->nb_streams; ++i) {
        AVStream* stream = m_pInput->streams[i];
        const bool other =
            stream->codecpar->codec_type == AVMEDIA_TYPE_VIDEO && static_cast<int>(i) != m_nVideo;
        stream->discard = other ? AVDISCARD_ALL : AVDISCARD_DEFAULT;
    }
}

void Reader::openDecoder(const AVCodec* codec) {
    m_pDecoder = owned<CodecPtr>(avcodec_alloc_context3(codec));
    check(avcodec_parameters_to_context(m_pDecoder.get(), video().codecpar),
          "cannot read " + m_sPath);
    m_pDecoder->pkt_timebase = timeBase();
    // A picture with holes is worse than none. The TIFF decoder alone would also refuse every tag
    // that it does not know; its log tells of real damage.
    m_pDecoder->err_recognition = AV_EF_CRCCHECK | AV_EF_BITSTREAM | AV_EF_BUFFER;
    if (codec->id != AV_CODEC_ID_TIFF) m_pDecoder->err_recognition |= AV_EF_EXPLODE;
    m_pDecoder->max_pixels = m_limit.pixels;
    m_pDecoder->thread_count = decoderThreads(*codec);
    if (!bearsFrameThreads(codec->id)) m_pDecoder->thread_type = FF_THREAD_SLICE;
    check(avcodec_open2(m_pDecoder.get(), codec, nullptr), "cannot decode " + m_sPath);
}

/// 0 for as many as FFmpeg finds right.
int Reader::decoderThreads(const AVCodec& codec) const {
    if (m_bPicture) return 1;
    constexpr std::int64_t kBytesAPixel = 3;
    constexpr std::int64_t kMostThreads = 16;
    const AVCodecParameters& stream = *video().codecpar;
    const std::int64_t frame =
        std::max(std::int64_t{stream.width} * stream.height * kBytesAPixel, std::int64_t{1});
    const std::int64_t threads = m_limit.bytesAhead / frame;
    if (!bearsFrameThreads(codec.id) || threads >= kMostThreads) return 0;
    return static_cast<int>(std::max(threads, std::int64_t{1}));
}

int Reader::decoderFrames() const {
    constexpr int kOwn = 1;
    constexpr int kModernReferences = 8;  // of VP9 and AV1
    const AVCodecContext& decoder = *m_pDecoder;
    const int threads =
        (decoder.active_thread_type & FF_THREAD_FRAME) != 0 ? decoder.thread_count : 0;
    const AVCodecDescriptor* codec = avcodec_descriptor_get(decoder.codec_id);
    if (codec != nullptr && (codec->props & AV_CODEC_PROP_INTRA_ONLY) != 0) return kOwn + threads;
    const bool modern = decoder.codec_id == AV_CODEC_ID_VP9 || decoder.codec_id == AV_CODEC_ID_AV1;
    const int references = std::max(decoder.refs, modern ? kModernReferences : 1);
    return kOwn + threads + references + decoder.has_b_frames;
}

FramePtr Reader::next() {
    if (m_bPicture && m_nFrames > 0) return nullptr;
    if (m_pAgain) {
        ++m_nFrames;
        return std::move(m_pAgain);
    }
    FramePtr frame = newFrame();
    for (;;) {
        const int result = avcodec_receive_frame(m_pDecoder.get(), frame.get());
        if (result == 0) {
            checkFrame(*frame);
            fixTimes(*frame);
            ++m_nFrames;
            return frame;
        }
        if (result == AVERROR_EOF) {
            checkReadToEnd();
            return nullptr;
        }
        if (result != AVERROR(EAGAIN)) failDamaged(reason(result));
        feedDecoder();
    }
}

void Reader::feedDecoder() {
    PacketPtr packet;
    if (m_ahead.empty()) {
        packet = readVideoPacket();
    } else {
        packet = std::move(m_ahead.front());
        m_ahead.pop_front();
    }
    const int sent = avcodec_send_packet(m_pDecoder.get(), packet.get());
    if (sent < 0) failDamaged(reason(sent));
}

PacketPtr Reader::readVideoPacket() {
    for (;;) {
        PacketPtr packet = newPacket();
        const int result = av_read_frame(m_pInput.get(), packet.get());
        if (result < 0 && result != AVERROR_EOF) failDamaged(reason(result));
        if (m_pIo->error < 0) failDamaged(reason(m_pIo->error));
        if (result == AVERROR_EOF) packet.reset();
        checkFrameEnd(packet.get());
        if (!packet) return nullptr;
        const bool cutShort = (packet->flags & AV_PKT_FLAG_CORRUPT) != 0;
        if (packet->stream_index == m_nVideo) {
            if (cutShort) failDamaged("a frame is cut short");
            const bool jpeg = m_bPicture && m_pDecoder->codec_id == AV_CODEC_ID_MJPEG;
            if (jpeg && !jpegHasEnd({packet->data, static_cast<std::size_t>(packet->size)})) {
                failDamaged("its end is missing");
            }
            ++m_nPackets;
            return packet;
        }
        if (cutShort) {
            failDamaged("a packet of stream " + std::to_string(packet->stream_index) +
                        " is cut short");
        }
        setAside(std::move(packet));
    }
}

void Reader::setAside(PacketPtr packet) {
    shiftBy(*packet, m_nShift, kMicroseconds);
    m_packets.push_back(std::move(packet));
}

void Reader::shift(AVPacket& packet, std::int64_t time) const {
    shiftBy(packet, time, timeBase());
}

void Reader::shiftBy(AVPacket& packet, std::int64_t time, AVRational base) const {
    const AVRational own = m_pInput->streams[packet.stream_index]->time_base;
    const std::int64_t shift = av_rescale_q(time, base, own);
    if (packet.pts != AV_NOPTS_VALUE) packet.pts += shift;
    if (packet.dts != AV_NOPTS_VALUE) packet.dts += shift;
}

void Reader::checkFrameEnd(const AVPacket* packet) {
    // This demuxer takes a frame that is cut short for the end.
    if (std::string_view(m_pInput->iformat->name) != "yuv4mpegpipe") return;
    if (packet != nullptr) m_nReadTo = packet->pos + packet->size;
    if (packet == nullptr && avio_tell(m_pIo.get()) != m_nReadTo) {
        failDamaged("a frame is cut short");
    }
}

void Reader::checkFrame(const AVFrame& frame) const {
    if ((frame.flags & AV_FRAME_FLAG_CORRUPT) != 0 || frame.decode_error_flags != 0) {
        failDamaged("frame " + std::to_string(m_nFrames) + " is damaged");
    }
    // Picture decoders fill in what is missing, and only their log tells of it.
    if (m_bPicture && loggedErrors().decoder > m_errorsAtStart.decoder) {
        failDamaged(takeLastError());
    }
}

void Reader::checkReadToEnd() const {
    if (loggedErrors().demuxer > m_errorsAtStart.demuxer) failDamaged(takeLastError());
    if (m_nFrames == 0) failDamaged("it holds no frame");
}

void Reader::fixTimes(AVFrame& frame) {
    std::int64_t step = frame.pkt_duration;
    if (step <= 0 && frameRate().num > 0) {
        step = av_rescale_q(1, av_inv_q(frameRate()), timeBase());
    }
    step = std::max<std::int64_t>(step, 1);
    frame.pkt_duration = step;

    const std::int64_t told = frame.best_effort_timestamp;
    frame.pts = told != AV_NOPTS_VALUE ? told + av_rescale_q(m_nShift, kMicroseconds, timeBase())
                                       : m_nNextTime;
    m_nNextTime = frame.pts + step;
}

void Reader::checkSize(int width, int height) const {
    if (width <= 0 || height <= 0) return;  // not known yet
    if (!isPossibleSize(width, height)) {
        throw MediaError(m_sPath + ": " + tooLargeText(width, height));
    }
    if (std::int64_t{width} * height <= m_limit.pixels) return;
    throw MediaError(m_sPath + ": " + m_limit.refusal(width, height));
}

void Reader::checkRefusedSize() const {
    const RefusedSize refused = takeRefusedSize();
    checkSize(refused.width, refused.height);
}

void Reader::failDamaged(const std::string& how) const {
    checkRefusedSize();
    throw MediaError(m_sPath + " is damaged or incomplete: " + how);
}

std::vector<const AVStream*> Reader::otherStreams() const {
    std::vector<const AVStream*> streams;
    for (unsigned int i = 0; i < m_pInput->nb_streams; ++i) {
        if (static_cast<int>(i) != m_nVideo) streams.push_back(m_pInput->streams[i]);
    }
    return streams;
}

std::int64_t Reader::videoStart() const {
    if (video().start_time == AV_NOPTS_VALUE) return 0;
    return video().start_time + av_rescale_q(m_nShift, kMicroseconds, timeBase());
}

double Reader::secondsOf(const AVFrame& frame) const {
    return static_cast<double>(frame.pts - videoStart()) * timeBase().num / timeBase().den;
}

double Reader::secondsOf(const AVPacket& packet) const {
    const AVStream& stream = *m_pInput->streams[packet.stream_index];
    const double start = static_cast<double>(videoStart()) * av_q2d(timeBase());
    const std::int64_t time = packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
    return static_cast<double>(time) * av_q2d(stream.time_base) - start;
}

bool Reader::isCover(const AVPacket& packet) const {
    const AVStream& stream = *m_pInput->streams[packet.stream_index];
    return (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
}

AVRational Reader::frameRate() const {
    return av_guess_frame_rate(m_pInput.get(), m_pInput->streams[m_nVideo], nullptr);
}

bool Reader::variesRate() const {
    const AVRational average = video().avg_frame_rate;
    if (m_bPicture || average.num <= 0 || frameRate().num <= 0) return false;
    // Averages over clips are often off by one frame.
    constexpr double kTolerance = 0.02;
    return std::abs(av_q2d(average) / av_q2d(frameRate()) - 1) > kTolerance;
}

AVRational Reader::sampleAspect(const AVFrame& frame) const {
    return av_guess_sample_aspect_ratio(m_pInput.get(), m_pInput->streams[m_nVideo],
                                        const_cast<AVFrame*>(&frame));
}

Orientation Reader::orientation(const AVFrame& frame) const {
    const AVFrameSideData* own = av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX);
    const std::uint8_t* matrix =
        own != nullptr ? own->data
                       : av_stream_get_side_data(&video(), AV_PKT_DATA_DISPLAYMATRIX, nullptr);
    return orientationOf(reinterpret_cast<const std::int32_t*>(matrix));
}

std::int64_t Reader::expectedFrames() const {
    if (m_bPicture) return 1;
    if (video().nb_frames > 0) return video().nb_frames;
    if (m_pInput->duration <= 0 || frameRate().num <= 0) return 0;
    const double seconds = static_cast<double>(m_pInput->duration) / AV_TIME_BASE;
    return std::llround(seconds * av_q2d(frameRate()));
}

}  // namespace brushworks::media
