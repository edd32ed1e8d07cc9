#include "primitives/resize.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define SQUARE_PIXELS(Sample)                                                                     \
    (const Sample* src, IppiSize srcSize, int srcStep, IppiRect srcRoi, Sample* dst, int dstStep, \
     IppiRect dstRoi, double xFactor, double yFactor, double xShift, double yShift,               \
     int interpolation, std::uint8_t* buffer),                                                    \
        (src, srcSize, srcStep, srcRoi, dst, dstStep, dstRoi, xFactor, yFactor, xShift, yShift,   \
         interpolation, buffer)
#define WHOLE_IMAGE(Sample)                                                                       \
    (const Sample* src, IppiSize srcSize, int srcStep, IppiRect srcRoi, Sample* dst, int dstStep, \
     IppiSize dstSize, double xFactor, double yFactor, int interpolation),                        \
        (src, srcSize, srcStep, srcRoi, dst, dstStep, dstSize, xFactor, yFactor, interpolation)

BRUSHWORKS_PRIMITIVE(ippiResizeGetBufSize,
                     (IppiRect srcRoi, IppiRect dstRoi, int channels, int interpolation, int* size),
                     (srcRoi, dstRoi, channels, interpolation, size))
BRUSHWORKS_PRIMITIVE(ippiResizeSqrPixel_8u_C1R, SQUARE_PIXELS(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiResizeSqrPixel_8u_C4R, SQUARE_PIXELS(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiResizeSqrPixel_32f_C1R, SQUARE_PIXELS(float))
BRUSHWORKS_PRIMITIVE(ippiResizeSqrPixel_32f_C4R, SQUARE_PIXELS(float))
BRUSHWORKS_PRIMITIVE(ippiResize_8u_C4R, WHOLE_IMAGE(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiResize_32f_C4R, WHOLE_IMAGE(float))

}  // namespace brushworks
