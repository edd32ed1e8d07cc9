// A pointer that holds one reference of a reference-counted object.
#pragma once

#include <utility>

namespace brushworks::host {

/// Owns one reference of `T`, an interface or a class that derives from one.
template <class T>
class Ref {
  public:
    Ref() = default;
    /// Takes over the reference that the caller has.
    static Ref adopt(T* object) {
        Ref ref;
        ref.m_pObject = object;
        return ref;
    }
    /// Adds a reference of its own.
    static Ref share(T* object) {
        if (object != nullptr) object->AddRef();
        return adopt(object);
    }

    Ref(const Ref& other) : Ref(share(other.m_pObject)) {}
    Ref(Ref&& other) noexcept : m_pObject(std::exchange(other.m_pObject, nullptr)) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(m_pObject, other.m_pObject);
        return *this;
    }
    ~Ref() {
        if (m_pObject != nullptr) m_pObject->Release();
    }

    T* get() const { return m_pObject; }
    T* operator->() const { return m_pObject; }
    T& operator*() const { return *m_pObject; }
    explicit operator bool() const { return m_pObject != nullptr; }

  private:
    T* m_pObject = nullptr;
};

}  // namespace brushworks::host
