// Compares pictures sample by sample, whatever their layout.
#include "host/gl/testing_picture.h"

#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

namespace brushworks::host::gl {
namespace {

bool isFloat(PixelFormat format) {
    return format == PixelFormatBGRA32f || format == PixelFormatARGB32f ||
           format == PixelFormatMono32f;
}

int channelsOf(PixelFormat format) {
    return isFloat(format) ? bytesPerPixel(format) / 4 : bytesPerPixel(format);
}

std::uint8_t* sampleAt(const FrameParams& frame, int x, int y, int channel) {
    const int size = isFloat(frame.pfPixelFormat) ? 4 : 1;
    return frame.pBuffer + std::ptrdiff_t(y) * frame.nByteSpan +
           std::ptrdiff_t(x) * bytesPerPixel(frame.pfPixelFormat) + channel * size;
}

/// A sample in 255ths.
double sample(const FrameParams& frame, int x, int y, int channel) {
    const std::uint8_t* bytes = sampleAt(frame, x, y, channel);
    if (!isFloat(frame.pfPixelFormat)) return *bytes;
    float value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return double{value} * 255;
}

/// Which samples of a pixel are red, green, blue and alpha.
std::array<int, 4> orderOf(PixelFormat format) {
    const bool swapped = format == PixelFormatARGB8 || format == PixelFormatARGB32f;
    return swapped ? std::array{1, 2, 3, 0} : std::array{2, 1, 0, 3};
}

/// Writes a .pam file: red, green, blue and alpha, or one channel.
template <class Sample>
void writePam(const std::filesystem::path& path, const FrameParams& frame, Sample value) {
    const int channels = channelsOf(frame.pfPixelFormat);
    std::ofstream file(path, std::ios::binary);
    file << "P7\nWIDTH " << frame.nWidth << "\nHEIGHT " << frame.nHeight << "\nDEPTH " << channels
         << "\nMAXVAL 255\nTUPLTYPE " << (channels == 4 ? "RGB_ALPHA" : "GRAYSCALE")
         << "\nENDHDR\n";
    const std::array<int, 4> order = orderOf(frame.pfPixelFormat);
    for (int y = 0; y < frame.nHeight; ++y) {
        for (int x = 0; x < frame.nWidth; ++x) {
            for (int c = 0; c < channels; ++c) {
                const double v = value(x, y, channels == 4 ? order.at(std::size_t(c)) : c);
                // Not a number becomes 0.
                file.put(static_cast<char>(v > 0 ? std::lround(std::fmin(v, 255)) : 0));
            }
        }
    }
}

std::filesystem::path writePictures(const FrameParams& actual, const FrameParams& expected) {
    const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
    const std::string name =
        test != nullptr ? std::string(test->test_suite_name()) + "." + test->name() : "pictures";
    std::filesystem::path folder =
        std::filesystem::path(::testing::TempDir()) / "brushworks-gl" / name;
    std::filesystem::create_directories(folder);
    const auto of = [](const FrameParams& frame) {
        return [&](int x, int y, int c) { return sample(frame, x, y, c); };
    };
    writePam(folder / "actual.pam", actual, of(actual));
    writePam(folder / "expected.pam", expected, of(expected));
    writePam(folder / "difference.pam", actual, [&](int x, int y, int c) {
        const bool alpha =
            channelsOf(actual.pfPixelFormat) == 4 && c == orderOf(actual.pfPixelFormat)[3];
        const double d = std::abs(sample(actual, x, y, c) - sample(expected, x, y, c));
        return alpha ? 255 : 8 * d;
    });
    return folder;
}

}  // namespace

Picture::Picture(int pictureWidth, int pictureHeight, PixelFormat pictureFormat)
    : width(pictureWidth),
      height(pictureHeight),
      format(pictureFormat),
      bytes(std::size_t(width) * std::size_t(height) * std::size_t(bytesPerPixel(format))) {}

Picture testPicture(int width, int height, PixelFormat format) {
    Picture picture(width, height, format);
    const FrameParams frame = picture.frame();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            for (int c = 0; c < channelsOf(format); ++c) {
                double v = 127 + 90 * std::sin(x * (0.11 + 0.05 * c)) * std::cos(y * 0.09 + c);
                if ((x / 16 + y / 12) % 3 == c % 3) v += 35;
                if ((x * 7 + y * 13) % 101 == 0) v = 255;
                const auto rounded = static_cast<std::uint8_t>(std::lround(v));
                if (isFloat(format)) {
                    const float f = rounded / 255.0F;
                    std::memcpy(sampleAt(frame, x, y, c), &f, sizeof f);
                } else {
                    *sampleAt(frame, x, y, c) = rounded;
                }
            }
        }
    }
    return picture;
}

Difference compare(const FrameParams& a, const FrameParams& b, double limit) {
    Difference difference{0, 0, 0, 0, 0};
    double squares = 0;
    int over = 0;
    const int channels = channelsOf(a.pfPixelFormat);
    for (int y = 0; y < a.nHeight; ++y) {
        for (int x = 0; x < a.nWidth; ++x) {
            double worst = 0;
            for (int c = 0; c < channels; ++c) {
                double d = std::abs(sample(a, x, y, c) - sample(b, x, y, c));
                if (std::isnan(d)) d = std::numeric_limits<double>::infinity();
                squares += d * d;
                worst = std::fmax(worst, d);
            }
            if (worst > limit) ++over;
            if (worst <= difference.largest) continue;
            difference.largest = worst;
            difference.x = x;
            difference.y = y;
        }
    }
    const double pixels = double(a.nWidth) * a.nHeight;
    difference.psnr = 10 * std::log10(255.0 * 255.0 * pixels * channels / squares);
    difference.share = over / pixels;
    return difference;
}

::testing::AssertionResult alike(const FrameParams& actual, const FrameParams& expected,
                                 const Tolerance& tolerance) {
    if (actual.nWidth != expected.nWidth || actual.nHeight != expected.nHeight ||
        actual.pfPixelFormat != expected.pfPixelFormat) {
        return ::testing::AssertionFailure() << "pictures of different sizes or formats";
    }
    const Difference d = compare(actual, expected, tolerance.largest);
    if (d.share <= tolerance.share && d.psnr >= tolerance.psnr) {
        return ::testing::AssertionSuccess();
    }
    ::testing::AssertionResult failure = ::testing::AssertionFailure();
    failure << d.share * 100 << " % of pixels differ by more than " << tolerance.largest
            << ", PSNR " << d.psnr << " dB; the largest difference is " << d.largest << " at "
            << d.x << "," << d.y << ":";
    for (int c = 0; c < channelsOf(actual.pfPixelFormat); ++c) {
        failure << " " << sample(actual, d.x, d.y, c) << " for " << sample(expected, d.x, d.y, c);
    }
    return failure << "; see " << writePictures(actual, expected).string();
}

}  // namespace brushworks::host::gl
