// The frame service on frames whose memory ends with their last pixel: what is its own beside the
// processors and primitives behind it, and that no record makes it touch anything else.
#include "library/frame_processor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <vector>

#include "primitives/resize.h"
#include "primitives/testing.h"
#include "primitives/ycbcr.h"
#include "processors/channel_reverse.h"
#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::FencedBytes;

struct Wrapped : CFrame {
    explicit Wrapped(const FrameParams& params) { Init(&params); }
};

/// A host's frame: rows with slack, but for the last one, whose last pixel ends at a fault.
struct Picture {
    Picture(int width, int height, PixelFormat format, unsigned seed = 1, int slackPixels = 2)
        : Picture(width, height, format, seed, slackPixels, testing::DepthOf(format)) {}
    Picture(int width, int height, PixelFormat format, unsigned seed, int slackPixels, int depth)
        : block(static_cast<std::size_t>((height * (width + slackPixels) - slackPixels) * depth)),
          params{block.data(), width, height, (width + slackPixels) * depth, depth, 0, 0,
                 format,       false} {
        std::memset(block.data(), 0xA5, block.size());
        Wrapped frame = View();
        testing::Randomize(frame, seed);
    }
    Picture(const Picture& other) : block(other.block), params(other.params) {
        params.pBuffer = block.data();
    }
    Picture& operator=(const Picture&) = delete;

    Wrapped View() const { return Wrapped(params); }
    std::vector<std::uint8_t> Bytes() const { return {block.data(), block.data() + block.size()}; }

    FencedBytes block;
    FrameParams params;
};

/// A plane of bytes, without slack.
struct Plane {
    Plane(int width, int height, std::vector<std::uint8_t> samples = {})
        : bytes(std::move(samples)) {
        bytes.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
        params = {bytes.data(), width, height, width, 1, 0, 0, PixelFormatMono8, false};
    }
    /// The same rows told from the last one on.
    FrameParams BottomUp() const {
        FrameParams turned = params;
        turned.pBuffer += (turned.nHeight - 1) * turned.nByteSpan;
        turned.nByteSpan = -turned.nByteSpan;
        return turned;
    }

    std::vector<std::uint8_t> bytes;
    FrameParams params;
};

class FrameProcessorTest : public ::testing::Test {
  protected:
    FrameProcessor& service = *new FrameProcessor;
    ~FrameProcessorTest() override { service.Release(); }
};

TEST_F(FrameProcessorTest, Faces) {
    void* face = nullptr;
    for (const _GUID& iid : {IID_IUnknown, IID_FrameProcessor}) {
        ASSERT_EQ(service.QueryInterface(iid, &face), kInterfaceFound);
        EXPECT_EQ(face, static_cast<IFrameProcessor*>(&service));
        EXPECT_EQ(service.Release(), 1u);
    }
    EXPECT_EQ(service.QueryInterface(IID_PresetSaver, &face), kNoInterface);
    EXPECT_EQ(face, nullptr);
    EXPECT_EQ(service.QueryInterface(IID_IUnknown, nullptr), kNoInterface);
}

TEST_F(FrameProcessorTest, SlackBelongsToSomebodyElse) {
    for (const PixelFormat format : testing::kAllFormats) {
        Picture frame(3, 4, format);
        ASSERT_TRUE(service.InvertChannel(&frame.params, 1));
        ASSERT_TRUE(service.FlipFrame(&frame.params));
        const std::vector<std::uint8_t> bytes = frame.Bytes();
        const int depth = frame.params.nDepth;
        for (int y = 0; y < 3; ++y)
            for (int i = 3 * depth; i < 5 * depth; ++i)
                ASSERT_EQ(bytes[static_cast<std::size_t>(5 * depth * y + i)], 0xA5);
    }
}

TEST_F(FrameProcessorTest, ReversingAPartInPlaceLeavesTheRest) {
    Picture whole(6, 4, PixelFormatBGRA8), expected(whole);
    FrameParams part = whole.params;
    part.nWidth = 3;
    part.nHeight = 2;
    ASSERT_TRUE(service.ReverseChannels(&part, &whole.params));
    Wrapped view = expected.View();
    CFrame corner;
    corner.Init(&view, 0, 0, 3, 2, false);
    Processors::CChannelReverse().Process(&corner, &corner);
    EXPECT_EQ(whole.Bytes(), expected.Bytes());
}

TEST_F(FrameProcessorTest, ChannelsBetweenColourAndPlane) {
    Picture colour(4, 3, PixelFormatARGB32f), plane(4, 3, PixelFormatMono32f, 2);
    Picture bytes(4, 3, PixelFormatBGRA8, 3), mono(4, 3, PixelFormatMono8, 4);
    ASSERT_TRUE(service.CopyChannel(&colour.params, &plane.params, 2, 0));
    EXPECT_EQ(testing::SampleAt(plane.View(), 1, 3),
              testing::SampleAt(colour.View(), 1, 4 * 3 + 2));
    ASSERT_TRUE(service.CopyChannel(&mono.params, &bytes.params, 0, 3));
    EXPECT_EQ(testing::SampleAt(bytes.View(), 2, 4 * 1 + 3), testing::SampleAt(mono.View(), 2, 1));
    // Four bytes a pixel each, but floats on one side alone.
    EXPECT_FALSE(service.CopyChannel(&colour.params, &bytes.params, 0, 0));
    EXPECT_FALSE(service.CopyChannel(&bytes.params, &plane.params, 0, 0));
}

TEST_F(FrameProcessorTest, FlipsRows) {
    const std::vector<std::uint8_t> upright = {1, 2, 3, 4, 5, 6}, mirrored = {4, 5, 6, 1, 2, 3};
    Plane source(3, 2, upright), destination(3, 2);
    ASSERT_TRUE(service.FlipFrame(&source.params, &destination.params));
    EXPECT_EQ(source.bytes, upright);
    EXPECT_EQ(destination.bytes, mirrored);
    ASSERT_TRUE(service.FlipFrame(&destination.params, &destination.params));
    EXPECT_EQ(destination.bytes, upright);

    // Told from its other end or called bottom-up, a frame is still mirrored as it lies.
    FrameParams bottomUp = source.BottomUp();
    ASSERT_TRUE(service.FlipFrame(&bottomUp));
    EXPECT_EQ(source.bytes, mirrored);
    bottomUp.bFlipped = true;
    ASSERT_TRUE(service.FlipFrame(&bottomUp, &destination.params));
    EXPECT_EQ(destination.bytes, upright);
    ASSERT_TRUE(service.FlipFrame(&bottomUp, &source.params));  // one frame, told in two ways
    EXPECT_EQ(source.bytes, upright);
    EXPECT_TRUE(bottomUp.bFlipped);

    Plane column(1, 5, {1, 2, 3, 4, 5}), larger(2, 3, {0, 9, 0, 9, 0, 9});
    ASSERT_TRUE(service.FlipFrame(&column.params, &larger.params));
    EXPECT_EQ(larger.bytes, (std::vector<std::uint8_t>{3, 9, 2, 9, 1, 9}));
    ASSERT_TRUE(service.FlipFrame(&column.params));
    EXPECT_EQ(column.bytes, (std::vector<std::uint8_t>{5, 4, 3, 2, 1}));

    Picture wide(700, 3, PixelFormatBGRA32f), flipped(wide);  // rows of more than one piece
    ASSERT_TRUE(service.FlipFrame(&wide.params, &flipped.params));
    ASSERT_TRUE(service.FlipFrame(&wide.params));
    EXPECT_EQ(wide.Bytes(), flipped.Bytes());
    EXPECT_NE(testing::SampleAt(wide.View(), 0, 2799), testing::SampleAt(wide.View(), 2, 2799));
}

TEST_F(FrameProcessorTest, NegativeStridesNameTheSameRows) {
    Plane source(3, 2, {1, 2, 3, 4, 5, 6}), destination(3, 2);
    FrameParams from = source.BottomUp(), to = destination.BottomUp();
    ASSERT_TRUE(service.Copy(&from, &destination.params));
    EXPECT_EQ(destination.bytes, source.bytes);
    std::fill(destination.bytes.begin(), destination.bytes.end(), std::uint8_t{});
    ASSERT_TRUE(service.Copy(&source.params, &to));
    EXPECT_EQ(destination.bytes, source.bytes);
}

/// A packed frame of 4:2:2, which has no pixel format; the record calls it what it is not.
Picture Packed(int width, int height, unsigned seed) {
    Picture packed(width, height, static_cast<PixelFormat>(2), seed, 1, 2);
    packed.params.pfPixelFormat = PixelFormatMono32f;
    packed.params.nDepth = 0;
    return packed;
}

TEST_F(FrameProcessorTest, Packed422) {
    for (const IppiSize overlap : {IppiSize{1, 1}, {2, 2}, {5, 3}, {6, 1}, {33, 2}})
        for (const int more : {0, 3}) {
            SCOPED_TRACE(std::to_string(overlap.width) + " and " + std::to_string(more));
            const int width = overlap.width, height = overlap.height;
            Picture packed = Packed(width + more, height, 1), packedExpected(packed);
            Picture colour(width, height + more, PixelFormatBGRA8, 2), expected(colour);
            ASSERT_TRUE(service.YUY2ToRGBA(&packed.params, &colour.params, 77, nullptr));
            ippiYCbCr422ToBGR_8u_C2C4R(packed.params.pBuffer, packed.params.nByteSpan,
                                       expected.params.pBuffer, expected.params.nByteSpan, overlap,
                                       77);
            EXPECT_EQ(colour.Bytes(), expected.Bytes());
            Picture source(width, height + more, PixelFormatBGRA8, 3);
            ASSERT_TRUE(service.RGBAToYUY2(&source.params, &packed.params, nullptr));
            ippiBGRToYCbCr422_8u_AC4C2R(source.params.pBuffer, source.params.nByteSpan,
                                        packedExpected.params.pBuffer,
                                        packedExpected.params.nByteSpan, overlap);
            EXPECT_EQ(packed.Bytes(), packedExpected.Bytes());
        }
}

TEST_F(FrameProcessorTest, Packed422Refuses) {
    using Change = std::function<void(FrameParams & packed, FrameParams & colour)>;
    const Change changes[] = {
        [](FrameParams& packed, FrameParams&) { packed.nByteSpan = 0; },
        [](FrameParams& packed, FrameParams&) { packed.nByteSpan = 7; },  // 4 pixels need 8
        [](FrameParams& packed, FrameParams&) { packed.nByteSpan = INT_MIN; },
        [](FrameParams& packed, FrameParams&) { packed.nWidth = 0; },
        [](FrameParams& packed, FrameParams&) { packed.nHeight = -1; },
        [](FrameParams& packed, FrameParams&) { packed.nWidth = INT_MAX; },
        [](FrameParams& packed, FrameParams&) { packed.pBuffer = nullptr; },
        [](FrameParams&, FrameParams& colour) { colour.nByteSpan = 0; },
        [](FrameParams&, FrameParams& colour) { colour.nWidth = 0; },
        [](FrameParams&, FrameParams& colour) { colour.nDepth = 2; },
        [](FrameParams&, FrameParams& colour) { colour.pfPixelFormat = PixelFormatMono32f; },
        [](FrameParams&, FrameParams& colour) { colour.pBuffer = nullptr; },
    };
    for (const Change& change : changes) {
        Picture packed = Packed(4, 1, 1), colour(4, 1, PixelFormatBGRA8, 2);
        ASSERT_TRUE(service.YUY2ToRGBA(&packed.params, &colour.params, 0, nullptr));
        ASSERT_TRUE(service.RGBAToYUY2(&colour.params, &packed.params, nullptr));
        change(packed.params, colour.params);
        EXPECT_FALSE(service.YUY2ToRGBA(&packed.params, &colour.params, 0, nullptr));
        EXPECT_FALSE(service.RGBAToYUY2(&colour.params, &packed.params, nullptr));
    }
    Picture packed = Packed(4, 1, 1);
    EXPECT_FALSE(service.YUY2ToRGBA(&packed.params, nullptr, 0, nullptr));
    EXPECT_FALSE(service.RGBAToYUY2(nullptr, &packed.params, nullptr));
}

TEST_F(FrameProcessorTest, Resize) {
    const struct {
        int mode, interpolation;
    } kModes[] = {{0, kResizeNearest}, {1, kResizeLinear}, {2, kResizeCubic},
                  {7, kResizeLinear},  {3, kResizeLinear}, {-1, kResizeLinear}};
    for (const auto& row : kModes) {
        Picture source(7, 5, PixelFormatARGB8), to(10, 3, PixelFormatARGB8, 2), expected(to);
        ASSERT_TRUE(service.Resize(&source.params, &to.params, row.mode));
        ippiResize_8u_C4R(source.params.pBuffer, {7, 5}, source.params.nByteSpan, {0, 0, 7, 5},
                          expected.params.pBuffer, expected.params.nByteSpan, {10, 3}, 10.0 / 7,
                          3.0 / 5, row.interpolation);
        EXPECT_EQ(to.Bytes(), expected.Bytes()) << row.mode;
    }
    for (const PixelFormat format :
         {PixelFormatBGRA32f, PixelFormatMono8, PixelFormatMono32f, static_cast<PixelFormat>(2)}) {
        Picture source(7, 5, format), to(10, 3, format);
        EXPECT_FALSE(service.Resize(&source.params, &to.params, 1)) << format;
    }
}

/// Pixels whose four samples are all 10 y + x.
void Number(Picture& picture) {
    const Wrapped frame = picture.View();
    for (int y = 0; y < frame.m_nHeight; ++y)
        for (int i = 0; i < 4 * frame.m_nWidth; ++i)
            if (Processors::IsFloatColor(frame))
                Processors::RowOf<float>(frame, y)[i] = static_cast<float>(10 * y + i / 4);
            else
                Processors::RowOf<std::uint8_t>(frame, y)[i] =
                    static_cast<std::uint8_t>(10 * y + i / 4);
}

TEST_F(FrameProcessorTest, ResizeCrop) {
    constexpr int kNearest = 0;
    for (const PixelFormat format : testing::kColorFormats) {
        SCOPED_TRACE(format);
        Picture source(4, 3, format);
        Number(source);
        const auto crop = [&](tagRECT rect, int width, int height) {
            Picture to(width, height, format, 2);
            std::vector<int> pixels;
            if (!service.ResizeCrop(&source.params, &rect, &to.params, kNearest)) return pixels;
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    pixels.push_back(static_cast<int>(testing::SampleAt(to.View(), y, 4 * x + 3)));
            return pixels;
        };
        using Pixels = std::vector<int>;
        EXPECT_EQ(crop({2, 1, 3, 2}, 2, 2), (Pixels{12, 13, 22, 23}));
        EXPECT_EQ(crop({1, 2, 2, 2}, 4, 2), (Pixels{21, 21, 22, 22, 21, 21, 22, 22}));
        EXPECT_EQ(crop({3, 0, 3, 0}, 1, 1), (Pixels{3}));
        // Wider than the destination, it is cut to that: the factor is 1.
        EXPECT_EQ(crop({0, 1, 3, 1}, 2, 2), (Pixels{10, 11, 10, 11}));
        EXPECT_EQ(crop({1, 0, 1, INT_MAX}, 1, 3), (Pixels{1, 11, 21}));
        const tagRECT kOutside[] = {{-1, 0, 0, 0},
                                    {0, -1, 0, 0},
                                    {3, 0, 4, 0},
                                    {0, 2, 0, 3},
                                    {4, 0, 5, 1},
                                    {0, 3, 1, 4},
                                    {2, 0, 1, 2},
                                    {0, 1, 3, 0},
                                    {INT_MIN, INT_MIN, INT_MAX, INT_MAX},
                                    {2, 0, INT_MIN, 0},
                                    {INT_MAX, 0, INT_MAX, 0},
                                    {0, 0, INT_MAX, INT_MAX}};
        for (const tagRECT& rect : kOutside)
            EXPECT_EQ(crop(rect, 5, 4), Pixels{}) << rect.left << ", " << rect.top;
    }
    Picture mono(4, 3, PixelFormatMono8), byte(4, 3, PixelFormatMono8);
    tagRECT all = {0, 0, 3, 2};
    EXPECT_FALSE(service.ResizeCrop(&mono.params, &all, &byte.params, 1));
    Picture plane(4, 3, PixelFormatMono32f), colour(4, 3, PixelFormatBGRA8);
    EXPECT_FALSE(service.ResizeCrop(&plane.params, &all, &plane.params, 1));
    EXPECT_FALSE(service.ResizeCrop(&plane.params, &all, &colour.params, 1));
    EXPECT_FALSE(service.ResizeCrop(&colour.params, nullptr, &colour.params, 1));
}

TEST_F(FrameProcessorTest, ResizeCropScalesByTheCutRectangle) {
    for (const int mode : {1, 2}) {
        Picture source(9, 8, PixelFormatBGRA32f), to(4, 5, PixelFormatBGRA32f, 2), expected(to);
        tagRECT rect = {1, 2, 7, 4};  // 7 by 3, cut to 4 by 3
        ASSERT_TRUE(service.ResizeCrop(&source.params, &rect, &to.params, mode));
        ippiResize_32f_C4R(Processors::RowOf<float>(source.View(), 2) + 4, {4, 3},
                           source.params.nByteSpan, {0, 0, 4, 3},
                           reinterpret_cast<float*>(expected.params.pBuffer),
                           expected.params.nByteSpan, {4, 5}, 1.0, 5.0 / 3,
                           mode == 1 ? kResizeLinear : kResizeCubic);
        EXPECT_EQ(to.Bytes(), expected.Bytes());
    }
}

TEST_F(FrameProcessorTest, HostileRecordsAreRefused) {
    const float bounds[4] = {0.9f, 0.5f, 0.2f, 0.7f};
    using Call = std::function<bool(FrameProcessor&, FrameParams*, FrameParams*)>;
    using S = FrameProcessor;
    using P = FrameParams;
    unsigned int order[4] = {3, 2, 1, 0};
    tagRECT rect = {0, 0, 1, 1};
    const std::vector<Call> calls = {
        [](S& s, P* a, P* b) { return s.Copy(a, b); },
        [](S& s, P* a, P* b) { return s.Resize(a, b, 1); },
        [](S& s, P* a, P* b) { return s.ReverseChannels(a, b); },
        [](S& s, P* a, P*) { return s.SetChannelValue(a, 0, 0); },
        [](S& s, P* a, P* b) { return s.AlphaBlend(a, b, b, false); },
        [](S& s, P* a, P* b) { return s.AlphaBlend(b, a, b, false); },
        [](S& s, P* a, P* b) { return s.AlphaBlend(b, b, a, false); },
        [&](S& s, P* a, P*) { return s.SwapChannels(a, order); },
        [](S& s, P* a, P*) { return s.AlphaPremul(a); },
        [](S& s, P* a, P* b) { return s.AppleR4FLToARGB32(a, b); },
        [](S& s, P* a, P* b) { return s.ARGB32ToAppleR4FL(a, b); },
        [](S& s, P* a, P* b) { return s.FlipFrame(a, b); },
        [](S& s, P* a, P*) { return s.FlipFrame(a); },
        [](S& s, P* a, P* b) { return s.CopyChannel(a, b, 0, 0); },
        [](S& s, P* a, P*) { return s.InvertChannel(a, 0); },
        [](S& s, P* a, P*) { return s.SqrInPlace(a); },
        [](S& s, P* a, P*) { return s.SqrtInPlace(a); },
        [&](S& s, P* a, P*) { return s.ThresholdLTInPlace(a, bounds); },
        [&](S& s, P* a, P* b) { return s.ResizeCrop(a, &rect, b, 1); },
    };
    const std::function<void(P&)> changes[] = {
        [](P& p) { p.pBuffer = nullptr; },
        [](P& p) { p.nWidth = 0; },
        [](P& p) { p.nWidth = INT_MAX; },
        [](P& p) { p.nHeight = 0; },
        [](P& p) { p.nHeight = INT_MIN; },
        [](P& p) { p.nByteSpan = 0; },
        [](P& p) { p.nByteSpan = p.nDepth * p.nWidth - 4; },
        [](P& p) { p.nByteSpan = INT_MIN; },
        [](P& p) { p.nDepth = 0; },
        [](P& p) { p.nDepth = -p.nDepth; },
        [](P& p) { p.nDepth = 1; },
        [](P& p) { p.pfPixelFormat = PixelFormatMono8; },
        [](P& p) { p.pfPixelFormat = p.nDepth == 4 ? PixelFormatBGRA32f : PixelFormatBGRA8; },
    };
    for (const PixelFormat format : {PixelFormatBGRA8, PixelFormatARGB32f}) {
        std::size_t served = 0, servedPairs = 0;
        for (const Call& call : calls) {
            SCOPED_TRACE("call " + std::to_string(&call - calls.data()));
            Picture a(3, 2, format), b(3, 2, format);
            const bool done = call(service, &a.params, &b.params);
            const bool ofTwo = done && !call(service, &a.params, nullptr);
            served += done;
            servedPairs += ofTwo;
            const std::vector<std::uint8_t> before = b.Bytes();
            EXPECT_FALSE(call(service, nullptr, &b.params));
            for (const auto& change : changes) {
                P broken = a.params;
                change(broken);
                EXPECT_FALSE(call(service, &broken, &b.params)) << &change - changes;
                EXPECT_FALSE(ofTwo && call(service, &a.params, &broken)) << &change - changes;
            }
            if (format == PixelFormatARGB32f) {
                P crooked = a.params;
                ++crooked.pBuffer;
                --crooked.nWidth;
                EXPECT_FALSE(call(service, &crooked, &b.params));
            }
            EXPECT_EQ(b.Bytes(), before);
        }
        // All but three float operations serve bytes; Resize and the result of SwapChannels do not
        // serve floats.
        EXPECT_EQ(served, calls.size() - (format == PixelFormatBGRA8 ? 3 : 2));
        EXPECT_EQ(servedPairs, format == PixelFormatBGRA8 ? 11u : 10u);
    }
    Picture bytes(3, 2, PixelFormatBGRA8), floats(3, 2, PixelFormatARGB32f);
    EXPECT_FALSE(service.SwapChannels(&bytes.params, nullptr));
    EXPECT_FALSE(service.ThresholdLTInPlace(&floats.params, nullptr));
    EXPECT_FALSE(service.Copy(&bytes.params, &floats.params));
    EXPECT_FALSE(service.Copy(&bytes.params, nullptr));
}

}  // namespace
}  // namespace brushworks
