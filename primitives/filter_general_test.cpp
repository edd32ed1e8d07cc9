// The general filters against the plain sum of products, in every variant.
#include "primitives/filter_general.h"

#include <climits>
#include <cmath>
#include <vector>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;

struct Kernel {
    IppiSize size;
    IppiPoint anchor;
    std::vector<float> weights;
};

/// A random kernel: no product of a column and a row.
Kernel RandomKernel(IppiSize size, IppiPoint anchor) {
    Kernel kernel{size, anchor, {}};
    std::mt19937 engine(7);
    const float scale = 2.0f / static_cast<float>(size.width * size.height);
    for (int i = 0; i < size.width * size.height; ++i)
        kernel.weights.push_back(std::uniform_real_distribution<float>(-scale / 2, scale)(engine));
    return kernel;
}

/// The product of a lopsided column and row.
Kernel ProductKernel(IppiSize size, IppiPoint anchor) {
    Kernel kernel{size, anchor, {}};
    const float scale = 2.0f / static_cast<float>(size.width * size.height);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            kernel.weights.push_back(
                scale * std::exp(-0.01f * static_cast<float>(y)) *
                (1.0f - static_cast<float>(x) / static_cast<float>(size.width)));
    return kernel;
}

template <class Sample>
struct Member {
    using Function = int(const Sample*, int, Sample*, int, IppiSize, const float*, IppiSize,
                         IppiPoint);
    Function* filter;
    int channels;
};
constexpr Member<std::uint8_t> kBytes[] = {
    {ippiFilter32f_8u_C1R, 1}, {ippiFilter32f_8u_C3R, 3}, {ippiFilter32f_8u_C4R, 4}};
constexpr Member<float> kFloats[] = {{ippiFilter_32f_C4R, 4}};

/// The sum for a sample, in the order and the precision asked for.
template <class Sum, class Sample>
Sum SumAt(const GuardedImage<Sample>& src, const Kernel& kernel, int x, int y, int c) {
    Sum sum = 0;
    for (int j = 0; j < kernel.size.height; ++j)
        for (int i = 0; i < kernel.size.width; ++i) {
            const int last = kernel.size.width * kernel.size.height - 1;
            sum += static_cast<Sum>(
                       kernel.weights[static_cast<std::size_t>(last - j * kernel.size.width - i)]) *
                   static_cast<Sum>(src.at(x + i, y + j, c));
        }
    return sum;
}

template <class Sample>
GuardedImage<Sample> Source(IppiSize size, const Kernel& kernel, int channels) {
    const IppiSize wide{size.width + kernel.size.width - 1, size.height + kernel.size.height - 1};
    return GuardedImage<Sample>(wide, channels).Randomize(1);
}

template <class Sample>
GuardedImage<Sample> Filtered(const Member<Sample>& member, IppiSize size,
                              GuardedImage<Sample>& src, const Kernel& kernel) {
    GuardedImage<Sample> dst(size, member.channels, 20);
    const Sample* first =
        &src.at(kernel.size.width - 1 - kernel.anchor.x, kernel.size.height - 1 - kernel.anchor.y);
    EXPECT_EQ(member.filter(first, src.step(), dst.data(), dst.step(), size, kernel.weights.data(),
                            kernel.size, kernel.anchor),
              kStatusOk);
    EXPECT_TRUE(dst.GuardsIntact());
    return dst;
}

std::uint8_t R8(float v) {
    return static_cast<std::uint8_t>(v <= 0 ? 0 : v >= 255 ? 255 : std::nearbyint(v));
}

/// The direct sum, bit for bit.
template <class Sample>
void ExpectDirectSum(const Member<Sample>& member, IppiSize size, const Kernel& kernel) {
    auto src = Source<Sample>(size, kernel, member.channels);
    const auto dst = Filtered(member, size, src, kernel);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < member.channels; ++c) {
                const auto sum = SumAt<float>(src, kernel, x, y, c);
                if constexpr (sizeof(Sample) == 1)
                    ASSERT_EQ(dst.at(x, y, c), R8(sum)) << x << ", " << y << ", " << c;
                else
                    ASSERT_EQ(dst.at(x, y, c), sum) << x << ", " << y << ", " << c;
            }
}

constexpr IppiSize kSizes[] = {{1, 1}, {2, 5}, {16, 3}, {17, 4}, {65, 9}};

TEST(FilterGeneral, IsTheSumOfProductsInOrder) {
    ForEachVariant([](Variant) {
        for (const IppiSize size : kSizes)
            for (const Kernel& kernel :
                 {RandomKernel({1, 1}, {0, 0}), RandomKernel({3, 3}, {1, 1}),
                  RandomKernel({5, 4}, {0, 3}), RandomKernel({1, 6}, {0, 2}),
                  RandomKernel({9, 2}, {8, 0}), RandomKernel({17, 17}, {8, 8}),
                  ProductKernel({3, 3}, {1, 1})}) {
                SCOPED_TRACE(kernel.size.width);
                for (const auto& member : kBytes) ExpectDirectSum(member, size, kernel);
                for (const auto& member : kFloats) ExpectDirectSum(member, size, kernel);
            }
        ExpectDirectSum(kBytes[2], {2111, 3}, RandomKernel({3, 3}, {0, 2}));
        ExpectDirectSum(kFloats[0], {2111, 3}, RandomKernel({3, 5}, {2, 0}));
    });
}

/// Every anchor moves what is read, not what is summed.
TEST(FilterGeneral, AllAnchors) {
    ForEachVariant([](Variant) {
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 4; ++x)
                ExpectDirectSum(kBytes[0], {9, 5}, RandomKernel({4, 3}, {x, y}));
    });
}

/// Products of a column and a row lie within float rounding of the exact sum, and all variants
/// agree on the bytes.
template <class Sample>
void ExpectCloseToExact(const Member<Sample>& member, IppiSize size, const Kernel& kernel) {
    auto src = Source<Sample>(size, kernel, member.channels);
    SelectVariant(Variant::mx);
    const auto first = Filtered(member, size, src, kernel);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < member.channels; ++c) {
                const double exact = SumAt<double>(src, kernel, x, y, c);
                if constexpr (sizeof(Sample) == 1)
                    ASSERT_NEAR(first.at(x, y, c), std::min(exact, 255.0), 0.501);
                else
                    ASSERT_NEAR(first.at(x, y, c), exact, 4e-6);
            }
    ForEachVariant([&](Variant) { ASSERT_TRUE(Filtered(member, size, src, kernel) == first); });
}

TEST(FilterGeneral, ProductsOfAColumnAndARow) {
    for (const IppiSize size : kSizes)
        for (const Kernel& kernel : {ProductKernel({5, 5}, {2, 2}), ProductKernel({7, 6}, {0, 5}),
                                     ProductKernel({17, 43}, {8, 21})}) {
            for (const auto& member : kBytes) ExpectCloseToExact(member, size, kernel);
            for (const auto& member : kFloats) ExpectCloseToExact(member, size, kernel);
        }
    ExpectCloseToExact(kBytes[2], {401, 3}, ProductKernel({17, 43}, {8, 21}));
}

/// One element that breaks the product is seen, wherever it lies: the sums are the direct ones.
TEST(FilterGeneral, AlmostAProductIsNone) {
    Kernel kernel = ProductKernel({6, 5}, {3, 2});
    for (const std::size_t at : {0, 13, 29}) {
        Kernel broken = kernel;
        broken.weights[at] *= 1.00001f;
        ForEachVariant([&](Variant) { ExpectDirectSum(kFloats[0], {37, 4}, broken); });
    }
}

TEST(FilterGeneral, AConstantPictureStaysConstant) {
    ForEachVariant([](Variant) {
        for (const IppiSize size : {IppiSize{3, 3}, IppiSize{9, 9}}) {
            const Kernel mean{
                size,
                {1, 1},
                std::vector<float>(static_cast<std::size_t>(size.width * size.height),
                                   1.0f / static_cast<float>(size.width * size.height))};
            auto src = Source<std::uint8_t>({21, 5}, mean, 1);
            for (int y = 0; y < src.size().height; ++y)
                std::memset(src.row(y), 201, static_cast<std::size_t>(src.size().width));
            const auto dst = Filtered(kBytes[0], {21, 5}, src, mean);
            for (int y = 0; y < 5; ++y)
                for (int x = 0; x < 21; ++x) ASSERT_EQ(dst.at(x, y), 201);
        }
    });
}

/// Ties go to the even number, whatever is too large or no number at all to an end of the range.
TEST(FilterGeneral, RoundsAndCuts) {
    ForEachVariant([](Variant) {
        const std::uint8_t src[6] = {1, 3, 5, 200, 0, 7};
        const auto filtered = [&](float weight) {
            std::vector<int> out(6);
            std::uint8_t dst[6] = {};
            EXPECT_EQ(ippiFilter32f_8u_C1R(src, 6, dst, 6, {6, 1}, &weight, {1, 1}, {0, 0}),
                      kStatusOk);
            for (int i = 0; i < 6; ++i) out[static_cast<std::size_t>(i)] = dst[i];
            return out;
        };
        EXPECT_EQ(filtered(0.5f), (std::vector<int>{0, 2, 2, 100, 0, 4}));
        EXPECT_EQ(filtered(2.0f), (std::vector<int>{2, 6, 10, 255, 0, 14}));
        EXPECT_EQ(filtered(-1.0f), (std::vector<int>{0, 0, 0, 0, 0, 0}));
        EXPECT_EQ(filtered(NAN), (std::vector<int>{0, 0, 0, 0, 0, 0}));
        EXPECT_EQ(filtered(INFINITY), (std::vector<int>{255, 255, 255, 255, 0, 255}));
    });
}

TEST(FilterGeneral, Statuses) {
    std::uint8_t src[64] = {}, dst[16] = {7};
    const float kernel[4] = {1, 1, 1, 1};
    const auto call = [&](int srcStep, int dstStep, IppiSize size, IppiSize kernelSize,
                          IppiPoint anchor) {
        return ippiFilter32f_8u_C4R(src + 32, srcStep, dst, dstStep, size, kernel, kernelSize,
                                    anchor);
    };
    EXPECT_EQ(ippiFilter32f_8u_C4R(src, 0, dst, 0, {0, 0}, nullptr, {0, 0}, {-1, 0}),
              kStatusNullPointer);
    EXPECT_EQ(call(0, 0, {1, 0}, {2, 2}, {2, 0}), kStatusSizeError);
    EXPECT_EQ(call(0, 0, {1, 1}, {0, 2}, {2, 0}), kStatusSizeError);
    EXPECT_EQ(call(0, 0, {1, 1}, {2, -1}, {2, 0}), kStatusSizeError);
    EXPECT_EQ(call(7, 8, {2, 1}, {2, 2}, {2, 0}), kStatusStepError);
    EXPECT_EQ(call(8, 7, {2, 1}, {2, 2}, {2, 0}), kStatusStepError);
    for (const IppiPoint anchor : {IppiPoint{2, 0}, {0, 2}, {-1, 0}, {0, -1}})
        EXPECT_EQ(call(16, 8, {2, 1}, {2, 2}, anchor), kStatusBadArgument);
    EXPECT_EQ(dst[0], 7);
}

}  // namespace
}  // namespace brushworks
