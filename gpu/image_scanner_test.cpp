// The walk along diagonals.
#include "gpu/image_scanner.h"

#include <gtest/gtest.h>

#include <vector>

namespace brushworks {
namespace {

struct Recorder : GPUImageDiagonalScanner {
    using GPUImageDiagonalScanner::GPUImageDiagonalScanner;
    bool ProcessDiagonal(int diagonal, int start, int length, int last, int remaining) override {
        calls.push_back({diagonal, start, length, last, remaining});
        return diagonal != 5;
    }
    std::vector<std::vector<int>> calls;
};

TEST(DiagonalScanner, CallsEveryDiagonalOnceAndHandsOnFailure) {
    Recorder scanner(nullptr, 5, 3);
    EXPECT_EQ(scanner.DiagonalsNumber(), 7);
    EXPECT_EQ(scanner.MaxDiagonalLength(), 3);
    for (bool expected : {true, true, true, true, true, false, true, false})
        EXPECT_EQ(scanner.Iterate(), expected);
    const std::vector<std::vector<int>> expected = {
        {0, 2, 1, 3, 7}, {1, 1, 2, 2, 6}, {2, 0, 3, 1, 5}, {3, 0, 3, 0, 4},
        {4, 0, 3, 3, 3}, {5, 0, 2, 3, 2}, {6, 0, 1, 3, 1}};
    EXPECT_EQ(scanner.calls, expected);
    scanner.Reset();
    EXPECT_TRUE(scanner.Iterate());
}

}  // namespace
}  // namespace brushworks
