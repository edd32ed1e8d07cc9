// Bodies of the dilations; built once for each variant.
#include "primitives/body.h"
#include "primitives/morphology_state.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

inline int Cut(int v, int end) {
    return v < 0 ? 0 : v >= end ? end - 1 : v;
}

template <int Channels, class Sample>
int Dilate(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size, int borderType,
           const IppiMorphologyState* state) {
    if (!state) return kStatusNullPointer;
    if (const int status =
            CheckImages({Pixels<Channels>(src, srcStep), Pixels<Channels>(dst, dstStep)}, size))
        return status;
    if (borderType != kBorderReplicate || state->channels != Channels ||
        state->sampleBytes != sizeof(Sample) || state->rowWidth < size.width)
        return kStatusBadArgument;

    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < Channels; ++c) {
                Sample largest =
                    sizeof(Sample) == 1 ? Sample{} : -static_cast<Sample>(__builtin_inff());
                for (std::size_t i = 0; i < state->count; ++i) {
                    const MorphologyRun& run = state->runs[i];
                    const Sample* row = Row(src, srcStep, Cut(y + run.row, size.height));
                    for (int at = run.left; at <= run.right; ++at) {
                        const Sample sample = row[Channels * Cut(x + at, size.width) + c];
                        if (sample > largest) largest = sample;
                    }
                }
                Row(dst, dstStep, y)[Channels * x + c] = largest + Sample{};
            }
    return kStatusOk;
}

}  // namespace

int ippiDilateBorderReplicate_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst,
                                     int dstStep, IppiSize size, int borderType,
                                     const IppiMorphologyState* state) {
    return Dilate<1>(src, srcStep, dst, dstStep, size, borderType, state);
}

int ippiDilateBorderReplicate_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst,
                                     int dstStep, IppiSize size, int borderType,
                                     const IppiMorphologyState* state) {
    return Dilate<4>(src, srcStep, dst, dstStep, size, borderType, state);
}

int ippiDilateBorderReplicate_32f_C1R(const float* src, int srcStep, float* dst, int dstStep,
                                      IppiSize size, int borderType,
                                      const IppiMorphologyState* state) {
    return Dilate<1>(src, srcStep, dst, dstStep, size, borderType, state);
}

int ippiDilateBorderReplicate_32f_C4R(const float* src, int srcStep, float* dst, int dstStep,
                                      IppiSize size, int borderType,
                                      const IppiMorphologyState* state) {
    return Dilate<4>(src, srcStep, dst, dstStep, size, borderType, state);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
