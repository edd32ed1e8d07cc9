#include "processors/canvaskit/median.h"

#include <climits>

#include "primitives/median.h"
#include "processors/copy.h"
#include "processors/fill_border.h"
#include "processors/region.h"

namespace brushworks::Canvaskit {

bool CMedian::Process(CFrame& src, CFrame& dst, int x, int y) {
    if (!Processors::IsByteColor(src)) {
        Processors::CCopy().Process(&src, &dst);
        return true;
    }
    const long long width = src.m_nWidth + 2LL * x, height = src.m_nHeight + 2LL * y;
    if (src.m_nDepth != 4 || dst.m_nDepth != 4 || x < 0 || y < 0 || width > INT_MAX ||
        height > INT_MAX)
        return false;
    CFrame widened;
    if (!widened.Init(static_cast<int>(width), static_cast<int>(height), src.m_nDepth, nullptr,
                      src.m_pfPixelFormat, false) ||
        !Processors::CFillBorder().Process(&src, &widened, x, y))
        return false;
    auto* filter = src.m_pfPixelFormat == PixelFormatBGRA8 ? ippiFilterMedian_8u_AC4R
                                                           : ippiFilterMedian_8u_C4R;
    const unsigned char* corner =
        Processors::RowOf<unsigned char>(widened, y) + static_cast<std::ptrdiff_t>(x) * 4;
    return filter(corner, widened.m_nByteSpan, dst.m_pBuffer, dst.m_nByteSpan,
                  Processors::CommonSize(src, dst), {2 * x + 1, 2 * y + 1}, {x, y}) == kStatusOk;
}

bool CMedian::Process(CFrame& frame, int x, int y) {
    return Process(frame, frame, x, y);
}

}  // namespace brushworks::Canvaskit
