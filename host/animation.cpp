// Reads marks, and finds the value between two of them.
#include "host/animation.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "host/error.h"
#include "host/value_text.h"

namespace brushworks::host {
namespace {

/// Many containers round the times of frames to this, so a frame may come that much before the
/// mark that is meant for it.
constexpr double kRounding = 0.001;

std::string quoted(std::string_view text) {
    return std::string(1, '"').append(text).append(1, '"');
}

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Cuts `unit` off the end of `text`, if it stands there.
bool takeUnit(std::string_view& text, std::string_view unit) {
    if (!text.ends_with(unit)) return false;
    text.remove_suffix(unit.size());
    return true;
}

std::optional<double> parseAmount(std::string_view text) {
    const std::optional<double> number = parseNumber(text);
    return number && *number >= 0 ? number : std::nullopt;
}

std::optional<double> parseWhole(std::string_view text) {
    const std::optional<double> number = parseAmount(text);
    return number && *number == std::floor(*number) ? number : std::nullopt;
}

/// h:m:s or m:s.
std::optional<double> parseClock(std::string_view text) {
    double whole = 0;
    int colons = 0;
    for (std::size_t colon = 0; (colon = text.find(':')) != text.npos; ++colons) {
        const std::optional<double> part = parseWhole(text.substr(0, colon));
        if (!part || (colons > 0 && *part >= 60)) return std::nullopt;
        whole = (whole + *part) * 60;
        text.remove_prefix(colon + 1);
    }
    const std::optional<double> seconds = parseAmount(text);
    if (!seconds || *seconds >= 60 || colons > 2) return std::nullopt;
    return whole + *seconds;
}

/// The seconds that `text` stands for. Throws UsageError.
double parseTime(const ParameterInfo& parameter, std::string_view text, double frameRate) {
    std::string_view number = text;
    std::optional<double> seconds;
    if (text.find(':') != text.npos) {
        seconds = parseClock(text);
    } else if (takeUnit(number, "ms")) {
        seconds = parseAmount(number);
        if (seconds) *seconds /= 1000;
    } else if (takeUnit(number, "s")) {
        seconds = parseAmount(number);
    } else if (takeUnit(number, "f")) {
        seconds = parseWhole(number);
        if (seconds && frameRate <= 0) {
            throw UsageError(parameter.address + ": " + quoted(text) +
                             " counts frames, but the input tells no frame rate; write the time "
                             "in seconds, such as 4s");
        }
        if (seconds) *seconds /= frameRate;
    }
    if (seconds) return *seconds;
    throw UsageError(parameter.address + ": " + quoted(text) +
                     " is no time; write seconds (4s), milliseconds (4000ms), frames (100f) or "
                     "h:m:s (0:00:04), from 0 on");
}

/// From 0 to 1 as `way` does, slow at both ends.
double eased(double way) {
    return way * way * (3 - 2 * way);
}

std::uint32_t colorBetween(std::uint32_t from, std::uint32_t to, double way) {
    std::uint32_t color = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const double channel = std::lerp(from >> shift & 0xFF, to >> shift & 0xFF, way);
        color |= static_cast<std::uint32_t>(std::lround(channel)) << shift;
    }
    return color;
}

EffectParam between(ParamType type, EffectParam from, EffectParam to, double way) {
    const auto number = [way](float a, float b) {
        return static_cast<float>(std::lerp(double{a}, double{b}, way));
    };
    EffectParam value = {.word = 0};
    switch (type) {
        case kParamFloat:
            // What a slider shows is in proportion to its value.
            value.value = number(from.value, to.value);
            return value;
        case kParamPoint:
            value.point = {number(from.point.x, to.point.x), number(from.point.y, to.point.y)};
            return value;
        case kParamColor:
            value.color = colorBetween(from.color, to.color, way);
            return value;
        default:
            return from;
    }
}

}  // namespace

Animation Animation::parse(const ParameterInfo& parameter, std::string_view text, EffectParam start,
                           double frameRate) {
    Animation animation(parameter);
    std::vector<Mark>& marks = animation.m_marks;
    for (std::string_view rest = text;;) {
        // A point has a comma of its own, so a mark ends at the first one behind its time.
        const std::size_t at = rest.find('@');
        if (at == rest.npos) {
            throw UsageError(parameter.address + ": " + quoted(withoutBlanks(rest)) + " in " +
                             quoted(text) +
                             " has no time; write each mark as VALUE@TIME, such as 10@0s,60@4s");
        }
        const std::size_t end = std::min(rest.find_first_of(",~", at), rest.size());
        const std::string_view value = withoutBlanks(rest.substr(0, at));
        const std::string_view time = withoutBlanks(rest.substr(at + 1, end - at - 1));
        const Mark mark = {parseTime(parameter, time, frameRate),
                           value.empty() ? start : parseValue(parameter, value),
                           end < rest.size() && rest[end] == '~'};
        if (!marks.empty() && mark.seconds <= marks.back().seconds) {
            throw UsageError(parameter.address + ": " + quoted(withoutBlanks(rest.substr(0, end))) +
                             " is not later than the mark before it in " + quoted(text) +
                             "; write marks in the order of their times, one for each time");
        }
        marks.push_back(mark);
        if (end == rest.size()) return animation;
        rest.remove_prefix(end + 1);
    }
}

EffectParam Animation::valueAt(double seconds) const {
    const auto next = std::find_if(m_marks.begin(), m_marks.end(), [=](const Mark& mark) {
        return mark.seconds > seconds + kRounding;
    });
    if (next == m_marks.begin()) return next->value;
    const Mark& from = next[-1];
    if (next == m_marks.end()) return from.value;
    const double way = std::max(0.0, (seconds - from.seconds) / (next->seconds - from.seconds));
    return between(m_parameter.type, from.value, next->value, from.eased ? eased(way) : way);
}

}  // namespace brushworks::host
