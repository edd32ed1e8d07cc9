// Pictures in tests of GPU renders: made, compared, and written to be looked at.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "brushworks/frame.h"
#include "host/frame_params.h"

namespace brushworks::host::gl {

/// Pixels of any format in memory of their own, rows without gaps, all 0 at first.
struct Picture {
    Picture(int pictureWidth, int pictureHeight, PixelFormat pictureFormat);
    FrameParams frame() {
        return frameParams(bytes.data(), width, height, width * bytesPerPixel(format), format);
    }

    int width;
    int height;
    PixelFormat format;
    std::vector<std::uint8_t> bytes;
};

/// A picture of smooth waves, edges and a few bright dots: something for every filter to change.
/// Alpha varies too.
Picture testPicture(int width, int height, PixelFormat format);

/// How two pictures differ, in steps of 255ths.
struct Difference {
    double psnr;     ///< in decibels; infinite for equal pictures
    double largest;  ///< of any sample
    int x;           ///< where the largest is
    int y;
    double share;  ///< of pixels with a sample that differs by more than a given limit
};

/// Both pictures have the same size and format; `limit` is for Difference::share.
Difference compare(const FrameParams& a, const FrameParams& b, double limit = 0);

/// What a test allows: pixels over `largest` are no more than `share`, and the PSNR is at least
/// `psnr`.
struct Tolerance {
    double largest = 0;
    double share = 0;
    double psnr = 0;
};

/// Whether two pictures are alike. If not, says how far they are apart and where, and writes both
/// and their difference as .pam files into a folder that it names.
::testing::AssertionResult alike(const FrameParams& actual, const FrameParams& expected,
                                 const Tolerance& tolerance);

}  // namespace brushworks::host::gl
