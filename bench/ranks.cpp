// The primitives that order samples under a mask, medians, modes and dilations, and their peers.
// The peers work on all four channels, as C4 does.
#include "bench/rows.h"
#include "primitives/median.h"
#include "primitives/mode_filter.h"
#include "primitives/morphology.h"

#include <algorithm>
#include <cmath>
#include <memory>

#if BRUSHWORKS_HAVE_OPENCV
#include <opencv2/imgproc.hpp>
#endif

namespace brushworks::bench {
namespace {

/// Frames of a picture with slopes, edges and grain, since the time of a median depends on what it
/// meets; random samples are the other end. Both have room for the largest mask around them.
constexpr int kMargin = 64;
constexpr IppiSize kWide{kFrame.width + 2 * kMargin, kFrame.height + 2 * kMargin};
constexpr int kWideStep = 4 * kWide.width;

const std::vector<u8>& Picture() {
    static const std::vector<u8> picture = [] {
        std::vector<u8> made(std::size_t{kWideStep} * kWide.height);
        unsigned grain = 1;
        for (int y = 0; y < kWide.height; ++y)
            for (int i = 0; i < kWideStep; ++i) {
                const int x = i / 4, c = i % 4;
                const double slope = 90 * std::sin(x * 0.011 + c) * std::cos(y * 0.017 - c);
                grain = grain * 1664525u + 1013904223u;
                made[std::size_t{kWideStep} * y + i] = static_cast<u8>(
                    110 + slope + ((x / 97 + y / 61) % 2) * 40 + static_cast<int>(grain >> 28) - 8);
            }
        return made;
    }();
    return picture;
}
const std::vector<u8>& Noise() {
    static const std::vector<u8> noise = [] {
        const auto& random = Images<u8>::Get().a;
        std::vector<u8> made(std::size_t{kWideStep} * kWide.height);
        for (std::size_t i = 0; i < made.size(); ++i) made[i] = random[i % (random.size() - 7)];
        return made;
    }();
    return noise;
}

using Source = const std::vector<u8>& (*)();

const u8* Inner(Source source) {
    return source().data() + kMargin * kWideStep + 4 * kMargin;
}

template <class Call>
Operation Median(const char* name, Call call, int side, Source source) {
    return {name, 8, [=] {
                return call(Inner(source), kWideStep, Images<u8>::Get().dst.data(), kStep<u8, 4>,
                            kFrame, IppiSize{side, side}, IppiPoint{side / 2, side / 2});
            }};
}

Operation Mode(const char* name, int side, Source source) {
    return {name, 8, [=] {
                return ModeFilter_8u_C4R(source().data(), kWideStep, Images<u8>::Get().dst.data(),
                                         kStep<u8, 4>, kFrame, {side, side});
            }};
}

std::vector<u8> Ellipse(int side) {
    std::vector<u8> mask(std::size_t(side) * side);
    const int half = side / 2;
    for (int y = -half; y <= half; ++y)
        for (int x = -half; x <= half; ++x)
            mask[std::size_t(y + half) * side + x + half] = x * x + y * y <= half * half;
    return mask;
}

template <class Sample, int Channels, class Make, class Call>
Operation Dilation(const char* name, Make make, Call call, int side) {
    return {
        name, 2 * kPixelBytes<Sample, Channels>,
        [=, state = std::shared_ptr<IppiMorphologyState>()]() mutable {
            if (!state) {
                IppiMorphologyState* made;
                make(kFrame.width, Ellipse(side).data(), {side, side}, {side / 2, side / 2}, &made);
                state.reset(made, ippiMorphologyFree);
            }
            return call(Images<Sample>::Get().a.data(), kStep<Sample, Channels>,
                        Images<Sample>::Get().dst.data(), kStep<Sample, Channels>, kFrame,
                        kBorderReplicate, state.get());
        }};
}

}  // namespace

std::vector<Operation> Ranks() {
    return {
        Median("ippiFilterMedian_8u_C4R, 3", ippiFilterMedian_8u_C4R, 3, Picture),
        Median("ippiFilterMedian_8u_C4R, 5", ippiFilterMedian_8u_C4R, 5, Picture),
        Median("ippiFilterMedian_8u_C4R, 9", ippiFilterMedian_8u_C4R, 9, Picture),
        Median("ippiFilterMedian_8u_C4R, 15", ippiFilterMedian_8u_C4R, 15, Picture),
        Median("ippiFilterMedian_8u_C4R, 27", ippiFilterMedian_8u_C4R, 27, Picture),
        Median("ippiFilterMedian_8u_C4R, 55", ippiFilterMedian_8u_C4R, 55, Picture),
        Median("ippiFilterMedian_8u_C4R, 55, noise", ippiFilterMedian_8u_C4R, 55, Noise),
        Median("ippiFilterMedian_8u_AC4R, 9", ippiFilterMedian_8u_AC4R, 9, Picture),
        Median("ippiFilterMedian_8u_AC4R, 27", ippiFilterMedian_8u_AC4R, 27, Picture),
        Median("ippiFilterMedian_8u_AC4R, 55", ippiFilterMedian_8u_AC4R, 55, Picture),
        Mode("ModeFilter_8u_C4R, 23", 23, Picture),
        Mode("ModeFilter_8u_C4R, 45", 45, Picture),
        Mode("ModeFilter_8u_C4R, 45, noise", 45, Noise),
        Dilation<u8, 4>("ippiDilateBorderReplicate_8u_C4R, 5", ippiMorphologyInitAlloc_8u_C4R,
                        ippiDilateBorderReplicate_8u_C4R, 5),
        Dilation<u8, 4>("ippiDilateBorderReplicate_8u_C4R, 25", ippiMorphologyInitAlloc_8u_C4R,
                        ippiDilateBorderReplicate_8u_C4R, 25),
        Dilation<u8, 4>("ippiDilateBorderReplicate_8u_C4R, 109", ippiMorphologyInitAlloc_8u_C4R,
                        ippiDilateBorderReplicate_8u_C4R, 109),
        Dilation<u8, 4>("ippiDilateBorderReplicate_8u_C4R, 217", ippiMorphologyInitAlloc_8u_C4R,
                        ippiDilateBorderReplicate_8u_C4R, 217),
        Dilation<u8, 1>("ippiDilateBorderReplicate_8u_C1R, 109", ippiMorphologyInitAlloc_8u_C1R,
                        ippiDilateBorderReplicate_8u_C1R, 109),
        Dilation<float, 1>("ippiDilateBorderReplicate_32f_C1R, 109",
                           ippiMorphologyInitAlloc_32f_C1R, ippiDilateBorderReplicate_32f_C1R, 109),
        Dilation<float, 4>("ippiDilateBorderReplicate_32f_C4R, 109",
                           ippiMorphologyInitAlloc_32f_C4R, ippiDilateBorderReplicate_32f_C4R, 109),
    };
}

#if BRUSHWORKS_HAVE_OPENCV

namespace {

using cv::Mat;

Operation MedianPeer(const char* name, int side, Source source) {
    return {name, 0, [=, dst = Mat()]() mutable {
                const Mat whole(kWide.height, kWide.width, CV_8UC4,
                                const_cast<u8*>(source().data()));
                cv::medianBlur(whole(cv::Rect(kMargin, kMargin, kFrame.width, kFrame.height)), dst,
                               side);
                return 0;
            }};
}

template <class Sample, int Channels>
Operation DilationPeer(const char* name, int side) {
    return {name, 0, [=, dst = Mat()]() mutable {
                const Mat src(kFrame.height, kFrame.width,
                              CV_MAKETYPE(cv::DataType<Sample>::depth, Channels),
                              Images<Sample>::Get().a.data());
                auto bytes = Ellipse(side);
                cv::dilate(src, dst, Mat(side, side, CV_8U, bytes.data()), {-1, -1}, 1,
                           cv::BORDER_REPLICATE);
                return 0;
            }};
}

}  // namespace

std::vector<Operation> RankPeers() {
    cv::setNumThreads(1);
    return {
        MedianPeer("ippiFilterMedian_8u_C4R, 3", 3, Picture),
        MedianPeer("ippiFilterMedian_8u_C4R, 5", 5, Picture),
        MedianPeer("ippiFilterMedian_8u_C4R, 9", 9, Picture),
        MedianPeer("ippiFilterMedian_8u_C4R, 15", 15, Picture),
        MedianPeer("ippiFilterMedian_8u_C4R, 27", 27, Picture),
        MedianPeer("ippiFilterMedian_8u_C4R, 55", 55, Picture),
        MedianPeer("ippiFilterMedian_8u_C4R, 55, noise", 55, Noise),
        DilationPeer<u8, 4>("ippiDilateBorderReplicate_8u_C4R, 5", 5),
        DilationPeer<u8, 4>("ippiDilateBorderReplicate_8u_C4R, 25", 25),
        DilationPeer<u8, 4>("ippiDilateBorderReplicate_8u_C4R, 109", 109),
        DilationPeer<u8, 4>("ippiDilateBorderReplicate_8u_C4R, 217", 217),
        DilationPeer<u8, 1>("ippiDilateBorderReplicate_8u_C1R, 109", 109),
        DilationPeer<float, 1>("ippiDilateBorderReplicate_32f_C1R, 109", 109),
        DilationPeer<float, 4>("ippiDilateBorderReplicate_32f_C4R, 109", 109),
    };
}

#endif

}  // namespace brushworks::bench
