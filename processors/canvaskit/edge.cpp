#include "processors/canvaskit/edge.h"

#include <algorithm>
#include <memory>
#include <new>

#include "primitives/filter_general.h"
#include "processors/canvaskit/fill_border.h"
#include "processors/region.h"

namespace brushworks::Canvaskit {

bool CEdge::BuildKernel(int size, float*& kernel) {
    if (size < 1 || size > kLargestSize) return false;
    const int count = size * size;
    kernel = new (std::nothrow) float[count];
    if (!kernel) return false;
    std::fill_n(kernel, count, -1.0f);
    kernel[count / 2] = static_cast<float>(count) - 1.0f;
    return true;
}

bool CEdge::Process(CFrame& src, CFrame& dst, int size) {
    if (src.m_nDepth != 1) return false;
    float* built = nullptr;
    if (!BuildKernel(size, built)) return false;
    const std::unique_ptr<float[]> kernel(built);

    // An even size reaches one pixel further to the left and up than to the right and down.
    const int anchor = (size - 1) / 2, border = size / 2;
    CFrame widened;
    CFillBorder().Process(src, widened, border, nullptr);  // its result says nothing
    if (!widened.m_pBuffer) return false;
    const unsigned char* corner = Processors::RowOf<unsigned char>(widened, border) + border;
    return ippiFilter32f_8u_C1R(corner, widened.m_nByteSpan, dst.m_pBuffer, dst.m_nByteSpan,
                                Processors::CommonSize(src, dst), kernel.get(), {size, size},
                                {anchor, anchor}) == kStatusOk;
}

}  // namespace brushworks::Canvaskit
