// The control "Blend".
#pragma once

#include "library/effect.h"
#include "processors/mix.h"

namespace brushworks {

/// Mixes the source over what was painted: `blend` of the painted picture, the rest of the source.
/// From 1 on nothing is mixed.
inline void BlendWithSource(RenderJob& job, float blend) {
    if (blend < 1.0f)
        Processors::CMix().Process(&job.source, &job.destination, &job.destination, 1.0f - blend,
                                   blend);
}

}  // namespace brushworks
