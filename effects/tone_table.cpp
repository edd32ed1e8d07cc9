#include "effects/tone_table.h"

#include "processors/region.h"

namespace brushworks {
namespace {

void LookUpColours(const unsigned char* from, unsigned char* to, int pixels,
                   const ToneTable& table) {
    for (int x = 0; x < pixels; ++x, from += 4, to += 4) {
        const unsigned char colours[] = {table[from[0]], table[from[1]], table[from[2]], from[3]};
        for (int i = 0; i < 4; ++i) to[i] = colours[i];
    }
}

void LookUpBytes(const unsigned char* from, unsigned char* to, int bytes, const ToneTable& table) {
    for (int x = 0; x < bytes; ++x) to[x] = table[from[x]];
}

}  // namespace

bool LookUp(const CFrame& src, CFrame& dst, const ToneTable& table) {
    if (!src.m_pBuffer || !dst.m_pBuffer || src.m_nDepth != dst.m_nDepth) return false;
    const bool isPlane = src.m_nDepth == 1;
    if (!isPlane && src.m_nDepth != 4) return false;
    const IppiSize region = Processors::CommonSize(src, dst);
    for (int y = 0; y < region.height; ++y)
        (isPlane ? LookUpBytes : LookUpColours)(Processors::RowOf<unsigned char>(src, y),
                                                Processors::RowOf<unsigned char>(dst, y),
                                                region.width, table);
    return true;
}

}  // namespace brushworks
