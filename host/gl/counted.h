// What every reference-counted object of the OpenGL host has alike.
#pragma once

#include <atomic>

#include "brushworks/unknown.h"

namespace brushworks::host::gl {

/// Implements the first three operations of the interface `Face`; `kFaceId` is its identifier where
/// it has one. An object starts with the one reference of its creator.
template <class Face, const _GUID* kFaceId = nullptr>
class Counted : public Face {
  public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    std::uint32_t QueryInterface(const _GUID& iid, void** face) override {
        *face = nullptr;
        if (!(iid == IID_IUnknown) && (kFaceId == nullptr || !(iid == *kFaceId))) {
            return kNoInterface;
        }
        AddRef();
        *face = static_cast<Face*>(this);
        return kInterfaceFound;
    }
    std::uint32_t AddRef() final {
        return m_nReferences.fetch_add(1, std::memory_order_relaxed) + 1;
    }
    std::uint32_t Release() final {
        const std::uint32_t left = m_nReferences.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (left == 0) delete this;
        return left;
    }

  protected:
    ~Counted() override = default;

  private:
    std::atomic<std::uint32_t> m_nReferences = 1;
};

}  // namespace brushworks::host::gl
