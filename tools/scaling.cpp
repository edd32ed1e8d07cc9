// Reads the forms, and works out sides.
#include "scaling.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

#include "host/error.h"
#include "media/frame_limit.h"

namespace brushworks::tools {
namespace {

constexpr int kMostPixels = 16384;  ///< of a side that is written
constexpr double kMostPercent = 10000;
constexpr double kWhole = 100;  ///< percent

[[noreturn]] void refuse(const std::string& text) {
    throw host::UsageError("\"" + text + "\" is no size; write 1280:720, 1280: or :720, 50%, or " +
                           "fit:1280:720, with sides of 1 to " + std::to_string(kMostPixels));
}

template <class Number>
std::optional<Number> parseAll(std::string_view text, Number most) {
    Number number = {};
    const char* last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number);
    // In this form what is no number is refused too.
    if (error != std::errc() || end != last || !(number > 0 && number <= most)) return std::nullopt;
    return number;
}

int rounded(double length, bool even) {
    constexpr double kMost = 1e9;
    const double step = even ? 2 : 1;
    return static_cast<int>(std::clamp(std::round(length / step) * step, step, kMost));
}

/// The size, where frames may have it.
Size possible(Size size) {
    if (media::isPossibleSize(size.width, size.height)) return size;
    throw host::UsageError("--scale: " + media::tooLargeText(size.width, size.height));
}

}  // namespace

Scaling Scaling::parse(const std::string& text) {
    constexpr std::string_view kFit = "fit:";
    Scaling scaling;
    if (text.ends_with('%')) {
        const auto percent =
            parseAll<double>(std::string_view(text).substr(0, text.size() - 1), kMostPercent);
        if (!percent) refuse(text);
        scaling.m_way = Way::Percent;
        scaling.m_dPercent = *percent;
        return scaling;
    }
    const bool fit = text.starts_with(kFit);
    const std::string_view sides = std::string_view(text).substr(fit ? kFit.size() : 0);
    const std::size_t colon = sides.find(':');
    if (colon == std::string_view::npos) refuse(text);
    const std::string_view wide = sides.substr(0, colon);
    const std::string_view high = sides.substr(colon + 1);
    const std::optional<int> width = parseAll(wide, kMostPixels);
    const std::optional<int> height = parseAll(high, kMostPixels);
    const bool whole = width && height;
    const bool part = !fit && ((width && high.empty()) || (height && wide.empty()));
    if (!whole && !part) refuse(text);
    scaling.m_nWidth = width.value_or(0);
    scaling.m_nHeight = height.value_or(0);
    scaling.m_way = fit ? Way::Fit : whole ? Way::Exact : width ? Way::Width : Way::Height;
    if (scaling.m_way == Way::Exact) possible({scaling.m_nWidth, scaling.m_nHeight});
    return scaling;
}

Scaling Scaling::atMostLines(int lines) {
    Scaling scaling;
    scaling.m_way = Way::Fit;
    scaling.m_nWidth = kMostPixels;
    scaling.m_nHeight = lines;
    return scaling;
}

Size Scaling::sizeFor(Size size, bool even) const {
    const double across = static_cast<double>(m_nWidth) / size.width;
    const double down = static_cast<double>(m_nHeight) / size.height;
    const auto times = [&](double factor) -> Size {
        if (factor == 1) return size;
        return {rounded(size.width * factor, even), rounded(size.height * factor, even)};
    };
    switch (m_way) {
        case Way::Exact:
            return {m_nWidth, m_nHeight};
        case Way::Width:
            return possible({m_nWidth, times(across).height});
        case Way::Height:
            return possible({times(down).width, m_nHeight});
        case Way::Percent:
            return possible(times(m_dPercent / kWhole));
        case Way::Fit:
            return times(std::min({1.0, across, down}));
        case Way::None:
            break;
    }
    return size;
}

}  // namespace brushworks::tools
