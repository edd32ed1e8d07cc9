#include "refusal.h"

#include <climits>
#include <cstdlib>
#include <new>

namespace {

long g_live = 0, g_requests = 0, g_first = LONG_MAX, g_last = LONG_MAX;

void* Obtain(std::size_t size, std::size_t alignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__) noexcept {
    if (++g_requests >= g_first && g_requests <= g_last) return nullptr;
    void* block = std::aligned_alloc(alignment, (size + alignment) / alignment * alignment);
    g_live += block != nullptr;
    return block;
}

void* ObtainOrThrow(std::size_t size, std::align_val_t alignment = std::align_val_t{
                                          __STDCPP_DEFAULT_NEW_ALIGNMENT__}) {
    if (void* block = Obtain(size, static_cast<std::size_t>(alignment))) return block;
    throw std::bad_alloc();
}

void GiveBack(void* block) noexcept {
    g_live -= block != nullptr;
    std::free(block);
}

}  // namespace

// All of them, so that none is a sanitizer's.
// clang-format off
using Size = std::size_t;
using Alignment = std::align_val_t;
void* operator new(Size n) { return ObtainOrThrow(n); }
void* operator new[](Size n) { return ObtainOrThrow(n); }
void* operator new(Size n, Alignment a) { return ObtainOrThrow(n, a); }
void* operator new[](Size n, Alignment a) { return ObtainOrThrow(n, a); }
void* operator new(Size n, const std::nothrow_t&) noexcept { return Obtain(n); }
void* operator new[](Size n, const std::nothrow_t&) noexcept { return Obtain(n); }
void operator delete(void* block) noexcept { GiveBack(block); }
void operator delete[](void* block) noexcept { GiveBack(block); }
void operator delete(void* block, Size) noexcept { GiveBack(block); }
void operator delete[](void* block, Size) noexcept { GiveBack(block); }
void operator delete(void* block, Alignment) noexcept { GiveBack(block); }
void operator delete[](void* block, Alignment) noexcept { GiveBack(block); }
void operator delete(void* block, Size, Alignment) noexcept { GiveBack(block); }
void operator delete[](void* block, Size, Alignment) noexcept { GiveBack(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { GiveBack(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { GiveBack(block); }
// clang-format on

namespace brushworks::testing {

long LiveBlocks() {
    return g_live;
}

Refusal::Refusal(long first, long last) {
    g_requests = 0;
    g_first = first;
    g_last = last;
}

Refusal::~Refusal() {
    g_first = g_last = LONG_MAX;
}

bool Refusal::WasMet() const {
    return g_requests >= g_first;
}

}  // namespace brushworks::testing
