// What a benchmark of a primitive is: a name, the traffic it causes, a call on frames of a common
// size. The peers are operations of another library under the same names.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "primitives/types.h"

namespace brushworks::bench {

inline constexpr IppiSize kFrame{1920, 1080};

struct Operation {
    std::string name;
    /// Bytes that a pixel occupies in the images read, plus those in the images written.
    int bytesPerPixel;
    /// One run over a frame; the result is a primitive's status.
    std::function<int()> run;
};

/// Starts at a cache line, as pictures do wherever speed matters.
template <class Sample>
struct AlignedAllocator {
    using value_type = Sample;
    static constexpr std::align_val_t kLine{64};
    Sample* allocate(std::size_t n) {
        return static_cast<Sample*>(::operator new(n * sizeof(Sample), kLine));
    }
    void deallocate(Sample* samples, std::size_t) { ::operator delete(samples, kLine); }
    bool operator==(const AlignedAllocator&) const { return true; }
};

template <class Sample>
using Samples = std::vector<Sample, AlignedAllocator<Sample>>;

/// Three images of a sample type, with room for four channels; made and filled on first use.
/// Float samples lie a little above 1: however often they are squared, they never become so small
/// that the processor slows down.
template <class Sample>
struct Images {
    static constexpr std::size_t kSamples = std::size_t{4} * kFrame.width * kFrame.height;
    Samples<Sample> a, b, dst;
    static Images& Get();
};

/// Bytes of a row without padding.
template <class Sample, int Channels>
inline constexpr int kStep = kFrame.width* Channels* int{sizeof(Sample)};

std::vector<Operation> Pointwise();
std::vector<Operation> Colour();
std::vector<Operation> ProcessorRows();
std::vector<Operation> Filters();
std::vector<Operation> Ranks();
std::vector<Operation> ResizeBlend();
/// Empty where the library was not found.
std::vector<Operation> Peers();
std::vector<Operation> FilterPeers();
std::vector<Operation> RankPeers();
std::vector<Operation> ResizeBlendPeers();

}  // namespace brushworks::bench
