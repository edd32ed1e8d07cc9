#include "library/frame_processor.h"

#include <algorithm>
#include <cstring>

#include "library/host_frames.h"
#include "primitives/resize.h"
#include "primitives/ycbcr.h"
#include "processors/alpha_blend.h"
#include "processors/alpha_premul.h"
#include "processors/channel_reverse.h"
#include "processors/color_space_converter.h"
#include "processors/copy.h"
#include "processors/copy_plane.h"
#include "processors/in_place.h"
#include "processors/invert.h"
#include "processors/region.h"
#include "processors/set_color.h"

namespace brushworks {
namespace {

using Processors::IsByteColor;
using Processors::IsFloatColor;
using Processors::RowOf;
using Processors::Samples;

constexpr int kPackedDepth = 2;  // bytes per pixel of 4:2:2

/// operation(frame), when the frame is sound.
template <class Operation>
bool OnFrame(const FrameParams* params, Operation operation) {
    CFrame frame;
    return OpenHostFrame(params, frame) && operation(frame);
}

/// operation(source, destination) on their overlap, when both are sound and alike.
template <class Operation>
bool OnOverlap(const FrameParams* source, const FrameParams* destination, Operation operation) {
    HostFrames frames;
    return frames.Open(source, destination) && operation(frames.source, frames.destination);
}

/// Opens both whole frames, which must be alike.
bool OpenWhole(const FrameParams* source, const FrameParams* destination, CFrame& from,
               CFrame& to) {
    return OpenHostFrame(source, from) && OpenHostFrame(destination, to) &&
           HavePixelsAlike(from, to);
}

/// No pixel format stands for packed 4:2:2, so neither format nor depth of the record is read.
bool OpenPacked(const FrameParams* params, CFrame& frame) {
    if (!frame.Init(params)) return false;
    frame.m_nDepth = kPackedDepth;
    return HasSoundRows(frame);
}

bool OpenByteColor(const FrameParams* params, CFrame& frame) {
    return OpenHostFrame(params, frame) && IsByteColor(frame);
}

int InterpolationOf(int mode) {
    switch (mode) {
        case 0:
            return kResizeNearest;
        case 2:
            return kResizeCubic;
        default:
            return kResizeLinear;
    }
}

/// The whole of one frame onto the whole of another.
template <class Sample, class Primitive>
bool ScaleWith(Primitive resize, const CFrame& from, const CFrame& to, int mode) {
    const double xFactor = static_cast<double>(to.m_nWidth) / from.m_nWidth;
    const double yFactor = static_cast<double>(to.m_nHeight) / from.m_nHeight;
    return resize(Samples<const Sample>(from), Processors::SizeOf(from), from.m_nByteSpan,
                  {0, 0, from.m_nWidth, from.m_nHeight}, Samples<Sample>(to), to.m_nByteSpan,
                  Processors::SizeOf(to), xFactor, yFactor, InterpolationOf(mode)) == kStatusOk;
}

bool ScaleBytes(const CFrame& from, const CFrame& to, int mode) {
    return IsByteColor(from) && IsByteColor(to) &&
           ScaleWith<std::uint8_t>(ippiResize_8u_C4R, from, to, mode);
}

bool ScaleFloats(const CFrame& from, const CFrame& to, int mode) {
    return IsFloatColor(from) && IsFloatColor(to) &&
           ScaleWith<float>(ippiResize_32f_C4R, from, to, mode);
}

/// The part of `source` that `rect` names, right and bottom inclusive, no larger than `most`; false
/// where that is empty or leaves the source.
bool OpenPart(CFrame& source, const tagRECT& rect, IppiSize most, CFrame& part) {
    const std::int64_t left = rect.left, top = rect.top;
    const auto width = std::min<std::int64_t>(rect.right - left + 1, most.width);
    const auto height = std::min<std::int64_t>(rect.bottom - top + 1, most.height);
    if (left < 0 || top < 0 || width < 1 || height < 1 || left + width > source.m_nWidth ||
        top + height > source.m_nHeight)
        return false;
    return part.Init(&source, rect.left, rect.top, static_cast<int>(width),
                     static_cast<int>(height), source.m_bFlipped);
}

std::size_t RowBytes(const CFrame& frame) {
    return static_cast<std::size_t>(frame.m_nWidth) * frame.m_nDepth;
}

/// Mirrors the rows; they are exchanged in pieces that stay in the first cache.
void FlipRows(const CFrame& frame) {
    unsigned char piece[4096];
    for (int top = 0, bottom = frame.m_nHeight - 1; top < bottom; ++top, --bottom) {
        auto* a = RowOf<unsigned char>(frame, top);
        auto* b = RowOf<unsigned char>(frame, bottom);
        for (std::size_t left = RowBytes(frame), bytes; left > 0; left -= bytes) {
            bytes = std::min(left, sizeof piece);
            std::memcpy(piece, a, bytes);
            std::memcpy(a, b, bytes);
            std::memcpy(b, piece, bytes);
            a += bytes;
            b += bytes;
        }
    }
}

}  // namespace

std::uint32_t FrameProcessor::QueryInterface(const _GUID& iid, void** face) {
    if (!face) return kNoInterface;
    const bool known = iid == IID_IUnknown || iid == IID_FrameProcessor;
    *face = known ? static_cast<IFrameProcessor*>(this) : nullptr;
    if (!known) return kNoInterface;
    AddRef();
    return kInterfaceFound;
}

std::uint32_t FrameProcessor::Release() {
    const std::uint32_t left = m_references.Drop();
    if (left == 0) delete this;
    return left;
}

bool FrameProcessor::Copy(FrameParams* source, FrameParams* destination) {
    return OnOverlap(source, destination, [](CFrame& from, CFrame& to) {
        return Processors::CCopy().Process(&from, &to);
    });
}

bool FrameProcessor::Resize(FrameParams* source, FrameParams* destination, int mode) {
    CFrame from, to;
    return OpenWhole(source, destination, from, to) && ScaleBytes(from, to, mode);
}

bool FrameProcessor::ReverseChannels(FrameParams* source, FrameParams* destination) {
    return OnOverlap(source, destination, [](CFrame& from, CFrame& to) {
        return Processors::CChannelReverse().Process(&from, &to);
    });
}

bool FrameProcessor::YUY2ToRGBA(FrameParams* source, FrameParams* destination, unsigned char alpha,
                                IMemoryAllocator*) {
    CFrame from, to;
    return OpenPacked(source, from) && OpenByteColor(destination, to) &&
           ippiYCbCr422ToBGR_8u_C2C4R(from.m_pBuffer, from.m_nByteSpan, to.m_pBuffer,
                                      to.m_nByteSpan, Processors::CommonSize(from, to),
                                      alpha) == kStatusOk;
}

bool FrameProcessor::RGBAToYUY2(FrameParams* source, FrameParams* destination, IMemoryAllocator*) {
    CFrame from, to;
    return OpenByteColor(source, from) && OpenPacked(destination, to) &&
           ippiBGRToYCbCr422_8u_AC4C2R(from.m_pBuffer, from.m_nByteSpan, to.m_pBuffer,
                                       to.m_nByteSpan,
                                       Processors::CommonSize(from, to)) == kStatusOk;
}

bool FrameProcessor::SetChannelValue(FrameParams* frame, unsigned int channel, unsigned int value) {
    return OnFrame(frame, [=](CFrame& opened) {
        return Processors::CSetChannelColor().Process(&opened, channel, value);
    });
}

bool FrameProcessor::AlphaBlend(FrameParams* first, FrameParams* second, FrameParams* destination,
                                bool premultiplied) {
    CFrame over, under, to;
    return OpenWhole(first, destination, over, to) && OpenHostFrame(second, under) &&
           HavePixelsAlike(under, to) &&
           Processors::CAlphaBlend().Process(&over, &under, &to, premultiplied);
}

bool FrameProcessor::SwapChannels(FrameParams* frame, unsigned int* order) {
    return order && OnFrame(frame, [order](CFrame& opened) {
               return Processors::CChannelReverse().Process(&opened, order);
           });
}

bool FrameProcessor::AlphaPremul(FrameParams* frame) {
    return OnFrame(
        frame, [](CFrame& opened) { return Processors::CAlphaPremul().Process(opened, opened); });
}

bool FrameProcessor::AppleR4FLToARGB32(FrameParams* source, FrameParams* destination) {
    return OnOverlap(source, destination, [](CFrame& from, CFrame& to) {
        return Processors::CColorSpaceConverter().AppleR4FLToARGB32(from, to);
    });
}

bool FrameProcessor::ARGB32ToAppleR4FL(FrameParams* source, FrameParams* destination) {
    return OnOverlap(source, destination, [](CFrame& from, CFrame& to) {
        return Processors::CColorSpaceConverter().ARGB32ToAppleR4FL(from, to);
    });
}

bool FrameProcessor::FlipFrame(FrameParams* source, FrameParams* destination) {
    return OnOverlap(source, destination, [](CFrame& from, CFrame& to) {
        if (from.m_pBuffer == to.m_pBuffer) {
            FlipRows(to);
            return true;
        }
        for (int y = 0; y < to.m_nHeight; ++y)
            std::memmove(RowOf<char>(to, to.m_nHeight - 1 - y), RowOf<char>(from, y), RowBytes(to));
        return true;
    });
}

bool FrameProcessor::FlipFrame(FrameParams* frame) {
    return OnFrame(frame, [](CFrame& opened) {
        FlipRows(opened);
        return true;
    });
}

bool FrameProcessor::CopyChannel(FrameParams* source, FrameParams* destination, int sourceChannel,
                                 int destinationChannel) {
    CFrame from, to;
    return OpenHostFrame(source, from) && OpenHostFrame(destination, to) &&
           HaveSamplesAlike(from, to) &&
           Processors::CCopyPlane().Process(&from, &to, sourceChannel, destinationChannel);
}

bool FrameProcessor::InvertChannel(FrameParams* frame, int channel) {
    return OnFrame(frame, [channel](CFrame& opened) {
        // The processor inverts what lies behind a row too, which need not be the host's to give:
        // a neighbour's pixels, or no memory at all. It gets the rows one by one, without that.
        for (int y = 0; y < opened.m_nHeight; ++y) {
            CFrame row;
            row.Init(RowOf<unsigned char>(opened, y), opened.m_nWidth, 1,
                     static_cast<int>(RowBytes(opened)), opened.m_nDepth, opened.m_pfPixelFormat,
                     opened.m_bFlipped);
            if (!Processors::CInvertChannel().Process(&row, channel)) return false;
        }
        return true;
    });
}

bool FrameProcessor::SqrInPlace(FrameParams* frame) {
    return OnFrame(frame,
                   [](CFrame& opened) { return Processors::CSqrInPlace().Process(&opened); });
}

bool FrameProcessor::SqrtInPlace(FrameParams* frame) {
    return OnFrame(frame,
                   [](CFrame& opened) { return Processors::CSqrtInPlace().Process(&opened); });
}

bool FrameProcessor::ThresholdLTInPlace(FrameParams* frame, const float* thresholds) {
    return OnFrame(frame, [thresholds](CFrame& opened) {
        return Processors::CThresholdLTInPlace().Process(&opened, thresholds);
    });
}

bool FrameProcessor::ResizeCrop(FrameParams* source, tagRECT* rect, FrameParams* destination,
                                int mode) {
    CFrame from, to, part;
    return rect && OpenWhole(source, destination, from, to) &&
           OpenPart(from, *rect, Processors::SizeOf(to), part) &&
           (ScaleBytes(part, to, mode) || ScaleFloats(part, to, mode));
}

}  // namespace brushworks
