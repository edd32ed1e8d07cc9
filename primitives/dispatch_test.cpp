// Which build runs: the rules from features to indexes, the cap, and the tables themselves.
#include "primitives/dispatch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "primitives/types.h"

namespace brushworks {

extern int (*const ippiNot_8u_C1IR_arraddr[4])(std::uint8_t*, int, IppiSize);

namespace {

/// Leaves dispatch as a load without a cap does.
class Dispatch : public ::testing::Test {
  protected:
    void TearDown() override {
        unsetenv("BRUSHWORKS_VARIANT");
        ippStaticInit();
    }

    static Variant Running() {
        return static_cast<Variant>(ippJumpIndexForMergedLibs + ippWideLevel);
    }
};

TEST_F(Dispatch, FirstRuleThatHolds) {
    constexpr std::uint64_t kSse3 = 8, kSsse3 = 16, kMovbe = 32, kSse41 = 64;
    const struct {
        std::uint64_t mask;
        JumpIndexes indexes;
    } rules[] = {
        {0, {0, 0}},
        {7, {0, 0}},
        {7 | kMovbe, {0, 0}},
        {kSse3, {1, 0}},
        {kSse3 | kMovbe, {1, 0}},
        {kSse3 | kSsse3, {2, 0}},
        {kSsse3 | kMovbe, {2, 1}},
        {kSse41, {3, 0}},
        {~std::uint64_t{0}, {3, 0}},
        {~kSse41, {2, 1}},
    };
    for (const auto& rule : rules) EXPECT_EQ(IndexesFor(rule.mask), rule.indexes) << rule.mask;
}

TEST_F(Dispatch, CapFromTheEnvironment) {
    for (int v = 0; v <= static_cast<int>(Variant::avx512); ++v) {
        const auto cap = static_cast<Variant>(v);
        setenv("BRUSHWORKS_VARIANT", VariantName(cap), 1);
        ippStaticInit();
        EXPECT_EQ(Running(), std::min(cap, BestVariant())) << VariantName(cap);
        EXPECT_LE(ippJumpIndexForMergedLibs, 3);
        EXPECT_EQ(ippWideLevel != 0, Running() > Variant::y8);
    }
    for (const char* nonsense : {"", "sse9", "MX"}) {
        setenv("BRUSHWORKS_VARIANT", nonsense, 1);
        ippStaticInit();
        EXPECT_EQ(Running(), BestVariant()) << nonsense;
    }
}

TEST_F(Dispatch, SelectsWhatTheMachineRuns) {
    for (int v = 0; v <= static_cast<int>(Variant::avx512); ++v) {
        const auto variant = static_cast<Variant>(v);
        const Variant before = Running();
        EXPECT_EQ(SelectVariant(variant), variant <= BestVariant());
        EXPECT_EQ(Running(), variant <= BestVariant() ? variant : before);
    }
}

TEST_F(Dispatch, Features) {
    std::uint32_t registers[4] = {};
    std::uint64_t mask = 0, again = 0;
    EXPECT_EQ(ippGetCpuFeatures(nullptr, registers), kStatusNullPointer);
#if defined(__x86_64__)
    ASSERT_EQ(ippGetCpuFeatures(&mask, nullptr), kStatusOk);
    ASSERT_EQ(ippGetCpuFeatures(&again, registers), kStatusOk);
    EXPECT_EQ(mask, again);
    ownGetMaskFeatures(&again);
    EXPECT_EQ(mask, again);
    EXPECT_NE(registers[0], 0u);
    EXPECT_EQ(mask & 7, 7u) << "every processor of this architecture has SSE2";
    EXPECT_EQ((mask & 8) != 0, __builtin_cpu_supports("sse3") != 0);
    EXPECT_EQ((mask & 16) != 0, __builtin_cpu_supports("ssse3") != 0);
    EXPECT_EQ((mask & 64) != 0, __builtin_cpu_supports("sse4.1") != 0);
    EXPECT_EQ((mask & 128) != 0, __builtin_cpu_supports("sse4.2") != 0);
    EXPECT_EQ((mask & 512) != 0, __builtin_cpu_supports("avx") != 0) << "AVX and a system for it";
    EXPECT_EQ(BestVariant() >= Variant::avx2, __builtin_cpu_supports("avx2") != 0);
    EXPECT_EQ(ippStaticInit(), __builtin_cpu_is("intel") ? 0 : 20);
#else
    EXPECT_EQ(ippGetCpuFeatures(&mask, nullptr), 36);
    ownGetMaskFeatures(&again);
    EXPECT_EQ(again, 0u);
    EXPECT_EQ(ippStaticInit(), 20);
#endif
}

TEST_F(Dispatch, TablesHoldABuildForEachIndex) {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < i; ++j)
            EXPECT_NE(ippiNot_8u_C1IR_arraddr[i], ippiNot_8u_C1IR_arraddr[j]) << i << ", " << j;
}

}  // namespace
}  // namespace brushworks
