// A picture of which one half is painted and the other one as it was, with a line between.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "media/orientation.h"

namespace brushworks::tools {

/// The half that stays as it was.
enum class KeptHalf { None, Left, Top };

/// The words for the halves on a command line.
const std::vector<std::string>& keptHalfNames();
/// The half of that name, None for "".
KeptHalf keptHalf(const std::string& name);

/// Puts the half back. [one thread at a time]
class BeforeAfter {
  public:
    explicit BeforeAfter(KeptHalf half) : m_half(half) {}

    /// Remembers the half of a picture, since effects may write into it.
    void remember(const media::PixelView& original);
    /// Puts it over the painted picture, which has the same layout and size.
    void restore(const media::PixelView& painted) const;

  private:
    media::PixelView halfOf(const media::PixelView& picture) const;

    KeptHalf m_half;
    std::vector<std::uint8_t> m_pixels;
};

}  // namespace brushworks::tools
