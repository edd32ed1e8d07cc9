#include "primitives/blend.h"

#include "primitives/primitive_table.h"

namespace brushworks {

// Two sources and a destination, then further arguments.
#define BYTES(...)                                                                          \
    (const std::uint8_t* a, int aStep, const std::uint8_t* b, int bStep, std::uint8_t* dst, \
     int dstStep, IppiSize size __VA_OPT__(, ) __VA_ARGS__)
#define FLOATS(...)                                                                 \
    (const float* a, int aStep, const float* b, int bStep, float* dst, int dstStep, \
     IppiSize size __VA_OPT__(, ) __VA_ARGS__)
#define PASS(...) (a, aStep, b, bStep, dst, dstStep, size __VA_OPT__(, ) __VA_ARGS__)

BRUSHWORKS_PRIMITIVE(MixBytes_C1R, BYTES(int wa, int wb), PASS(wa, wb))
BRUSHWORKS_PRIMITIVE(MixFloats_C1R, FLOATS(float wa, float wb, float most), PASS(wa, wb, most))
BRUSHWORKS_PRIMITIVE(DodgeBytes_C1R, BYTES(), PASS())
BRUSHWORKS_PRIMITIVE(DodgeBytes_C4R, BYTES(AlphaAt alpha), PASS(alpha))
BRUSHWORKS_PRIMITIVE(DodgeBytesMono_C4R, BYTES(AlphaAt alpha), PASS(alpha))
BRUSHWORKS_PRIMITIVE(DodgeFloats_C4R, FLOATS(AlphaAt alpha), PASS(alpha))
BRUSHWORKS_PRIMITIVE(DodgeFloatsMono_C4R, FLOATS(AlphaAt alpha), PASS(alpha))
BRUSHWORKS_PRIMITIVE(OverBytes_A4R, BYTES(), PASS())
BRUSHWORKS_PRIMITIVE(OverBytesPremultiplied_A4R, BYTES(), PASS())
BRUSHWORKS_PRIMITIVE(OverFloats_C4R, FLOATS(AlphaAt alpha), PASS(alpha))
BRUSHWORKS_PRIMITIVE(OverFloatsPremultiplied_C4R, FLOATS(AlphaAt alpha), PASS(alpha))

}  // namespace brushworks
