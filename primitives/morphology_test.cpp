// The dilations against a walk over the mask, in every variant.
#include "primitives/morphology.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <random>
#include <vector>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::GuardedImage;

struct Mask {
    IppiSize size;
    IppiPoint anchor;
    std::vector<std::uint8_t> bytes;
    bool Holds(int x, int y) const { return bytes[std::size_t(y) * size.width + x] != 0; }
};

Mask Full(IppiSize size, IppiPoint anchor) {
    return {size, anchor, std::vector<std::uint8_t>(std::size_t(size.width) * size.height, 1)};
}
Mask Holed(IppiSize size, IppiPoint anchor, unsigned percent) {
    Mask mask = Full(size, anchor);
    std::minstd_rand engine(percent);
    for (auto& byte : mask.bytes) byte = engine() % 100 < percent ? 0 : 255;
    mask.bytes[mask.bytes.size() / 2] = 7;
    return mask;
}
Mask Ellipse(IppiSize size) {
    Mask mask = Full(size, {size.width / 2, size.height / 2});
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            const double across = (2.0 * x + 1) / size.width - 1,
                         down = (2.0 * y + 1) / size.height - 1;
            mask.bytes[std::size_t(y) * size.width + x] = across * across + down * down <= 1;
        }
    return mask;
}

struct FreeState {
    void operator()(IppiMorphologyState* state) const { ippiMorphologyFree(state); }
};
using State = std::unique_ptr<IppiMorphologyState, FreeState>;

template <class Sample, int Channels>
struct Form;
#define FORM(Sample_, channels, name)                                                        \
    template <>                                                                              \
    struct Form<Sample_, channels> {                                                         \
        using Sample = Sample_;                                                              \
        static constexpr int kChannels = channels;                                           \
        static constexpr auto dilate = ippiDilateBorderReplicate_##name;                     \
        static State Make(int rowWidth, const Mask& mask) {                                  \
            IppiMorphologyState* state;                                                      \
            EXPECT_EQ(ippiMorphologyInitAlloc_##name(rowWidth, mask.bytes.data(), mask.size, \
                                                     mask.anchor, &state),                   \
                      kStatusOk);                                                            \
            return State(state);                                                             \
        }                                                                                    \
    };
FORM(std::uint8_t, 1, 8u_C1R)
FORM(std::uint8_t, 4, 8u_C4R)
FORM(float, 1, 32f_C1R)
FORM(float, 4, 32f_C4R)
#undef FORM

template <class FormOfTest>
class Morphology : public ::testing::Test {};
using Forms =
    ::testing::Types<Form<std::uint8_t, 1>, Form<std::uint8_t, 4>, Form<float, 1>, Form<float, 4>>;
TYPED_TEST_SUITE(Morphology, Forms);

/// What a sample counts as.
std::uint8_t Counted(std::uint8_t sample) {
    return sample;
}
float Counted(float sample) {
    return std::isnan(sample) ? -std::numeric_limits<float>::infinity() : sample == 0 ? 0 : sample;
}

template <class Sample>
Sample Largest(const GuardedImage<Sample>& src, const Mask& mask, int x, int y, int c) {
    std::vector<Sample> under;
    for (int j = 0; j < mask.size.height; ++j)
        for (int i = 0; i < mask.size.width; ++i)
            if (mask.Holds(i, j))
                under.push_back(Counted(
                    src.at(std::clamp(x + i - mask.anchor.x, 0, src.size().width - 1),
                           std::clamp(y + j - mask.anchor.y, 0, src.size().height - 1), c)));
    return *std::max_element(under.begin(), under.end());
}

template <class Form>
void ExpectDilation(const GuardedImage<typename Form::Sample>& src, const Mask& mask,
                    int rowWidth) {
    using Image = GuardedImage<typename Form::Sample>;
    const IppiSize size = src.size();
    SCOPED_TRACE(::testing::Message()
                 << size.width << " x " << size.height << ", mask " << mask.size.width << " x "
                 << mask.size.height << " at " << mask.anchor.x << ", " << mask.anchor.y);
    Image before(size, Form::kChannels, 8);
    before.Randomize(2);
    Image expected(before);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < Form::kChannels; ++c)
                expected.at(x, y, c) = Largest(src, mask, x, y, c);
    const State state = Form::Make(rowWidth, mask);
    testing::ForEachVariant([&](Variant) {
        Image dst(before);
        ASSERT_EQ(Form::dilate(src.data(), src.step(), dst.data(), dst.step(), size,
                               kBorderReplicate, state.get()),
                  kStatusOk);
        EXPECT_TRUE(dst == expected);
    });
}

template <class Form>
void ExpectDilation(IppiSize size, const Mask& mask) {
    GuardedImage<typename Form::Sample> src(size, Form::kChannels, 12);
    src.Randomize(1);
    ExpectDilation<Form>(src, mask, size.width);
}

TYPED_TEST(Morphology, TakesTheLargestUnderTheMask) {
    for (const IppiSize size : testing::kEdgeSizes) {
        ExpectDilation<TypeParam>(size, Full({1, 1}, {0, 0}));
        ExpectDilation<TypeParam>(size, Full({3, 3}, {1, 1}));
        ExpectDilation<TypeParam>(size, Full({2, 4}, {0, 3}));
        ExpectDilation<TypeParam>(size, Holed({7, 5}, {6, 0}, 40));
        ExpectDilation<TypeParam>(size, Ellipse({9, 7}));
    }
}

TYPED_TEST(Morphology, TakesMasksOfAnyShapeAndSize) {
    const Mask masks[] = {Ellipse({31, 31}),           Ellipse({64, 5}),
                          Full({1, 90}, {0, 45}),      Full({150, 1}, {149, 0}),
                          Full({90, 70}, {0, 69}),     Holed({40, 33}, {20, 16}, 3),
                          Holed({33, 40}, {0, 0}, 50), Holed({50, 21}, {49, 20}, 98)};
    for (const Mask& mask : masks)
        for (const IppiSize size : {IppiSize{1, 1}, {5, 4}, {61, 23}})
            ExpectDilation<TypeParam>(size, mask);
}

TYPED_TEST(Morphology, TakesPicturesWiderThanItsStrips) {
    ExpectDilation<TypeParam>({2500, 5}, Ellipse({13, 5}));
    ExpectDilation<TypeParam>({2500, 5}, Ellipse({5, 5}));
    ExpectDilation<TypeParam>({1100, 3}, Full({2301, 1}, {700, 0}));
}

// The state may serve smaller images than it was made for.
TYPED_TEST(Morphology, TakesImagesBelowTheRowWidth) {
    GuardedImage<typename TypeParam::Sample> src({19, 6}, TypeParam::kChannels, 0);
    src.Randomize(3);
    ExpectDilation<TypeParam>(src, Ellipse({25, 9}), 1000);
}

TYPED_TEST(Morphology, MovesByASingleByteAndKeepsAConstant) {
    using Image = GuardedImage<typename TypeParam::Sample>;
    const IppiSize size{70, 20};
    Image src(size, TypeParam::kChannels), flat(src);
    src.Randomize(1);
    for (int y = 0; y < size.height; ++y)
        std::fill_n(flat.row(y), size.width * TypeParam::kChannels, typename TypeParam::Sample(9));
    Mask one = Full({11, 7}, {5, 2});
    std::fill(one.bytes.begin(), one.bytes.end(), std::uint8_t{0});
    one.bytes[6 * 11 + 8] = 1;  // 3 to the right, 4 down
    const State shift = TypeParam::Make(size.width, one);
    const State disc = TypeParam::Make(size.width, Ellipse({21, 21}));
    testing::ForEachVariant([&](Variant) {
        Image dst(size, TypeParam::kChannels);
        const auto dilate = [&](const Image& from, const State& state) {
            return TypeParam::dilate(from.data(), from.step(), dst.data(), dst.step(), size,
                                     kBorderReplicate, state.get());
        };
        ASSERT_EQ(dilate(src, shift), kStatusOk);
        for (int y = 0; y < size.height - 4; ++y)
            for (int x = 0; x < size.width - 3; ++x)
                ASSERT_EQ(dst.at(x, y), src.at(x + 3, y + 4)) << x << ", " << y;
        ASSERT_EQ(dilate(flat, disc), kStatusOk);
        EXPECT_TRUE(dst == flat);
    });
}

TEST(MorphologyOfFloats, HasItsRuleForWhatIsNoNumber) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const float odd[] = {std::nanf(""), -std::nanf("1"), -kInfinity, kInfinity, -0.0f,
                         0.0f,          1e-42f,          -3.0f};
    GuardedImage<float> src({67, 5}, 1);
    std::minstd_rand engine(1);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 67; ++x) src.at(x, y) = odd[engine() % 8 & (x < 40 ? 7 : 5)];
    for (const Mask& mask :
         {Full({1, 1}, {0, 0}), Full({2, 1}, {1, 0}), Ellipse({5, 3}), Ellipse({9, 7})})
        ExpectDilation<Form<float, 1>>(src, mask, 67);
}

TEST(MorphologyStatuses, OfTheState) {
    const std::uint8_t ones[9] = {1, 1, 1, 1, 1, 1, 1, 1, 1}, zeros[9] = {};
    for (const auto make : {ippiMorphologyInitAlloc_8u_C1R, ippiMorphologyInitAlloc_8u_C4R,
                            ippiMorphologyInitAlloc_32f_C1R, ippiMorphologyInitAlloc_32f_C4R}) {
        int anything;
        const auto expect = [&](int status, int width, const std::uint8_t* mask, IppiSize size,
                                IppiPoint anchor) {
            auto* state = reinterpret_cast<IppiMorphologyState*>(&anything);
            EXPECT_EQ(make(width, mask, size, anchor, &state), status);
            EXPECT_EQ(state, nullptr);
        };
        EXPECT_EQ(make(4, ones, {3, 3}, {1, 1}, nullptr), kStatusNullPointer);
        expect(kStatusNullPointer, 0, nullptr, {0, 0}, {0, 0});
        expect(kStatusSizeError, 0, ones, {3, 3}, {1, 1});
        expect(kStatusSizeError, 4, ones, {0, 3}, {1, 1});
        expect(kStatusSizeError, 4, ones, {3, 0}, {1, 1});
        for (const IppiPoint outside : {IppiPoint{-1, 0}, {0, -1}, {3, 0}, {0, 3}})
            expect(kStatusBadArgument, 4, ones, {3, 3}, outside);
        expect(kStatusBadArgument, 4, zeros, {3, 3}, {1, 1});
    }
    ippiMorphologyFree(nullptr);
}

TYPED_TEST(Morphology, Statuses) {
    using Sample = typename TypeParam::Sample;
    const int step = 4 * TypeParam::kChannels * int{sizeof(Sample)};
    const Mask mask = Full({3, 3}, {1, 1});
    const State state = TypeParam::Make(4, mask), narrow = TypeParam::Make(3, mask);
    const State others[] = {Form<std::uint8_t, 1>::Make(4, mask),
                            Form<std::uint8_t, 4>::Make(4, mask), Form<float, 1>::Make(4, mask),
                            Form<float, 4>::Make(4, mask)};
    const std::vector<Sample> src(64, Sample(5));
    std::vector<Sample> dst(64, Sample(7));
    const auto call = [&](const State& with, IppiSize size, int srcSlack = 0, int dstSlack = 0,
                          int border = kBorderReplicate) {
        return TypeParam::dilate(src.data(), step + srcSlack, dst.data(), step + dstSlack, size,
                                 border, with.get());
    };
    EXPECT_EQ(TypeParam::dilate(nullptr, 0, dst.data(), 0, {0, 0}, 0, state.get()),
              kStatusNullPointer);
    EXPECT_EQ(TypeParam::dilate(src.data(), 0, nullptr, 0, {0, 0}, 0, state.get()),
              kStatusNullPointer);
    EXPECT_EQ(call(State(), {0, 0}, -99, -99, 0), kStatusNullPointer);
    EXPECT_EQ(call(narrow, {4, 0}, -99, -99, 0), kStatusSizeError);
    EXPECT_EQ(call(narrow, {4, 4}, -1, 0, 0), kStatusStepError);
    EXPECT_EQ(call(narrow, {4, 4}, 0, -1, 0), kStatusStepError);
    EXPECT_EQ(call(state, {4, 4}, 0, 0, 0), kStatusBadArgument);
    EXPECT_EQ(call(narrow, {4, 4}), kStatusBadArgument);
    EXPECT_EQ(dst, std::vector<Sample>(64, Sample(7)));
    int refused = 0;
    for (const State& other : others)
        if (call(other, {1, 1}) == kStatusBadArgument) ++refused;
    EXPECT_EQ(refused, 3) << "states of other types and layouts";
}

}  // namespace
}  // namespace brushworks
