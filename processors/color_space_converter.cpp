#include "processors/color_space_converter.h"

#include "primitives/arithmetic_float.h"
#include "primitives/colour_twist.h"
#include "primitives/rescale.h"
#include "processors/channel_reverse.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// The bytes from one row to the next, a whole number of pixels.
template <class Sample>
int StepOf(const CFrame& frame) {
    return frame.m_nByteSpan - frame.m_nByteSpan % static_cast<int>(4 * sizeof(Sample));
}

template <class From, class To>
bool Convert(int (*convert)(const From*, int, To*, int, IppiSize), const CFrame& src,
             const CFrame& dst) {
    return convert(Samples<const From>(src), StepOf<From>(src), Samples<To>(dst), StepOf<To>(dst),
                   CommonSize(src, dst)) == kStatusOk;
}

/// Calls step(first red sample of each frame, strides, size): one sample into the pixel, so that
/// the three samples that the primitives work on are the colours.
template <class Step>
bool OnColours(const CFrame& src, const CFrame& dst, Step step) {
    const IppiSize size = CommonSize(src, dst);
    if (src.m_pfPixelFormat != PixelFormatARGB32f || dst.m_pfPixelFormat != PixelFormatARGB32f ||
        size.width < 1 || size.height < 1 || !src.m_pBuffer || !dst.m_pBuffer)
        return false;
    return step(Samples<float>(src) + 1, StepOf<float>(src), Samples<float>(dst) + 1,
                StepOf<float>(dst), size) == kStatusOk;
}

}  // namespace

bool CColorSpaceConverter::Process(CFrame* src, CFrame* dst) {
    const auto is = [src, dst](PixelFormat from, PixelFormat to) {
        return src->m_pfPixelFormat == from && dst->m_pfPixelFormat == to;
    };
    if (is(PixelFormatBGRA8, PixelFormatARGB32f))
        return Convert(UnitFromBytesReversed_C4R, *src, *dst);
    if (is(PixelFormatBGRA8, PixelFormatBGRA32f) || is(PixelFormatARGB8, PixelFormatARGB32f))
        return Convert(UnitFromBytes_C4R, *src, *dst);
    if (is(PixelFormatBGRA32f, PixelFormatBGRA8) || is(PixelFormatARGB32f, PixelFormatARGB8))
        return Convert(BytesFromUnit_C4R, *src, *dst);
    if (is(PixelFormatARGB32f, PixelFormatBGRA8))
        return Convert(BytesFromUnitReversed_C4R, *src, *dst);
    if (is(PixelFormatARGB8, PixelFormatBGRA8) || is(PixelFormatBGRA8, PixelFormatARGB8) ||
        is(PixelFormatBGRA32f, PixelFormatARGB32f) || is(PixelFormatARGB32f, PixelFormatBGRA32f))
        return CChannelReverse().Process(src, dst);
    return false;
}

bool CColorSpaceConverter::ProcessColorMatrix32f(CFrame& src, CFrame& dst, float (*matrix)[4]) {
    return OnColours(
        src, dst, [matrix](const float* from, int fromStep, float* to, int toStep, IppiSize size) {
            return from == to ? ippiColorTwist_32f_AC4IR(to, toStep, size, matrix)
                              : ippiColorTwist_32f_AC4R(from, fromStep, to, toStep, size, matrix);
        });
}

bool CColorSpaceConverter::ProcessMulC32f(CFrame& src, CFrame& dst, float* values) {
    return OnColours(
        src, dst, [values](const float* from, int fromStep, float* to, int toStep, IppiSize size) {
            return from == to ? ippiMulC_32f_AC4IR(values, to, toStep, size)
                              : ippiMulC_32f_AC4R(values, from, fromStep, to, toStep, size);
        });
}

bool CColorSpaceConverter::ProcessAddC32f(CFrame& src, CFrame& dst, float* values) {
    return OnColours(
        src, dst, [values](const float* from, int fromStep, float* to, int toStep, IppiSize size) {
            return from == to ? ippiAddC_32f_AC4IR(values, to, toStep, size)
                              : ippiAddC_32f_AC4R(values, from, fromStep, to, toStep, size);
        });
}

bool CColorSpaceConverter::ARGB32ToAppleR4FL(CFrame& src, CFrame& dst) {
    float matrix[3][4] = {{0.299f, 0.587f, 0.114f, 0},
                          {-0.168736f, -0.331264f, 0.5f, 0.5f},
                          {0.5f, -0.418688f, -0.081312f, 0.5f}};
    float scale[3] = {0.8588235f, 0.8784314f, 0.8784314f};  // 219, 224 and 224 over 255
    float offset[3] = {0, 0.0627451f, 0.0627451f};          // 16 over 255
    ProcessColorMatrix32f(src, dst, matrix);
    ProcessMulC32f(src, dst, scale);
    ProcessAddC32f(src, dst, offset);
    return true;
}

bool CColorSpaceConverter::AppleR4FLToARGB32(CFrame& src, CFrame& dst) {
    float offset[3] = {0, -0.0627451f, -0.0627451f};
    float scale[3] = {1.1643835f, 1.1383928f, 1.1383928f};
    float centre[3] = {0, -0.5f, -0.5f};
    float matrix[3][4] = {{1, 0, 1.402f, 0}, {1, -0.344f, -0.714f, 0}, {1, 1.772f, 0, 0}};
    ProcessAddC32f(src, dst, offset);
    ProcessMulC32f(src, dst, scale);
    ProcessAddC32f(src, dst, centre);
    ProcessColorMatrix32f(src, dst, matrix);
    return true;
}

}  // namespace brushworks::Processors
