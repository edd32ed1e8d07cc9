// The processors whose inner loops are their own, one row each: the smoothing of 79 taps each way
// and the blur at a narrow and a wide triangle.
#include "bench/operations.h"
#include "processors/blur.h"
#include "processors/smooth.h"

namespace brushworks::bench {
namespace {

/// One of the common images as a frame.
void Wrap(auto& image, CFrame& frame) {
    frame.Init(image.data(), kFrame.width, kFrame.height, 4 * kFrame.width, 4, PixelFormatBGRA8,
               false);
}

/// run(source, destination) on frames of four bytes a pixel.
template <class Run>
Operation OnFrames(const char* name, Run run) {
    return {name, 8, [run] {
                CFrame src, dst;
                Wrap(Images<std::uint8_t>::Get().a, src);
                Wrap(Images<std::uint8_t>::Get().dst, dst);
                run(src, dst);
                return 0;
            }};
}

Operation Blur(const char* name, float size) {
    return OnFrames(name, [size](CFrame& src, CFrame& dst) {
        Processors::CBlur().Process(&src, &dst, size, size, nullptr, true);
    });
}

}  // namespace

std::vector<Operation> ProcessorRows() {
    constexpr float kSpatial = 1.0f, kRange = 0.5f, kRadiusOf79Taps = 0.58f;
    return {OnFrames("CSmooth, 79 taps",
                     [](CFrame& src, CFrame& dst) {
                         Processors::CSmooth().Process(&src, &dst, nullptr, nullptr, kSpatial,
                                                       kRange, kRadiusOf79Taps, 0.0f, false,
                                                       nullptr, nullptr);
                     }),
            Blur("CBlur, width 20", 20.0f), Blur("CBlur, width 200", 200.0f)};
}

}  // namespace brushworks::bench
