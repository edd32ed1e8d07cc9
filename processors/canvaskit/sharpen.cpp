#include "processors/canvaskit/sharpen.h"

#include "primitives/filter_fixed.h"
#include "processors/canvaskit/fill_border.h"
#include "processors/region.h"

namespace brushworks::Canvaskit {

bool CSharpen::Process(CFrame& src, CFrame& dst) {
    if (src.m_nDepth != 4) return true;
    CFrame widened;
    CFillBorder().Process(src, widened, 1, nullptr);  // its result says nothing
    if (!widened.m_pBuffer || dst.m_nDepth != 4) return false;
    return ippiFilterSharpen_8u_AC4R(Processors::RowOf<unsigned char>(widened, 1) + 4,
                                     widened.m_nByteSpan, dst.m_pBuffer, dst.m_nByteSpan,
                                     Processors::CommonSize(src, dst)) == kStatusOk;
}

bool CSharpen::Process(CFrame& frame) {
    return Process(frame, frame);
}

}  // namespace brushworks::Canvaskit
