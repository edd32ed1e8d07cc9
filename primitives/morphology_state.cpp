// Takes a mask apart into runs. Nothing here depends on the processor.
#include "primitives/morphology_state.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace brushworks {
namespace {

/// Calls use(run) for each run of the mask, row by row.
template <class Use>
void ForRuns(const std::uint8_t* mask, IppiSize size, IppiPoint anchor, Use use) {
    for (int y = 0; y < size.height; ++y, mask += size.width)
        for (int x = 0; x < size.width; ++x) {
            if (!mask[x]) continue;
            const int left = x;
            while (x + 1 < size.width && mask[x + 1]) ++x;
            use(MorphologyRun{left - anchor.x, x - anchor.x, y - anchor.y});
        }
}

/// Lengths first: those who build on the maxima of shorter runs walk through memory in order.
auto SortKey(const MorphologyRun& run) {
    return std::tuple(std::int64_t{run.right} - run.left, run.left, run.row);
}

/// The sorted runs. From no pixel of a row does a reach of its width end elsewhere than at the
/// edge, so that longer reaches are cut, and runs that become equal are one.
std::size_t FillRuns(const std::uint8_t* mask, IppiSize maskSize, IppiPoint anchor, int rowWidth,
                     MorphologyRun* runs) {
    MorphologyRun* end = runs;
    const int reach = rowWidth - 1;
    ForRuns(mask, maskSize, anchor, [&](MorphologyRun run) {
        *end++ = {std::clamp(run.left, -reach, reach), std::clamp(run.right, -reach, reach),
                  run.row};
    });
    std::sort(runs, end, [](auto& a, auto& b) { return SortKey(a) < SortKey(b); });
    end = std::unique(runs, end, [](auto& a, auto& b) { return SortKey(a) == SortKey(b); });
    return static_cast<std::size_t>(end - runs);
}

void Measure(IppiMorphologyState& state) {
    const MorphologyRun& first = state.runs[0];
    state.left = first.left;
    state.right = first.right;
    state.top = state.bottom = first.row;
    state.longest = 0;
    for (std::size_t i = 0; i < state.count; ++i) {
        const MorphologyRun& run = state.runs[i];
        state.left = std::min(state.left, run.left);
        state.right = std::max(state.right, run.right);
        state.top = std::min(state.top, run.row);
        state.bottom = std::max(state.bottom, run.row);
        state.longest = std::max(state.longest, run.right - run.left + 1);
    }
}

template <class Sample, int Channels>
int InitAlloc(int rowWidth, const std::uint8_t* mask, IppiSize maskSize, IppiPoint anchor,
              IppiMorphologyState** result) {
    if (!result) return kStatusNullPointer;
    *result = nullptr;
    if (!mask) return kStatusNullPointer;
    if (rowWidth < 1 || maskSize.width < 1 || maskSize.height < 1) return kStatusSizeError;
    if (anchor.x < 0 || anchor.y < 0 || anchor.x >= maskSize.width || anchor.y >= maskSize.height)
        return kStatusBadArgument;
    std::size_t count = 0;
    ForRuns(mask, maskSize, anchor, [&](const MorphologyRun&) { ++count; });
    if (count == 0) return kStatusBadArgument;

    // One block: the state, then its runs.
    auto* state = static_cast<IppiMorphologyState*>(
        std::malloc(sizeof(IppiMorphologyState) + count * sizeof(MorphologyRun)));
    if (!state) return kStatusNoMemory;
    auto* runs = reinterpret_cast<MorphologyRun*>(state + 1);
    state->sampleBytes = sizeof(Sample);
    state->channels = Channels;
    state->rowWidth = rowWidth;
    state->count = FillRuns(mask, maskSize, anchor, rowWidth, runs);
    state->runs = runs;
    Measure(*state);
    *result = state;
    return kStatusOk;
}

}  // namespace

int ippiMorphologyInitAlloc_8u_C1R(int rowWidth, const std::uint8_t* mask, IppiSize maskSize,
                                   IppiPoint anchor, IppiMorphologyState** state) {
    return InitAlloc<std::uint8_t, 1>(rowWidth, mask, maskSize, anchor, state);
}

int ippiMorphologyInitAlloc_8u_C4R(int rowWidth, const std::uint8_t* mask, IppiSize maskSize,
                                   IppiPoint anchor, IppiMorphologyState** state) {
    return InitAlloc<std::uint8_t, 4>(rowWidth, mask, maskSize, anchor, state);
}

int ippiMorphologyInitAlloc_32f_C1R(int rowWidth, const std::uint8_t* mask, IppiSize maskSize,
                                    IppiPoint anchor, IppiMorphologyState** state) {
    return InitAlloc<float, 1>(rowWidth, mask, maskSize, anchor, state);
}

int ippiMorphologyInitAlloc_32f_C4R(int rowWidth, const std::uint8_t* mask, IppiSize maskSize,
                                    IppiPoint anchor, IppiMorphologyState** state) {
    return InitAlloc<float, 4>(rowWidth, mask, maskSize, anchor, state);
}

void ippiMorphologyFree(IppiMorphologyState* state) {
    std::free(state);
}

}  // namespace brushworks
