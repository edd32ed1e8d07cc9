#include "primitives/flood_fill.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiFloodFillGetSize, (IppiSize size, int* bufferSize), (size, bufferSize))
BRUSHWORKS_PRIMITIVE(ippiFloodFill_4Con_8u_C3IR,
                     (std::uint8_t * image, int step, IppiSize size, IppiPoint seed,
                      const std::uint8_t newValue[3], IppiFilledRegion* region,
                      std::uint8_t* buffer),
                     (image, step, size, seed, newValue, region, buffer))

}  // namespace brushworks
