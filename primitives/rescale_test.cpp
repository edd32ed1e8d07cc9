// Bytes and floats of 0 to 1, in every variant.
#include "primitives/rescale.h"

#include <cmath>
#include <limits>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ExpectPerPixel;
using testing::Layout;

std::uint8_t Byte(float x) {
    if (!(x > 0)) return 0;
    return x >= 1 ? std::uint8_t{255} : static_cast<std::uint8_t>(x * 255.0f + 0.5f);
}

TEST(Rescale, MatchesTheFormulas) {
    const Layout four{4};
    ExpectPerPixel<float, std::uint8_t>("from bytes", four, four, UnitFromBytes_C4R,
                                        [](const std::uint8_t* from, float* to) {
                                            for (int i = 0; i < 4; ++i)
                                                to[i] = from[i] * 0.003921569f;
                                        });
    ExpectPerPixel<float, std::uint8_t>("from bytes, reversed", four, four,
                                        UnitFromBytesReversed_C4R,
                                        [](const std::uint8_t* from, float* to) {
                                            for (int i = 0; i < 4; ++i)
                                                to[i] = from[3 - i] * 0.003921569f;
                                        });
    ExpectPerPixel<std::uint8_t, float>("from floats", four, four, BytesFromUnit_C4R,
                                        [](const float* from, std::uint8_t* to) {
                                            for (int i = 0; i < 4; ++i) to[i] = Byte(from[i]);
                                        });
    ExpectPerPixel<std::uint8_t, float>("from floats, reversed", four, four,
                                        BytesFromUnitReversed_C4R,
                                        [](const float* from, std::uint8_t* to) {
                                            for (int i = 0; i < 4; ++i) to[i] = Byte(from[3 - i]);
                                        });
}

TEST(Rescale, ThereAndBackIsExactAndWildFloatsAreCut) {
    testing::ForEachVariant([](Variant) {
        std::uint8_t bytes[256], back[256];
        float floats[256];
        for (int i = 0; i < 256; ++i) bytes[i] = static_cast<std::uint8_t>(i);
        ASSERT_EQ(UnitFromBytes_C4R(bytes, 256, floats, 1024, {64, 1}), kStatusOk);
        ASSERT_EQ(BytesFromUnit_C4R(floats, 1024, back, 256, {64, 1}), kStatusOk);
        EXPECT_EQ(std::memcmp(bytes, back, 256), 0);

        constexpr float kInfinity = std::numeric_limits<float>::infinity();
        const float wild[8] = {std::nanf(""), kInfinity, -kInfinity, 3e38f, -0.0f, -1e-30f, 1, 2};
        const std::uint8_t cut[8] = {0, 255, 0, 255, 0, 0, 255, 255};
        ASSERT_EQ(BytesFromUnit_C4R(wild, 32, back, 8, {2, 1}), kStatusOk);
        EXPECT_EQ(std::memcmp(back, cut, 8), 0);
    });
}

}  // namespace
}  // namespace brushworks
