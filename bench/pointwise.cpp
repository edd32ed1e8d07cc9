// The pointwise primitives, one row each.
#include "bench/operations.h"
#include "primitives/alpha.h"
#include "primitives/arithmetic.h"
#include "primitives/arithmetic_float.h"
#include "primitives/border.h"
#include "primitives/convert.h"
#include "primitives/copy.h"
#include "primitives/search.h"
#include "primitives/set.h"
#include "primitives/swap.h"
#include "primitives/threshold.h"

namespace brushworks::bench {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;

template <class Sample, int Channels>
constexpr int kPixelBytes = Channels* int{sizeof(Sample)};

/// From one image to another: source, destination, size, further arguments.
template <class From, int FromChannels, class To, int ToChannels, class Call, class... Further>
Operation ToImage(const char* name, Call call, Further... further) {
    return {name, kPixelBytes<From, FromChannels> + kPixelBytes<To, ToChannels>, [=] {
                return call(Images<From>::Get().a.data(), kStep<From, FromChannels>,
                            Images<To>::Get().dst.data(), kStep<To, ToChannels>, kFrame,
                            further...);
            }};
}

/// In place: image, size, further arguments.
template <class Sample, int Channels, class Call, class... Further>
Operation InPlace(const char* name, Call call, Further... further) {
    return {name, 2 * kPixelBytes<Sample, Channels>, [=] {
                return call(Images<Sample>::Get().dst.data(), kStep<Sample, Channels>, kFrame,
                            further...);
            }};
}

/// In place with a second operand: operand, image, size, further arguments.
template <class Sample, int Channels, class Call, class... Further>
Operation OntoImage(const char* name, Call call, Further... further) {
    return {name, 3 * kPixelBytes<Sample, Channels>,
            ToImage<Sample, Channels, Sample, Channels>(name, call, further...).run};
}

/// In place with constants first.
template <class Sample, int Channels, class Call, class Constants>
Operation ByConstants(const char* name, Call call, Constants constants, int images = 2) {
    return {name, images * kPixelBytes<Sample, Channels>, [=] {
                return call(constants, Images<Sample>::Get().dst.data(), kStep<Sample, Channels>,
                            kFrame);
            }};
}

/// From one image to another with constants first.
template <class Sample, int Channels, class Call>
Operation ByConstantsTo(const char* name, Call call, const Sample* constants) {
    return {name, 2 * kPixelBytes<Sample, Channels>, [=] {
                return call(constants, Images<Sample>::Get().a.data(), kStep<Sample, Channels>,
                            Images<Sample>::Get().dst.data(), kStep<Sample, Channels>, kFrame);
            }};
}

template <class Call>
Operation Composite(const char* name, Call call, int operation) {
    return {name, 12, [=] {
                auto& images = Images<u8>::Get();
                return call(images.a.data(), kStep<u8, 4>, images.b.data(), kStep<u8, 4>,
                            images.dst.data(), kStep<u8, 4>, kFrame, operation);
            }};
}

/// Around a frame that is smaller by the border, so that the destination has the common size.
template <int Channels, class Call>
Operation Widen(const char* name, Call call) {
    return {name, 2 * Channels, [=] {
                constexpr int kBorder = 8;
                const IppiSize inner{kFrame.width - 2 * kBorder, kFrame.height - 2 * kBorder};
                return call(Images<u8>::Get().a.data(), kStep<u8, Channels>, inner,
                            Images<u8>::Get().dst.data(), kStep<u8, Channels>, kFrame, kBorder,
                            kBorder);
            }};
}

int FindLargest() {
    static const std::vector<std::int32_t> vector(Images<u8>::Get().a.begin(),
                                                  Images<u8>::Get().a.end());
    std::int32_t largest;
    int index;
    return ippsMaxIndx_32s(vector.data(), kFrame.width * kFrame.height, &largest, &index);
}

constexpr u8 kBytes[4] = {200, 100, 50, 255};
constexpr u16 kWords[3] = {120, 130, 128};
constexpr float kOnes[4] = {1.0f, 1.0f, 1.0f, 1.0f};
constexpr float kHalves[4] = {0.5f, 0.5f, 0.5f, 0.5f};
constexpr float kZeros[4] = {};
constexpr int kOrder[4] = {2, 1, 0, 3};

}  // namespace

std::vector<Operation> Pointwise() {
    return {
        ToImage<u8, 1, u8, 1>("ippiCopy_8u_C1R", ippiCopy_8u_C1R),
        ToImage<u8, 4, u8, 4>("ippiCopy_8u_C4R", ippiCopy_8u_C4R),
        ToImage<float, 1, float, 1>("ippiCopy_32f_C1R", ippiCopy_32f_C1R),
        ToImage<float, 4, float, 4>("ippiCopy_32f_C4R", ippiCopy_32f_C4R),
        ToImage<u8, 1, u8, 3>("ippiCopy_8u_C1C3R", ippiCopy_8u_C1C3R),
        ToImage<u8, 1, u8, 4>("ippiCopy_8u_C1C4R", ippiCopy_8u_C1C4R),
        ToImage<u8, 4, u8, 1>("ippiCopy_8u_C4C1R", ippiCopy_8u_C4C1R),
        ToImage<u8, 4, u8, 4>("ippiCopy_8u_C4CR", ippiCopy_8u_C4CR),
        ToImage<u8, 4, u8, 3>("ippiCopy_8u_AC4C3R", ippiCopy_8u_AC4C3R),
        ToImage<u8, 3, u8, 4>("ippiCopy_8u_C3AC4R", ippiCopy_8u_C3AC4R),
        ToImage<float, 1, float, 4>("ippiCopy_32f_C1C4R", ippiCopy_32f_C1C4R),
        ToImage<float, 4, float, 1>("ippiCopy_32f_C4C1R", ippiCopy_32f_C4C1R),
        ToImage<float, 4, float, 4>("ippiCopy_32f_C4CR", ippiCopy_32f_C4CR),
        ByConstants<u8, 1>("ippiSet_8u_C1R", ippiSet_8u_C1R, u8{7}, 1),
        ByConstants<u8, 4>("ippiSet_8u_C4R", ippiSet_8u_C4R, kBytes, 1),
        ByConstants<u8, 4>("ippiSet_8u_C4CR", ippiSet_8u_C4CR, u8{7}),
        ByConstants<float, 1>("ippiSet_32f_C1R", ippiSet_32f_C1R, 0.5f, 1),
        ByConstants<float, 4>("ippiSet_32f_C4R", ippiSet_32f_C4R, kHalves, 1),
        ByConstants<float, 4>("ippiSet_32f_C4CR", ippiSet_32f_C4CR, 0.5f),
        InPlace<u8, 4>("ippiSwapChannels_8u_C4IR", ippiSwapChannels_8u_C4IR, kOrder),
        OntoImage<u8, 1>("ippiAdd_8u_C1IRSfs", ippiAdd_8u_C1IRSfs, 0),
        OntoImage<u8, 4>("ippiAdd_8u_C4IRSfs", ippiAdd_8u_C4IRSfs, 0),
        OntoImage<u8, 4>("ippiAdd_8u_C4IRSfs, halved", ippiAdd_8u_C4IRSfs, 1),
        ByConstants<u8, 1>("ippiMulCScale_8u_C1IR", ippiMulCScale_8u_C1IR, u8{200}),
        ByConstants<u8, 4>("ippiMulCScale_8u_C4IR", ippiMulCScale_8u_C4IR, kBytes),
        {"ippiMulC_16u_AC4IRSfs", 16,
         [] {
             return ippiMulC_16u_AC4IRSfs(kWords, Images<u16>::Get().dst.data(), kStep<u16, 4>,
                                          kFrame, 7);
         }},
        InPlace<u8, 1>("ippiNot_8u_C1IR", ippiNot_8u_C1IR),
        OntoImage<float, 1>("ippiAdd_32f_C1IR", ippiAdd_32f_C1IR),
        OntoImage<float, 4>("ippiAdd_32f_C4IR", ippiAdd_32f_C4IR),
        ByConstants<float, 1>("ippiMulC_32f_C1IR", ippiMulC_32f_C1IR, 1.0f),
        ByConstants<float, 4>("ippiMulC_32f_C4IR", ippiMulC_32f_C4IR, kOnes),
        ByConstants<float, 4>("ippiMulC_32f_AC4IR", ippiMulC_32f_AC4IR, kOnes),
        ByConstantsTo<float, 4>("ippiMulC_32f_AC4R", ippiMulC_32f_AC4R, kOnes),
        ByConstants<float, 4>("ippiAddC_32f_AC4IR", ippiAddC_32f_AC4IR, kZeros),
        ByConstantsTo<float, 4>("ippiAddC_32f_AC4R", ippiAddC_32f_AC4R, kZeros),
        InPlace<float, 4>("ippiSqr_32f_C4IR", ippiSqr_32f_C4IR),
        InPlace<float, 4>("ippiSqrt_32f_C4IR", ippiSqrt_32f_C4IR),
        InPlace<float, 4>("ippiThreshold_LTVal_32f_C4IR", ippiThreshold_LTVal_32f_C4IR, kHalves,
                          kHalves),
        ToImage<u8, 4, u8, 4>("ippiAlphaPremul_8u_AC4R", ippiAlphaPremul_8u_AC4R),
        Composite("ippiAlphaComp_8u_AC4R, over", ippiAlphaComp_8u_AC4R, kAlphaOver),
        Composite("ippiAlphaComp_8u_AC4R, premultiplied", ippiAlphaComp_8u_AC4R,
                  kAlphaOverPremultiplied),
        ToImage<u8, 4, u16, 4>("ippiConvert_8u16u_C4R", ippiConvert_8u16u_C4R),
        ToImage<u16, 4, u8, 4>("ippiConvert_16u8u_C4R", ippiConvert_16u8u_C4R),
        ToImage<u16, 4, float, 4>("ippiConvert_16u32f_AC4R", ippiConvert_16u32f_AC4R),
        ToImage<float, 4, u16, 4>("ippiConvert_32f16u_AC4R, even", ippiConvert_32f16u_AC4R,
                                  kRoundNearestEven),
        ToImage<float, 4, u16, 4>("ippiConvert_32f16u_AC4R, financial", ippiConvert_32f16u_AC4R,
                                  kRoundFinancial),
        Widen<1>("ippiCopyReplicateBorder_8u_C1R", ippiCopyReplicateBorder_8u_C1R),
        Widen<3>("ippiCopyReplicateBorder_8u_C3R", ippiCopyReplicateBorder_8u_C3R),
        Widen<4>("ippiCopyReplicateBorder_8u_C4R", ippiCopyReplicateBorder_8u_C4R),
        {"ippsMaxIndx_32s", 4, FindLargest},
    };
}

}  // namespace brushworks::bench
