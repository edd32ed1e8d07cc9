// Bodies of the flood fill; built once for each variant.
//
// A run is filled before it is remembered, and it is as long as the old colour lasts. Remembered
// runs of a row therefore never touch: half the pixels of a row, rounded up, bound their number,
// and with it the buffer.
#include "primitives/flood_fill.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

struct Run {
    std::int32_t y, left, right;
};

std::int64_t BufferBytes(IppiSize size) {
    return (std::int64_t{size.width} + 1) / 2 * size.height * int{sizeof(Run)};
}

/// A colour of three bytes, repeated over words that hold a whole number of pixels.
class Colour {
  public:
    static constexpr int kPixels = 8;  // of three words

    explicit Colour(const std::uint8_t* value) {
        std::uint8_t bytes[3 * kPixels];
        for (int i = 0; i < 3 * kPixels; ++i) bytes[i] = value[i % 3];
        std::memcpy(words_, bytes, sizeof words_);
        std::memcpy(value_, value, sizeof value_);
    }

    bool Is(const std::uint8_t* pixel) const {
        return pixel[0] == value_[0] && pixel[1] == value_[1] && pixel[2] == value_[2];
    }

    /// The first position from `x` to `end` at which a row has another colour.
    int EndOfRun(const std::uint8_t* row, int x, int end) const {
        while (end - x >= kPixels && AreAll(row + std::ptrdiff_t{3} * x)) x += kPixels;
        while (x < end && Is(row + std::ptrdiff_t{3} * x)) ++x;
        return x;
    }
    /// The last position from `x` down from which on to `x` a row has this colour.
    int StartOfRun(const std::uint8_t* row, int x) const {
        while (x >= kPixels && AreAll(row + std::ptrdiff_t{3} * (x - kPixels))) x -= kPixels;
        while (x > 0 && Is(row + std::ptrdiff_t{3} * (x - 1))) --x;
        return x;
    }
    void Fill(std::uint8_t* row, int x, int end) const {
        for (; end - x >= kPixels; x += kPixels)
            std::memcpy(row + std::ptrdiff_t{3} * x, words_, sizeof words_);
        if (end > x)
            std::memcpy(row + std::ptrdiff_t{3} * x, words_, 3 * static_cast<std::size_t>(end - x));
    }

  private:
    bool AreAll(const std::uint8_t* pixels) const {
        std::uint64_t w[3];
        std::memcpy(w, pixels, sizeof w);
        return ((w[0] ^ words_[0]) | (w[1] ^ words_[1]) | (w[2] ^ words_[2])) == 0;
    }

    std::uint64_t words_[3];
    std::uint8_t value_[3];
};

class Filling {
  public:
    Filling(std::uint8_t* image, int step, IppiSize size, const Colour& before, const Colour& after,
            std::uint8_t* buffer)
        : image_(image), step_(step), size_(size), before_(before), after_(after), runs_(buffer) {}

    void From(IppiPoint seed) {
        bounds_ = {seed.y, seed.y, seed.x, seed.x};
        FillAround(seed.x, seed.y);
        while (count_ > 0) {
            Run run;
            std::memcpy(&run, runs_ + --count_ * std::ptrdiff_t{sizeof run}, sizeof run);
            if (run.y > 0) FillBeside(run, run.y - 1);
            if (run.y < size_.height - 1) FillBeside(run, run.y + 1);
        }
    }

    std::int64_t area() const { return area_; }
    IppiRect rect() const {
        return {bounds_.left, bounds_.top, bounds_.right - bounds_.left + 1,
                bounds_.bottom - bounds_.top + 1};
    }

  private:
    /// Fills what touches the run in a row beside it.
    void FillBeside(const Run& run, int y) {
        const std::uint8_t* row = Row(image_, step_, y);
        for (int x = run.left; x <= run.right;) {
            const std::uint8_t* pixel = row + std::ptrdiff_t{3} * x;
            if (before_.Is(pixel))
                x = FillAround(x, y) + 1;
            else if (after_.Is(pixel))
                x = after_.EndOfRun(row, x, run.right + 1);
            else
                ++x;
        }
    }

    /// Fills the run of old colour around a pixel, remembers it and returns its last position.
    int FillAround(int x, int y) {
        std::uint8_t* row = Row(image_, step_, y);
        const int left = before_.StartOfRun(row, x), end = before_.EndOfRun(row, x, size_.width);
        after_.Fill(row, left, end);
        const Run run = {y, left, end - 1};
        std::memcpy(runs_ + count_++ * std::ptrdiff_t{sizeof run}, &run, sizeof run);
        area_ += end - left;
        if (y < bounds_.top) bounds_.top = y;
        if (y > bounds_.bottom) bounds_.bottom = y;
        if (left < bounds_.left) bounds_.left = left;
        if (end - 1 > bounds_.right) bounds_.right = end - 1;
        return end - 1;
    }

    struct Bounds {
        std::int32_t top, bottom, left, right;
    };

    std::uint8_t* image_;
    int step_;
    IppiSize size_;
    const Colour& before_;
    const Colour& after_;
    std::uint8_t* runs_;  // of any alignment
    std::ptrdiff_t count_ = 0;
    std::int64_t area_ = 0;
    Bounds bounds_{};
};

}  // namespace

int ippiFloodFillGetSize(IppiSize size, int* bufferSize) {
    if (!bufferSize) return kStatusNullPointer;
    if (size.width < 1 || size.height < 1) return kStatusSizeError;
    const std::int64_t bytes = BufferBytes(size);
    if (bytes > INT32_MAX) return kStatusBadArgument;
    *bufferSize = static_cast<int>(bytes);
    return kStatusOk;
}

int ippiFloodFill_4Con_8u_C3IR(std::uint8_t* image, int step, IppiSize size, IppiPoint seed,
                               const std::uint8_t newValue[3], IppiFilledRegion* region,
                               std::uint8_t* buffer) {
    if (!newValue || !region || !buffer) return kStatusNullPointer;
    if (const int status = CheckImages({{image, step, 3}}, size)) return status;
    if (seed.x < 0 || seed.x >= size.width || seed.y < 0 || seed.y >= size.height)
        return kStatusBadArgument;
    *region = {0, {newValue[0], newValue[1], newValue[2]}, {seed.x, seed.y, 0, 0}};
    const Colour before(Row(image, step, seed.y) + std::ptrdiff_t{3} * seed.x), after(newValue);
    if (before.Is(newValue)) return kStatusOk;
    Filling filling(image, step, size, before, after, buffer);
    filling.From(seed);
    region->area = filling.area();
    region->rect = filling.rect();
    return kStatusOk;
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
