#include "processors/set_color.h"

#include "frames/samples.h"
#include "primitives/set.h"
#include "processors/region.h"

namespace brushworks::Processors {

bool CSetColor::Process(CFrame* frame, unsigned int color) {
    const IppiSize size = SizeOf(*frame);
    const PixelFormat format = frame->m_pfPixelFormat;
    unsigned char bytes[4];
    const bool lowFirst = format == PixelFormatBGRA8 || format == PixelFormatBGRA32f;
    for (int i = 0; i < 4; ++i)
        bytes[lowFirst ? i : 3 - i] = static_cast<unsigned char>(color >> 8 * i);
    const unsigned char low = static_cast<unsigned char>(color);

    if (IsFloatColor(*frame) || (IsFloatPlane(*frame) && frame->m_nDepth == 16)) {
        float values[4];
        for (int i = 0; i < 4; ++i) values[i] = static_cast<float>(bytes[i]) * kByteToFloat;
        return ippiSet_32f_C4R(values, Samples<float>(*frame), frame->m_nByteSpan, size) ==
               kStatusOk;
    }
    if (IsFloatPlane(*frame) && frame->m_nDepth == 4)
        return ippiSet_32f_C1R(static_cast<float>(low) * kByteToFloat, Samples<float>(*frame),
                               frame->m_nByteSpan, size) == kStatusOk;
    if (IsByteColor(*frame))
        return ippiSet_8u_C4R(bytes, frame->m_pBuffer, frame->m_nByteSpan, size) == kStatusOk;
    if (frame->m_nDepth == 1)
        return ippiSet_8u_C1R(low, frame->m_pBuffer, frame->m_nByteSpan, size) == kStatusOk;
    return false;
}

bool CSetChannelColor::Process(CFrame* frame, unsigned int channel, unsigned int value) {
    if (channel > 3 || !frame->m_pBuffer) return false;
    const IppiSize size = SizeOf(*frame);
    const auto byte = static_cast<unsigned char>(value);
    if (IsFloatColor(*frame) && frame->m_nDepth == 16)
        return ippiSet_32f_C4CR(static_cast<float>(byte) * kByteToFloat,
                                Samples<float>(*frame) + channel, frame->m_nByteSpan,
                                size) == kStatusOk;
    if (IsByteColor(*frame) && frame->m_nDepth == 4)
        return ippiSet_8u_C4CR(byte, frame->m_pBuffer + channel, frame->m_nByteSpan, size) ==
               kStatusOk;
    return false;
}

}  // namespace brushworks::Processors
