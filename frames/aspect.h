// The host's pixel aspect as the factors that brush-like effects need.
#pragma once

#include <cstdint>

#include "brushworks/render.h"

namespace brushworks {

struct AspectHelper {
    /// `info` may be null. `fieldsHalveHeight` doubles the aspect of anything but a whole frame;
    /// `keepAxis` keeps the axes tied when the aspect is above 1.
    void Init(const RenderInfo* info, bool fieldsHalveHeight, bool keepAxis);

    float fAspect = 1.0f;  ///< width of a pixel over its height
    float fAxisX = 1.0f;   ///< with fAxisY a vector of length 1
    float fAxisY = 1.0f;
    bool bAspectApplied = false;  ///< the host or the field mode set the aspect
    bool bAxisFree = true;
    std::int32_t nAspect1024 = 1024;  ///< fAspect in 1024ths
};

}  // namespace brushworks
