#include "gpu/processors/noise_gen.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace brushworks::GPUProcessors {

namespace {

/// Random samples as a buffer for Upload.
template <class Sample, class Next>
bool UploadNoise(const TextureParams& tex, PixelFormat format, std::size_t samples, Next next) {
    std::vector<Sample> noise(samples);
    for (Sample& sample : noise) sample = next();
    return tex.pTexture->Upload(format, noise.data(), 0);
}

/// Noise has no channel order: formats with alpha first are filled as their turned forms.
PixelFormat UploadFormat(PixelFormat format) {
    return format == PixelFormatARGB8     ? PixelFormatBGRA8
           : format == PixelFormatARGB32f ? PixelFormatBGRA32f
                                          : format;
}

}  // namespace

bool CNoiseGen::Process(const TextureParams& tex) {
    if (!m_pHelper || !CheckTexture(tex)) return false;
    const PixelFormat format = UploadFormat(tex.pfPixelFormat);
    const bool plane = format == PixelFormatMono8 || format == PixelFormatMono32f;
    const std::size_t samples = std::size_t{plane ? 1u : 4u} *
                                static_cast<std::size_t>(tex.nTexWidth) *
                                static_cast<std::size_t>(tex.nTexHeight);
    if (format == PixelFormatBGRA8)
        return UploadNoise<std::uint8_t>(tex, format, samples,
                                         [] { return static_cast<std::uint8_t>(std::rand()); });
    // All other formats get floats. A plane of bytes does too, and so takes the floats' own bytes.
    return UploadNoise<float>(tex, format, samples,
                              [] { return static_cast<float>(std::rand() % 10000 / 9999.0); });
}

bool CNoiseGen::IsSupported() {
    return m_pHelper != nullptr;
}

}  // namespace brushworks::GPUProcessors
