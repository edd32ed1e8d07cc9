// What every host implements.
#pragma once

#include <cstddef>

#include "brushworks/parameter.h"
#include "brushworks/unknown.h"

namespace brushworks {

/// What a host says of itself, returned by value. Only the name is read.
struct HostInfo {
    const char* szName;  ///< null-terminated, or null; must outlive the library's use of the host
    void* reserved[7];   ///< the host's own; write null
};
static_assert(sizeof(HostInfo) == 64 && offsetof(HostInfo, szName) == 0);

/// The host as one render sees it. GetParam names no effect, so the object passed to a render
/// answers for that render's effect.
///
/// QueryInterface must answer IID_MemoryAllocator with an IMemoryAllocator (it may refuse: the
/// library then allocates for itself) and IID_VideoHostGL with an IVideoHostGL (refusing means no
/// GPU render).
class IVideoHost : public IUnknown {
  public:
    /// Stores the current value of parameter `index`, of type `type` (a ParamType). The result is
    /// not looked at: a host that fails still stores a harmless value. Called many times per
    /// render. [the thread that called Render or RenderGPU]
    virtual bool GetParam(unsigned int index, EffectParam* value, unsigned int type) = 0;

    // Four slots that the library never calls.
    virtual void ReservedSlot6() {}
    virtual void ReservedSlot7() {}
    virtual void ReservedSlot8() {}
    virtual void ReservedSlot9() {}

    /// Says who the host is. [the thread that called RenderGPU]
    virtual HostInfo GetHostInfo() = 0;
};

}  // namespace brushworks
