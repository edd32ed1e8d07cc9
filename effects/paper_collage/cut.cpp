#include "effects/paper_collage/cut.h"

#include <array>

#include "effects/tone_table.h"
#include "processors/region.h"

namespace brushworks {
namespace {

struct Sums {
    std::uint64_t blue, green, red, count;
};

std::uint32_t Average(const Sums& sums) {
    if (sums.count == 0) return 0;
    return static_cast<std::uint32_t>(sums.blue / sums.count | (sums.green / sums.count) << 8 |
                                      (sums.red / sums.count) << 16);
}

}  // namespace

void CutIntoLevels(CFrame& gray, const CFrame& picture, float balance, std::span<Level> levels) {
    ToneTable table;
    unsigned char values[kMostLevels];
    CreateGammaTable(balance, static_cast<int>(levels.size()), false, 0.5f, table.data(), values);
    LookUp(gray, gray, table);

    unsigned char levelOf[256] = {};
    for (std::size_t l = 0; l < levels.size(); ++l)
        levelOf[values[l]] = static_cast<unsigned char>(l);
    std::array<Sums, kMostLevels> sums{};
    for (int y = 0; y < gray.m_nHeight; ++y) {
        const auto* value = Processors::RowOf<const unsigned char>(gray, y);
        const auto* pixel = Processors::RowOf<const unsigned char>(picture, y);
        for (int x = 0; x < gray.m_nWidth; ++x, pixel += 4) {
            Sums& sum = sums[levelOf[value[x]]];
            sum.blue += pixel[0];
            sum.green += pixel[1];
            sum.red += pixel[2];
            ++sum.count;
        }
    }
    for (std::size_t l = 0; l < levels.size(); ++l)
        levels[l] = {values[l], sums[l].count > 0, Average(sums[l])};
}

}  // namespace brushworks
