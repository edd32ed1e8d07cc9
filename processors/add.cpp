#include "processors/add.h"

#include <algorithm>

#include "frames/samples.h"
#include "primitives/arithmetic.h"
#include "primitives/arithmetic_float.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// The weight that, given twice, means the mean of both.
constexpr int kHalf = 128;

int CutWeight(int w) {
    return std::clamp(w, 0, 255);
}

bool AddBytePlanes(const CFrame& a, const CFrame& b, int wa, int wb) {
    const IppiSize size = CommonSize(a, b);
    return ippiMulCScale_8u_C1IR(static_cast<std::uint8_t>(wa), a.m_pBuffer, a.m_nByteSpan, size) ==
               kStatusOk &&
           ippiMulCScale_8u_C1IR(static_cast<std::uint8_t>(wb), b.m_pBuffer, b.m_nByteSpan, size) ==
               kStatusOk &&
           ippiAdd_8u_C1IRSfs(a.m_pBuffer, a.m_nByteSpan, b.m_pBuffer, b.m_nByteSpan, size, 0) ==
               kStatusOk;
}

bool AddFloatPlanes(const CFrame& a, const CFrame& b, int wa, int wb) {
    const IppiSize size = CommonSize(a, b);
    auto* first = Samples<float>(a);
    auto* second = Samples<float>(b);
    return ippiMulC_32f_C1IR(static_cast<float>(wa) * kByteToFloat, first, a.m_nByteSpan, size) ==
               kStatusOk &&
           ippiMulC_32f_C1IR(static_cast<float>(wb) * kByteToFloat, second, b.m_nByteSpan, size) ==
               kStatusOk &&
           ippiAdd_32f_C1IR(first, a.m_nByteSpan, second, b.m_nByteSpan, size) == kStatusOk;
}

/// Calls add(row of a, row of b, one row's size) for each row: what the steps leave of a row is
/// still in the cache for the next step.
template <class Sample, class Add>
bool ForRows(Sample* a, Sample* b, int strideA, int strideB, IppiSize size, Add add) {
    if (size.height < 1) return false;
    const IppiSize row = {size.width, 1};
    for (std::ptrdiff_t y = 0; y < size.height; ++y) {
        auto at = [y](Sample* image, int stride) {
            return image ? reinterpret_cast<Sample*>(reinterpret_cast<std::uint8_t*>(image) +
                                                     y * stride)
                         : nullptr;
        };
        if (!add(at(a, strideA), at(b, strideB), row)) return false;
    }
    return true;
}

}  // namespace

const float CAdd::fScaleFactor[4] = {0.5f, 0.5f, 0.5f, 0.5f};

bool CAdd::Process(unsigned char* a, unsigned char* b, int wa, int wb, int strideA, int strideB,
                   IppiSize size) {
    wa = CutWeight(wa);
    wb = CutWeight(wb);
    if (wa == kHalf && wb == kHalf)
        return ippiAdd_8u_C4IRSfs(a, strideA, b, strideB, size, /*scale=*/1) == kStatusOk;
    const auto byteA = static_cast<std::uint8_t>(wa), byteB = static_cast<std::uint8_t>(wb);
    const std::uint8_t timesA[4] = {byteA, byteA, byteA, byteA};
    const std::uint8_t timesB[4] = {byteB, byteB, byteB, byteB};
    return ForRows(a, b, strideA, strideB, size, [&](auto* rowA, auto* rowB, IppiSize row) {
        return ippiMulCScale_8u_C4IR(timesA, rowA, strideA, row) == kStatusOk &&
               ippiMulCScale_8u_C4IR(timesB, rowB, strideB, row) == kStatusOk &&
               ippiAdd_8u_C4IRSfs(rowA, strideA, rowB, strideB, row, /*scale=*/0) == kStatusOk;
    });
}

bool CAdd::Process(float* a, float* b, int wa, int wb, int strideA, int strideB, IppiSize size) {
    wa = CutWeight(wa);
    wb = CutWeight(wb);
    if (wa == kHalf && wb == kHalf)
        return ForRows(a, b, strideA, strideB, size, [&](float* rowA, float* rowB, IppiSize row) {
            return ippiAdd_32f_C4IR(rowA, strideA, rowB, strideB, row) == kStatusOk &&
                   ippiMulC_32f_C4IR(fScaleFactor, rowB, strideB, row) == kStatusOk;
        });
    const float factorA = static_cast<float>(wa) * kByteToFloat;
    const float factorB = static_cast<float>(wb) * kByteToFloat;
    const float timesA[4] = {factorA, factorA, factorA, factorA};
    const float timesB[4] = {factorB, factorB, factorB, factorB};
    return ForRows(a, b, strideA, strideB, size, [&](float* rowA, float* rowB, IppiSize row) {
        return ippiMulC_32f_C4IR(timesA, rowA, strideA, row) == kStatusOk &&
               ippiMulC_32f_C4IR(timesB, rowB, strideB, row) == kStatusOk &&
               ippiAdd_32f_C4IR(rowA, strideA, rowB, strideB, row) == kStatusOk;
    });
}

bool CAdd::Process(CFrame* a, CFrame* b, int wa, int wb) {
    wa = CutWeight(wa);
    wb = CutWeight(wb);
    const IppiSize size = CommonSize(*a, *b);
    if (IsByteColor(*a))
        return Process(a->m_pBuffer, b->m_pBuffer, wa, wb, a->m_nByteSpan, b->m_nByteSpan, size);
    if (IsFloatColor(*a))
        return Process(Samples<float>(*a), Samples<float>(*b), wa, wb, a->m_nByteSpan,
                       b->m_nByteSpan, size);
    if (a->m_pfPixelFormat == PixelFormatMono8) return AddBytePlanes(*a, *b, wa, wb);
    if (IsFloatPlane(*a)) return AddFloatPlanes(*a, *b, wa, wb);
    return false;
}

}  // namespace brushworks::Processors
