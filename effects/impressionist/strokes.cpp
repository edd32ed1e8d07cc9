#include "effects/impressionist/strokes.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include "effects/impressionist/open_pixels.h"
#include "effects/impressionist/scratch_array.h"
#include "effects/impressionist/stroke_walk.h"
#include "processors/region.h"

namespace brushworks {
namespace {

/// Sums of the four samples of bytes, alpha too: exact in any order.
class ByteSums {
  public:
    using Sample = std::uint8_t;

    template <std::ptrdiff_t Stride = 0>
    void Add(const std::uint8_t* pixel, std::ptrdiff_t stride, int count) {
        while (count > 0) {
            if (m_pending == kMostPending) Gather();
            const int part = std::min(count, kMostPending - m_pending);
            std::uint32_t even = 0, odd = 0;
            for (int i = 0; i < part; ++i) {
                std::uint32_t samples;
                std::memcpy(&samples, pixel + i * (Stride ? Stride : stride), sizeof samples);
                even += samples & 0x00FF00FFu;
                odd += samples >> 8 & 0x00FF00FFu;
            }
            m_even += even;
            m_odd += odd;
            m_pending += part;
            pixel += part * stride;
            count -= part;
        }
    }

    std::array<std::uint8_t, 4> Average() {
        Gather();
        std::array<std::uint8_t, 4> colour;
        for (int i = 0; i < 4; ++i)
            colour[i] = static_cast<std::uint8_t>(m_count > 0 ? m_sums[i] / m_count : 255);
        return colour;
    }

  private:
    static constexpr int kMostPending = 256;  // times 255 is below 2^16

    void Gather() {
        m_sums[0] += m_even & 0xFFFF;
        m_sums[1] += m_odd & 0xFFFF;
        m_sums[2] += m_even >> 16;
        m_sums[3] += m_odd >> 16;
        m_count += m_pending;
        m_even = m_odd = 0;
        m_pending = 0;
    }

    std::int64_t m_sums[4] = {};
    std::int64_t m_count = 0;
    // What is not in the sums yet: two samples to a word, 16 bits each.
    std::uint32_t m_even = 0, m_odd = 0;
    int m_pending = 0;
};

/// Sums of the four samples of floats, in the order of the walk, which their rounding depends on.
class FloatSums {
  public:
    using Sample = float;

    template <std::ptrdiff_t Stride = 0>
    void Add(const float* pixel, std::ptrdiff_t stride, int count) {
        m_count += count;
        double s0 = m_sums[0], s1 = m_sums[1], s2 = m_sums[2], s3 = m_sums[3];
        for (int i = 0; i < count; ++i, pixel += stride) {
            s0 += pixel[0];
            s1 += pixel[1];
            s2 += pixel[2];
            s3 += pixel[3];
        }
        m_sums = {s0, s1, s2, s3};
    }

    std::array<float, 4> Average() const {
        std::array<float, 4> colour;
        for (int i = 0; i < 4; ++i)
            colour[i] =
                m_count > 0 ? static_cast<float>(m_sums[i] / static_cast<double>(m_count)) : 255.0f;
        return colour;
    }

  private:
    std::array<double, 4> m_sums = {};
    std::int64_t m_count = 0;
};

/// Paints strokes from the last to the first. Colours come from the source alone, so that hidden
/// strokes need none.
template <class Sums>
class StrokePainter {
  public:
    using Sample = typename Sums::Sample;
    using Colour = std::array<Sample, 4>;

    StrokePainter(const CFrame& source, CFrame& destination, float aspect,
                  MemoryAllocator& allocator)
        : m_source(source),
          m_destination(destination),
          m_aspect(aspect),
          m_open(source.m_nWidth, source.m_nHeight, allocator),
          m_runs(std::max(source.m_nWidth, source.m_nHeight), Run{}, allocator),
          m_mirrored(m_runs.size(), Run{}, allocator) {}

    bool IsDone() const { return m_open.Count() == 0; }

    void Paint(const StrokeLine& line) {
        const StrokeWalk walk(line, m_aspect);
        if (!m_open.HasAnyNear(walk.isSteep, BoxAround(walk, LimitsOf(walk)))) return;
        const std::span<const Run> runs = RunsOf(walk, walk.step, m_runs);
        const auto isOpen = [&](Run run) { return m_open.HasAny(walk.isSteep, run); };
        if (std::none_of(runs.begin(), runs.end(), isOpen)) return;
        if (walk.isSteep)
            DrawRows(runs, GetAverageY(runs));
        else
            DrawColumns(runs, GetAverageX(RunsOf(walk, -walk.step, m_mirrored)));
    }

  private:
    WalkLimits LimitsOf(const StrokeWalk& walk) const {
        const int width = m_source.m_nWidth, height = m_source.m_nHeight;
        return walk.isSteep ? WalkLimits{height, width} : WalkLimits{width, height};
    }

    std::span<const Run> RunsOf(const StrokeWalk& walk, float step, ScratchArray<Run>& runs) const {
        return {runs.data(), FindRuns(walk, step, LimitsOf(walk), runs.data())};
    }

    Colour GetAverageY(std::span<const Run> runs) const {
        Sums sums;
        for (const Run& run : runs)
            sums.template Add<4>(Processors::RowOf<Sample>(m_source, run.at) + 4 * run.begin, 4,
                                 run.end - run.begin);
        return sums.Average();
    }

    /// The runs are those of the stroke's mirror image about its start row: part of the look.
    Colour GetAverageX(std::span<const Run> mirrored) const {
        const std::ptrdiff_t span = m_source.m_nByteSpan / static_cast<int>(sizeof(Sample));
        Sums sums;
        for (const Run& run : mirrored)
            sums.Add(Processors::RowOf<Sample>(m_source, run.begin) + 4 * run.at, span,
                     run.end - run.begin);
        return sums.Average();
    }

    void DrawRows(std::span<const Run> runs, const Colour& colour) {
        for (const Run& run : runs) m_open.Close(true, run, [&](int x) { Put(x, run.at, colour); });
    }

    void DrawColumns(std::span<const Run> runs, const Colour& colour) {
        for (const Run& run : runs)
            m_open.Close(false, run, [&](int y) { Put(run.at, y, colour); });
    }

    void Put(int x, int y, const Colour& colour) {
        std::memcpy(Processors::RowOf<Sample>(m_destination, y) + 4 * x, colour.data(),
                    sizeof colour);
    }

    const CFrame& m_source;
    CFrame& m_destination;
    const float m_aspect;
    OpenPixels m_open;
    ScratchArray<Run> m_runs;
    ScratchArray<Run> m_mirrored;
};

template <class Sums>
void Paint(const CFrame& source, CFrame& destination, float aspect,
           std::span<const StrokeLine> lines, MemoryAllocator& allocator) {
    StrokePainter<Sums> painter(source, destination, aspect, allocator);
    for (auto line = lines.rbegin(); line != lines.rend() && !painter.IsDone(); ++line)
        painter.Paint(*line);
}

}  // namespace

void PaintStrokes(const CFrame& source, CFrame& destination, const Brush& brush,
                  RandomSequence& random, MemoryAllocator& allocator) {
    const int width = source.m_nWidth, height = source.m_nHeight;
    const double pixels = static_cast<double>(width) * height;
    ScratchArray<StrokeLine> lines(static_cast<std::size_t>(pixels * 0.1), {}, allocator);
    for (StrokeLine& line : lines) line = GetRandomLine(random, width, height, brush);
    auto* paint = Processors::IsFloatColor(source) ? Paint<FloatSums> : Paint<ByteSums>;
    paint(source, destination, brush.aspect, {lines.begin(), lines.end()}, allocator);
}

}  // namespace brushworks
