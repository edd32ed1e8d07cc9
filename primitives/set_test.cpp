// The fills against loops written for reading, in every variant.
#include "primitives/set.h"

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ExpectInPlace;

constexpr std::uint8_t kBytes[4] = {1, 250, 3, 128};
constexpr float kFloats[4] = {0.25f, -3.0f, 1e9f, 0.5f};

/// A fill with one value, of one channel among `channels`.
template <class Sample, class Set>
void ExpectChannelSet(const char* name, int channels, Set set, Sample value) {
    for (int missing = 0; missing < channels; ++missing)
        ExpectInPlace<Sample>(
            name, {channels, 12, missing},
            [&](Sample* image, int step, IppiSize size) { return set(value, image, step, size); },
            [&](Sample* pixel) { pixel[0] = value; });
}

template <class Sample, class Set>
void ExpectPixelSet(const char* name, Set set, const Sample* values) {
    ExpectInPlace<Sample>(
        name, {4},
        [&](Sample* image, int step, IppiSize size) { return set(values, image, step, size); },
        [&](Sample* pixel) {
            for (int c = 0; c < 4; ++c) pixel[c] = values[c];
        });
    IppiSize one{1, 1};
    Sample pixel[4] = {};
    EXPECT_EQ(set(nullptr, pixel, 16, one), kStatusNullPointer);
    EXPECT_EQ(set(values, nullptr, 16, one), kStatusNullPointer);
    EXPECT_EQ(set(values, pixel, 4 * sizeof(Sample) - 1, one), kStatusStepError);
}

TEST(Set, Channels) {
    ExpectChannelSet<std::uint8_t>("8u_C1", 1, ippiSet_8u_C1R, 77);
    ExpectChannelSet<std::uint8_t>("8u_C4C", 4, ippiSet_8u_C4CR, 77);
    ExpectChannelSet<float>("32f_C1", 1, ippiSet_32f_C1R, 0.7f);
    ExpectChannelSet<float>("32f_C4C", 4, ippiSet_32f_C4CR, 0.7f);
}

TEST(Set, Pixels) {
    ExpectPixelSet<std::uint8_t>("8u_C4", ippiSet_8u_C4R, kBytes);
    ExpectPixelSet<float>("32f_C4", ippiSet_32f_C4R, kFloats);
}

}  // namespace
}  // namespace brushworks
