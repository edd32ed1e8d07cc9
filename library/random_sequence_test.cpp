// The private generator draws the C library's numbers and leaves the process's stream alone.
#include "library/random_sequence.h"

#include <gtest/gtest.h>

#include <vector>

namespace brushworks {
namespace {

constexpr int kDraws = 5000;

std::vector<int> DrawPrivately(unsigned int seed) {
    RandomSequence random(seed);
    std::vector<int> drawn(kDraws);
    for (int& number : drawn) number = random.Next();
    return drawn;
}

std::vector<int> DrawShared() {
    std::vector<int> drawn(kDraws);
    for (int& number : drawn) number = std::rand();  // NOLINT: the sequence to compare with
    return drawn;
}

TEST(RandomSequence, DrawsWhatTheLibraryDrawsAfterTheSameSeed) {
    for (const unsigned int seed : {0u, 1u, 10u, 10000u, 0x80000000u, ~0u}) {
        SCOPED_TRACE(seed);
        std::srand(seed);  // NOLINT: likewise
        EXPECT_EQ(DrawPrivately(seed), DrawShared());
    }
}

TEST(RandomSequence, LeavesTheSharedStreamAlone) {
    std::srand(77);  // NOLINT: likewise
    const std::vector<int> undisturbed = DrawShared();
    std::srand(77);  // NOLINT: likewise
    DrawPrivately(5);
    EXPECT_EQ(DrawShared(), undisturbed);
}

}  // namespace
}  // namespace brushworks
