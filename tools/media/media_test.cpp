// Colour conversion, turning pictures, and the signs of a file's end.
#include <gtest/gtest.h>

extern "C" {
#include <libavutil/display.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "media/canvas.h"
#include "media/encoder.h"
#include "media/jpeg_end.h"
#include "media/log.h"
#include "media/orientation.h"
#include "media/output_format.h"
#include "media/output_raster.h"
#include "media/raster.h"

namespace brushworks::media {
namespace {

using Bgr = std::array<int, 3>;

void setPixel(std::uint8_t* pixel, std::uint32_t argb) {
    std::memcpy(pixel, &argb, 4);
}

/// The colour that a plain picture of these samples shows.
Bgr shown(int y, int u, int v, AVColorSpace matrix, AVColorRange range) {
    const Raster raster = {AV_PIX_FMT_YUV420P, 16, 16, matrix, range};
    const FramePtr coded = allocateFrame(raster);
    const std::array<int, 3> samples = {y, u, v};
    for (int plane = 0; plane < 3; ++plane) {
        const std::size_t rows = plane == 0 ? 16 : 8;
        std::memset(coded->data[plane], samples[static_cast<std::size_t>(plane)],
                    static_cast<std::size_t>(coded->linesize[plane]) * rows);
    }
    const FramePtr bgra = allocateFrame(bgraRaster(16, 16));
    RasterConverter().convert(*coded, rasterOf(*coded), *bgra, bgraRaster(16, 16), false);
    const std::uint8_t* pixel = bgra->data[0] + 5 * bgra->linesize[0] + 5 * 4;
    EXPECT_EQ(pixel[3], 255);
    return {pixel[0], pixel[1], pixel[2]};
}

void expectNear(const Bgr& actual, const Bgr& expected) {
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(actual[i], expected[i], 2) << "channel " << i;
}

TEST(Raster, RespectsMatrixAndRange) {
    expectNear(shown(16, 128, 128, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG), {0, 0, 0});
    expectNear(shown(235, 128, 128, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG), {255, 255, 255});
    expectNear(shown(16, 128, 128, AVCOL_SPC_BT709, AVCOL_RANGE_JPEG), {16, 16, 16});
    // Pure green and pure red, as the two standards code them.
    expectNear(shown(173, 42, 26, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG), {0, 255, 0});
    expectNear(shown(145, 54, 34, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_MPEG), {0, 255, 0});
    expectNear(shown(63, 102, 240, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG), {0, 0, 255});
    expectNear(shown(76, 85, 255, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_JPEG), {0, 0, 255});
    // A small picture that leaves its matrix open is read as standard definition.
    expectNear(shown(145, 54, 34, AVCOL_SPC_UNSPECIFIED, AVCOL_RANGE_UNSPECIFIED), {0, 255, 0});
}

TEST(Raster, GoesToTheCodedColoursAndBack) {
    for (const AVColorSpace matrix : {AVCOL_SPC_BT709, AVCOL_SPC_SMPTE170M}) {
        for (const AVColorRange range : {AVCOL_RANGE_MPEG, AVCOL_RANGE_JPEG}) {
            const Raster raster = {AV_PIX_FMT_YUV420P, 8, 8, matrix, range};
            const FramePtr bgra = allocateFrame(bgraRaster(8, 8));
            const FramePtr coded = allocateFrame(raster);
            const FramePtr back = allocateFrame(bgraRaster(8, 8));
            for (int y = 0; y < 8; ++y) {
                std::uint8_t* row = bgra->data[0] + y * bgra->linesize[0];
                for (int x = 0; x < 8; ++x) setPixel(row + x * 4, 0xFFE08020);
            }
            for (const bool fields : {false, true}) {
                RasterConverter().convert(*bgra, bgraRaster(8, 8), *coded, raster, fields);
                RasterConverter().convert(*coded, raster, *back, bgraRaster(8, 8), fields);
                const std::uint8_t* pixel = back->data[0] + 7 * back->linesize[0] + 7 * 4;
                expectNear({pixel[0], pixel[1], pixel[2]}, {0x20, 0x80, 0xE0});
            }
        }
    }
}

TEST(Raster, ConvertsFieldsEachForItself) {
    // Red rows between blue ones: mixed, both would turn purple.
    const FramePtr bgra = allocateFrame(bgraRaster(8, 8));
    for (int y = 0; y < 8; ++y) {
        std::uint8_t* row = bgra->data[0] + y * bgra->linesize[0];
        for (int x = 0; x < 8; ++x) {
            setPixel(row + x * 4, y % 2 == 0 ? 0xFFFF0000 : 0xFF0000FF);
        }
    }
    const Raster raster = {AV_PIX_FMT_YUV420P, 8, 8, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG};
    const FramePtr coded = allocateFrame(raster);
    const FramePtr back = allocateFrame(bgraRaster(8, 8));
    RasterConverter().convert(*bgra, bgraRaster(8, 8), *coded, raster, true);
    RasterConverter().convert(*coded, raster, *back, bgraRaster(8, 8), true);
    for (int y = 0; y < 8; ++y) {
        const std::uint8_t* pixel = back->data[0] + y * back->linesize[0] + 4 * 4;
        expectNear({pixel[0], pixel[1], pixel[2]}, y % 2 == 0 ? Bgr{0, 0, 255} : Bgr{255, 0, 0});
    }
}

/// The largest difference between the samples of two frames.
int farthest(const AVFrame& one, const AVFrame& other) {
    const AVPixFmtDescriptor& format = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(one.format));
    int most = 0;
    for (int component = 0; component < format.nb_components; ++component) {
        const bool chroma = component == 1 || component == 2;
        const int width = chroma ? AV_CEIL_RSHIFT(one.width, format.log2_chroma_w) : one.width;
        const int height = chroma ? AV_CEIL_RSHIFT(one.height, format.log2_chroma_h) : one.height;
        std::vector<std::uint16_t> first(static_cast<std::size_t>(width));
        std::vector<std::uint16_t> second(first.size());
        for (int y = 0; y < height; ++y) {
            for (const auto& [row, frame] : {std::pair(&first, &one), std::pair(&second, &other)}) {
                const auto** data = const_cast<const std::uint8_t**>(frame->data);
                av_read_image_line(row->data(), data, frame->linesize, &format, 0, y, component,
                                   width, 0);
            }
            for (std::size_t x = 0; x < first.size(); ++x) {
                most = std::max(most, std::abs(first[x] - second[x]));
            }
        }
    }
    return most;
}

TEST(Canvas, BringsSamplesBack) {
    struct Case {
        const char* format;
        int tolerance;  ///< colour differences are shared and rounded; red, green and blue are not
    };
    const Case cases[] = {{"rgb24", 0},       {"bgra", 0},        {"gbrp", 0},
                          {"gbrap", 0},       {"rgb48be", 0},     {"rgba64le", 0},
                          {"gbrp10le", 0},    {"gbrap12le", 0},   {"gray", 0},
                          {"ya8", 0},         {"yuv420p", 1},     {"yuv422p", 1},
                          {"yuv444p", 2},     {"yuva420p", 1},    {"yuv420p10le", 2},
                          {"yuv422p10le", 2}, {"yuv444p10le", 1}, {"yuva444p10le", 1}};
    const Raster deep = {AV_PIX_FMT_RGBA64, 64, 48, AVCOL_SPC_RGB, AVCOL_RANGE_JPEG};
    const FramePtr ramps = allocateFrame(deep);
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 64; ++x) {
            const std::uint16_t pixel[] = {static_cast<std::uint16_t>(x * 1000 + 300),
                                           static_cast<std::uint16_t>(y * 1300),
                                           static_cast<std::uint16_t>(65535 - x * y * 20),
                                           static_cast<std::uint16_t>(65535 - x * 901)};
            std::memcpy(ramps->data[0] + y * ramps->linesize[0] + x * 8, pixel, sizeof pixel);
        }
    }
    for (const Case& row : cases) {
        const AVPixelFormat format = av_get_pix_fmt(row.format);
        Raster raster = deep;
        raster.format = format;
        if (isYuv(format)) raster.matrix = AVCOL_SPC_BT709;
        if (isYuv(format)) raster.range = AVCOL_RANGE_MPEG;
        const FramePtr source = allocateFrame(raster);
        RasterConverter().convert(*ramps, deep, *source, raster, false);
        Canvas canvas(64, 48, isDeep(format));
        CanvasConverter converter;
        for (const bool fields : {false, true}) {
            converter.read(*source, canvas, fields);
            const FramePtr back = converter.write(canvas, raster, fields);
            const int more = fields && row.tolerance > 0 ? 2 : 0;  // rows of a field lie apart
            EXPECT_LE(farthest(*source, *back), row.tolerance + more) << row.format << fields;
        }
    }
}

/// The options that an encoder leaves over when it opens.
int unknownOptions(const Encoding& encoding) {
    Encoding lossy = encoding;
    lossy.lossless = false;  // takes any source
    const Raster source = {AV_PIX_FMT_BGR0, 64, 48, AVCOL_SPC_RGB, AVCOL_RANGE_JPEG};
    const Raster raster = outputRaster(lossy, source, 64, 48);
    const CodecPtr context = owned<CodecPtr>(avcodec_alloc_context3(encoding.codec));
    context->width = raster.width;
    context->height = raster.height;
    context->pix_fmt = raster.format;
    context->color_range = raster.range;
    context->time_base = {1, 25};
    Dictionary options;
    encoding.apply(*context, options);
    EXPECT_EQ(avcodec_open2(context.get(), encoding.codec, options.pointer()), 0);
    return av_dict_count(*options.pointer());
}

TEST(Encoder, KnowsEveryOptionOfItsRow) {
    captureLog();
    std::set<std::string> seen = {"libx265"};  // it leaks a little when it encodes nothing
    for (const OutputFormat& format : outputFormats()) {
        for (const EncoderRow* row : encodersFor(format)) {
            if (!seen.insert(row->name).second) continue;
            const int best = row->quality.scale == QualityScale::None ? -1 : 100;
            for (const EncodingChoice& choice :
                 {EncodingChoice{row->name, best, "", false},
                  EncodingChoice{row->name, -1, "", row->lossless != nullptr}}) {
                const Encoding encoding = chooseEncoding(format, choice, AV_PIX_FMT_BGR0);
                EXPECT_EQ(unknownOptions(encoding), 0) << row->name << choice.lossless;
            }
        }
    }
    EXPECT_EQ(seen.count("libx264"), 1U);
}

/// A picture whose pixels are the letters of `rows`.
FramePtr letters(const std::vector<std::string>& rows) {
    FramePtr frame =
        allocateFrame(bgraRaster(static_cast<int>(rows[0].size()), static_cast<int>(rows.size())));
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows[y].size(); ++x) {
            std::memset(frame->data[0] + y * static_cast<std::size_t>(frame->linesize[0]) + x * 4,
                        rows[y][x], 4);
        }
    }
    return frame;
}

std::vector<std::string> read(const AVFrame& frame) {
    std::vector<std::string> rows(static_cast<std::size_t>(frame.height));
    for (int y = 0; y < frame.height; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            rows[static_cast<std::size_t>(y)] +=
                static_cast<char>(frame.data[0][y * frame.linesize[0] + x * 4]);
        }
    }
    return rows;
}

TEST(Orientation, TurnsPicturesAsTheirMatrixSays) {
    struct Case {
        double clockwise;
        bool mirrored;  ///< left to right, after the turn
        std::vector<std::string> upright;
    };
    const Case cases[] = {
        {0, false, {"abc", "def"}},   {90, false, {"da", "eb", "fc"}},
        {180, false, {"fed", "cba"}}, {270, false, {"cf", "be", "ad"}},
        {0, true, {"cba", "fed"}},    {90, true, {"ad", "be", "cf"}},
        {45, false, {"abc", "def"}},  // not a right angle: left as it is
    };
    const FramePtr recorded = letters({"abc", "def"});
    for (const Case& turned : cases) {
        std::int32_t matrix[9];
        av_display_rotation_set(matrix, turned.clockwise);
        if (turned.mirrored) av_display_matrix_flip(matrix, 1, 0);
        const Orientation orientation = orientationOf(matrix);
        const FramePtr upright = letters(std::vector<std::string>(
            turned.upright.size(), std::string(turned.upright[0].size(), '.')));
        ASSERT_EQ(orientation.swapsSides(), upright->width == 2);
        turn(viewOf(*recorded), orientation, viewOf(*upright));
        EXPECT_EQ(read(*upright), turned.upright) << turned.clockwise << ' ' << turned.mirrored;
        const FramePtr back = letters({"...", "..."});
        turn(viewOf(*upright), orientation.inverse(), viewOf(*back));
        EXPECT_EQ(read(*back), read(*recorded)) << turned.clockwise << ' ' << turned.mirrored;
    }
    EXPECT_TRUE(orientationOf(nullptr).isUpright());
}

TEST(OutputFormat, KnowsExtensionsInAnyLetterCase) {
    EXPECT_STREQ(outputFormatOf("/a.b/picture.JPeG").encoder, "mjpeg");
    EXPECT_STREQ(outputFormatOf("x.webm").encoder, "libvpx-vp9");
    for (const char* wrong : {"png", "x.", "x.bmp", "x.png/", "x.png.txt", ".png"}) {
        EXPECT_THROW(outputFormatOf(wrong), MediaUsageError) << wrong;
    }
}

TEST(JpegEnd, IsTheOneBehindTheSamples) {
    // Start, a segment that holds a thumbnail's end, start of scan, samples.
    std::vector<std::uint8_t> jpeg = {0xFF, 0xD8, 0xFF, 0xE1, 0,    4,    0xFF, 0xD9,
                                      0xFF, 0xDA, 0,    2,    0x12, 0xFF, 0x00, 0x34};
    EXPECT_FALSE(jpegHasEnd(jpeg));
    jpeg.push_back(0xFF);
    EXPECT_FALSE(jpegHasEnd(jpeg));
    jpeg.push_back(0xD9);
    EXPECT_TRUE(jpegHasEnd(jpeg));
    jpeg.push_back(0);  // padding does no harm
    EXPECT_TRUE(jpegHasEnd(jpeg));
    EXPECT_FALSE(jpegHasEnd({}));
}

}  // namespace
}  // namespace brushworks::media
