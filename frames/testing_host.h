// A host for tests: fixed parameter values, and on request an allocator that counts what it lends.
#pragma once

#include <cstdlib>
#include <map>
#include <vector>

#include "brushworks/host.h"
#include "brushworks/memory.h"

namespace brushworks::testing {

/// Lends memory, counts what is out, and refuses once `refuseAfter` pieces were lent, or one
/// request alone. Lives on the stack: its count is only watched.
class CountingAllocator : public IMemoryAllocator {
  public:
    std::uint32_t QueryInterface(const _GUID&, void** face) override {
        *face = nullptr;
        return kNoInterface;
    }
    std::uint32_t AddRef() override { return static_cast<std::uint32_t>(++references); }
    std::uint32_t Release() override { return static_cast<std::uint32_t>(--references); }
    void Allocate(void** block, unsigned long size) override { *block = Lend(size); }
    void Free(void* block) override { TakeBack(block); }
    void AllocatePicture(std::uint8_t** buffer, int width, int height, int depth,
                         int* span) override {
        *span = (width * depth + 63) / 64 * 64 + 64;  // padded on purpose
        *buffer = static_cast<std::uint8_t*>(Lend(std::size_t(*span) * height));
    }
    void FreePicture(std::uint8_t* buffer) override { TakeBack(buffer); }

    int references = 1;
    int out = 0;
    int lent = 0;
    int refuseAfter = 1 << 30;
    int asked = 0;
    int refuseOnly = -1;  ///< by the number of the request, from 0

  private:
    void* Lend(std::size_t bytes) {
        if (asked++ == refuseOnly || lent >= refuseAfter) return nullptr;
        ++lent;
        ++out;
        return std::malloc(bytes);
    }
    void TakeBack(void* block) {
        --out;
        std::free(block);
    }
};

/// Answers GetParam from a map; what is missing there is 0.
class TestHost : public IVideoHost {
  public:
    explicit TestHost(CountingAllocator* allocator = nullptr) : m_allocator(allocator) {}

    std::uint32_t QueryInterface(const _GUID& iid, void** face) override {
        *face = nullptr;
        if (!(iid == IID_MemoryAllocator) || !m_allocator) return kNoInterface;
        m_allocator->AddRef();
        *face = static_cast<IMemoryAllocator*>(m_allocator);
        return kInterfaceFound;
    }
    std::uint32_t AddRef() override { return 2; }
    std::uint32_t Release() override { return 1; }
    bool GetParam(unsigned int index, EffectParam* value, unsigned int) override {
        asked.push_back(index);
        *value = values[index];
        return true;
    }
    HostInfo GetHostInfo() override { return {"test", {}}; }

    std::map<unsigned int, EffectParam> values;
    std::vector<unsigned int> asked;  ///< in this order

  private:
    CountingAllocator* m_allocator;
};

}  // namespace brushworks::testing
