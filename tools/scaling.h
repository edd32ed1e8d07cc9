// The size that pictures are brought to before they are painted.
#pragma once

#include <string>

namespace brushworks::tools {

struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
};

/// Sizes are those of upright pictures.
class Scaling {
  public:
    /// Leaves every size.
    Scaling() = default;

    /// "W:H"; "W:" or ":H", where the other side follows; "N%"; "fit:W:H", which reduces what is
    /// larger than that box. Throws host::UsageError, also for a size that no frame can have.
    static Scaling parse(const std::string& text);
    /// Reduces what has more lines.
    static Scaling atMostLines(int lines);

    /// The new size. With `even` the sides that it works out are even, as video has them. Throws
    /// host::UsageError when no frame can have it.
    Size sizeFor(Size size, bool even) const;
    /// Whether pictures keep their shape, but for rounding.
    bool keepsShape() const { return m_way != Way::Exact; }

  private:
    enum class Way { None, Exact, Width, Height, Percent, Fit };

    Way m_way = Way::None;
    int m_nWidth = 0;
    int m_nHeight = 0;
    double m_dPercent = 0;
};

}  // namespace brushworks::tools
