// Licensing and statistics as an effect reaches them.
#pragma once

#include "brushworks/frame.h"
#include "brushworks/gl.h"
#include "brushworks/host.h"

namespace brushworks {

class GPUHelper;

/// Has no data. A null name stands for the usual mark.
class CBaseEffectHelper {
  public:
    virtual bool AllowWatermark();
    virtual void AddWatermark(const char* name, IVideoHost* host, FrameParams* frame,
                              float strength);
    virtual void AddWatermark(IVideoHost* host, FrameParams* frame, float strength);
    virtual void AddWatermarkGL(GPUHelper* helper, const char* name, TextureParams* source,
                                TextureParams* destination, float strength);
    virtual void AddWatermarkGL(GPUHelper* helper, TextureParams* source,
                                TextureParams* destination, float strength);
    virtual bool AllowUsageStatistics();
    virtual void AddUsageStatistics(const char* effect, FrameParams* frame);

  protected:
    ~CBaseEffectHelper() = default;
};

}  // namespace brushworks
