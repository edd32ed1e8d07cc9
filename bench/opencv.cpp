// The same work by OpenCV on one thread, where it has the operation; a name is that of the
// primitive beside it. Where its rounding differs a little, the work is still the same.
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "bench/operations.h"

namespace brushworks::bench {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;

/// One of the common images as OpenCV sees it.
template <class Sample, int Channels>
cv::Mat View(Samples<Sample>& image) {
    return cv::Mat(kFrame.height, kFrame.width, CV_MAKETYPE(cv::DataType<Sample>::depth, Channels),
                   image.data());
}

/// run(source, destination); in-place operations take the destination alone.
template <class From, int FromChannels, class To, int ToChannels, class Run>
Operation Peer(const char* name, Run run) {
    return {name, 0,
            [=, src = View<From, FromChannels>(Images<From>::Get().a),
             dst = View<To, ToChannels>(Images<To>::Get().dst)]() mutable {
                run(src, dst);
                return 0;
            }};
}

using cv::Mat;
using cv::Scalar;

void Copy(const Mat& src, Mat& dst) {
    src.copyTo(dst);
}
void Insert(const Mat& src, Mat& dst) {
    cv::insertChannel(src, dst, 0);
}
void Extract(const Mat& src, Mat& dst) {
    cv::extractChannel(src, dst, 0);
}
void Add(const Mat& src, Mat& dst) {
    cv::add(src, dst, dst);
}
void MoveChannel(const Mat& src, Mat& dst) {
    constexpr int kPairs[] = {0, 0};
    cv::mixChannels(&src, 1, &dst, 1, kPairs, 1);
}
void MoveColours(const Mat& src, Mat& dst) {
    constexpr int kPairs[] = {0, 0, 1, 1, 2, 2};
    cv::mixChannels(&src, 1, &dst, 1, kPairs, 3);
}
void Fill(const Mat&, Mat& dst) {
    dst.setTo(Scalar(200, 100, 50, 255));
}
void MultiplyFloat(const Mat& src, Mat& dst) {
    cv::multiply(src, Scalar(1, 1, 1, 1), dst);
}
void AddConstants(const Mat& src, Mat& dst) {
    cv::add(src, Scalar(0, 0, 0, 0), dst);
}
template <int Code>
void Colour(const Mat& src, Mat& dst) {
    cv::cvtColor(src, dst, Code);
}
template <class To>
void Convert(const Mat& src, Mat& dst) {
    src.convertTo(dst, cv::DataType<To>::depth);
}
void Twist(const Mat& src, Mat& dst) {
    static const Mat matrix = (cv::Mat_<float>(4, 5) << 0.8f, 0.1f, 0.1f, 0.0f, 0.0f,  //
                               0.1f, 0.7f, 0.2f, 0.0f, 0.01f,                          //
                               0.2f, 0.2f, 0.6f, 0.0f, -0.01f,                         //
                               0.0f, 0.0f, 0.0f, 1.0f, 0.0f);
    cv::transform(src, dst, matrix);
}
void Widen(const Mat& src, Mat& dst) {
    constexpr int kBorder = 8;
    const Mat inner = src(cv::Rect(0, 0, kFrame.width - 2 * kBorder, kFrame.height - 2 * kBorder));
    cv::copyMakeBorder(inner, dst, kBorder, kBorder, kBorder, kBorder,
                       cv::BORDER_REPLICATE | cv::BORDER_ISOLATED);
}

}  // namespace

std::vector<Operation> Peers() {
    cv::setNumThreads(1);
    return {
        Peer<u8, 1, u8, 1>("ippiCopy_8u_C1R", Copy),
        Peer<u8, 4, u8, 4>("ippiCopy_8u_C4R", Copy),
        Peer<float, 1, float, 1>("ippiCopy_32f_C1R", Copy),
        Peer<float, 4, float, 4>("ippiCopy_32f_C4R", Copy),
        Peer<u8, 1, u8, 3>("ippiCopy_8u_C1C3R", Insert),
        Peer<u8, 1, u8, 4>("ippiCopy_8u_C1C4R", Insert),
        Peer<u8, 4, u8, 1>("ippiCopy_8u_C4C1R", Extract),
        Peer<u8, 4, u8, 4>("ippiCopy_8u_C4CR", MoveChannel),
        Peer<u8, 4, u8, 3>("ippiCopy_8u_AC4C3R", Colour<cv::COLOR_BGRA2BGR>),
        Peer<u8, 3, u8, 4>("ippiCopy_8u_C3AC4R", MoveColours),
        Peer<float, 1, float, 4>("ippiCopy_32f_C1C4R", Insert),
        Peer<float, 4, float, 1>("ippiCopy_32f_C4C1R", Extract),
        Peer<float, 4, float, 4>("ippiCopy_32f_C4CR", MoveChannel),
        Peer<u8, 1, u8, 1>("ippiSet_8u_C1R", Fill),
        Peer<u8, 4, u8, 4>("ippiSet_8u_C4R", Fill),
        Peer<float, 1, float, 1>("ippiSet_32f_C1R", Fill),
        Peer<float, 4, float, 4>("ippiSet_32f_C4R", Fill),
        Peer<u8, 4, u8, 4>("ippiSwapChannels_8u_C4IR", Colour<cv::COLOR_BGRA2RGBA>),
        Peer<u8, 1, u8, 1>("ippiAdd_8u_C1IRSfs", Add),
        Peer<u8, 4, u8, 4>("ippiAdd_8u_C4IRSfs", Add),
        Peer<u8, 4, u8, 4>(
            "ippiAdd_8u_C4IRSfs, halved",
            [](const Mat& src, Mat& dst) { cv::addWeighted(src, 0.5, dst, 0.5, 0, dst); }),
        Peer<u8, 1, u8, 1>("ippiMulCScale_8u_C1IR",
                           [](const Mat&, Mat& dst) { dst.convertTo(dst, -1, 200 / 255.0); }),
        Peer<u8, 4, u8, 4>("ippiMulCScale_8u_C4IR",
                           [](const Mat&, Mat& dst) {
                               cv::multiply(dst, Scalar(200, 100, 50, 255), dst, 1 / 255.0);
                           }),
        Peer<u16, 4, u16, 4>("ippiMulC_16u_AC4IRSfs",
                             [](const Mat&, Mat& dst) {
                                 cv::multiply(dst, Scalar(120, 130, 128, 128), dst, 1 / 128.0);
                             }),
        Peer<u8, 1, u8, 1>("ippiNot_8u_C1IR",
                           [](const Mat&, Mat& dst) { cv::bitwise_not(dst, dst); }),
        Peer<float, 1, float, 1>("ippiAdd_32f_C1IR", Add),
        Peer<float, 4, float, 4>("ippiAdd_32f_C4IR", Add),
        Peer<float, 1, float, 1>("ippiMulC_32f_C1IR",
                                 [](const Mat&, Mat& dst) { dst.convertTo(dst, -1, 1.0001); }),
        Peer<float, 4, float, 4>("ippiMulC_32f_C4IR",
                                 [](const Mat&, Mat& dst) { MultiplyFloat(dst, dst); }),
        Peer<float, 4, float, 4>("ippiMulC_32f_AC4IR",
                                 [](const Mat&, Mat& dst) { MultiplyFloat(dst, dst); }),
        Peer<float, 4, float, 4>("ippiMulC_32f_AC4R", MultiplyFloat),
        Peer<float, 4, float, 4>("ippiAddC_32f_AC4IR",
                                 [](const Mat&, Mat& dst) { AddConstants(dst, dst); }),
        Peer<float, 4, float, 4>("ippiAddC_32f_AC4R", AddConstants),
        Peer<float, 4, float, 4>("ippiSqr_32f_C4IR",
                                 [](const Mat&, Mat& dst) { cv::multiply(dst, dst, dst); }),
        Peer<float, 4, float, 4>("ippiSqrt_32f_C4IR",
                                 [](const Mat&, Mat& dst) { cv::sqrt(dst, dst); }),
        Peer<float, 4, float, 4>(
            "ippiThreshold_LTVal_32f_C4IR",
            [](const Mat&, Mat& dst) { cv::max(dst, Scalar(0.5, 0.5, 0.5, 0.5), dst); }),
        Peer<u8, 4, u8, 4>("ippiAlphaPremul_8u_AC4R", Colour<cv::COLOR_RGBA2mRGBA>),
        Peer<u8, 4, u16, 4>("ippiConvert_8u16u_C4R", Convert<u16>),
        Peer<u16, 4, u8, 4>("ippiConvert_16u8u_C4R", Convert<u8>),
        Peer<u16, 4, float, 4>("ippiConvert_16u32f_AC4R", Convert<float>),
        Peer<float, 4, u16, 4>("ippiConvert_32f16u_AC4R, even", Convert<u16>),
        Peer<u8, 1, u8, 1>("ippiCopyReplicateBorder_8u_C1R", Widen),
        Peer<u8, 3, u8, 3>("ippiCopyReplicateBorder_8u_C3R", Widen),
        Peer<u8, 4, u8, 4>("ippiCopyReplicateBorder_8u_C4R", Widen),
        Peer<u8, 4, u8, 4>("ippiColorTwist32f_8u_AC4R", Twist),
        Peer<float, 4, float, 4>("ippiColorTwist_32f_AC4R", Twist),
        Peer<float, 4, float, 4>("ippiColorTwist_32f_AC4IR",
                                 [](const Mat&, Mat& dst) { Twist(dst, dst); }),
        Peer<u8, 4, u8, 3>("ippiRGBToHSV_8u_AC4R", Colour<cv::COLOR_RGB2HSV_FULL>),
        Peer<u8, 3, u8, 3>("ippiHSVToRGB_8u_AC4R", Colour<cv::COLOR_HSV2RGB_FULL>),
        Peer<u8, 3, u8, 1>("ippiRGBToGray_8u_C3C1R", Colour<cv::COLOR_RGB2GRAY>),
        Peer<u8, 4, u8, 1>("ippiRGBToGray_8u_AC4C1R", Colour<cv::COLOR_RGBA2GRAY>),
        Peer<u8, 4, u8, 1>("ippiColorToGray_8u_AC4C1R",
                           [](const Mat& src, Mat& dst) {
                               static const Mat weights =
                                   (cv::Mat_<float>(1, 4) << 0.3f, 0.6f, 0.1f, 0.0f);
                               cv::transform(src, dst, weights);
                           }),
        Peer<u8, 2, u8, 4>("ippiYCbCr422ToBGR_8u_C2C4R", Colour<cv::COLOR_YUV2BGRA_YUYV>),
        Peer<u8, 4, u8, 4>("ippiReduceBits_8u_AC4R, plain",
                           [](const Mat& src, Mat& dst) {
                               static const Mat levels = [] {
                                   Mat table(1, 256, CV_8U);
                                   for (int v = 0; v < 256; ++v)
                                       table.at<u8>(v) = static_cast<u8>((v * 5 + 127) / 255 * 51);
                                   return table;
                               }();
                               cv::LUT(src, levels, dst);
                           }),
        // Windows of as many taps as both passes have (149 of 158), on three channels, which is
        // what a bilateral filter takes; and the blur that the triangle stands for.
        Peer<u8, 3, u8, 3>(
            "CSmooth, 79 taps",
            [](const Mat& src, Mat& dst) { cv::bilateralFilter(src, dst, 15, 40, 20); }),
        Peer<u8, 4, u8, 4>("CBlur, width 20",
                           [](const Mat& src, Mat& dst) {
                               cv::GaussianBlur(src, dst, {21, 21}, 0);
                           }),
        Peer<u8, 4, u8, 4>("CBlur, width 200",
                           [](const Mat& src, Mat& dst) {
                               cv::GaussianBlur(src, dst, {201, 201}, 0);
                           }),
        {"ippsMaxIndx_32s", 0,
         [] {
             static const Mat vector = [] {
                 Mat m;
                 View<u8, 1>(Images<u8>::Get().a).convertTo(m, CV_32S);
                 return m;
             }();
             double largest;
             cv::Point at;
             cv::minMaxLoc(vector, nullptr, &largest, nullptr, &at);
             return at.x < 0;
         }},
    };
}

}  // namespace brushworks::bench
