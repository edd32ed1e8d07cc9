// The effects.
//
// An effect object renders one frame at a time; different objects may render at once, so a host
// renders in parallel with one object per thread. The enumerations may run at any time on any
// thread.
#pragma once

#include "brushworks/frame.h"
#include "brushworks/gl.h"
#include "brushworks/host.h"
#include "brushworks/parameter.h"
#include "brushworks/render.h"
#include "brushworks/unknown.h"

namespace brushworks {

/// An effect: its description, and its render on the processor.
class IVideoEffect : public IUnknown {
  public:
    /// The display name; constant, never freed. [any thread]
    virtual const char* GetName() = 0;
    /// Capability bits for the host; 0x3C1 for all effects of this library. [any thread]
    virtual unsigned int GetCaps() = 0;
    /// Describes parameter `index` in `*setup`, which the caller has cleared. False, with nothing
    /// touched, for an index out of range: callers count by walking. [any thread]
    virtual bool EnumParam(unsigned int index, EffectParamSetup* setup) = 0;
    /// Renders `source` into `destination`: the overlap, where their sizes differ. Both have the
    /// same pixel format, one of 0, 1, 3 and 4; `second` is not used and may be null. `host` must
    /// not be null. Returns false when nothing useful was rendered: discard the destination. [one
    /// render at a time per object, any thread]
    virtual bool Render(IVideoHost* host, FrameParams* source, FrameParams* second,
                        FrameParams* destination, RenderInfo* info) = 0;
    /// The name of preset `index`, or null past the last. Constant, never freed. [any thread]
    virtual const char* EnumPreset(unsigned int index) = 0;
    /// Copies the value that preset `preset` gives parameter `param`; false out of range. [any
    /// thread]
    virtual bool EnumPresetData(unsigned int preset, unsigned int param, EffectParam* value) = 0;
};

/// The same effect on the graphics card.
class IVideoGPUEffect : public IVideoEffect {
  public:
    /// Says in `*caps` whether the effect can render with `context`. False when the host offers no
    /// IVideoHostGL. Leaves GL_BLEND disabled. [the thread that owns the context]
    virtual bool GetGPUCaps(IVideoHost* host, IGLContext* context, GPUCaps* caps,
                            unsigned int flags) = 0;
    /// Renders texture to texture. False when nothing was rendered; the effect never falls back to
    /// the processor by itself. Leaves GL_BLEND disabled. [the thread that owns the context]
    virtual bool RenderGPU(RenderType type, IVideoHost* host, IGLContext* context,
                           TextureParams* source, TextureParams* second, TextureParams* destination,
                           RenderInfo* info) = 0;
};

/// Texts for a user about an effect's parameters; a face of every effect.
class IParamToolTip : public IUnknown {
  public:
    /// The text of parameter `index`, or null for none. Constant, never freed. [any thread]
    virtual const char* EnumToolTip(unsigned int index) = 0;
};

}  // namespace brushworks
