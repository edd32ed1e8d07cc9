// Body of the mode filter; built once for each variant.
//
// A column of results can be made in two ways. Walking down it pixel by pixel, as the filter is
// told, costs a mask's width of pixels for each result. Counting is faster: how full the buckets
// are does not depend on any order, so that a step down is one addition of 256 differences, which
// follow from one column to the next by four corrections. The order matters for colours alone, and
// only the colour of the winner is asked for. If the winner holds at least two pixels, then it held
// at least one when the last of its pixels came, whatever has left since. So that last one gave it
// its colour, and it is the rightmost of the lowest row that has one. Only where all pixels under
// the mask are in different buckets does the column have to be walked.
#include "primitives/mode_filter.h"

#include "primitives/memory.h"
#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr int kBuckets = 256;

// Differences, of 16 bits, lie in vectors such that the lane of a bucket is its rank first and the
// number of its vector second: a lane that comes first holds lower buckets.
constexpr int kCountLanes = kVectorBytes / 2;
constexpr int kVectors = kBuckets / kCountLanes;

inline unsigned Slot(unsigned bucket) {
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
inline U16 LastBucketsFromTheTop(std::index_sequence<I...>) {
    return U16{static_cast<std::uint16_t>(kBuckets - kVectors * (static_cast<int>(I) + 1))...};
}

/// The fullest bucket, the lowest of equals, which is the largest of numbers that hold a count and,
/// in the eight bits below, what the bucket lacks to the last one.
inline Mode ModeOf(I32 counts) {
    const std::int32_t largest = Largest(counts);
    return {kBuckets - 1 - (largest & 255), largest >> 8};
}

/// How many pixels each bucket of a small mask holds. A pixel is counted as kUnit of 16 bits, and
/// the number of a count's vector, from the last one, stands in the bits below, so that one
/// comparison is for both. All is less 2^15, since the oldest instruction sets have the largest of
/// signed numbers only.
class NarrowCounts {
  public:
    static constexpr int kUnit = kVectors;
    static constexpr std::int64_t kLargestArea = 65536 / kUnit - 1;

    void Start(const std::int32_t* counts) {
        for (unsigned i = 0; i < kBuckets; ++i) {
            const int k = static_cast<int>(i % kVectors);
            m_counts[k][i / kVectors] =
                static_cast<std::int16_t>(counts[i] * kUnit + kVectors - 1 - k - 32768);
        }
    }

    /// Adds the differences, and finds the fullest bucket.
    Mode Add(const std::int16_t* differences) {
        I16 best = m_counts[0] += Load<I16>(differences);
        for (int k = 1; k < kVectors; ++k)
            best = Max(m_counts[k] += Load<I16>(differences + k * kCountLanes), best);
        const U16 tagged = (U16)best ^ 0x8000, counts = tagged / kUnit;
        const auto below = (U32)(LastBucketsFromTheTop(Indexes<U16>{}) + tagged % kUnit);
        const U32 even = ((U32)counts & 0xFFFF) << 8 | (below & 0xFFFF);
        const U32 odd = (U32)counts >> 16 << 8 | below >> 16;
        return ModeOf(Max((I32)even, (I32)odd));
    }

  private:
    I16 m_counts[kVectors];
};

/// The same in 32 bits, for masks of nearly any size: the buckets of the even lanes of a vector of
/// differences, then those of the odd ones.
class WideCounts {
  public:
    static constexpr int kUnit = 1;
    static constexpr std::int64_t kLargestArea = INT32_MAX / kBuckets;

    void Start(const std::int32_t* counts) {
        for (int i = 0; i < kBuckets; ++i)
            m_counts[i / kVectors % 2][i % kVectors][i / kVectors / 2] =
                counts[i] * kBuckets + (kBuckets - 1 - i);
    }

    Mode Add(const std::int16_t* differences) {
        I32 best{};
        for (int k = 0; k < kVectors; ++k) {
            const auto pairs = Load<I32>(differences + k * kCountLanes);
            best = Max(m_counts[0][k] += (I32)((U32)pairs << 16) >> 8, best);
            best = Max(m_counts[1][k] += pairs >> 16 << 8, best);
        }
        return ModeOf(best);
    }

  private:
    I32 m_counts[2][kVectors];
};

constexpr int kPlaces = 64;

/// A bit for each of kPlaces bytes that has a value, the first in bit 0.
inline std::uint64_t Matches(const std::uint8_t* bytes, std::uint8_t value) {
    std::uint64_t matches = 0;
    for (int i = 0; i < kPlaces; i += kVectorBytes) {
        const U8 v = Load<U8>(bytes + i);
#if defined(__AVX512BW__)
        matches = _mm512_cmpeq_epi8_mask((__m512i)v, _mm512_set1_epi8(static_cast<char>(value)));
#elif defined(__AVX2__)
        const auto found = static_cast<unsigned>(_mm256_movemask_epi8((__m256i)(v == value)));
        matches |= std::uint64_t{found} << i;
#elif defined(__SSE2__)
        const auto found = static_cast<unsigned>(_mm_movemask_epi8((__m128i)(v == value)));
        matches |= std::uint64_t{found} << i;
#else
        for (int k = 0; k < kVectorBytes; ++k) matches |= std::uint64_t{v[k] == value} << (i + k);
#endif
    }
    return matches;
}

/// The last place of a value among `count` bytes, or -1. kPlaces bytes before them are readable.
inline int LastPlace(const std::uint8_t* bytes, int count, int value) {
    const auto byte = static_cast<std::uint8_t>(value);
    for (; count > kPlaces; count -= kPlaces)
        if (const std::uint64_t matches = Matches(bytes + count - kPlaces, byte))
            return count - 1 - __builtin_clzll(matches);
    const int before = kPlaces - count;
    const std::uint64_t matches = Matches(bytes - before, byte) >> before << before;
    return matches ? count - 1 - __builtin_clzll(matches) : -1;
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

/// Columns of results that are counted side by side, and the rows of them that are counted at a
/// time, so that what a step needs stays in the nearest cache.
constexpr int kTileColumns = 64, kTileRows = 32;

/// A column of results on its way down.
template <class Counts>
struct Column {
    Tables base;  ///< of the mask in the first row
    Counts counts;
    bool walked;  ///< all of it is done
};

template <class Counts>
struct Tile {
    Column<Counts> columns[kTileColumns];
    std::int16_t differences[kTileRows][kBuckets];  ///< what a step down to each row changes
};

template <class Counts>
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
          m_counting(mask.width <= INT16_MAX &&
                     std::int64_t{mask.width} * mask.height <= Counts::kLargestArea) {}
    ~ModeFilter() {
        ippiFree(m_buckets);
        ippsFree(m_tile);
    }
    ModeFilter(const ModeFilter&) = delete;
    ModeFilter& operator=(const ModeFilter&) = delete;

    bool Allocate() {
        const int width = m_size.width + m_mask.width - 1;
        const int height = m_size.height + m_mask.height - 1;
        if (width > INT32_MAX - kPlaces) return false;
        m_buckets = ippiMalloc_8u_C1(kPlaces + width, height, &m_bucketStep);
        m_tile =
            static_cast<Tile<Counts>*>(static_cast<void*>(ippsMalloc_8u(sizeof(Tile<Counts>))));
        return m_buckets && m_tile;
    }

    void Run() {
        SortIntoBuckets();
        for (int j = 0; j < m_mask.height; ++j)
            for (int i = 0; i < m_mask.width; ++i) m_base.Enter(Buckets(i, j)[0], Pixel(i, j));
        for (int x = 0; x < m_size.width; x += kTileColumns) {
            const int columns = Least(kTileColumns, m_size.width - x);
            for (int i = 0; i < columns; ++i) StartColumn(m_tile->columns[i], x + i);
            for (int y = 1; y < m_size.height; y += kTileRows)
                PaintTile(x, columns, y, Least(kTileRows, m_size.height - y));
        }
    }

  private:
    static int Least(int a, int b) { return a < b ? a : b; }
    std::uint8_t* Buckets(int x, int y) const {
        return Row(m_buckets, m_bucketStep, y) + kPlaces + x;
    }
    const std::uint8_t* PixelAt(int x, int y) const {
        return Row(m_src, m_srcStep, y) + 4 * static_cast<std::ptrdiff_t>(x);
    }
    std::uint32_t Pixel(int x, int y) const { return LoadPixel(PixelAt(x, y)); }
    void Put(int x, int y, std::uint32_t pixel) const {
        StorePixel(Row(m_dst, m_dstStep, y) + 4 * static_cast<std::ptrdiff_t>(x), pixel);
    }

    void SortIntoBuckets() const {
        const std::ptrdiff_t width = std::ptrdiff_t{m_size.width} + m_mask.width - 1;
        for (int y = 0; y < m_size.height + m_mask.height - 1; ++y) {
            const std::uint8_t* from = Row(m_src, m_srcStep, y);
            std::uint8_t* to = Buckets(0, y);
            for (std::ptrdiff_t x = 0; x < width; ++x)
                to[x] = static_cast<std::uint8_t>(
                    (29 * from[4 * x] + 150 * from[4 * x + 1] + 77 * from[4 * x + 2]) >> 8);
        }
    }

    /// The first result of a column; then the mask moves on to the next one.
    void StartColumn(Column<Counts>& column, int x) {
        column.base = m_base;
        if (m_counting) column.counts.Start(m_base.counts);
        column.walked = false;
        Put(x, 0, m_base.ColourOfMode());
        if (x + 1 == m_size.width) return;
        for (int j = 0; j < m_mask.height; ++j) {
            const std::uint8_t* buckets = Buckets(x, j);
            m_base.Leave(buckets[0]);
            m_base.Enter(buckets[m_mask.width], Pixel(x + m_mask.width, j));
        }
    }

    void PaintTile(int x, int columns, int y, int rows) {
        if (m_counting) StartDifferences(x, y, rows);
        for (int i = 0; i < columns; ++i) {
            if (m_counting && i > 0) MoveDifferences(x + i, y, rows);
            Column<Counts>& column = m_tile->columns[i];
            if (column.walked || (m_counting && CountDown(column, x + i, y, rows))) continue;
            WalkDown(column.base, x + i);
            column.walked = true;
        }
    }

    /// All of a column below its first result, pixel by pixel.
    void WalkDown(Tables running, int x) const {
        for (int y = 1; y < m_size.height; ++y) {
            const int entering = y + m_mask.height - 1;
            const std::uint8_t *leave = Buckets(x, y - 1), *enter = Buckets(x, entering);
            for (int i = 0; i < m_mask.width; ++i) {
                running.Leave(leave[i]);
                running.Enter(enter[i], Pixel(x + i, entering));
            }
            Put(x, y, running.ColourOfMode());
        }
    }

    /// A tile's rows of a column by counting; false where that cannot tell a colour. Buckets come
    /// first, so that the search for colours, whose branches are hard to foresee, need not wait.
    bool CountDown(Column<Counts>& column, int x, int y, int rows) const {
        Counts counts = column.counts;
        int winners[kTileRows], least = INT32_MAX;
        for (int j = 0; j < rows; ++j) {
            const Mode mode = counts.Add(m_tile->differences[j]);
            winners[j] = mode.bucket;
            least = Least(least, mode.count);
        }
        column.counts = counts;
        if (least < 2) return false;

        PutColours(winners, column.base, x, y, rows);
        return true;
    }

    /// The colours of a column's winners, of at least two pixels each.
    [[gnu::noinline]] void PutColours(const int* winners, const Tables& base, int x, int y,
                                      int rows) const {
        const int below = y + m_mask.height - 1, width = m_mask.width;
        const std::ptrdiff_t srcStep = m_srcStep, dstStep = m_dstStep, bucketStep = m_bucketStep;
        const std::uint8_t *entering = PixelAt(x, below), *buckets = Buckets(x, below);
        std::uint8_t* to = Row(m_dst, m_dstStep, y) + 4 * static_cast<std::ptrdiff_t>(x);
        const std::uint8_t* pixel = entering;
        int winner = -1;
        for (int j = 0; j < rows; ++j) {
            // Most often the winner stays, and its colour too unless the row below brings another.
            const std::ptrdiff_t place = LastPlace(buckets, width, winners[j]);
            pixel = place < 0 ? pixel : entering + 4 * place;
            if ((place < 0) & (winners[j] != winner))
                pixel = LastPixel(x, below + j - 1, winners[j], base);
            winner = winners[j];
            StorePixel(to, LoadPixel(pixel));
            entering += srcStep;
            buckets += bucketStep;
            to += dstStep;
        }
    }

    /// The last pixel of a bucket that came under the mask at x, down to a row.
    const std::uint8_t* LastPixel(int x, int row, int bucket, const Tables& base) const {
        for (; row >= m_mask.height; --row) {
            const int place = LastPlace(Buckets(x, row), m_mask.width, bucket);
            if (place >= 0) return PixelAt(x + place, row);
        }
        return reinterpret_cast<const std::uint8_t*>(
            &base.colours[bucket]);  // none on the way down
    }

    void StartDifferences(int x, int y, int rows) {
        for (int j = 0; j < rows; ++j) {
            std::int16_t* differences = m_tile->differences[j];
            std::memset(differences, 0, sizeof m_tile->differences[j]);
            const std::uint8_t* leave = Buckets(x, y + j - 1);
            const std::uint8_t* enter = Buckets(x, y + j + m_mask.height - 1);
            for (int i = 0; i < m_mask.width; ++i) {
                differences[Slot(leave[i])] -= Counts::kUnit;
                differences[Slot(enter[i])] += Counts::kUnit;
            }
        }
    }

    /// From the column before x to x.
    void MoveDifferences(int x, int y, int rows) {
        for (int j = 0; j < rows; ++j) {
            std::int16_t* differences = m_tile->differences[j];
            const std::uint8_t* leave = Buckets(x - 1, y + j - 1);
            const std::uint8_t* enter = Buckets(x - 1, y + j + m_mask.height - 1);
            differences[Slot(leave[0])] += Counts::kUnit;
            differences[Slot(leave[m_mask.width])] -= Counts::kUnit;
            differences[Slot(enter[0])] -= Counts::kUnit;
            differences[Slot(enter[m_mask.width])] += Counts::kUnit;
        }
    }

    const std::uint8_t* const m_src;
    const int m_srcStep;
    std::uint8_t* const m_dst;
    const int m_dstStep;
    const IppiSize m_size;
    const IppiSize m_mask;
    const bool m_counting;              ///< counts and differences fit their bits
    Tables m_base;                      ///< of the mask in the first row
    std::uint8_t* m_buckets = nullptr;  ///< of every pixel, kPlaces of room before each row
    int m_bucketStep = 0;
    Tile<Counts>* m_tile = nullptr;
};

template <class Counts>
int Filter(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
           IppiSize mask) {
    ModeFilter<Counts> filter(src, srcStep, dst, dstStep, size, mask);
    if (!filter.Allocate()) return kStatusNoMemory;
    filter.Run();
    return kStatusOk;
}

}  // namespace

int ModeFilter_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, IppiSize mask) {
    if (!src || !dst) return kStatusNullPointer;
    if (size.width < 1 || size.height < 1 || mask.width < 1 || mask.height < 1)
        return kStatusSizeError;
    if (srcStep < 4 * (std::int64_t{size.width} + mask.width - 1) ||
        dstStep < 4 * std::int64_t{size.width})
        return kStatusStepError;
    const std::int64_t area = std::int64_t{mask.width} * mask.height;
    if (area > INT32_MAX || std::int64_t{size.height} + mask.height - 1 > INT32_MAX)
        return kStatusBadArgument;
    return area <= NarrowCounts::kLargestArea
               ? Filter<NarrowCounts>(src, srcStep, dst, dstStep, size, mask)
               : Filter<WideCounts>(src, srcStep, dst, dstStep, size, mask);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
