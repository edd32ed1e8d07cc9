// The table of the search.
#include "primitives/search.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippsMaxIndx_32s,
                     (const std::int32_t* vector, int length, std::int32_t* largest, int* index),
                     (vector, length, largest, index))

}  // namespace brushworks
