// Processors that blend and colour, and the resampling and filling primitives; beside each the same
// work by OpenCV where it has it.

#include "bench/rows.h"
#include "frames/frame.h"
#include "frames/memory_allocator.h"
#include "primitives/flood_fill.h"
#include "primitives/resize.h"
#include "processors/add.h"
#include "processors/alpha_blend.h"
#include "processors/alpha_fade.h"
#include "processors/alpha_premul.h"
#include "processors/channel_reverse.h"
#include "processors/color_space_converter.h"
#include "processors/color_twist.h"
#include "processors/dodge_blend.h"
#include "processors/mix.h"
#include "processors/mono_chrome.h"
#include "processors/rgb_hsv.h"

#if BRUSHWORKS_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace brushworks::bench {
namespace {

using namespace Processors;

/// One of the common images as a frame.
template <class Sample>
void Wrap(CFrame& frame, Samples<Sample>& image, PixelFormat format) {
    constexpr int kDepth = 4 * sizeof(Sample);
    frame.Init(reinterpret_cast<unsigned char*>(image.data()), kFrame.width, kFrame.height,
               kFrame.width * kDepth, kDepth, format, false);
}

/// process(a, b, dst) on frames of a format; 0 for done.
template <class Sample, class Process>
Operation Frames(const char* name, int images, PixelFormat format, Process process) {
    return {name, images * kPixelBytes<Sample, 4>, [=] {
                auto& common = Images<Sample>::Get();
                CFrame a, b, dst;
                Wrap(a, common.a, format);
                Wrap(b, common.b, format);
                Wrap(dst, common.dst, format);
                return process(a, b, dst) ? 0 : -1;
            }};
}

template <class Process>
Operation Bytes(const char* name, int images, Process process,
                PixelFormat format = PixelFormatBGRA8) {
    return Frames<u8>(name, images, format, process);
}
template <class Process>
Operation Floats(const char* name, int images, Process process) {
    return Frames<float>(name, images, PixelFormatBGRA32f, process);
}

bool Twist(CFrame& a, CFrame& dst) {
    MemoryAllocator allocator;
    return CColorTwist().Process(&a, &dst, 0.7f, 0.4f, 0.6f, 0.3f, allocator);
}

bool Convert(bool toFloats, PixelFormat floats) {
    CFrame bytes, wide;
    Wrap(bytes, Images<u8>::Get().a, PixelFormatBGRA8);
    Wrap(wide, Images<float>::Get().dst, floats);
    return toFloats ? CColorSpaceConverter().Process(&bytes, &wide)
                    : CColorSpaceConverter().Process(&wide, &bytes);
}

/// What a resize reads and writes: the common frame is the larger of both sides.
struct Scale {
    const char* name;
    IppiSize src, dst;
};
constexpr IppiSize kHalf{kFrame.width / 2, kFrame.height / 2};
constexpr Scale kScales[] = {{"half", kFrame, kHalf},
                             {"0.7", kFrame, {kFrame.width * 7 / 10, kFrame.height * 7 / 10}},
                             {"double", kHalf, kFrame}};
constexpr struct {
    const char* name;
    int interpolation;
} kKernels[] = {{"nearest", kResizeNearest},
                {"linear", kResizeLinear},
                {"cubic", kResizeCubic},
                {"Lanczos", kResizeLanczos}};

/// A resize moves the pixels of both sides; as bytes for each pixel of the common frame.
int TrafficOf(const Scale& scale, int pixelBytes) {
    const double pixels =
        double(scale.src.width) * scale.src.height + double(scale.dst.width) * scale.dst.height;
    return static_cast<int>(pixelBytes * pixels / (double(kFrame.width) * kFrame.height));
}

template <class Sample, class Resize>
void AddResizes(const std::string& name, Resize resize, std::vector<Operation>& rows) {
    for (const Scale& scale : kScales)
        for (const auto& kernel : kKernels)
            rows.push_back({name + ", " + kernel.name + " " + scale.name,
                            TrafficOf(scale, 4 * sizeof(Sample)), [=] {
                                auto& images = Images<Sample>::Get();
                                const int depth = 4 * sizeof(Sample);
                                return resize(images.a.data(), scale.src, scale.src.width * depth,
                                              IppiRect{0, 0, scale.src.width, scale.src.height},
                                              images.dst.data(), scale.dst.width * depth, scale.dst,
                                              double(scale.dst.width) / scale.src.width,
                                              double(scale.dst.height) / scale.src.height,
                                              kernel.interpolation);
                            }});
}

/// A picture of one colour with walls across it, so that a fill goes back and forth; each run fills
/// it with the other of two colours.
Samples<u8>& Maze(bool walls) {
    static Samples<u8> mazes[2];
    Samples<u8>& maze = mazes[walls];
    if (maze.empty()) {
        maze.assign(std::size_t{3} * kFrame.width * kFrame.height, 10);
        for (int y = 20; walls && y < kFrame.height; y += 20)
            for (int x = 0; x < kFrame.width - 40; ++x)
                maze[(std::size_t(y) * kFrame.width + x + (y / 20 % 2) * 40) * 3] = 0;
    }
    return maze;
}

int Fill(bool walls) {
    Samples<u8>& maze = Maze(walls);
    static std::vector<u8> buffer = [] {
        int bytes = 0;
        ippiFloodFillGetSize(kFrame, &bytes);
        return std::vector<u8>(static_cast<std::size_t>(bytes));
    }();
    const auto other = static_cast<u8>(maze[0] == 10 ? 20 : 10);
    const u8 value[3] = {other, other, other};
    IppiFilledRegion region;
    return ippiFloodFill_4Con_8u_C3IR(maze.data(), kFrame.width * 3, kFrame, {0, 0}, value, &region,
                                      buffer.data());
}

}  // namespace

std::vector<Operation> ResizeBlend() {
    std::vector<Operation> rows = {
        Bytes("CColorTwist", 2, [](auto& a, auto&, auto& dst) { return Twist(a, dst); }),
        Bytes(
            "CColorTwist, alpha first", 2, [](auto& a, auto&, auto& dst) { return Twist(a, dst); },
            PixelFormatARGB8),
        Floats("CColorTwist, floats", 2, [](auto& a, auto&, auto& dst) { return Twist(a, dst); }),
        {"CColorSpaceConverter, to floats", 20,
         [] { return Convert(true, PixelFormatBGRA32f) ? 0 : -1; }},
        {"CColorSpaceConverter, to floats, reversed", 20,
         [] { return Convert(true, PixelFormatARGB32f) ? 0 : -1; }},
        {"CColorSpaceConverter, to bytes", 20,
         [] { return Convert(false, PixelFormatBGRA32f) ? 0 : -1; }},
        {"CColorSpaceConverter, to bytes, reversed", 20,
         [] { return Convert(false, PixelFormatARGB32f) ? 0 : -1; }},
        Bytes("CChannelReverse", 2,
              [](auto& a, auto&, auto& dst) { return CChannelReverse().Process(&a, &dst); }),
        Floats("CChannelReverse, floats", 2,
               [](auto& a, auto&, auto& dst) { return CChannelReverse().Process(&a, &dst); }),
        Bytes("CRGBToHSV", 2,
              [](auto& a, auto&, auto& dst) { return CRGBToHSV().Process(&a, &dst); }),
        Floats("CRGBToHSV, floats", 2,
               [](auto& a, auto&, auto& dst) { return CRGBToHSV().Process(&a, &dst); }),
        Floats("CHSVToRGB, floats", 2,
               [](auto& a, auto&, auto& dst) { return CHSVToRGB().Process(&a, &dst); }),
        Bytes("CAdd", 4,
              [](auto& a, auto&, auto& dst) { return CAdd().Process(&a, &dst, 250, 5); }),
        Bytes("CAdd, halves", 3,
              [](auto& a, auto&, auto& dst) { return CAdd().Process(&a, &dst, 128, 128); }),
        Bytes("CMix", 3,
              [](auto& a, auto& b, auto& dst) { return CMix().Process(&a, &b, &dst, 0.6f, 0.3f); }),
        Floats(
            "CMix, floats", 3,
            [](auto& a, auto& b, auto& dst) { return CMix().Process(&a, &b, &dst, 0.6f, 0.3f); }),
        Bytes(
            "CAlphaBlend, alpha first", 3,
            [](auto& a, auto& b, auto& dst) { return CAlphaBlend().Process(&a, &b, &dst, false); },
            PixelFormatARGB8),
        Floats(
            "CAlphaBlend, floats", 3,
            [](auto& a, auto& b, auto& dst) { return CAlphaBlend().Process(&a, &b, &dst, false); }),
        Bytes(
            "CDodgeBlend", 3,
            [](auto& a, auto& b, auto& dst) { return CDodgeBlend().Process(&a, &b, &dst, false); }),
        Bytes(
            "CDodgeBlend, red alone", 3,
            [](auto& a, auto& b, auto& dst) { return CDodgeBlend().Process(&a, &b, &dst, true); }),
        Bytes(
            "CAlphaPremul, alpha first", 2,
            [](auto& a, auto&, auto& dst) { return CAlphaPremul().Process(a, dst); },
            PixelFormatARGB8),
        Bytes("CAlphaFade", 2,
              [](auto& a, auto&, auto& dst) { return CAlphaFade().Process(&a, &dst, 200); }),
        Bytes("CMonoChrome", 2,
              [](auto& a, auto&, auto& dst) { return CMonoChrome().Process(&a, &dst, 0x80FF40); }),
        {"ippiFloodFill_4Con_8u_C3IR", 6, [] { return Fill(false); }},
        {"ippiFloodFill_4Con_8u_C3IR, maze", 6, [] { return Fill(true); }},
    };
    AddResizes<u8>("ippiResize_8u_C4R", ippiResize_8u_C4R, rows);
    AddResizes<float>("ippiResize_32f_C4R", ippiResize_32f_C4R, rows);
    return rows;
}

#if BRUSHWORKS_HAVE_OPENCV
namespace {

template <class Sample>
cv::Mat View(Samples<Sample>& image, IppiSize size = kFrame, int channels = 4) {
    return cv::Mat(size.height, size.width, CV_MAKETYPE(cv::DataType<Sample>::depth, channels),
                   image.data());
}

/// run(a, b, dst).
template <class Sample, class Run>
Operation Peer(const char* name, Run run) {
    return {name, 0, [=] {
                auto& images = Images<Sample>::Get();
                cv::Mat dst = View(images.dst);
                run(View(images.a), View(images.b), dst);
                return 0;
            }};
}

void Transform(const cv::Mat& a, const cv::Mat&, cv::Mat& dst) {
    static const cv::Mat matrix = (cv::Mat_<float>(4, 5) << 0.8f, 0.1f, 0.1f, 0.0f, 0.0f,  //
                                   0.1f, 0.7f, 0.2f, 0.0f, 0.01f,                          //
                                   0.2f, 0.2f, 0.6f, 0.0f, -0.01f,                         //
                                   0.0f, 0.0f, 0.0f, 1.0f, 0.0f);
    cv::transform(a, dst, matrix);
}

void Reverse(const cv::Mat& a, const cv::Mat&, cv::Mat& dst) {
    constexpr int kPairs[] = {0, 3, 1, 2, 2, 1, 3, 0};
    cv::mixChannels(&a, 1, &dst, 1, kPairs, 4);
}

void Weigh(const cv::Mat& a, const cv::Mat& b, cv::Mat& dst) {
    cv::addWeighted(a, 0.6, b, 0.3, 0, dst);
}

template <class Sample>
void AddResizePeers(const std::string& name, std::vector<Operation>& rows) {
    constexpr int kCodes[] = {cv::INTER_NEAREST, cv::INTER_LINEAR, cv::INTER_CUBIC,
                              cv::INTER_LANCZOS4};
    for (const Scale& scale : kScales)
        for (int k = 0; k < 4; ++k)
            rows.push_back(
                {name + ", " + kKernels[k].name + " " + scale.name, 0, [=, code = kCodes[k]] {
                     auto& images = Images<Sample>::Get();
                     cv::Mat dst = View(images.dst, scale.dst);
                     cv::resize(View(images.a, scale.src), dst, dst.size(), 0, 0, code);
                     return 0;
                 }});
}

int FillByPeer(bool walls) {
    cv::Mat maze = View(Maze(walls), kFrame, 3);
    const double other = maze.data[0] == 10 ? 20 : 10;
    cv::floodFill(maze, cv::Point(0, 0), cv::Scalar::all(other));
    return 0;
}

}  // namespace

std::vector<Operation> ResizeBlendPeers() {
    std::vector<Operation> rows = {
        Peer<u8>("CColorTwist", Transform),
        Peer<u8>("CColorTwist, alpha first", Transform),
        Peer<float>("CColorTwist, floats", Transform),
        Peer<u8>("CChannelReverse", Reverse),
        Peer<float>("CChannelReverse, floats", Reverse),
        {"CColorSpaceConverter, to floats", 0,
         [] {
             cv::Mat to = View(Images<float>::Get().dst);
             View(Images<u8>::Get().a).convertTo(to, CV_32F, 1 / 255.0);
             return 0;
         }},
        {"CColorSpaceConverter, to bytes", 0,
         [] {
             cv::Mat to = View(Images<u8>::Get().a);
             View(Images<float>::Get().dst).convertTo(to, CV_8U, 255);
             return 0;
         }},
        Peer<u8>("CAdd", Weigh),
        Peer<u8>("CAdd, halves", [](const cv::Mat& a, const cv::Mat&,
                                    cv::Mat& dst) { cv::addWeighted(a, 0.5, dst, 0.5, 0, dst); }),
        Peer<u8>("CMix", Weigh),
        Peer<float>("CMix, floats", Weigh),
        Peer<u8>("CDodgeBlend", [](const cv::Mat& a, const cv::Mat& b,
                                   cv::Mat& dst) { cv::divide(a, b, dst, 256); }),
        Peer<u8>("CAlphaFade",
                 [](const cv::Mat& a, const cv::Mat&, cv::Mat& dst) {
                     static const cv::Mat table(1, 256, CV_8U, cv::Scalar(7));
                     cv::LUT(a, table, dst);
                 }),
        Peer<u8>("CMonoChrome", Transform),
        {"ippiFloodFill_4Con_8u_C3IR", 0, [] { return FillByPeer(false); }},
        {"ippiFloodFill_4Con_8u_C3IR, maze", 0, [] { return FillByPeer(true); }},
    };
    AddResizePeers<u8>("ippiResize_8u_C4R", rows);
    AddResizePeers<float>("ippiResize_32f_C4R", rows);
    return rows;
}
#endif

}  // namespace brushworks::bench
