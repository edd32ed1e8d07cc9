// The flood fill against a walk from pixel to pixel, in every variant.
#include "primitives/flood_fill.h"

#include <algorithm>
#include <vector>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::FencedBytes;
using testing::GuardedImage;
using Image = GuardedImage<std::uint8_t>;

constexpr std::uint8_t kNew[3] = {9, 8, 7};

/// Fills with a buffer of exactly the stated size, whose end faults.
IppiFilledRegion Fill(Image& image, IppiPoint seed) {
    int bytes = 0;
    EXPECT_EQ(ippiFloodFillGetSize(image.size(), &bytes), kStatusOk);
    FencedBytes buffer(static_cast<std::size_t>(bytes));
    IppiFilledRegion region{};
    EXPECT_EQ(ippiFloodFill_4Con_8u_C3IR(image.data(), image.step(), image.size(), seed, kNew,
                                         &region, buffer.data()),
              kStatusOk);
    return region;
}

std::vector<IppiPoint> ReferenceFill(Image& image, IppiPoint seed) {
    std::uint8_t old[3];
    std::copy_n(&image.at(seed.x, seed.y), 3, old);
    std::vector<IppiPoint> filled;
    const auto take = [&](int x, int y) {
        if (x < 0 || y < 0 || x >= image.size().width || y >= image.size().height) return;
        if (!std::equal(old, old + 3, &image.at(x, y)) || std::equal(old, old + 3, kNew)) return;
        std::copy_n(kNew, 3, &image.at(x, y));
        filled.push_back({x, y});
    };
    take(seed.x, seed.y);
    for (std::size_t i = 0; i < filled.size(); ++i) {
        const IppiPoint p = filled[i];
        take(p.x - 1, p.y);
        take(p.x + 1, p.y);
        take(p.x, p.y - 1);
        take(p.x, p.y + 1);
    }
    return filled;
}

void ExpectAsReference(Image image, IppiPoint seed) {
    Image expected(image);
    const std::vector<IppiPoint> filled = ReferenceFill(expected, seed);
    const IppiFilledRegion region = Fill(image, seed);
    ASSERT_TRUE(image == expected) << image.size().width << " x " << image.size().height;
    ASSERT_EQ(region.area, static_cast<std::int64_t>(filled.size()));
    EXPECT_TRUE(std::equal(kNew, kNew + 3, region.value));
    int left = seed.x, right = seed.x, top = seed.y, bottom = seed.y;
    for (const IppiPoint p : filled) {
        left = std::min(left, p.x);
        right = std::max(right, p.x);
        top = std::min(top, p.y);
        bottom = std::max(bottom, p.y);
    }
    EXPECT_EQ(region.rect.x, left);
    EXPECT_EQ(region.rect.y, top);
    EXPECT_EQ(region.rect.width, filled.empty() ? 0 : right - left + 1);
    EXPECT_EQ(region.rect.height, filled.empty() ? 0 : bottom - top + 1);

    const Image once(image);
    EXPECT_EQ(Fill(image, seed).area, 0) << "a second fill finds nothing";
    EXPECT_TRUE(image == once);
}

/// Paints pixels for which `isWall(x, y)` black, the others in one colour.
template <class IsWall>
Image Drawing(IppiSize size, IsWall isWall) {
    Image image(size, 3);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < 3; ++c)
                image.at(x, y, c) =
                    isWall(x, y) ? std::uint8_t{0} : static_cast<std::uint8_t>(60 + c);
    return image;
}

TEST(FloodFill, MatchesAWalkOnRandomPictures) {
    testing::ForEachVariant([](Variant) {
        std::mt19937 engine(1);
        for (const IppiSize size : testing::kEdgeSizes)
            for (const unsigned walls : {0u, 2u, 4u, 7u}) {
                auto image = Drawing(size, [&](int, int) { return engine() % 10 < walls; });
                // Islands of the new colour stand in the way.
                for (int y = 0; y < size.height; ++y)
                    for (int x = 0; x < size.width; ++x)
                        if (engine() % 16 == 0) std::copy_n(kNew, 3, &image.at(x, y));
                const IppiPoint seeds[] = {
                    {0, 0}, {size.width - 1, size.height - 1}, {size.width / 2, size.height / 2}};
                for (const IppiPoint seed : seeds) ExpectAsReference(image, seed);
            }
    });
}

// Shapes that leave many runs open at once: combs, a spiral, a meander, stripes of single pixels.
TEST(FloodFill, TheBufferSufficesForAwkwardShapes) {
    const IppiSize size = {61, 41};
    const auto comb = Drawing(size, [](int x, int y) { return x % 2 == 1 && y != 20; });
    const auto meander =
        Drawing(size, [](int x, int y) { return y % 2 == 1 && x != (y % 4 == 1 ? 60 : 0); });
    const auto grid = Drawing(size, [](int x, int y) { return x % 2 == 1 && y % 2 == 1; });
    const auto spiral = Drawing(size, [](int x, int y) {
        const int ring = std::min({x, y, 60 - x, 40 - y});
        return ring % 2 == 1 && !(x == ring && y == ring + 1);
    });
    testing::ForEachVariant([&](Variant) {
        for (const Image* image : {&comb, &meander, &grid, &spiral})
            for (const IppiPoint seed : {IppiPoint{0, 0}, IppiPoint{30, 20}, IppiPoint{60, 40}})
                ExpectAsReference(*image, seed);
    });
}

TEST(FloodFill, CornersDoNotConnect) {
    const auto board = Drawing({8, 8}, [](int x, int y) { return (x + y) % 2 == 1; });
    Image image(board);
    EXPECT_EQ(Fill(image, {2, 2}).area, 1);
}

TEST(FloodFill, Statuses) {
    std::uint8_t image[12] = {}, buffer[64];
    IppiFilledRegion region{};
    int bytes = 0;
    const auto fill = [&](int step, IppiSize size, IppiPoint seed) {
        return ippiFloodFill_4Con_8u_C3IR(image, step, size, seed, kNew, &region, buffer);
    };
    EXPECT_EQ(ippiFloodFill_4Con_8u_C3IR(image, 6, {2, 2}, {0, 0}, kNew, nullptr, buffer),
              kStatusNullPointer);
    EXPECT_EQ(fill(6, {2, 0}, {0, 0}), kStatusSizeError);
    EXPECT_EQ(fill(5, {2, 2}, {0, 0}), kStatusStepError);
    for (const IppiPoint seed : {IppiPoint{2, 0}, IppiPoint{0, 2}, IppiPoint{-1, 0}})
        EXPECT_EQ(fill(6, {2, 2}, seed), kStatusBadArgument);
    EXPECT_EQ(image[0], 0);
    EXPECT_EQ(ippiFloodFillGetSize({0, 1}, &bytes), kStatusSizeError);
    EXPECT_EQ(ippiFloodFillGetSize({100000, 100000}, &bytes), kStatusBadArgument);
}

}  // namespace
}  // namespace brushworks
