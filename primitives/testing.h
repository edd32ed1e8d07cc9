// What the tests of the primitives share: guarded images of random samples, the sizes where vector
// loops break, and a walk over the variants that this machine runs.
#pragma once

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <random>
#include <type_traits>
#include <utility>

#include "primitives/dispatch.h"
#include "primitives/types.h"

namespace brushworks::testing {

/// Bytes whose end touches a page that faults, so that reading one byte too far shows at once.
class FencedBytes {
  public:
    explicit FencedBytes(std::size_t size)
        : size_(size), fence_((size + kPage - 1) / kPage * kPage), map_(Map(fence_ + kPage)) {
        if (mprotect(map_ + fence_, kPage, PROT_NONE) != 0) throw std::bad_alloc();
    }
    FencedBytes(const FencedBytes& other) : FencedBytes(other.size_) {
        std::memcpy(data(), other.data(), size_);
    }
    FencedBytes& operator=(FencedBytes other) {
        std::swap(size_, other.size_);
        std::swap(fence_, other.fence_);
        std::swap(map_, other.map_);
        return *this;
    }
    ~FencedBytes() { munmap(map_, fence_ + kPage); }

    std::uint8_t* data() const { return map_ + fence_ - size_; }
    std::size_t size() const { return size_; }

  private:
    static std::uint8_t* Map(std::size_t size) {
        void* map = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (map == MAP_FAILED) throw std::bad_alloc();
        return static_cast<std::uint8_t*>(map);
    }

    static inline const std::size_t kPage = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    std::size_t size_;
    std::size_t fence_;
    std::uint8_t* map_;
};

/// An image inside a larger block whose other bytes (a guard before it, the slack of each row but
/// the last) hold a pattern that the call under test must leave alone. Behind the last sample lies
/// a page that faults. `missing` samples of the last pixel may lie behind it too, as they do where
/// a caller's pointer stands at another channel than the first.
template <class Sample>
class GuardedImage {
  public:
    GuardedImage(IppiSize size, int channels, int slackBytes = 12, int missing = 0)
        : size_(size),
          channels_(channels),
          missing_(missing),
          step_(size.width * channels * int{sizeof(Sample)} + slackBytes),
          block_(kGuard + static_cast<std::size_t>(step_) * size.height - slackBytes -
                 missing * sizeof(Sample)) {
        std::memset(block_.data(), kPattern, block_.size());
    }

    Sample* data() { return row(0); }
    const Sample* data() const { return row(0); }
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
            for (int i = 0; i < SamplesIn(y); ++i) row(y)[i] = Draw(engine, low, high);
        return *this;
    }

    /// True when the slack of every row and the guard still hold the pattern.
    bool GuardsIntact() const {
        auto clean = [](const std::uint8_t* from, const std::uint8_t* end) {
            for (; from != end; ++from)
                if (*from != kPattern) return false;
            return true;
        };
        auto bytes = [this](int y) { return reinterpret_cast<const std::uint8_t*>(row(y)); };
        for (int y = 0; y < size_.height - 1; ++y)
            if (!clean(bytes(y) + SamplesIn(y) * sizeof(Sample), bytes(y + 1))) return false;
        return clean(block_.data(), bytes(0));
    }

    /// Equal samples and guards.
    bool operator==(const GuardedImage& other) const {
        return block_.size() == other.block_.size() &&
               std::memcmp(block_.data(), other.block_.data(), block_.size()) == 0;
    }

  private:
    int SamplesIn(int y) const {
        return size_.width * channels_ - (y == size_.height - 1 ? missing_ : 0);
    }
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
    int missing_;
    int step_;
    FencedBytes block_;
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

/// How an image lies in memory: its layout, the slack of its rows, and the samples of the last
/// pixel that lie outside.
struct Layout {
    int channels;
    int slack = 12;
    int missing = 0;
};

/// A primitive from one image to another against a reference for one pixel, on random samples, in
/// all edge sizes, with padded and with abutting rows, and in every variant. The destination is
/// random too, so that samples which must keep their values show.
template <class To, class From, class Call, class Reference>
void ExpectPerPixel(const char* name, Layout from, Layout to, Call call, Reference reference,
                    float low = -0.25f, float high = 1.25f) {
    SCOPED_TRACE(name);
    ForEachVariant([&](Variant) {
        for (const IppiSize size : kEdgeSizes)
            for (const bool padded : {true, false}) {
                GuardedImage<From> src(size, from.channels, padded ? from.slack : 0, from.missing);
                GuardedImage<To> dst(size, to.channels, padded ? to.slack : 0, to.missing);
                src.Randomize(1, low, high);
                dst.Randomize(2, low, high);
                GuardedImage<To> expected(dst);
                for (int y = 0; y < size.height; ++y)
                    for (int x = 0; x < size.width; ++x)
                        reference(&src.at(x, y), &expected.at(x, y));
                ASSERT_EQ(call(std::as_const(src).data(), src.step(), dst.data(), dst.step(), size),
                          kStatusOk);
                ASSERT_TRUE(dst == expected)
                    << size.width << " x " << size.height << (padded ? ", padded" : "");
            }
    });
}

/// The same for a primitive that works in place.
template <class Sample, class Call, class Reference>
void ExpectInPlace(const char* name, Layout layout, Call call, Reference reference,
                   float low = -0.25f, float high = 1.25f) {
    ExpectPerPixel<Sample, Sample>(
        name, layout, layout,
        [&](const Sample*, int, Sample* image, int step, IppiSize size) {
            return call(image, step, size);
        },
        [&](const Sample*, Sample* pixel) { reference(pixel); }, low, high);
}

}  // namespace brushworks::testing
