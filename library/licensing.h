// What rendering asks of the licensing subsystem.
#pragma once

#include "brushworks/frame.h"
#include "brushworks/gl.h"
#include "brushworks/host.h"

namespace brushworks {

class GPUHelper;

/// Decides whether the product runs unrestricted. Called from any render thread.
class ILicensing {
  public:
    virtual ~ILicensing() = default;
    /// Rendering on the GPU is allowed.
    virtual bool IsGPUAllowed() = 0;
    /// Renders carry a mark.
    virtual bool IsMarkRequired() = 0;
    /// Overlays the mark, at a strength of 0 to 1; `name`, of the mark to show, may be null.
    virtual void DrawMark(const char* name, IVideoHost* host, FrameParams* frame,
                          float strength) = 0;
    virtual void DrawMarkGL(GPUHelper* helper, const char* name, TextureParams* source,
                            TextureParams* destination, float strength) = 0;
};

/// The licensing in force: unrestricted, no mark, GPU allowed, unless SetLicensing put another
/// there.
ILicensing& Licensing();

/// Puts `licensing`, borrowed, in force, or the unrestricted one again with null. Not during
/// renders.
void SetLicensing(ILicensing* licensing);

}  // namespace brushworks
