// What the library has been given and has not yet given back.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "brushworks/unknown.h"
#include "host/ref.h"

namespace brushworks::host::gl {

/// Drops the reference that comes with an object that the library gives back; returns how many are
/// left. Out of line, for analyzers do not count references and would warn of its last use.
std::uint32_t dropReference(IUnknown& object);

/// Objects of one kind. The list has a reference of its own on each, so that what the library
/// forgets can still be put in order.
template <class T>
class HandedOut {
  public:
    void add(T* object, std::uint64_t serial, std::string description) {
        m_entries.push_back({Ref<T>::share(object), serial, std::move(description)});
    }

    /// Takes an object off the list; null when it is not on it, whatever the pointer is.
    template <class Face>
    Ref<T> remove(const Face* object) {
        const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                        [=](const Entry& e) { return e.object.get() == object; });
        if (entry == m_entries.end()) return {};
        Ref<T> removed = std::move(entry->object);
        m_entries.erase(entry);
        return removed;
    }

    /// The object behind a pointer of the library; null when it is not on the list.
    template <class Face>
    T* find(const Face* object) const {
        for (const Entry& entry : m_entries) {
            if (entry.object.get() == object) return entry.object.get();
        }
        return nullptr;
    }

    /// Appends the descriptions of those handed out with this serial number or a later one.
    void listSince(std::uint64_t serial, std::vector<std::string>& descriptions) const {
        for (const Entry& entry : m_entries) {
            if (entry.serial >= serial) descriptions.push_back(entry.description);
        }
    }

    /// Empties the list, with a call for each.
    template <class Call>
    void removeAll(Call call) {
        for (Entry& entry : m_entries) call(*entry.object);
        m_entries.clear();
    }

  private:
    struct Entry {
        Ref<T> object;
        std::uint64_t serial;
        std::string description;
    };

    std::vector<Entry> m_entries;
};

}  // namespace brushworks::host::gl
