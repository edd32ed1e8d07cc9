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
    /// same pixel format, one of 0, 1, 3 and 4, and share no memory. `host` must not be null;
    /// `second` is not used and may be null; a null `info` stands for whole frames of square pixels
    /// and a seed of 0. The source is only read, but for one byte that Toonery Plus writes: the
    /// alpha of the first pixel in format 0.
    ///
    /// The host is asked for each value once, all of them before anything is painted. Sliders are
    /// brought to 0..1 (the highest presets lie a hair above), NaN to 0. An index that a list does
    /// not have fails a render of 8 bits; in floats the step that it is for is left out.
    ///
    /// Returns false when nothing useful was rendered: discard the destination. Without memory for
    /// a step that is the answer of Oil, Charcoal, Water Color and, in 8 bits, Posterize. The
    /// others answer true: they leave the step out, or what the destination held, with the source's
    /// alpha. [one render at a time per object, any thread]
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
    /// Renders texture to texture. `info` must not be null. False when nothing was rendered; the
    /// effect never falls back to the processor by itself. Leaves GL_BLEND disabled. [the thread
    /// that owns the context]
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
