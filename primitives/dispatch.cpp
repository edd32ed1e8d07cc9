// Measures the processor and picks the build of the primitives that suits it.
#include "primitives/dispatch.h"

#include <cstdlib>
#include <cstring>

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#define BRUSHWORKS_X86 1
#endif

namespace brushworks {

int ippJumpIndexForMergedLibs = 0;
int ippJumpIndexForMergedLibsLP = 0;
int ippWideLevel = 0;

namespace {

constexpr std::uint64_t kSse3 = 8, kSsse3 = 16, kMovbe = 32, kSse41 = 64, kAvx = 256,
                        kAvxUsable = 512;

/// Features that may be used at all; a place to switch one off.
constexpr std::uint64_t kEnabledFeatures = ~std::uint64_t{0};

constexpr int kStatusOtherMaker = 20;
constexpr int kStatusNoIdentification = 36;

struct LeafBit {
    int reg;  // 2 ecx, 3 edx
    int bit;
    std::uint64_t feature;
};
constexpr LeafBit kLeafOne[] = {
    {3, 23, 1},      {3, 25, 2},   {3, 26, 4},    {2, 0, kSse3}, {2, 9, kSsse3}, {2, 22, kMovbe},
    {2, 19, kSse41}, {2, 20, 128}, {2, 28, kAvx}, {2, 25, 1024}, {2, 1, 2048},
};

#if BRUSHWORKS_X86

bool ipp_has_cpuid() {
    return __get_cpuid_max(0, nullptr) >= 1;
}

bool ipp_is_GenuineIntel() {
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (!__get_cpuid(0, &eax, &ebx, &ecx, &edx)) return false;
    char maker[12];
    std::memcpy(maker, &ebx, 4);
    std::memcpy(maker + 4, &edx, 4);
    std::memcpy(maker + 8, &ecx, 4);
    return std::memcmp(maker, "GenuineIntel", 12) == 0;
}

/// The state components the operating system saves: bits 1 and 2 for AVX, 5 to 7 for AVX-512.
std::uint64_t SavedState() {
    std::uint32_t low = 0, high = 0;
    __asm__("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return (std::uint64_t{high} << 32) | low;
}

std::uint64_t ipp_is_avx_extension() {
    return (SavedState() & 6) == 6 ? kAvxUsable : 0;
}

int MeasureWideLevel(std::uint64_t mask) {
    if (!(mask & kAvxUsable)) return 0;
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (!__get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx)) return 0;
    constexpr unsigned kAvx2 = 1u << 5, kF = 1u << 16, kDq = 1u << 17, kBw = 1u << 30,
                       kVl = 1u << 31;
    if (!(ebx & kAvx2)) return 0;
    constexpr unsigned kAll512 = kF | kDq | kBw | kVl;
    return (ebx & kAll512) == kAll512 && (SavedState() & 0xE6) == 0xE6 ? 2 : 1;
}

std::uint64_t Measure(std::uint32_t registers[4]) {
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    __get_cpuid(1, &eax, &ebx, &ecx, &edx);
    const std::uint32_t regs[4] = {eax, ebx, ecx, edx};
    if (registers) std::memcpy(registers, regs, sizeof regs);
    std::uint64_t mask = 0;
    for (const LeafBit& leaf : kLeafOne)
        if (regs[leaf.reg] >> leaf.bit & 1) mask |= leaf.feature;
    constexpr std::uint32_t kOsxsave = 1u << 27;
    if ((ecx & kOsxsave) && (mask & kAvx)) mask |= ipp_is_avx_extension();
    return mask & kEnabledFeatures;
}

#else

bool ipp_has_cpuid() {
    return false;
}
bool ipp_is_GenuineIntel() {
    return false;
}
int MeasureWideLevel(std::uint64_t) {
    return 0;
}
std::uint64_t Measure(std::uint32_t[4]) {
    return 0;
}

#endif

/// The cap from the environment; the widest variant where it is unset or unknown.
Variant Cap() {
    const char* name = std::getenv("BRUSHWORKS_VARIANT");
    for (int v = 0; name && v <= static_cast<int>(Variant::avx512); ++v)
        if (std::strcmp(name, VariantName(static_cast<Variant>(v))) == 0)
            return static_cast<Variant>(v);
    return Variant::avx512;
}

void SetIndexes(Variant variant) {
    const int level = static_cast<int>(variant);
    ippJumpIndexForMergedLibs = level < 3 ? level : 3;
    ippWideLevel = level < 3 ? 0 : level - 3;
    std::uint64_t mask = 0;
    ownGetMaskFeatures(&mask);
    ippJumpIndexForMergedLibsLP = level == 2 && (mask & kMovbe) ? 1 : 0;
}

}  // namespace

int ippGetCpuFeatures(std::uint64_t* mask, std::uint32_t registers[4]) {
    if (!mask) return -8;
    if (!ipp_has_cpuid()) return kStatusNoIdentification;
    if (registers)
        *mask = Measure(registers);
    else
        ownGetMaskFeatures(mask);
    return 0;
}

void ownGetMaskFeatures(std::uint64_t* mask) {
    static const std::uint64_t cached = ipp_has_cpuid() ? Measure(nullptr) : 0;
    *mask = cached;
}

JumpIndexes IndexesFor(std::uint64_t mask) {
    if (mask & kSse41) return {3, 0};
    if (mask & kSsse3) return {2, mask & kMovbe ? 1 : 0};
    if (mask & kSse3) return {1, 0};
    return {0, 0};
}

Variant BestVariant() {
    std::uint64_t mask = 0;
    if (ippGetCpuFeatures(&mask, nullptr) != 0) return Variant::mx;
    const int index = IndexesFor(mask).index;
    return static_cast<Variant>(index < 3 ? index : 3 + MeasureWideLevel(mask));
}

int ippStaticInit() {
    const Variant best = BestVariant();
    const Variant cap = Cap();
    SetIndexes(cap < best ? cap : best);
    return ipp_has_cpuid() && ipp_is_GenuineIntel() ? 0 : kStatusOtherMaker;
}

bool SelectVariant(Variant variant) {
    if (variant > BestVariant()) return false;
    SetIndexes(variant);
    return true;
}

const char* VariantName(Variant variant) {
    constexpr const char* kNames[] = {"mx", "m7", "u8", "y8", "avx2", "avx512"};
    return kNames[static_cast<int>(variant)];
}

}  // namespace brushworks
