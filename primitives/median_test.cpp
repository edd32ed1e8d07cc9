// The medians against sorting, in every variant.
#include "primitives/median.h"

#include <algorithm>
#include <vector>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::GuardedImage;
using Image = GuardedImage<std::uint8_t>;
using MedianFunction = decltype(&ippiFilterMedian_8u_C4R);

/// A picture and what lies around it under the mask, to the last sample that may be read.
struct Surrounded {
    Surrounded(IppiSize size, IppiSize mask, int missing = 0)
        : image({size.width + mask.width - 1, size.height + mask.height - 1}, 4, 12, missing) {}
    const std::uint8_t* At(IppiPoint anchor) const { return &image.at(anchor.x, anchor.y); }
    Image image;
};

/// Random samples; or flat areas and slopes with a little noise, whose medians jump and drift.
void Paint(Image& image, bool noise) {
    image.Randomize(1);
    if (noise) return;
    const IppiSize size = image.size();
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < (x == size.width - 1 && y == size.height - 1 ? 3 : 4); ++c) {
                std::uint8_t& sample = image.at(x, y, c);
                const int area = (x / 37 + y / 11) % 3;
                sample = static_cast<std::uint8_t>(area == 0 ? 200 + c : 2 * x + y + sample % 24);
            }
}

void ExpectMedians(MedianFunction median, int channels, IppiSize size, IppiSize mask,
                   IppiPoint anchor, bool noise) {
    SCOPED_TRACE(::testing::Message()
                 << size.width << " x " << size.height << ", mask " << mask.width << " x "
                 << mask.height << " at " << anchor.x << ", " << anchor.y);
    Surrounded src(size, mask, 4 - channels);
    Paint(src.image, noise);
    Image before(size, 4, 8, 4 - channels);
    before.Randomize(2);
    Image expected(before);
    std::vector<std::uint8_t> under;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < channels; ++c) {
                under.clear();
                for (int j = 0; j < mask.height; ++j)
                    for (int i = 0; i < mask.width; ++i)
                        under.push_back(src.image.at(x + i, y + j, c));
                const auto middle = under.begin() + static_cast<std::ptrdiff_t>(under.size() / 2);
                std::nth_element(under.begin(), middle, under.end());
                expected.at(x, y, c) = *middle;
            }
    testing::ForEachVariant([&](Variant) {
        Image dst(before);
        ASSERT_EQ(
            median(src.At(anchor), src.image.step(), dst.data(), dst.step(), size, mask, anchor),
            kStatusOk);
        EXPECT_TRUE(dst == expected);
    });
}

void ExpectMediansOfBothForms(IppiSize size, IppiSize mask, IppiPoint anchor, bool noise = true) {
    ExpectMedians(ippiFilterMedian_8u_C4R, 4, size, mask, anchor, noise);
    ExpectMedians(ippiFilterMedian_8u_AC4R, 3, size, mask, anchor, noise);
}

TEST(Median, IsTheMiddleOfTheSortedSamples) {
    for (const IppiSize mask : {IppiSize{1, 1}, {3, 3}, {3, 1}, {1, 3}, {5, 5}, {7, 3}, {9, 9}})
        for (const IppiSize size : testing::kEdgeSizes)
            ExpectMediansOfBothForms(size, mask, {mask.width / 2, mask.height / 2});
}

TEST(Median, TakesMasksBeyondThePicture) {
    for (const bool noise : {true, false})
        for (const IppiSize mask :
             {IppiSize{15, 15}, {17, 15}, {27, 27}, {55, 27}, {1, 41}, {71, 3}})
            for (const IppiSize size : {IppiSize{1, 1}, {3, 2}, {17, 9}, {133, 40}})
                ExpectMediansOfBothForms(size, mask, {mask.width / 2, mask.height / 2}, noise);
}

TEST(Median, CountsBeyondBytesAndWords) {
    for (const IppiSize mask : {IppiSize{3, 301}, {301, 1}, {201, 171}, {259, 257}, {1, 65537}})
        ExpectMediansOfBothForms({5, 3}, mask, {0, mask.height - 1}, false);
}

TEST(Median, TakesPicturesWiderThanItsStrips) {
    ExpectMediansOfBothForms({4500, 3}, {21, 13}, {10, 6}, false);
}

TEST(Median, StandsOnItsAnchor) {
    for (const IppiSize mask : {IppiSize{5, 3}, {23, 25}})
        for (const int x : {0, 1, mask.width - 1})
            for (const int y : {0, 1, mask.height - 1})
                ExpectMediansOfBothForms({37, 11}, mask, {x, y});
}

// A corner of a straight edge is what a median keeps and a mean does not.
TEST(Median, KeepsAStep) {
    testing::ForEachVariant([](Variant) {
        for (const int side : {3, 5, 9, 27}) {
            const IppiSize size{60, 4}, mask{side, side};
            Surrounded src(size, mask);
            for (int y = 0; y < src.image.size().height; ++y)
                for (int x = 0; x < src.image.size().width; ++x)
                    for (int c = 0; c < 4; ++c)
                        src.image.at(x, y, c) = x - side / 2 < 31 ? 10 : 250;
            Image dst(size, 4);
            ASSERT_EQ(
                ippiFilterMedian_8u_C4R(src.At({side / 2, side / 2}), src.image.step(), dst.data(),
                                        dst.step(), size, mask, {side / 2, side / 2}),
                kStatusOk);
            for (int x = 0; x < size.width; ++x)
                for (int c = 0; c < 4; ++c) ASSERT_EQ(dst.at(x, 2, c), x < 31 ? 10 : 250) << x;
        }
    });
}

TEST(Median, Statuses) {
    for (const MedianFunction median : {ippiFilterMedian_8u_C4R, ippiFilterMedian_8u_AC4R}) {
        Image src({8, 8}, 4), dst({2, 2}, 4);
        src.Randomize(1);
        dst.Randomize(2);
        const Image before(dst);
        const auto call = [&](int srcStep, IppiSize size, IppiSize mask, IppiPoint anchor,
                              int dstStep = 20) {
            return median(&src.at(3, 3), srcStep, dst.data(), dstStep, size, mask, anchor);
        };
        const IppiSize two{2, 2}, three{3, 3};
        EXPECT_EQ(median(nullptr, 0, dst.data(), 0, {0, 0}, {0, 0}, {0, 0}), kStatusNullPointer);
        EXPECT_EQ(median(src.data(), 0, nullptr, 0, {0, 0}, {0, 0}, {0, 0}), kStatusNullPointer);
        EXPECT_EQ(call(7, {0, 2}, three, {1, 1}), kStatusSizeError);
        EXPECT_EQ(call(7, two, three, {1, 1}), kStatusStepError);
        EXPECT_EQ(call(44, two, three, {1, 1}, 7), kStatusStepError);
        EXPECT_EQ(call(44, two, {0, 3}, {1, 1}), kStatusSizeError);
        EXPECT_EQ(call(44, two, {3, -1}, {1, 1}), kStatusSizeError);
        for (const IppiSize even : {IppiSize{2, 3}, {3, 2}, {4, 4}})
            EXPECT_EQ(call(44, two, even, {1, 1}), kStatusBadArgument);
        for (const IppiPoint outside : {IppiPoint{-1, 1}, {1, -1}, {3, 1}, {1, 3}})
            EXPECT_EQ(call(44, two, three, outside), kStatusBadArgument);
        EXPECT_EQ(call(44, two, {65537, 65537}, {1, 1}), kStatusBadArgument);
        EXPECT_TRUE(dst == before);
    }
}

}  // namespace
}  // namespace brushworks
