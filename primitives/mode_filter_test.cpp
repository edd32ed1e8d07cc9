// The mode filter against its law in plain loops, in every variant.
#include "primitives/mode_filter.h"

#include <vector>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;
using Image = GuardedImage<std::uint8_t>;

/// The tables of the filter, and every step of them in the told order.
class Walk {
  public:
    Walk(const Image& src, Image& dst, IppiSize mask) : m_src(src), m_dst(dst), m_mask(mask) {}

    void Run() {
        const IppiSize size = m_dst.size();
        for (int j = 0; j < m_mask.height; ++j)
            for (int i = 0; i < m_mask.width; ++i) Enter(m_base, i, j);
        Choose(m_base, 0, 0);
        for (int x = 0; x < size.width; ++x) {
            Tables running = m_base;
            for (int y = 1; y < size.height; ++y) {
                for (int i = 0; i < m_mask.width; ++i) {
                    --running.histogram[BucketAt(x + i, y - 1)];
                    Enter(running, x + i, y + m_mask.height - 1);
                }
                Choose(running, x, y);
            }
            if (x + 1 == size.width) return;
            for (int j = 0; j < m_mask.height; ++j) {
                --m_base.histogram[BucketAt(x, j)];
                Enter(m_base, x + m_mask.width, j);
            }
            Choose(m_base, x + 1, 0);
        }
    }

    /// Results whose bucket held a single pixel.
    int lonely() const { return m_lonely; }

  private:
    struct Tables {
        std::vector<int> histogram = std::vector<int>(256);
        std::vector<std::uint32_t> colour = std::vector<std::uint32_t>(256);
    };

    std::size_t BucketAt(int x, int y) const {
        const std::uint8_t* p = &m_src.at(x, y);
        return static_cast<std::size_t>((p[2] * 77 + p[1] * 150 + p[0] * 29) >> 8 & 255);
    }
    void Enter(Tables& tables, int x, int y) const {
        const std::size_t bucket = BucketAt(x, y);
        if (tables.histogram[bucket] != 0) std::memcpy(&tables.colour[bucket], &m_src.at(x, y), 4);
        ++tables.histogram[bucket];
    }
    void Choose(const Tables& tables, int x, int y) {
        std::size_t best = 0;
        for (std::size_t i = 1; i < 256; ++i)
            if (tables.histogram[i] > tables.histogram[best]) best = i;
        std::memcpy(&m_dst.at(x, y), &tables.colour[best], 4);
        m_lonely += tables.histogram[best] == 1;
    }

    const Image& m_src;
    Image& m_dst;
    const IppiSize m_mask;
    Tables m_base;
    int m_lonely = 0;
};

enum class Look {
    kNoise,
    kPicture,  ///< slopes, edges and grain
    kStripes,  ///< nearly every pixel of a mask in a bucket of its own, and some that are not
    kFlat,     ///< one bucket, but a colour of its own for each pixel
    kRows,     ///< the same for each row
};
constexpr Look kLooks[] = {Look::kNoise, Look::kPicture, Look::kStripes, Look::kFlat};

void Paint(Image& image, Look look) {
    image.Randomize(1);
    const IppiSize size = image.size();
    for (int y = 0; y < size.height && look != Look::kNoise; ++y)
        for (int x = 0; x < size.width; ++x) {
            std::uint8_t* p = &image.at(x, y);
            for (int c = 0; c < 3; ++c) {
                const int edge = (x / 17 + y / 11) % 2 * 60;
                if (look == Look::kPicture)
                    p[c] = static_cast<std::uint8_t>(edge + 2 * x + y + 10 * c + p[c] % 16);
                if (look == Look::kStripes)
                    p[c] = static_cast<std::uint8_t>(37 * x + 101 * y + (p[3] < 3 ? 37 : 0));
                if (look == Look::kFlat) p[c] = 100;
                if (look == Look::kRows) p[c] = static_cast<std::uint8_t>(91 * y);
            }
        }
}

/// Compares every variant with the walk; returns how many results came of lonely pixels.
int ExpectTheWalk(IppiSize size, IppiSize mask, Look look) {
    SCOPED_TRACE(::testing::Message()
                 << size.width << " x " << size.height << ", mask " << mask.width << " x "
                 << mask.height << ", look " << static_cast<int>(look));
    Image src({size.width + mask.width - 1, size.height + mask.height - 1}, 4);
    Paint(src, look);
    Image expected(size, 4);
    Walk walk(src, expected, mask);
    walk.Run();
    ForEachVariant([&](Variant) {
        Image dst(size, 4);
        ASSERT_EQ(
            ModeFilter_8u_C4R(src.data(), src.step(), dst.data(), dst.step(), dst.size(), mask),
            kStatusOk);
        ASSERT_TRUE(dst == expected);
    });
    return walk.lonely();
}

TEST(ModeFilter, WalksAsTold) {
    constexpr IppiSize kMasks[] = {{1, 1}, {1, 3},   {3, 1},   {3, 3},   {2, 5},   {9, 5},
                                   {5, 9}, {17, 15}, {23, 23}, {65, 33}, {200, 5}, {31, 130}};
    int lonely = 0;
    for (const IppiSize mask : kMasks)
        for (const Look look : kLooks)
            for (const IppiSize size : {IppiSize{1, 1}, {1, 40}, {40, 1}, {45, 61}})
                lonely += ExpectTheWalk(size, mask, look);
    EXPECT_GT(lonely, 10000);  // the way round counting is taken, too
}

TEST(ModeFilter, CountsMasksOfAnySize) {
    // Masks of the most pixels that each way of counting holds in any variant, and of one more;
    // then one in 32 bits, and rows as long as differences hold. A flat picture has all in one
    // bucket, and one of rows exchanges all at each step.
    for (const IppiSize mask : {IppiSize{89, 23},
                                {64, 32},
                                {91, 45},
                                {64, 64},
                                {1, 8191},
                                {8192, 1},
                                {256, 129},
                                {32767, 2},
                                {32768, 1}})
        for (const Look look : {Look::kPicture, Look::kFlat, Look::kRows})
            ExpectTheWalk({5, 7}, mask, look);
    ExpectTheWalk({2, 2}, {47, 178481}, Look::kFlat);  // the most pixels of all
}

TEST(ModeFilter, RefusesWhatIsNoImage) {
    Image src({12, 12}, 4), dst({10, 10}, 4);
    const auto filter = [&](int srcStep, IppiSize size, IppiSize mask) {
        return ModeFilter_8u_C4R(src.data(), srcStep, dst.data(), dst.step(), size, mask);
    };
    EXPECT_EQ(filter(src.step(), {10, 10}, {3, 3}), kStatusOk);
    EXPECT_EQ(filter(src.step(), {0, 10}, {3, 3}), kStatusSizeError);
    EXPECT_EQ(filter(src.step(), {10, 10}, {3, 0}), kStatusSizeError);
    EXPECT_EQ(filter(47, {10, 10}, {3, 3}), kStatusStepError);
    EXPECT_EQ(filter(src.step(), {10, INT32_MAX}, {3, 3}), kStatusBadArgument);
    EXPECT_EQ(ModeFilter_8u_C4R(nullptr, 48, dst.data(), dst.step(), {10, 10}, {3, 3}),
              kStatusNullPointer);
}

}  // namespace
}  // namespace brushworks
