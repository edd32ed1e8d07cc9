// Times the primitives on frames of 1920 by 1080: each beside a memcpy that moves as many bytes
// and, where OpenCV is at hand, beside its work. BRUSHWORKS_VARIANT caps the variant as everywhere.
// bench/table runs this and prints the ratios.
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <set>

#include "bench/operations.h"
#include "primitives/dispatch.h"

namespace brushworks::bench {

template <class Sample>
Images<Sample>& Images<Sample>::Get() {
    static Images images = [] {
        Images filled;
        std::minstd_rand engine;
        for (auto* image : {&filled.a, &filled.b, &filled.dst}) {
            image->resize(kSamples);
            for (Sample& sample : *image)
                sample = std::is_floating_point_v<Sample>
                             ? static_cast<Sample>(1.0 + (engine() % 4096) / 1048576.0)
                             : static_cast<Sample>(engine() >> 8);
        }
        return filled;
    }();
    return images;
}

template struct Images<std::uint8_t>;
template struct Images<std::uint16_t>;
template struct Images<float>;

#if !BRUSHWORKS_HAVE_OPENCV
std::vector<Operation> Peers() {
    return {};
}
std::vector<Operation> FilterPeers() {
    return {};
}
std::vector<Operation> RankPeers() {
    return {};
}
std::vector<Operation> ResizeBlendPeers() {
    return {};
}
#endif

namespace {

/// The run that a row is compared with has the row's name behind a slash; that of memcpy has its
/// traffic, since rows of equal traffic share it.
void Register(const std::string& name, std::int64_t bytes, const std::function<int()>& run) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        for (auto _ : state)
            if (run() != kStatusOk) state.SkipWithError("a status other than 0");
        state.counters["traffic"] = static_cast<double>(bytes);
    })->Unit(benchmark::kMicrosecond);
}

void RegisterCopyOf(std::int64_t bytes) {
    const auto half = static_cast<std::size_t>(bytes / 2);
    static Samples<std::uint8_t> from, to;
    if (from.size() < half) {
        from.resize(half, 1);
        to.resize(half, 2);
    }
    Register("memcpy/" + std::to_string(bytes), bytes, [half] {
        std::memcpy(to.data(), from.data(), half);
        benchmark::ClobberMemory();
        return 0;
    });
}

void RegisterAll(const std::vector<Operation>& operations) {
    std::set<std::int64_t> traffics;
    for (const Operation& operation : operations) {
        const auto bytes = std::int64_t{operation.bytesPerPixel} * kFrame.width * kFrame.height;
        Register("ours/" + operation.name, bytes, operation.run);
        traffics.insert(bytes);
    }
    for (const auto& peers : {Peers(), FilterPeers(), RankPeers(), ResizeBlendPeers()})
        for (const Operation& peer : peers) Register("opencv/" + peer.name, 0, peer.run);
    for (const std::int64_t bytes : traffics) RegisterCopyOf(bytes);
}

}  // namespace
}  // namespace brushworks::bench

int main(int argc, char** argv) {
    using namespace brushworks;
    ippStaticInit();
    benchmark::AddCustomContext(
        "variant", VariantName(static_cast<Variant>(ippJumpIndexForMergedLibs + ippWideLevel)));
    std::vector<bench::Operation> operations = bench::Pointwise();
    for (const auto& more : {bench::Colour(), bench::Filters(), bench::Ranks(),
                             bench::ResizeBlend(), bench::ProcessorRows()})
        operations.insert(operations.end(), more.begin(), more.end());
    bench::RegisterAll(operations);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
