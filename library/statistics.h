// What the library tells of its use.
#pragma once

#include "brushworks/frame.h"

namespace brushworks {

/// Receives the tidings. Called from any thread.
class IUsageStatistics {
  public:
    virtual ~IUsageStatistics() = default;
    /// A library object was made; these are its effects. The array is the caller's, for this call.
    virtual void SetEffects(const char* const* names, unsigned int count) = 0;
    /// An effect rendered a frame; null for one that never left the graphics card.
    virtual void ReportRender(const char* effect, const FrameParams* frame) = 0;
};

/// The statistics in force. Unless SetStatistics put others there they keep nothing, and nothing
/// leaves the machine.
IUsageStatistics& Statistics();

/// Puts `statistics`, borrowed, in force, or the ones that keep nothing again with null. Not during
/// renders.
void SetStatistics(IUsageStatistics* statistics);

}  // namespace brushworks
