// The copies against loops written for reading, in every variant.
#include "primitives/copy.h"

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ExpectPerPixel;
using testing::Layout;

template <class Sample>
using CopyFunction = int (*)(const Sample*, int, Sample*, int, IppiSize);

/// A member, its layouts, and how many samples it copies from the one pixel to the other.
template <class Sample>
struct CopyCase {
    const char* name;
    CopyFunction<Sample> copy;
    Layout from, to;
    int samples;
};

template <class Sample>
void ExpectCopies(std::initializer_list<CopyCase<Sample>> cases) {
    for (const auto& c : cases)
        ExpectPerPixel<Sample, Sample>(c.name, c.from, c.to, c.copy,
                                       [&](const Sample* from, Sample* to) {
                                           for (int i = 0; i < c.samples; ++i) to[i] = from[i];
                                       });
}

TEST(Copy, WholePixels) {
    ExpectCopies<std::uint8_t>(
        {{"8u_C1", ippiCopy_8u_C1R, {1}, {1, 20}, 1}, {"8u_C4", ippiCopy_8u_C4R, {4}, {4, 20}, 4}});
    ExpectCopies<float>({{"32f_C1", ippiCopy_32f_C1R, {1}, {1, 20}, 1},
                         {"32f_C4", ippiCopy_32f_C4R, {4}, {4, 20}, 4}});
}

// Each pointer stands at some channel; what is missing of the last pixel faults when touched.
TEST(Copy, SingleChannels) {
    for (const int missing : {0, 1, 2, 3}) {
        const Layout four{4, 12, missing}, last{4, 20, 3};
        ExpectCopies<std::uint8_t>({{"8u_C1C3", ippiCopy_8u_C1C3R, {1}, {3, 12, missing % 3}, 1},
                                    {"8u_C1C4", ippiCopy_8u_C1C4R, {1}, four, 1},
                                    {"8u_C4C1", ippiCopy_8u_C4C1R, four, {1}, 1},
                                    {"8u_C4C", ippiCopy_8u_C4CR, four, last, 1},
                                    {"8u_C4C", ippiCopy_8u_C4CR, last, four, 1}});
        ExpectCopies<float>({{"32f_C1C4", ippiCopy_32f_C1C4R, {1}, four, 1},
                             {"32f_C4C1", ippiCopy_32f_C4C1R, four, {1}, 1},
                             {"32f_C4C", ippiCopy_32f_C4CR, four, last, 1}});
    }
}

TEST(Copy, ColoursOfFourChannels) {
    for (const int missing : {0, 1})
        ExpectCopies<std::uint8_t>({{"AC4C3", ippiCopy_8u_AC4C3R, {4, 12, missing}, {3}, 3},
                                    {"C3AC4", ippiCopy_8u_C3AC4R, {3}, {4, 12, missing}, 3}});
}

TEST(Copy, ChannelWithinOneImage) {
    testing::ForEachVariant([](Variant) {
        for (const IppiSize size : testing::kEdgeSizes)
            for (const auto& [from, to] : {std::pair(0, 3), std::pair(2, 1)}) {
                testing::GuardedImage<std::uint8_t> image(size, 4);
                image.Randomize(3);
                auto expected = image;
                for (int y = 0; y < size.height; ++y)
                    for (int x = 0; x < size.width; ++x)
                        expected.at(x, y, to) = expected.at(x, y, from);
                ASSERT_EQ(ippiCopy_8u_C4CR(image.data() + from, image.step(), image.data() + to,
                                           image.step(), size),
                          kStatusOk);
                ASSERT_TRUE(image == expected) << size.width << " x " << size.height;
            }
    });
}

// Rows of each side are measured with the pixels of that side.
TEST(Copy, Statuses) {
    std::uint8_t src[64] = {}, dst[64] = {7};
    const struct {
        const char* why;
        CopyFunction<std::uint8_t> copy;
        const std::uint8_t* from;
        int fromStep;
        std::uint8_t* to;
        int toStep;
        IppiSize size;
        int status;
    } cases[] = {
        {"null before all else", ippiCopy_8u_C4R, nullptr, 0, dst, 0, {0, 0}, kStatusNullPointer},
        {"null destination", ippiCopy_8u_C1R, src, 4, nullptr, 4, {1, 1}, kStatusNullPointer},
        {"size before step", ippiCopy_8u_C4R, src, 0, dst, 0, {0, 1}, kStatusSizeError},
        {"height", ippiCopy_8u_C4R, src, 4, dst, 4, {1, 0}, kStatusSizeError},
        {"step 0", ippiCopy_8u_C1R, src, 0, dst, 4, {1, 1}, kStatusStepError},
        {"source row", ippiCopy_8u_C4C1R, src, 7, dst, 2, {2, 1}, kStatusStepError},
        {"source fits", ippiCopy_8u_C4C1R, src, 8, dst, 2, {2, 1}, kStatusOk},
        {"destination row", ippiCopy_8u_C3AC4R, src, 6, dst, 7, {2, 1}, kStatusStepError},
        {"destination fits", ippiCopy_8u_C3AC4R, src, 6, dst, 8, {2, 1}, kStatusOk},
        {"row of 2^32 bytes", ippiCopy_8u_C4R, src, 4, dst, 4, {1 << 30, 1}, kStatusStepError},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.copy(c.from, c.fromStep, c.to, c.toStep, c.size), c.status) << c.why;
}

}  // namespace
}  // namespace brushworks
