// A pixel's colour is that of its topmost sheet, under the shadows of the sheets above that one:
// whatever lies deeper is hidden, shadows included. So the sheets' colours are written once, and
// only the shadows are laid one after the other.
//
// The plane that holds the shadow is one for all sheets. A sheet's mask is put into it moved by the
// shadow's offset, softened, and then put once more without the offset, over which the next sheet's
// is put. So what the offset leaves free of the picture's rectangle shows the mask of the sheet
// before, and what lies beyond the rectangle grows softer with every sheet.
#include "effects/paper_collage/sheets.h"

#include <algorithm>
#include <cstring>

#include "primitives/filter_fixed.h"
#include "processors/alpha_blend.h"
#include "processors/copy_plane.h"
#include "processors/region.h"
#include "processors/set_color.h"

namespace brushworks {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000u;
/// Rows of shadow that are blended at a time: their pixels stay in the second cache.
constexpr int kStripRows = 16;

unsigned char* At(const CFrame& plane, int x, int y) {
    return Processors::RowOf<unsigned char>(plane, y) + x;
}

/// Puts the mask of a sheet with its corner at (x, y), cut to what `plane` holds.
void PutMask(const CFrame& values, unsigned char level, CFrame& plane, int x, int y) {
    const int left = std::max(x, 0), right = std::min(x + values.m_nWidth, plane.m_nWidth);
    const int top = std::max(y, 0), bottom = std::min(y + values.m_nHeight, plane.m_nHeight);
    for (int row = top; row < bottom && left < right; ++row) {
        const unsigned char* from = At(values, left - x, row - y);
        unsigned char* to = At(plane, left, row);
        for (int i = 0; i < right - left; ++i) to[i] = from[i] >= level ? 255 : 0;
    }
}

/// What a sheet leaves free of a row of shadow goes to `visible`; in the row the sheet takes its
/// place.
void CoverShadow(const unsigned char* values, unsigned char level, unsigned char* shadow,
                 unsigned char* visible, int width) {
    for (int x = 0; x < width; ++x) {
        const bool isCovered = values[x] >= level;
        visible[x] = isCovered ? 0 : shadow[x];
        shadow[x] = isCovered ? 255 : 0;
    }
}

void WriteTopSheets(const CFrame& values, std::span<const Level> levels, CFrame& picture) {
    std::uint32_t colors[256] = {};
    for (const Level& level : levels) colors[level.value] = level.color | kOpaque;
    for (int y = 0; y < picture.m_nHeight; ++y) {
        const unsigned char* from = At(values, 0, y);
        auto* to = Processors::RowOf<unsigned char>(picture, y);
        for (int x = 0; x < picture.m_nWidth; ++x) std::memcpy(to + 4 * x, &colors[from[x]], 4);
    }
}

}  // namespace

bool Sheets::Open(int width, int height, int levels, MemoryAllocator& allocator) {
    // Of what is beyond the picture only that can come back into it which the softening brings in,
    // a pixel for every sheet.
    m_margin = levels;
    for (CFrame& mask : m_masks) {
        if (!mask.Init(width + 2 * m_margin, height + 2 * m_margin, 1, &allocator, PixelFormatMono8,
                       false))
            return false;
        Processors::CSetColor().Process(&mask, 0);
    }
    const int rows = std::min(kStripRows, height);
    return m_strip.Init(width, rows, 4, &allocator, PixelFormatBGRA8, false) &&
           m_alpha.Init(width, rows, 1, &allocator, PixelFormatMono8, false);
}

/// Softens the shadow by the mean of 3 by 3, all but its outermost pixels.
void Sheets::LowPassFilter() {
    const CFrame& from = m_masks[m_current];
    CFrame& to = m_masks[1 - m_current];
    ippiFilterLowpass_8u_C1R(At(from, 1, 1), from.m_nByteSpan, At(to, 1, 1), to.m_nByteSpan,
                             {from.m_nWidth - 2, from.m_nHeight - 2}, kMask3x3);
    m_current = 1 - m_current;
}

/// Blends the shadow into what the level's sheet leaves free, and puts the sheet's mask in its
/// place.
void Sheets::BlendShadow(const CFrame& values, const Level& level, std::uint32_t color,
                         CFrame& picture) {
    const CFrame& mask = m_masks[m_current];
    Processors::CSetColor().Process(&m_strip, color);
    for (int top = 0; top < picture.m_nHeight; top += kStripRows) {
        const int rows = std::min(kStripRows, picture.m_nHeight - top);
        for (int y = 0; y < rows; ++y)
            CoverShadow(At(values, 0, top + y), level.value, At(mask, m_margin, m_margin + top + y),
                        At(m_alpha, 0, y), picture.m_nWidth);
        CFrame strip;
        strip.Init(&picture, 0, top, picture.m_nWidth, rows, false);
        Processors::CCopyPlane().Process(&m_alpha, &m_strip, 0, 3);
        Processors::CAlphaBlend().Process(&m_strip, &strip, &strip, /*premultiplied=*/false);
    }
}

void Sheets::Lay(const CFrame& values, std::span<const Level> levels, Shadow shadow,
                 CFrame& picture) {
    WriteTopSheets(values, levels, picture);
    if (!shadow.isThrown) return;
    const Level* beneath = &levels[0];
    for (const Level& level : levels) {
        shadow.color = DriftShadow(shadow.color, beneath->color, shadow.keep);
        PutMask(values, level.value, m_masks[m_current], m_margin + shadow.dx,
                m_margin + shadow.dy);
        LowPassFilter();
        BlendShadow(values, level, shadow.color, picture);
        beneath = &level;
    }
}

}  // namespace brushworks
