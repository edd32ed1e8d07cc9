#include "effects/mosaic/facets.h"

#include <vector>

#include "effects/mosaic/fill.h"
#include "effects/mosaic/lines.h"
#include "effects/mosaic/point_grid.h"
#include "effects/mosaic/remove_borders.h"
#include "processors/region.h"

namespace brushworks {
namespace {

constexpr unsigned int kBlack = 0;

/// Channel by channel, in four bytes at once.
unsigned int Average(unsigned int one, unsigned int other) {
    return (one & other) + ((one ^ other) >> 1 & 0x7f7f7f7f);
}

unsigned int ColorBetween(const CFrame& source, IppiPoint from, IppiPoint to) {
    return GetAverageLineColor8u(&source, from.x, from.y, to.x, to.y);
}

/// The brick around the line from row `r` to the next in column `c`, which is not drawn. The bricks
/// of the outer columns are halves: their line is the frame's edge, so that the colour comes from
/// its middle to their far corners.
FillPoint SeedOfBrick(const PointGrid& grid, const CFrame& source, int r, int c) {
    const IppiSize frame = grid.frame();
    const IppiPoint top = grid.At(r, c), bottom = grid.At(r + 1, c);
    const int middle = (top.y + bottom.y) / 2;
    const auto halfBrick = [&](int x, int farColumn) {
        const IppiPoint edge = {x, middle};
        return Average(ColorBetween(source, edge, grid.At(r, farColumn)),
                       ColorBetween(source, edge, grid.At(r + 1, farColumn)));
    };
    const int y = r >= grid.ny() ? frame.height - 1 : r == 0 ? 0 : middle;
    if (c == 0) return {halfBrick(0, 1), 0, y};
    const int right = frame.width - 1;
    if (c >= grid.nx()) return {halfBrick(right, c - 1), right, y};
    return {ColorBetween(source, top, bottom), (top.x + bottom.x) / 2, y};
}

std::vector<FillPoint> MakeSeeds(const PointGrid& grid, const CFrame& source) {
    std::vector<FillPoint> seeds;
    seeds.reserve((static_cast<std::size_t>(grid.nx()) + 3) * (grid.ny() + 3) / 2);
    for (int r = 0; r <= grid.ny(); ++r)
        for (int c = r % 2; c <= grid.nx(); c += 2)
            seeds.push_back(SeedOfBrick(grid, source, r, c));
    return seeds;
}

void FillBricks(CFrame* frame, const std::vector<FillPoint>& seeds, MemoryAllocator* allocator) {
    const int count = static_cast<int>(seeds.size());
    if (frame->m_pfPixelFormat == PixelFormatBGRA8)
        FloodFillBGRA8(frame, seeds.data(), count, kBlack, allocator);
    else if (frame->m_pfPixelFormat == PixelFormatARGB8)
        FloodFillARGB8(frame, seeds.data(), count, kBlack, allocator);
}

void RemoveBorders(CFrame* frame) {
    if (frame->m_pfPixelFormat == PixelFormatBGRA8)
        RemoveBordersBGRA8(frame);
    else if (frame->m_pfPixelFormat == PixelFormatARGB8)
        RemoveBordersARGB8(frame);
}

}  // namespace

void AddFacets(CFrame* source, CFrame* destination, float size, float, float jitterX, float jitterY,
               bool wantOutlines, bool borders, float aspect, MemoryAllocator* allocator) {
    const IppiSize common = Processors::CommonSize(*source, *destination);
    const PointGrid grid(common, size, jitterX, jitterY, aspect);

    // Black lines hold the fill; they are taken away before softer ones are drawn in their place.
    grid.ForEachLine([&](IppiPoint from, IppiPoint to) {
        DrawLine(destination, from.x, from.y, to.x, to.y, kBlack);
    });
    FillBricks(destination, MakeSeeds(grid, *source), allocator);
    if (!borders || wantOutlines) RemoveBorders(destination);
    if (borders && wantOutlines)
        grid.ForEachLine([&](IppiPoint from, IppiPoint to) {
            Drawwuline(destination, from.x, from.y, to.x, to.y, kBlack);
        });
}

}  // namespace brushworks
