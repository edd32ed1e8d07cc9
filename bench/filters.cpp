// The filters, one row each, and OpenCV's beside them. Every row filters the inside of a frame that
// is larger by the reach of the mask, so that all that is read exists.
#include "primitives/filter_fixed.h"
#include "primitives/filter_general.h"
#include "primitives/filter_row_column.h"

#include "bench/rows.h"

#if BRUSHWORKS_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace brushworks::bench {
namespace {

constexpr int kTaps = 51;
constexpr int kReach = 25;  // of 51 taps; that of 43 is less

/// A frame with kReach pixels around it.
template <class Sample, int Channels>
struct Framed {
    static constexpr int kWidth = kFrame.width + 2 * kReach, kHeight = kFrame.height + 2 * kReach;
    static constexpr int kRowBytes = kWidth * Channels * int{sizeof(Sample)};
    std::vector<Sample> samples = std::vector<Sample>(std::size_t{kWidth} * kHeight * Channels);

    static Framed& Source() {
        static Framed framed = [] {
            Framed f;
            unsigned state = 1;
            for (Sample& s : f.samples) {
                state = state * 1664525u + 1013904223u;
                s = sizeof(Sample) == 1 ? static_cast<Sample>(state >> 24)
                                        : static_cast<Sample>(state >> 8) * Sample(0x1p-24);
            }
            return f;
        }();
        return framed;
    }
    static Framed& Between() {
        static Framed framed;
        return framed;
    }
    Sample* first() { return samples.data() + (std::size_t{kWidth} * kReach + kReach) * Channels; }
};

/// A triangle of 51 taps, as the blur has it.
template <class Weight>
std::vector<Weight> Triangle() {
    std::vector<Weight> kernel;
    for (int i = 0; i < kTaps; ++i)
        kernel.push_back(static_cast<Weight>(i < kTaps / 2 ? i + 1 : kTaps - i) /
                         (std::is_integral_v<Weight> ? Weight(1) : Weight(676)));
    return kernel;
}
constexpr int kTriangleSum = 676;

template <class Sample, int Channels, class Call, class... Divisor>
Operation Along(const char* name, Call call, Divisor... divisor) {
    using Weight = std::conditional_t<sizeof(Sample) == 1, std::int32_t, float>;
    return {name, 2 * kPixelBytes<Sample, Channels>, [=, kernel = Triangle<Weight>()] {
                using Source = Framed<Sample, Channels>;
                return call(Source::Source().first(), Source::kRowBytes,
                            Images<Sample>::Get().dst.data(), kStep<Sample, Channels>, kFrame,
                            kernel.data(), kTaps, kTaps / 2, divisor...);
            }};
}

/// Columns over the frame and what lies beside it, then rows.
template <class Sample, int Channels, class Column, class Row, class... Divisor>
Operation ColumnThenRow(const char* name, Column column, Row row, Divisor... divisor) {
    using Weight = std::conditional_t<sizeof(Sample) == 1, std::int32_t, float>;
    return {name, 2 * kPixelBytes<Sample, Channels>, [=, kernel = Triangle<Weight>()] {
                using Source = Framed<Sample, Channels>;
                auto &from = Source::Source(), &between = Source::Between();
                const int status = column(from.first() - kReach * Channels, Source::kRowBytes,
                                          between.first() - kReach * Channels, Source::kRowBytes,
                                          {Source::kWidth, kFrame.height}, kernel.data(), kTaps,
                                          kTaps / 2, divisor...);
                return status ? status
                              : row(between.first(), Source::kRowBytes,
                                    Images<Sample>::Get().dst.data(), kStep<Sample, Channels>,
                                    kFrame, kernel.data(), kTaps, kTaps / 2, divisor...);
            }};
}

enum class Kind { kDense, kProduct };

/// A square kernel of sum 1: a bell, which is a product of column and row, or one that is none.
std::vector<float> Square(int side, Kind kind) {
    std::vector<float> kernel;
    float sum = 0;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const float u = static_cast<float>(x) - static_cast<float>(side / 2);
            const float v = static_cast<float>(y) - static_cast<float>(side / 2);
            const auto bell = [side](float t) {
                return 1.0f / (1.0f + 8.0f * t * t / static_cast<float>(side * side));
            };
            kernel.push_back(kind == Kind::kProduct ? bell(u) * bell(v)
                                                    : bell(u + 0.5f * v) + 0.1f * bell(v));
            sum += kernel.back();
        }
    for (float& weight : kernel) weight /= sum;
    return kernel;
}

template <class Sample, int Channels, class Call>
Operation General(const char* name, Call call, int side, Kind kind) {
    return {name, 2 * kPixelBytes<Sample, Channels>, [=, kernel = Square(side, kind)] {
                using Source = Framed<Sample, Channels>;
                return call(Source::Source().first(), Source::kRowBytes,
                            Images<Sample>::Get().dst.data(), kStep<Sample, Channels>, kFrame,
                            kernel.data(), {side, side}, {side / 2, side / 2});
            }};
}

template <int Channels, class Call, class... Further>
Operation Fixed(const char* name, Call call, Further... further) {
    return {name, 2 * Channels, [=] {
                using Source = Framed<u8, Channels>;
                return call(Source::Source().first(), Source::kRowBytes,
                            Images<u8>::Get().dst.data(), kStep<u8, Channels>, kFrame, further...);
            }};
}

}  // namespace

std::vector<Operation> Filters() {
    constexpr auto kDense = Kind::kDense, kProduct = Kind::kProduct;
    return {
        Along<u8, 1>("ippiFilterRow_8u_C1R, 51", ippiFilterRow_8u_C1R, kTriangleSum),
        Along<u8, 4>("ippiFilterRow_8u_C4R, 51", ippiFilterRow_8u_C4R, kTriangleSum),
        Along<u8, 4>("ippiFilterRow_8u_AC4R, 51", ippiFilterRow_8u_AC4R, kTriangleSum),
        Along<float, 1>("ippiFilterRow_32f_C1R, 51", ippiFilterRow_32f_C1R),
        Along<float, 4>("ippiFilterRow_32f_C4R, 51", ippiFilterRow_32f_C4R),
        Along<float, 4>("ippiFilterRow_32f_AC4R, 51", ippiFilterRow_32f_AC4R),
        Along<u8, 1>("ippiFilterColumn_8u_C1R, 51", ippiFilterColumn_8u_C1R, kTriangleSum),
        Along<u8, 4>("ippiFilterColumn_8u_C4R, 51", ippiFilterColumn_8u_C4R, kTriangleSum),
        Along<u8, 4>("ippiFilterColumn_8u_AC4R, 51", ippiFilterColumn_8u_AC4R, kTriangleSum),
        Along<float, 1>("ippiFilterColumn_32f_C1R, 51", ippiFilterColumn_32f_C1R),
        Along<float, 4>("ippiFilterColumn_32f_C4R, 51", ippiFilterColumn_32f_C4R),
        Along<float, 4>("ippiFilterColumn_32f_AC4R, 51", ippiFilterColumn_32f_AC4R),
        ColumnThenRow<u8, 1>("ippiFilterColumn and Row_8u_C1R, 51", ippiFilterColumn_8u_C1R,
                             ippiFilterRow_8u_C1R, kTriangleSum),
        ColumnThenRow<u8, 4>("ippiFilterColumn and Row_8u_C4R, 51", ippiFilterColumn_8u_C4R,
                             ippiFilterRow_8u_C4R, kTriangleSum),
        ColumnThenRow<float, 1>("ippiFilterColumn and Row_32f_C1R, 51", ippiFilterColumn_32f_C1R,
                                ippiFilterRow_32f_C1R),
        ColumnThenRow<float, 4>("ippiFilterColumn and Row_32f_C4R, 51", ippiFilterColumn_32f_C4R,
                                ippiFilterRow_32f_C4R),
        General<u8, 1>("ippiFilter32f_8u_C1R, 3", ippiFilter32f_8u_C1R, 3, kDense),
        General<u8, 1>("ippiFilter32f_8u_C1R, 5", ippiFilter32f_8u_C1R, 5, kDense),
        General<u8, 1>("ippiFilter32f_8u_C1R, 17", ippiFilter32f_8u_C1R, 17, kDense),
        General<u8, 1>("ippiFilter32f_8u_C1R, 43", ippiFilter32f_8u_C1R, 43, kDense),
        General<u8, 4>("ippiFilter32f_8u_C4R, 3", ippiFilter32f_8u_C4R, 3, kDense),
        General<u8, 4>("ippiFilter32f_8u_C4R, 5", ippiFilter32f_8u_C4R, 5, kDense),
        General<u8, 4>("ippiFilter32f_8u_C4R, 17", ippiFilter32f_8u_C4R, 17, kDense),
        General<u8, 4>("ippiFilter32f_8u_C4R, 43", ippiFilter32f_8u_C4R, 43, kDense),
        General<float, 4>("ippiFilter_32f_C4R, 5", ippiFilter_32f_C4R, 5, kDense),
        General<u8, 1>("ippiFilter32f_8u_C1R, 5, product", ippiFilter32f_8u_C1R, 5, kProduct),
        General<u8, 1>("ippiFilter32f_8u_C1R, 17, product", ippiFilter32f_8u_C1R, 17, kProduct),
        General<u8, 1>("ippiFilter32f_8u_C1R, 43, product", ippiFilter32f_8u_C1R, 43, kProduct),
        General<u8, 4>("ippiFilter32f_8u_C4R, 5, product", ippiFilter32f_8u_C4R, 5, kProduct),
        General<u8, 4>("ippiFilter32f_8u_C4R, 17, product", ippiFilter32f_8u_C4R, 17, kProduct),
        General<u8, 4>("ippiFilter32f_8u_C4R, 43, product", ippiFilter32f_8u_C4R, 43, kProduct),
        Fixed<4>("ippiFilterSharpen_8u_AC4R", ippiFilterSharpen_8u_AC4R),
        Fixed<1>("ippiFilterLowpass_8u_C1R, 3", ippiFilterLowpass_8u_C1R, kMask3x3),
        Fixed<1>("ippiFilterLowpass_8u_C1R, 5", ippiFilterLowpass_8u_C1R, kMask5x5),
    };
}

#if BRUSHWORKS_HAVE_OPENCV

namespace {

/// The inside of the same frame; OpenCV finds what lies around it by itself.
template <class Sample, int Channels, class Run>
Operation Peer(const char* name, Run run) {
    return {name, 0,
            [=,
             inside = cv::Mat(
                 kFrame.height, kFrame.width, CV_MAKETYPE(cv::DataType<Sample>::depth, Channels),
                 Framed<Sample, Channels>::Source().first(), Framed<Sample, Channels>::kRowBytes),
             dst = cv::Mat(kFrame.height, kFrame.width,
                           CV_MAKETYPE(cv::DataType<Sample>::depth, Channels),
                           Images<Sample>::Get().dst.data())]() mutable {
                run(inside, dst);
                return 0;
            }};
}

const cv::Mat kOne = (cv::Mat_<float>(1, 1) << 1.0f);

cv::Mat TriangleMat() {
    return cv::Mat(Triangle<float>()).clone();
}
void AlongRow(const cv::Mat& src, cv::Mat& dst) {
    static const cv::Mat kernel = TriangleMat();
    cv::sepFilter2D(src, dst, -1, kernel, kOne, cv::Point(-1, -1), 0, cv::BORDER_REPLICATE);
}
void AlongColumn(const cv::Mat& src, cv::Mat& dst) {
    static const cv::Mat kernel = TriangleMat();
    cv::sepFilter2D(src, dst, -1, kOne, kernel, cv::Point(-1, -1), 0, cv::BORDER_REPLICATE);
}
void AlongBoth(const cv::Mat& src, cv::Mat& dst) {
    static const cv::Mat kernel = TriangleMat();
    cv::sepFilter2D(src, dst, -1, kernel, kernel, cv::Point(-1, -1), 0, cv::BORDER_REPLICATE);
}
template <int Side, Kind kind>
void Filter(const cv::Mat& src, cv::Mat& dst) {
    static const cv::Mat kernel = cv::Mat(Square(Side, kind)).reshape(1, Side).clone();
    cv::filter2D(src, dst, -1, kernel, cv::Point(-1, -1), 0, cv::BORDER_REPLICATE);
}
void Sharpen(const cv::Mat& src, cv::Mat& dst) {
    static const cv::Mat kernel = (cv::Mat_<float>(3, 3) << -0.125f, -0.125f, -0.125f,  //
                                   -0.125f, 2.0f, -0.125f, -0.125f, -0.125f, -0.125f);
    cv::filter2D(src, dst, -1, kernel, cv::Point(-1, -1), 0, cv::BORDER_REPLICATE);
}
template <int Side>
void Mean(const cv::Mat& src, cv::Mat& dst) {
    cv::blur(src, dst, cv::Size(Side, Side), cv::Point(-1, -1), cv::BORDER_REPLICATE);
}

}  // namespace

std::vector<Operation> FilterPeers() {
    constexpr auto kDense = Kind::kDense, kProduct = Kind::kProduct;
    return {
        Peer<u8, 1>("ippiFilterRow_8u_C1R, 51", AlongRow),
        Peer<u8, 4>("ippiFilterRow_8u_C4R, 51", AlongRow),
        Peer<float, 1>("ippiFilterRow_32f_C1R, 51", AlongRow),
        Peer<float, 4>("ippiFilterRow_32f_C4R, 51", AlongRow),
        Peer<u8, 1>("ippiFilterColumn_8u_C1R, 51", AlongColumn),
        Peer<u8, 4>("ippiFilterColumn_8u_C4R, 51", AlongColumn),
        Peer<float, 1>("ippiFilterColumn_32f_C1R, 51", AlongColumn),
        Peer<float, 4>("ippiFilterColumn_32f_C4R, 51", AlongColumn),
        Peer<u8, 1>("ippiFilterColumn and Row_8u_C1R, 51", AlongBoth),
        Peer<u8, 4>("ippiFilterColumn and Row_8u_C4R, 51", AlongBoth),
        Peer<float, 1>("ippiFilterColumn and Row_32f_C1R, 51", AlongBoth),
        Peer<float, 4>("ippiFilterColumn and Row_32f_C4R, 51", AlongBoth),
        Peer<u8, 1>("ippiFilter32f_8u_C1R, 3", Filter<3, kDense>),
        Peer<u8, 1>("ippiFilter32f_8u_C1R, 5", Filter<5, kDense>),
        Peer<u8, 1>("ippiFilter32f_8u_C1R, 17", Filter<17, kDense>),
        Peer<u8, 1>("ippiFilter32f_8u_C1R, 43", Filter<43, kDense>),
        Peer<u8, 4>("ippiFilter32f_8u_C4R, 3", Filter<3, kDense>),
        Peer<u8, 4>("ippiFilter32f_8u_C4R, 5", Filter<5, kDense>),
        Peer<u8, 4>("ippiFilter32f_8u_C4R, 17", Filter<17, kDense>),
        Peer<u8, 4>("ippiFilter32f_8u_C4R, 43", Filter<43, kDense>),
        Peer<float, 4>("ippiFilter_32f_C4R, 5", Filter<5, kDense>),
        Peer<u8, 1>("ippiFilter32f_8u_C1R, 5, product", Filter<5, kProduct>),
        Peer<u8, 1>("ippiFilter32f_8u_C1R, 17, product", Filter<17, kProduct>),
        Peer<u8, 1>("ippiFilter32f_8u_C1R, 43, product", Filter<43, kProduct>),
        Peer<u8, 4>("ippiFilter32f_8u_C4R, 5, product", Filter<5, kProduct>),
        Peer<u8, 4>("ippiFilter32f_8u_C4R, 17, product", Filter<17, kProduct>),
        Peer<u8, 4>("ippiFilter32f_8u_C4R, 43, product", Filter<43, kProduct>),
        Peer<u8, 4>("ippiFilterSharpen_8u_AC4R", Sharpen),
        Peer<u8, 1>("ippiFilterLowpass_8u_C1R, 3", Mean<3>),
        Peer<u8, 1>("ippiFilterLowpass_8u_C1R, 5", Mean<5>),
    };
}

#endif

}  // namespace brushworks::bench
