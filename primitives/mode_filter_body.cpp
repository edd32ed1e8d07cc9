// Body of the mode filter; built once for each variant.
//
// A column of results can be made in two ways. Walking down it pixel by pixel, as the filter is
// told, costs a mask's width of pixels for each result. Counting is faster: how full the buckets
// are does not depend on any order, so that a step down is one addition of 256 differences, which
// are kept for every row and follow the columns by four corrections each. The order matters for
// colours alone, and only the colour of the winner is asked for. If the winner holds at least two
// pixels, then it held at least one when the last of its pixels came, whatever has left since. So
// that last one gave it its colour, and it is the rightmost of the lowest row that has one. Only
// where all pixels under the mask are in different buckets does the column have to be walked.
#include "primitives/mode_filter.h"

#include "primitives/memory.h"
#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr int kBuckets = 256;

// Counts and differences of 16 bits lie in vectors such that the lane of a bucket is its rank
// first and the number of its vector second: a lane that comes first holds lower buckets.
constexpr int kCountLanes = kVectorBytes / 2;
constexpr int kVectors = kBuckets / kCountLanes;
constexpr std::int64_t kLargestArea = INT16_MAX;

inline int Slot(int bucket) {
    return bucket % kVectors * kCountLanes + bucket / kVectors;
}

struct Mode {
    int bucket;
    int count;
};

template <int Distance, std::size_t... I>
inline I32 Exchanged(I32 v, std::index_sequence<I...>) {
    return __builtin_shufflevector(v, v, (I ^ Distance)...);
}
/// The largest of all lanes.
template <int Distance = kLanes / 2>
inline std::int32_t Largest(I32 v) {
    v = Max(v, Exchanged<Distance>(v, Indexes<I32>{}));
    if constexpr (Distance > 1)
        return Largest<Distance / 2>(v);
    else
        return v[0];
}

template <std::size_t... I>
inline I16 FirstBucketsFromTheTop(std::index_sequence<I...>) {
    return I16{static_cast<std::int16_t>(kBuckets - 1 - kVectors * static_cast<int>(I))...};
}

/// How many pixels each bucket holds.
class Counts {
  public:
    explicit Counts(const std::int32_t* counts) {
        std::int16_t slots[kBuckets];
        for (int i = 0; i < kBuckets; ++i) slots[Slot(i)] = static_cast<std::int16_t>(counts[i]);
        for (int k = 0; k < kVectors; ++k) m_counts[k] = Load<I16>(slots + k * kCountLanes);
    }

    /// Adds the differences, and finds the fullest bucket.
    Mode Add(const std::int16_t* differences) {
        I16 best = m_counts[0] += Load<I16>(differences), at{};
        for (int k = 1; k < kVectors; ++k) {
            const I16 counts = m_counts[k] += Load<I16>(differences + k * kCountLanes);
            const auto fuller = (I16)(counts > best);
            best = Max(counts, best);
            at = Max(at, (I16)(fuller & static_cast<std::int16_t>(k)));
        }
        // The count above 255 less the bucket: the largest of these is the lowest fullest bucket.
        const I16 fromTheTop = FirstBucketsFromTheTop(Indexes<I16>{}) - at;
        const I32 even = (I32)((U32)best & 0xFFFF) << 8 | (I32)((U32)fromTheTop & 0xFFFF);
        const I32 odd = (I32)((U32)best >> 16) << 8 | (I32)((U32)fromTheTop >> 16);
        const std::int32_t mode = Largest(Max(even, odd));
        return {kBuckets - 1 - (mode & 255), mode >> 8};
    }

  private:
    I16 m_counts[kVectors];
};

/// A bit for each byte that has a value, the first in bit 0.
inline std::uint64_t Matches(const std::uint8_t* bytes, std::uint8_t value) {
    const U8 v = Load<U8>(bytes);
#if defined(__AVX512BW__)
    return _mm512_cmpeq_epi8_mask((__m512i)v, _mm512_set1_epi8(static_cast<char>(value)));
#elif defined(__AVX2__)
    return static_cast<unsigned>(_mm256_movemask_epi8((__m256i)(v == value)));
#elif defined(__SSE2__)
    return static_cast<unsigned>(_mm_movemask_epi8((__m128i)(v == value)));
#else
    std::uint64_t matches = 0;
    for (int i = 0; i < kVectorBytes; ++i) matches |= std::uint64_t{v[i] == value} << i;
    return matches;
#endif
}

/// The last place of a value among `count` bytes, or -1. The vector before them is readable.
inline int LastPlace(const std::uint8_t* bytes, int count, std::uint8_t value) {
    for (int end = count; end > 0; end -= kVectorBytes) {
        std::uint64_t matches = Matches(bytes + end - kVectorBytes, value);
        if (end < kVectorBytes) matches = matches >> (kVectorBytes - end) << (kVectorBytes - end);
        if (matches) return end - kVectorBytes + 63 - __builtin_clzll(matches);
    }
    return -1;
}

/// The filter's own tables: what the buckets hold and their colours.
struct Tables {
    std::int32_t counts[kBuckets] = {};
    std::uint32_t colours[kBuckets] = {};

    void Enter(int bucket, std::uint32_t pixel) {
        if (counts[bucket] != 0) colours[bucket] = pixel;
        ++counts[bucket];
    }
    void Leave(int bucket) { --counts[bucket]; }

    std::uint32_t ColourOfMode() const {
        std::int32_t top = counts[0];
        for (const std::int32_t count : counts) top = count > top ? count : top;
        int at = 0;
        while (counts[at] != top) ++at;
        return colours[at];
    }
};

/// Memory of the primitives that frees itself.
template <class Sample>
struct Scratch {
    ~Scratch() { ippiFree(data); }
    Sample* data = nullptr;
    int step = 0;
};

class ModeFilter {
  public:
    ModeFilter(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
               IppiSize mask)
        : m_src(src),
          m_srcStep(srcStep),
          m_dst(dst),
          m_dstStep(dstStep),
          m_size(size),
          m_mask(mask),
          m_counting(std::int64_t{mask.width} * mask.height <= kLargestArea) {}

    bool Allocate() {
        const int width = m_size.width + m_mask.width - 1,
                  height = m_size.height + m_mask.height - 1;
        if (width > INT32_MAX - kVectorBytes) return false;
        m_planeMemory.data = ippiMalloc_8u_C1(kVectorBytes + width, height, &m_planeMemory.step);
        if (m_counting)
            m_differenceMemory.data =
                ippiMalloc_16u_C1(kBuckets, m_size.height, &m_differenceMemory.step);
        return m_planeMemory.data && (m_differenceMemory.data || !m_counting);
    }

    void Run() {
        SortIntoBuckets();
        for (int j = 0; j < m_mask.height; ++j)
            for (int i = 0; i < m_mask.width; ++i) m_base.Enter(Buckets(j)[i], Pixel(i, j));
        if (m_counting) StartDifferences();
        for (int x = 0;; ++x) {
            Put(x, 0, m_base.ColourOfMode());
            if (!m_counting || !CountDown(x)) WalkDown(x);
            if (x + 1 == m_size.width) return;
            if (m_counting) MoveDifferences(x);
            MoveBase(x);
        }
    }

  private:
    const std::uint8_t* Buckets(int y) const { return BucketRow(y); }
    std::uint8_t* BucketRow(int y) const {
        return Row(m_planeMemory.data + kVectorBytes, m_planeMemory.step, y);
    }
    std::int16_t* Differences(int y) const {
        return reinterpret_cast<std::int16_t*>(m_differenceMemory.data) +
               static_cast<std::ptrdiff_t>(y) * kBuckets;
    }
    std::uint32_t Pixel(int x, int y) const {
        return LoadPixel(Row(m_src, m_srcStep, y) + 4 * static_cast<std::ptrdiff_t>(x));
    }
    void Put(int x, int y, std::uint32_t pixel) const {
        StorePixel(Row(m_dst, m_dstStep, y) + 4 * static_cast<std::ptrdiff_t>(x), pixel);
    }

    void SortIntoBuckets() const {
        const std::ptrdiff_t width = std::ptrdiff_t{m_size.width} + m_mask.width - 1;
        for (int y = 0; y < m_size.height + m_mask.height - 1; ++y) {
            const std::uint8_t* from = Row(m_src, m_srcStep, y);
            std::uint8_t* to = BucketRow(y);
            for (std::ptrdiff_t x = 0; x < width; ++x)
                to[x] = static_cast<std::uint8_t>(
                    (29 * from[4 * x] + 150 * from[4 * x + 1] + 77 * from[4 * x + 2]) >> 8);
        }
    }

    /// From the mask at (x, 0) to the one at (x + 1, 0).
    void MoveBase(int x) {
        for (int j = 0; j < m_mask.height; ++j) {
            const std::uint8_t* buckets = Buckets(j) + x;
            m_base.Leave(buckets[0]);
            m_base.Enter(buckets[m_mask.width], Pixel(x + m_mask.width, j));
        }
    }

    /// The column of results below (x, 0), pixel by pixel.
    void WalkDown(int x) const {
        Tables running = m_base;
        for (int y = 1; y < m_size.height; ++y) {
            const int entering = y + m_mask.height - 1;
            const std::uint8_t* leave = Buckets(y - 1) + x;
            const std::uint8_t* enter = Buckets(entering) + x;
            for (int i = 0; i < m_mask.width; ++i) {
                running.Leave(leave[i]);
                running.Enter(enter[i], Pixel(x + i, entering));
            }
            Put(x, y, running.ColourOfMode());
        }
    }

    /// The same by counting; false where that cannot tell a colour.
    bool CountDown(int x) const {
        Counts counts(m_base.counts);
        for (int y = 1; y < m_size.height; ++y) {
            const Mode mode = counts.Add(Differences(y));
            if (mode.count < 2) return false;
            Put(x, y, ColourUnder(x, y, mode.bucket));
        }
        return true;
    }

    /// The colour of a bucket of at least two pixels under the mask at (x, y).
    std::uint32_t ColourUnder(int x, int y, int bucket) const {
        for (int row = y + m_mask.height - 1; row >= m_mask.height; --row) {
            const int place =
                LastPlace(Buckets(row) + x, m_mask.width, static_cast<std::uint8_t>(bucket));
            if (place >= 0) return Pixel(x + place, row);
        }
        return m_base.colours[bucket];  // none came on the way down
    }

    /// What a step down to row y changes in the mask's first column of results.
    void StartDifferences() const {
        for (int y = 1; y < m_size.height; ++y) {
            std::int16_t* differences = Differences(y);
            std::memset(differences, 0, kBuckets * sizeof *differences);
            for (int i = 0; i < m_mask.width; ++i) {
                --differences[Slot(Buckets(y - 1)[i])];
                ++differences[Slot(Buckets(y + m_mask.height - 1)[i])];
            }
        }
    }

    /// From the column of results x to the next one.
    void MoveDifferences(int x) const {
        for (int y = 1; y < m_size.height; ++y) {
            std::int16_t* differences = Differences(y);
            const std::uint8_t* leave = Buckets(y - 1) + x;
            const std::uint8_t* enter = Buckets(y + m_mask.height - 1) + x;
            ++differences[Slot(leave[0])];
            --differences[Slot(leave[m_mask.width])];
            --differences[Slot(enter[0])];
            ++differences[Slot(enter[m_mask.width])];
        }
    }

    const std::uint8_t* const m_src;
    const int m_srcStep;
    std::uint8_t* const m_dst;
    const int m_dstStep;
    const IppiSize m_size;
    const IppiSize m_mask;
    const bool m_counting;  ///< counts fit 16 bits
    Tables m_base;          ///< of the mask in the first row
    Scratch<std::uint8_t> m_planeMemory;
    Scratch<std::uint16_t> m_differenceMemory;
};

}  // namespace

int ModeFilter_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, IppiSize mask) {
    if (!src || !dst) return kStatusNullPointer;
    if (size.width < 1 || size.height < 1 || mask.width < 1 || mask.height < 1)
        return kStatusSizeError;
    if (srcStep < 4 * (std::int64_t{size.width} + mask.width - 1) ||
        dstStep < 4 * std::int64_t{size.width})
        return kStatusStepError;
    if (std::int64_t{size.height} + mask.height - 1 > INT32_MAX) return kStatusBadArgument;
    ModeFilter filter(src, srcStep, dst, dstStep, size, mask);
    if (!filter.Allocate()) return kStatusNoMemory;
    filter.Run();
    return kStatusOk;
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
