// A value that moves over time: marks such as "10@0s,60@4s", and what lies between them. It knows
// times alone, and nothing of video.
#pragma once

#include <string_view>
#include <vector>

#include "host/parameter_info.h"

namespace brushworks::host {

/// One parameter's values over time. The value at a time depends on nothing else, so frames may be
/// asked for in any order and from the middle.
class Animation {
  public:
    /// Whether `text` sets marks; without them it is a value that stays.
    static bool hasMarks(std::string_view text) { return text.find('@') != text.npos; }

    /// Reads VALUE@TIME marks in the order of their times. A "," behind a mark leads straight to
    /// the next one, a "~" gently at both ends. A mark without a value takes `start`. `frameRate`,
    /// in frames a second, serves times in frames; 0 where it is not known. Throws UsageError.
    static Animation parse(const ParameterInfo& parameter, std::string_view text, EffectParam start,
                           double frameRate);

    const ParameterInfo& parameter() const { return m_parameter; }

    /// The first mark's value before it, the last one's behind it. Sliders, colours and points
    /// move between two marks; check boxes and lists step at the second.
    EffectParam valueAt(double seconds) const;

  private:
    struct Mark {
        double seconds = 0;
        EffectParam value = {.word = 0};
        bool eased = false;  ///< the way to the next mark
    };

    explicit Animation(const ParameterInfo& parameter) : m_parameter(parameter) {}

    ParameterInfo m_parameter;
    std::vector<Mark> m_marks;  ///< at least one, by rising times
};

}  // namespace brushworks::host
