// Which build of the primitives runs. Measured once, when the library loads.
#pragma once

#include <cstdint>

namespace brushworks {

/// The variants in table order, the least first. The wider two stand beneath y8: they are bodies of
/// the same entry, chosen by ippWideLevel.
enum class Variant { mx, m7, u8, y8, avx2, avx512 };

/// Index into every `_arraddr` table: 0 mx (SSE2), 1 m7 (SSE3), 2 u8 (SSSE3), 3 y8 (SSE4.1 and up).
extern int ippJumpIndexForMergedLibs;
/// 1 on low-power processors with the index at 2, else 0.
extern int ippJumpIndexForMergedLibsLP;
/// Which body the y8 entries run: 0 SSE4.1, 1 AVX2, 2 AVX-512 (F, BW, DQ, VL).
extern int ippWideLevel;

/// Measures the processor and sets the indexes above. Idempotent; called when the library loads.
/// The environment variable BRUSHWORKS_VARIANT (mx, m7, u8, y8, avx2, avx512) caps the choice.
/// Returns 0, or 20 on a processor of another maker than the first family's; both set the indexes.
int ippStaticInit();

/// Fills `mask` with the features of identification leaf 1 (1 MMX, 2 SSE, 4 SSE2, 8 SSE3, 16 SSSE3,
/// 32 MOVBE, 64 SSE4.1, 128 SSE4.2, 256 AVX, 512 AVX usable under this system, 1024 AES,
/// 2048 PCLMULQDQ) and, unless null, `registers` with eax, ebx, ecx, edx of that leaf.
/// Returns 0, -8 for a null mask, 36 where the processor has no identification instruction.
int ippGetCpuFeatures(std::uint64_t* mask, std::uint32_t registers[4]);

/// Stores the cached mask; 0 where the processor has no identification instruction.
void ownGetMaskFeatures(std::uint64_t* mask);

/// The two indexes that a feature mask asks for.
struct JumpIndexes {
    int index;
    int lowPower;
    bool operator==(const JumpIndexes&) const = default;
};
JumpIndexes IndexesFor(std::uint64_t mask);

/// The best variant this machine can run, before any cap.
Variant BestVariant();

/// Sets the indexes so that `variant` runs; false, with nothing changed, where the machine cannot.
/// For tests and benchmarks: a host never changes the variant after loading.
bool SelectVariant(Variant variant);

/// The name of a variant as BRUSHWORKS_VARIANT takes it.
const char* VariantName(Variant variant);

}  // namespace brushworks
