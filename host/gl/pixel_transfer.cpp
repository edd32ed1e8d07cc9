// Hands rows to OpenGL as they lie where it can step over them, else through a copy without gaps.
#include "host/gl/pixel_transfer.h"

#include <epoxy/gl.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

namespace brushworks::host::gl {
namespace {

/// Whether OpenGL can step from row to row by a row length in whole pixels.
bool stepsInPixels(const PixelLayout& layout, int rowSpan) {
    return rowSpan > 0 && rowSpan % layout.bytes == 0;
}

/// One of the two groups of pixel storage modes, set for rows of a length and put back to OpenGL's
/// defaults.
class RowSteps {
  public:
    RowSteps(GLenum rowLength, GLenum alignment, const PixelLayout& layout, int rowSpan)
        : m_rowLength(rowLength), m_alignment(alignment) {
        glPixelStorei(m_rowLength, rowSpan / layout.bytes);
        if (layout.bytes < 4) glPixelStorei(m_alignment, 1);
    }
    ~RowSteps() {
        glPixelStorei(m_rowLength, 0);
        glPixelStorei(m_alignment, 4);
    }
    RowSteps(const RowSteps&) = delete;
    RowSteps& operator=(const RowSteps&) = delete;

  private:
    GLenum m_rowLength;
    GLenum m_alignment;
};

int tightSpan(const Region& region, const PixelLayout& layout) {
    return region.width * layout.bytes;
}

void getPixels(unsigned int texture, const Region& region, const PixelLayout& layout, void* pixels,
               int rowSpan) {
    const RowSteps steps(GL_PACK_ROW_LENGTH, GL_PACK_ALIGNMENT, layout, rowSpan);
    const std::size_t bytes = std::size_t(rowSpan) * std::size_t(region.height - 1) +
                              std::size_t(tightSpan(region, layout));
    // The size is only a guard against short memory, and its type holds no more.
    const auto guard = GLsizei(std::min<std::size_t>(bytes, std::numeric_limits<GLsizei>::max()));
    glGetTextureSubImage(texture, 0, region.left, region.top, 0, region.width, region.height, 1,
                         layout.format, layout.type, guard, pixels);
}

}  // namespace

std::optional<PixelLayout> pixelLayout(PixelFormat format) {
    switch (format) {
        case PixelFormatBGRA8:
        case PixelFormatARGB8:
            return PixelLayout{GL_RGBA8, GL_BGRA, GL_UNSIGNED_BYTE, 4, 4};
        case PixelFormatBGRA32f:
        case PixelFormatARGB32f:
            return PixelLayout{GL_RGBA32F, GL_BGRA, GL_FLOAT, 4, 16};
        case PixelFormatMono8:
            return PixelLayout{GL_R8, GL_RED, GL_UNSIGNED_BYTE, 1, 1};
        case PixelFormatMono32f:
            return PixelLayout{GL_R32F, GL_RED, GL_FLOAT, 1, 4};
    }
    return std::nullopt;
}

void copyRows(std::uint8_t* target, int targetSpan, const std::uint8_t* source, int sourceSpan,
              int rowBytes, int rows) {
    for (int y = 0; y < rows; ++y) {
        std::memcpy(target + std::ptrdiff_t(y) * targetSpan,
                    source + std::ptrdiff_t(y) * sourceSpan, std::size_t(rowBytes));
    }
}

bool uploadPixels(unsigned int texture, const Region& region, const PixelLayout& layout,
                  const void* pixels, int rowSpan) {
    const int tight = tightSpan(region, layout);
    if (rowSpan == 0) rowSpan = tight;
    if (std::abs(rowSpan) < tight && region.height > 1) return false;
    std::vector<std::uint8_t> copy;
    if (!stepsInPixels(layout, rowSpan)) {
        copy.resize(std::size_t(tight) * std::size_t(region.height));
        copyRows(copy.data(), tight, static_cast<const std::uint8_t*>(pixels), rowSpan, tight,
                 region.height);
        pixels = copy.data();
        rowSpan = tight;
    }
    const RowSteps steps(GL_UNPACK_ROW_LENGTH, GL_UNPACK_ALIGNMENT, layout, rowSpan);
    glTextureSubImage2D(texture, 0, region.left, region.top, region.width, region.height,
                        layout.format, layout.type, pixels);
    return true;
}

bool readPixels(unsigned int texture, const Region& region, const PixelLayout& layout, void* pixels,
                int rowSpan) {
    const int tight = tightSpan(region, layout);
    if (rowSpan == 0) rowSpan = tight;
    if (std::abs(rowSpan) < tight && region.height > 1) return false;
    if (stepsInPixels(layout, rowSpan)) {
        getPixels(texture, region, layout, pixels, rowSpan);
        return true;
    }
    std::vector<std::uint8_t> copy(std::size_t(tight) * std::size_t(region.height));
    getPixels(texture, region, layout, copy.data(), tight);
    copyRows(static_cast<std::uint8_t*>(pixels), rowSpan, copy.data(), tight, tight, region.height);
    return true;
}

void readPixelsIntoBuffer(unsigned int texture, const Region& region, const PixelLayout& layout) {
    getPixels(texture, region, layout, nullptr, tightSpan(region, layout));
}

}  // namespace brushworks::host::gl
