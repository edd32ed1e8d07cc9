#include "effects/impressionist/strokes.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "effects/impressionist/open_pixels.h"
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
        m_count += count;
        while (count > 0) {
            // Two samples to a word, 16 bits each.
            const int part = std::min(count, kAtOnce);
            std::uint32_t even = 0, odd = 0;
            for (int i = 0; i < part; ++i) {
                std::uint32_t samples;
                std::memcpy(&samples, pixel + i * (Stride ? Stride : stride), sizeof samples);
                even += samples & 0x00FF00FFu;
                odd += samples >> 8 & 0x00FF00FFu;
            }
            m_sums[0] += even & 0xFFFF;
            m_sums[1] += odd & 0xFFFF;
            m_sums[2] += even >> 16;
            m_sums[3] += odd >> 16;
            pixel += part * stride;
            count -= part;
        }
    }

    std::array<std::uint8_t, 4> Average() const {
        std::array<std::uint8_t, 4> colour;
        for (int i = 0; i < 4; ++i)
            colour[i] = static_cast<std::uint8_t>(m_count > 0 ? m_sums[i] / m_count : 255);
        return colour;
    }

  private:
    static constexpr int kAtOnce = 256;  // times 255 is below 2^16

    std::int64_t m_sums[4] = {};
    std::int64_t m_count = 0;
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

/// Paints strokes from the last to the first.
template <class Sums>
class StrokePainter {
  public:
    using Sample = typename Sums::Sample;
    using Colour = std::array<Sample, 4>;

    StrokePainter(const CFrame& source, CFrame& destination, float aspect)
        : m_source(source),
          m_destination(destination),
          m_aspect(aspect),
          m_open(source.m_nWidth, source.m_nHeight) {}

    bool IsDone() const { return m_open.Count() == 0; }

    void Paint(const StrokeLine& line) {
        const StrokeWalk walk(line, m_aspect);
        if (!IsSeen(walk)) return;
        Draw(walk, walk.isSteep ? GetAverageY(walk) : GetAverageX(walk));
    }

  private:
    Runs RunsOf(const StrokeWalk& walk, float step) const {
        return walk.isSteep ? Runs(walk, step, m_source.m_nHeight, m_source.m_nWidth)
                            : Runs(walk, step, m_source.m_nWidth, m_source.m_nHeight);
    }

    bool IsSeen(const StrokeWalk& walk) const {
        Runs runs = RunsOf(walk, walk.step);
        for (Run run; runs.Next(run);)
            if (m_open.HasAny(walk.isSteep, run)) return true;
        return false;
    }

    Colour GetAverageY(const StrokeWalk& walk) const {
        Sums sums;
        Runs runs = RunsOf(walk, walk.step);
        for (Run run; runs.Next(run);)
            sums.template Add<4>(Processors::RowOf<Sample>(m_source, run.at) + 4 * run.begin, 4,
                                 run.end - run.begin);
        return sums.Average();
    }

    /// The colour comes from the stroke's mirror image about its start row: part of the look.
    Colour GetAverageX(const StrokeWalk& walk) const {
        const std::ptrdiff_t span = m_source.m_nByteSpan / static_cast<int>(sizeof(Sample));
        Sums sums;
        Runs runs = RunsOf(walk, -walk.step);
        for (Run run; runs.Next(run);)
            sums.Add(Processors::RowOf<Sample>(m_source, run.begin) + 4 * run.at, span,
                     run.end - run.begin);
        return sums.Average();
    }

    void Draw(const StrokeWalk& walk, const Colour& colour) {
        Runs runs = RunsOf(walk, walk.step);
        for (Run run; runs.Next(run);) {
            if (walk.isSteep)
                m_open.Close(true, run, [&](int x) { Put(x, run.at, colour); });
            else
                m_open.Close(false, run, [&](int y) { Put(run.at, y, colour); });
        }
    }

    void Put(int x, int y, const Colour& colour) {
        std::memcpy(Processors::RowOf<Sample>(m_destination, y) + 4 * x, colour.data(),
                    sizeof colour);
    }

    const CFrame& m_source;
    CFrame& m_destination;
    const float m_aspect;
    OpenPixels m_open;
};

template <class Sums>
void Paint(const CFrame& source, CFrame& destination, float aspect,
           const std::vector<StrokeLine>& lines) {
    StrokePainter<Sums> painter(source, destination, aspect);
    for (auto line = lines.rbegin(); line != lines.rend() && !painter.IsDone(); ++line)
        painter.Paint(*line);
}

}  // namespace

void PaintStrokes(const CFrame& source, CFrame& destination, const Brush& brush,
                  RandomSequence& random) {
    const int width = source.m_nWidth, height = source.m_nHeight;
    const double pixels = static_cast<double>(width) * height;
    std::vector<StrokeLine> lines(static_cast<std::size_t>(pixels * 0.1));
    for (StrokeLine& line : lines) line = GetRandomLine(random, width, height, brush);
    if (Processors::IsFloatColor(source))
        Paint<FloatSums>(source, destination, brush.aspect, lines);
    else
        Paint<ByteSums>(source, destination, brush.aspect, lines);
}

}  // namespace brushworks
