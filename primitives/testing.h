// What the tests of the primitives share: guarded images of random samples, the sizes where vector
// loops break, and a walk over the variants that this machine runs.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <type_traits>
#include <vector>

#include "primitives/dispatch.h"
#include "primitives/types.h"

namespace brushworks::testing {

/// An image inside a larger block whose other bytes (the slack of each row, and a guard before and
/// behind) hold a pattern that the call under test must leave alone.
template <class Sample>
class GuardedImage {
  public:
    GuardedImage(IppiSize size, int channels, int slackBytes = 12)
        : size_(size),
          channels_(channels),
          step_(size.width * channels * int{sizeof(Sample)} + slackBytes),
          block_(2 * kGuard + static_cast<std::size_t>(step_) * size.height, kPattern) {}

    Sample* data() { return reinterpret_cast<Sample*>(block_.data() + kGuard); }
    const Sample* data() const { return reinterpret_cast<const Sample*>(block_.data() + kGuard); }
    int step() const { return step_; }
    IppiSize size() const { return size_; }
    int channels() const { return channels_; }
    Sample* row(int y) {
        return reinterpret_cast<Sample*>(block_.data() + kGuard + std::ptrdiff_t{step_} * y);
    }
    const Sample* row(int y) const { return const_cast<GuardedImage*>(this)->row(y); }
    Sample& at(int x, int y, int channel = 0) { return row(y)[x * channels_ + channel]; }
    const Sample& at(int x, int y, int channel = 0) const {
        return row(y)[x * channels_ + channel];
    }

    /// Fills the samples alone: integers over their whole range, floats over `low` to `high`.
    GuardedImage& Randomize(unsigned seed, float low = -0.25f, float high = 1.25f) {
        std::mt19937 engine(seed);
        for (int y = 0; y < size_.height; ++y)
            for (int i = 0; i < size_.width * channels_; ++i) row(y)[i] = Draw(engine, low, high);
        return *this;
    }

    /// True when the slack of every row and both guards still hold the pattern.
    bool GuardsIntact() const {
        auto clean = [](const std::uint8_t* from, std::size_t count) {
            for (std::size_t i = 0; i < count; ++i)
                if (from[i] != kPattern) return false;
            return true;
        };
        const std::size_t rowBytes =
            static_cast<std::size_t>(size_.width) * channels_ * sizeof(Sample);
        if (!clean(block_.data(), kGuard) || !clean(block_.data() + block_.size() - kGuard, kGuard))
            return false;
        for (int y = 0; y < size_.height; ++y)
            if (!clean(reinterpret_cast<const std::uint8_t*>(row(y)) + rowBytes, step_ - rowBytes))
                return false;
        return true;
    }

    bool operator==(const GuardedImage& other) const { return block_ == other.block_; }

  private:
    static Sample Draw(std::mt19937& engine, float low, float high) {
        if constexpr (std::is_floating_point_v<Sample>)
            return std::uniform_real_distribution<float>(low, high)(engine);
        else
            return static_cast<Sample>(engine());
    }

    static constexpr std::size_t kGuard = 128;
    static constexpr std::uint8_t kPattern = 0xA5;
    IppiSize size_;
    int channels_;
    int step_;
    std::vector<std::uint8_t> block_;
};

/// Sizes at and around the vector lengths, and a plain one.
inline const IppiSize kEdgeSizes[] = {{1, 1},  {1, 7},  {3, 2},   {4, 1},  {5, 3},  {15, 2},
                                      {16, 2}, {17, 5}, {31, 3},  {32, 2}, {33, 2}, {63, 2},
                                      {64, 1}, {65, 3}, {127, 2}, {201, 9}};

/// Calls `body` once for each variant that this machine runs, with that variant selected, and names
/// it in any failure.
template <class Body>
void ForEachVariant(Body body) {
    for (int v = 0; v <= static_cast<int>(BestVariant()); ++v) {
        const auto variant = static_cast<Variant>(v);
        SCOPED_TRACE(VariantName(variant));
        ASSERT_TRUE(SelectVariant(variant));
        body(variant);
    }
    SelectVariant(BestVariant());
}

}  // namespace brushworks::testing
