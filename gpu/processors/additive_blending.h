// Blending that adds what is drawn to the target, for the time of a pass.
#pragma once

#include "gpu/gpu_helper.h"

namespace brushworks::GPUProcessors {

class AdditiveBlending {
  public:
    explicit AdditiveBlending(GPUHelper& helper) : m_blender(helper.Blender()) {
        using Blender = GPUHelper::GLBlender;
        m_bEnabled =
            m_blender.Enable(Blender::kAdd, Blender::kAdd) &&
            m_blender.BlendFuncSeparate(Blender::kOne, Blender::kOne, Blender::kOne, Blender::kOne);
    }
    ~AdditiveBlending() { m_blender.Disable(); }
    AdditiveBlending(const AdditiveBlending&) = delete;
    AdditiveBlending& operator=(const AdditiveBlending&) = delete;

    bool IsEnabled() const { return m_bEnabled; }

  private:
    GPUHelper::GLBlender& m_blender;
    bool m_bEnabled;
};

}  // namespace brushworks::GPUProcessors
