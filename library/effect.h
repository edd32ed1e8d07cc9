// What all effects share: faces and counts, enumeration from the tables, and the order of a render.
#pragma once

#include "brushworks/effect.h"
#include "frames/frame.h"
#include "frames/memory_allocator.h"
#include "gpu/gpu_effect_helper.h"
#include "gpu/probes.h"
#include "library/atomic.h"
#include "library/base_effect_helper.h"
#include "library/effect_tables.h"
#include "library/parameters.h"

namespace brushworks {

/// One render as an effect's own steps see it. Everything is borrowed for the length of the call.
struct RenderJob {
    const Parameters& parameters;
    CFrame& source;              ///< a view of the overlap of the host's frames
    CFrame& destination;         ///< likewise
    const RenderInfo* info;      ///< may be null
    bool bFields;                ///< the frames are single fields
    MemoryAllocator& allocator;  ///< for scratch frames, which die before the call returns
};

/// One render on the graphics card as an effect's own passes see it. Borrowed likewise.
struct GPURenderJob {
    const Parameters& parameters;
    IVideoHost* host;
    TextureParams& source;       ///< in the host's channel order
    TextureParams& destination;  ///< likewise
    const RenderInfo* info;
    bool bFields;  ///< the pictures are single fields
};

/// A concrete effect gives its tables to the constructor and overrides Paint and PaintGL.
class CEffect : public GPUEffectHelper, public IParamToolTip, private CBaseEffectHelper {
  public:
    /// `tables` are constants that outlive the effect.
    explicit CEffect(const EffectTables& tables) : m_tables(tables) {}

    std::uint32_t QueryInterface(const _GUID& iid, void** face) final;
    std::uint32_t AddRef() final { return m_references.Add(); }
    std::uint32_t Release() final;

    const char* GetName() final { return m_tables.name; }
    unsigned int GetCaps() final { return 0x3C1; }
    bool EnumParam(unsigned int index, EffectParamSetup* setup) final;
    bool Render(IVideoHost* host, FrameParams* source, FrameParams* second,
                FrameParams* destination, RenderInfo* info) final;
    const char* EnumPreset(unsigned int index) final;
    bool EnumPresetData(unsigned int preset, unsigned int param, EffectParam* value) final;

    bool GetGPUCapsGL(IVideoHost* pHost, GPUCaps* pCaps, unsigned int nFlags) final;
    bool RenderGL(IVideoHost* pHost, TextureParams* pSrc, TextureParams* pSrc2, TextureParams* pDst,
                  RenderInfo* pInfo) final;

    // Stands before this class's own virtual operations: its place in the table is told.
    const char* EnumToolTip(unsigned int index) final;

  protected:
    /// The effect's own steps on the processor, from the job's source into its destination. Alpha,
    /// the mark and statistics are seen to afterwards, unless the result is false. An effect that
    /// does not override this has no render on the processor.
    virtual bool Paint(RenderJob& job);
    /// Statistics hear of a render that failed, too.
    virtual bool TellsOfEveryRender() const { return false; }

    /// What a card has to answer for before the effect says that it renders there. The record of
    /// features is, at this moment, as the host filled it. False settles the question without an
    /// answer.
    virtual bool GetGPUProbes(GPUProbes& probes) const;
    /// The effect has passes for the graphics card.
    virtual bool HasGLPath() const { return false; }
    /// The effect's own passes: make textures and programs, StartPasses, draw, FinishPasses. What
    /// it made is freed when it returns, whatever it returns.
    virtual bool PaintGL(GPURenderJob& job);

    /// Sets the fixed state and the projection, in which a unit is a pixel of what source and
    /// destination have in common.
    void StartPasses(const GPURenderJob& job);
    /// Closes a render: the mark, and the picture in true channel order from `result`, which may be
    /// the job's scratch, into the destination.
    bool FinishPasses(GPURenderJob& job, TextureParams& result);

  private:
    const EffectTables m_tables;
    RefCount m_references;
};

}  // namespace brushworks
