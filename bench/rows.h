// Makes rows of the benchmark: one function for each shape that the arguments of primitives have.
#pragma once

#include "bench/operations.h"

namespace brushworks::bench {

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

}  // namespace brushworks::bench
