// Makes and reads the test media.
#include "testing_media.h"

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <cstring>
#include <fstream>

#include "media/encoder.h"
#include "media/log.h"
#include "media/output_format.h"
#include "media/output_raster.h"
#include "media/raster.h"
#include "media/reader.h"
#include "media/writer.h"

namespace brushworks::tools::testing {
namespace {

using namespace media;

constexpr AVRational kMicroseconds = {1, 1000000};
constexpr int kSoundRate = 8000;

std::uint8_t* pixelAt(const AVFrame& frame, int x, int y) {
    return frame.data[0] + static_cast<std::ptrdiff_t>(y) * frame.linesize[0] + x * 4;
}

template <class Color>
FramePtr drawn(int width, int height, Color color) {
    FramePtr frame = allocateFrame(bgraRaster(width, height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint32_t argb = color(x, y);
            std::memcpy(pixelAt(*frame, x, y), &argb, 4);
        }
    }
    return frame;
}

std::uint32_t barColor(int number, int x, int width) {
    return (number >> (x * kBars / width) & 1) != 0 ? 0xFFFFFFFF : 0xFF000000;
}

/// The frame as the writer wants it.
FramePtr coded(const AVFrame& bgra, const Raster& raster) {
    FramePtr frame = allocateFrame(raster);
    RasterConverter().convert(bgra, bgraRaster(bgra.width, bgra.height), *frame, raster, false);
    return frame;
}

/// A plain sound file, which is a source of packets to copy.
std::string makeSound(const std::string& path, double seconds) {
    const auto samples = static_cast<std::uint32_t>(seconds * kSoundRate);
    std::ofstream file(path, std::ios::binary);
    const auto number = [&](std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i) file.put(static_cast<char>(value >> (8 * i)));
    };
    file << "RIFF";
    number(36 + samples * 2, 4);
    file << "WAVEfmt ";
    for (const auto& [value, bytes] : {std::pair<std::uint32_t, int>{16, 4},
                                       {1, 2},
                                       {1, 2},
                                       {kSoundRate, 4},
                                       {kSoundRate * 2, 4},
                                       {2, 2},
                                       {16, 2}}) {
        number(value, bytes);
    }
    file << "data";
    number(samples * 2, 4);
    for (std::uint32_t i = 0; i < samples; ++i) number(i * 2654435761U >> 16, 2);
    return path;
}

void writePicture(const std::string& path, const AVFrame& bgra) {
    captureLog();
    const OutputFormat& format = outputFormatOf(path);
    VideoSettings settings;
    settings.encoding = chooseEncoding(format, {}, AV_PIX_FMT_BGRA);
    settings.raster = outputRaster(settings.encoding, bgraRaster(bgra.width, bgra.height),
                                   bgra.width, bgra.height);
    Writer writer(path, format, settings);
    const FramePtr frame = coded(bgra, settings.raster);
    frame->pts = 0;
    writer.writeFrame(*frame);
    writer.finish();
}

/// The number that the bars of a frame show.
int numberOn(const AVFrame& bgra) {
    int number = 0;
    for (int bar = 0; bar < kBars; ++bar) {
        const int x = (2 * bar + 1) * bgra.width / (2 * kBars);
        if (pixelAt(bgra, x, bgra.height / 2)[1] > 127) number |= 1 << bar;
    }
    return number;
}

void takeSound(Reader& reader, Content& content) {
    for (const PacketPtr& packet : reader.takePackets()) {
        content.packets.emplace_back(reinterpret_cast<const char*>(packet->data),
                                     static_cast<std::size_t>(packet->size));
    }
}

}  // namespace

void makeClip(const std::string& path, const Clip& clip) {
    captureLog();
    const OutputFormat& format = clip.format != nullptr ? *clip.format : outputFormatOf(path);
    VideoSettings settings;
    settings.timeBase = av_inv_q(clip.frameRate);
    settings.frameRate = clip.frameRate;
    settings.pixelAspect = clip.pixelAspect;
    // RGB as the source: the writer then chooses matrix and range.
    settings.encoding = chooseEncoding(format, {}, AV_PIX_FMT_BGR0);
    const Raster source = {AV_PIX_FMT_BGR0, clip.width, clip.height, AVCOL_SPC_RGB};
    settings.raster = outputRaster(settings.encoding, source, clip.width, clip.height);

    InputPtr sound;
    Companions companions;
    if (clip.sound) {
        AVFormatContext* input = nullptr;
        const std::string wave = makeSound(path + ".wav", clip.frames * av_q2d(settings.timeBase));
        check(avformat_open_input(&input, fileUrl(wave).c_str(), nullptr, nullptr), "sound");
        sound.reset(input);
        companions.streams.push_back(input->streams[0]);
    }
    Writer writer(path, format, settings, companions);
    for (int number = 0; number < clip.frames; ++number) {
        const FramePtr bgra = drawn(clip.width, clip.height,
                                    [&](int x, int) { return barColor(number, x, clip.width); });
        const FramePtr frame = coded(*bgra, settings.raster);
        frame->pts = clip.uneven ? number * (number + 1) / 2 : number;
        frame->pkt_duration = 1;
        writer.writeFrame(*frame);
    }
    const PacketPtr packet = newPacket();
    while (sound && av_read_frame(sound.get(), packet.get()) >= 0) writer.writePacket(*packet);
    writer.finish();
}

void makePicture(const std::string& path, int width, int height, bool alpha) {
    writePicture(path, *drawn(width, height, [&](int x, int) {
                     const std::uint32_t opacity =
                         alpha ? static_cast<std::uint32_t>(255 - x * 254 / std::max(1, width))
                               : 255;
                     return (barColor(0x5A, x, width) & 0xFFFFFF) | opacity << 24;
                 }));
}

void makeColors(const std::string& path, int width, int height) {
    writePicture(path, *drawn(width, height, [](int x, int y) {
                     const auto mixed = static_cast<std::uint32_t>(x * 7 + y * 131) * 2654435761U;
                     return mixed >> 8 | 0xFF000000;
                 }));
}

void makeNoise(const std::string& path, const std::string& pixelFormat, bool bottomFirst) {
    captureLog();
    const OutputFormat& format = outputFormatOf(path);
    const AVPixelFormat samples = av_get_pix_fmt(pixelFormat.c_str());
    const bool yuv = isYuv(samples);
    const Raster source = {samples, 48, 32, yuv ? AVCOL_SPC_SMPTE170M : AVCOL_SPC_RGB,
                           yuv ? AVCOL_RANGE_MPEG : AVCOL_RANGE_JPEG};
    VideoSettings settings;
    settings.encoding = chooseEncoding(format, {.lossless = true}, samples);
    settings.raster = outputRaster(settings.encoding, source, 48, 32, pixelFormat);
    settings.frameRate = {25, 1};
    if (bottomFirst) settings.fields = FieldOrder::BottomFirst;
    Writer writer(path, format, settings);
    const Raster deep = {AV_PIX_FMT_RGBA64, 48, 32, AVCOL_SPC_RGB, AVCOL_RANGE_JPEG};
    for (std::uint32_t number = 0; number < (format.picture ? 1U : 3U); ++number) {
        const FramePtr noise = allocateFrame(deep);
        for (std::uint32_t i = 0; i < 32U * static_cast<std::uint32_t>(noise->linesize[0]); ++i) {
            noise->data[0][i] = static_cast<std::uint8_t>((i + number) * 2654435761U >> 24);
        }
        const FramePtr frame = allocateFrame(settings.raster);
        RasterConverter().convert(*noise, deep, *frame, settings.raster, false);
        frame->pts = number;
        frame->interlaced_frame = bottomFirst ? 1 : 0;
        writer.writeFrame(*frame);
    }
    writer.finish();
}

void appendSamples(const AVFrame& frame, std::vector<std::uint8_t>& bytes) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    const int size = av_image_get_buffer_size(format, frame.width, frame.height, 1);
    bytes.resize(bytes.size() + static_cast<std::size_t>(size));
    av_image_copy_to_buffer(bytes.data() + bytes.size() - size, size, frame.data, frame.linesize,
                            format, frame.width, frame.height, 1);
}

Samples samplesOf(const std::string& path) {
    captureLog();
    Reader reader(path);
    Samples samples;
    while (const FramePtr frame = reader.next()) {
        samples.format = av_get_pix_fmt_name(static_cast<AVPixelFormat>(frame->format));
        samples.interlaced = frame->interlaced_frame != 0;
        samples.bottomFirst = samples.interlaced && frame->top_field_first == 0;
        appendSamples(*frame, samples.bytes);
    }
    return samples;
}

Content contentOf(const std::string& path) {
    captureLog();
    Reader reader(path);
    Content content;
    RasterConverter converter;
    while (const FramePtr frame = reader.next()) {
        const Raster raster = rasterOf(*frame);
        const FramePtr bgra = allocateFrame(bgraRaster(frame->width, frame->height));
        converter.convert(*frame, raster, *bgra, bgraRaster(frame->width, frame->height), false);
        content.numbers.push_back(numberOn(*bgra));
        content.times.push_back(av_rescale_q(frame->pts, reader.timeBase(), kMicroseconds));
        takeSound(reader, content);
        if (content.numbers.size() > 1) continue;
        content.width = frame->width;
        content.height = frame->height;
        content.format = av_get_pix_fmt_name(raster.format);
        content.pixelAspect = reader.sampleAspect(*frame);
        for (int y = 0; y < bgra->height; ++y) {
            const std::uint8_t* row = pixelAt(*bgra, 0, y);
            content.first.insert(content.first.end(), row, row + bgra->width * 4);
        }
    }
    takeSound(reader, content);
    return content;
}

}  // namespace brushworks::tools::testing
