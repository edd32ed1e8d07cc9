// Whether the pictures of a render are fields.
#pragma once

#include "brushworks/render.h"

namespace brushworks {

/// The frames are fields only where the host says that its field mode is valid.
inline bool AreFields(const RenderInfo* info) {
    return info && (info->dwFlags & kRenderHasFieldMode) && info->nFieldMode <= 2;
}

}  // namespace brushworks
