#include "library/working_frames.h"

#include "processors/channel_reverse.h"
#include "processors/color_space_converter.h"
#include "processors/region.h"

namespace brushworks {
namespace {

bool IsWorkingLayout(const CFrame& frame) {
    return frame.m_pfPixelFormat == PixelFormatBGRA8;
}

void View(CFrame& view, CFrame& frame) {
    view.Init(&frame, 0, 0, frame.m_nWidth, frame.m_nHeight, frame.m_bFlipped);
}

/// Between a host's layout and the working one, either way.
void Convert(CFrame& from, CFrame& to) {
    if (Processors::IsFloatColor(from) || Processors::IsFloatColor(to))
        Processors::CColorSpaceConverter().Process(&from, &to);
    else
        Processors::CChannelReverse().Process(&from, &to);
}

}  // namespace

bool WorkingFrames::Open(RenderJob& job) {
    if (!Processors::IsByteColor(job.source) && !Processors::IsFloatColor(job.source)) return false;
    if (IsWorkingLayout(job.source)) {
        View(source, job.source);
        View(destination, job.destination);
        return true;
    }
    for (CFrame* frame : {&source, &destination})
        if (!frame->Init(job.source.m_nWidth, job.source.m_nHeight, 4, &job.allocator,
                         PixelFormatBGRA8, job.source.m_bFlipped))
            return false;
    Convert(job.source, source);
    return true;
}

void WorkingFrames::Finish(RenderJob& job) {
    if (!IsWorkingLayout(job.source)) Convert(destination, job.destination);
}

}  // namespace brushworks
