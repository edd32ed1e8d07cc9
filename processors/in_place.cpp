#include "processors/in_place.h"

#include "primitives/arithmetic_float.h"
#include "primitives/threshold.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

bool IsUsable(const CFrame* frame) {
    return frame && IsFloatColor(*frame) && frame->m_nWidth > 0 && frame->m_nHeight > 0 &&
           frame->m_pBuffer && frame->m_nByteSpan != 0;
}

}  // namespace

bool CThresholdLTInPlace::Process(CFrame* frame, const float* values) {
    return IsUsable(frame) &&
           ippiThreshold_LTVal_32f_C4IR(Samples<float>(*frame), frame->m_nByteSpan, SizeOf(*frame),
                                        values, values) == kStatusOk;
}

bool CSqrInPlace::Process(CFrame* frame) {
    return IsUsable(frame) && ippiSqr_32f_C4IR(Samples<float>(*frame), frame->m_nByteSpan,
                                               SizeOf(*frame)) == kStatusOk;
}

bool CSqrtInPlace::Process(CFrame* frame) {
    return IsUsable(frame) && ippiSqrt_32f_C4IR(Samples<float>(*frame), frame->m_nByteSpan,
                                                SizeOf(*frame)) == kStatusOk;
}

}  // namespace brushworks::Processors
