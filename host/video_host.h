// The host as a render sees it: the values of one effect's parameters, and the services that the
// host lends.
#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "brushworks/host.h"
#include "brushworks/memory.h"
#include "host/ref.h"

namespace brushworks::host {

/// What the host tells and lends to the library.
struct HostOptions {
    /// How the host calls itself.
    std::string name = "Brushworks host";
    /// Objects that answer for further faces of the host: an IMemoryAllocator, an IVideoHostGL.
    /// Without an IMemoryAllocator the library allocates for itself. They serve all effects, so
    /// they must bear calls from several threads when effects render at once.
    std::vector<Ref<IUnknown>> services;
};

/// Serves one effect object. Values change only between renders.
class VideoHost final : public IVideoHost {
  public:
    static Ref<VideoHost> create(const HostOptions& options, std::vector<EffectParam> values);

    EffectParam value(unsigned int index) const { return m_values.at(index); }
    void setValue(unsigned int index, EffectParam value) { m_values.at(index) = value; }
    const std::vector<EffectParam>& values() const { return m_values; }

    std::uint32_t QueryInterface(const _GUID& iid, void** face) override;
    std::uint32_t AddRef() override;
    std::uint32_t Release() override;
    bool GetParam(unsigned int index, EffectParam* value, unsigned int type) override;
    HostInfo GetHostInfo() override;

  private:
    VideoHost(const HostOptions& options, std::vector<EffectParam> values);
    ~VideoHost() override = default;

    std::atomic<std::uint32_t> m_nReferences = 1;
    std::string m_sName;
    std::vector<Ref<IUnknown>> m_services;
    std::vector<EffectParam> m_values;
};

}  // namespace brushworks::host
