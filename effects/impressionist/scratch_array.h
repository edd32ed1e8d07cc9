// An array in a render's scratch memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>

#include "frames/memory_allocator.h"

namespace brushworks {

/// Items start out equal. What the allocator refuses comes from the heap, whose std::bad_alloc
/// passes through: the picture does not depend on what a host has to lend.
template <class Item>
class ScratchArray {
  public:
    ScratchArray(std::size_t count, const Item& value, MemoryAllocator& allocator)
        : m_helper(&allocator), m_size(count) {
        static_assert(std::is_trivially_destructible_v<Item>);
        if (count == 0) return;
        constexpr std::size_t kRoom = alignof(Item);  // hosts promise no alignment
        std::size_t bytes = count * sizeof(Item) + kRoom;
        if (count > (SIZE_MAX - kRoom) / sizeof(Item)) throw std::bad_alloc();
        if (!m_helper.Allocate(&m_block, bytes)) {
            m_helper = MemoryAllocatorHelper(nullptr);
            m_helper.Allocate(&m_block, bytes);
        }
        void* aligned = m_block;
        m_items = static_cast<Item*>(std::align(kRoom, count * sizeof(Item), aligned, bytes));
        std::uninitialized_fill_n(m_items, count, value);
    }
    ~ScratchArray() { m_helper.Free(m_block); }
    ScratchArray(const ScratchArray&) = delete;
    ScratchArray& operator=(const ScratchArray&) = delete;

    std::size_t size() const { return m_size; }
    Item* data() { return m_items; }
    Item* begin() { return m_items; }
    Item* end() { return m_items + m_size; }
    Item& operator[](std::size_t i) { return m_items[i]; }
    const Item& operator[](std::size_t i) const { return m_items[i]; }

  private:
    MemoryAllocatorHelper m_helper;
    std::size_t m_size;
    void* m_block = nullptr;
    Item* m_items = nullptr;
};

}  // namespace brushworks
