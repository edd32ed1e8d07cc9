// A host for the length of one call: it adds the OpenGL services to those of another host.
#pragma once

#include "brushworks/gl.h"
#include "brushworks/host.h"
#include "host/gl/counted.h"
#include "host/ref.h"

namespace brushworks::host::gl {

/// Answers IID_VideoHostGL by itself, and everything else as the other host does. Neither may go
/// before it.
class LendingHost final : public Counted<IVideoHost> {
  public:
    /// Without another host, all parameters are 0.
    static Ref<LendingHost> create(IVideoHostGL& maker, IVideoHost* other) {
        return Ref<LendingHost>::adopt(new LendingHost(maker, other));
    }

    std::uint32_t QueryInterface(const _GUID& iid, void** face) override {
        if (iid == IID_VideoHostGL) {
            m_maker.AddRef();
            *face = &m_maker;
            return kInterfaceFound;
        }
        if (m_pOther == nullptr || iid == IID_IUnknown) return Counted::QueryInterface(iid, face);
        return m_pOther->QueryInterface(iid, face);
    }
    bool GetParam(unsigned int index, EffectParam* value, unsigned int type) override {
        if (m_pOther != nullptr) return m_pOther->GetParam(index, value, type);
        *value = {.word = 0};
        return true;
    }
    HostInfo GetHostInfo() override {
        return m_pOther != nullptr ? m_pOther->GetHostInfo() : HostInfo{"Brushworks host", {}};
    }

  private:
    LendingHost(IVideoHostGL& maker, IVideoHost* other) : m_maker(maker), m_pOther(other) {}
    ~LendingHost() override = default;

    IVideoHostGL& m_maker;
    IVideoHost* m_pOther;
};

}  // namespace brushworks::host::gl
