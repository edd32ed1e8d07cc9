// The operations that the library calls back. None of them throws.
#include "host/video_host.h"

#include <utility>

namespace brushworks::host {

Ref<VideoHost> VideoHost::create(const HostOptions& options, std::vector<EffectParam> values) {
    return Ref<VideoHost>::adopt(new VideoHost(options, std::move(values)));
}

VideoHost::VideoHost(const HostOptions& options, std::vector<EffectParam> values)
    : m_sName(options.name), m_services(options.services), m_values(std::move(values)) {}

std::uint32_t VideoHost::QueryInterface(const _GUID& iid, void** face) {
    if (iid == IID_IUnknown) {
        AddRef();
        *face = static_cast<IUnknown*>(this);
        return kInterfaceFound;
    }
    for (const Ref<IUnknown>& service : m_services) {
        if (service->QueryInterface(iid, face) == kInterfaceFound) return kInterfaceFound;
    }
    *face = nullptr;
    return kNoInterface;
}

std::uint32_t VideoHost::AddRef() {
    return m_nReferences.fetch_add(1, std::memory_order_relaxed) + 1;
}

std::uint32_t VideoHost::Release() {
    const std::uint32_t left = m_nReferences.fetch_sub(1, std::memory_order_acq_rel) - 1;
    if (left == 0) delete this;
    return left;
}

bool VideoHost::GetParam(unsigned int index, EffectParam* value, unsigned int /*type*/) {
    const bool known = index < m_values.size();
    *value = known ? m_values[index] : EffectParam{.word = 0};
    return known;
}

HostInfo VideoHost::GetHostInfo() {
    return {m_sName.c_str(), {}};
}

}  // namespace brushworks::host
