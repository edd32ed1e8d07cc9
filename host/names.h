// Names as people type them: letter case does not count, and a wrong name is answered with the
// right ones.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brushworks::host {

/// The name in small letters; only the letters A to Z change.
std::string foldCase(std::string_view name);

/// Whether two names differ in letter case at most.
bool sameName(std::string_view a, std::string_view b);

/// The name of `right` that a person who typed `wrong` most likely meant, or "" when none is near.
std::string nearestName(std::string_view wrong, const std::vector<std::string>& right);

/// "; did you mean "NAME"?" with the nearest name, to end a message with; "" when none is near.
std::string didYouMean(std::string_view wrong, const std::vector<std::string>& right);

/// The message for a name that does not exist, such as
///   no effect "posterise"; did you mean "posterize"? Effects: cartoon, charcoal, ...
/// It may mean one of `synonyms` too, and does not list those.
std::string unknownName(std::string_view kind, std::string_view wrong,
                        const std::vector<std::string>& right,
                        const std::vector<std::string>& synonyms = {});

/// The names with ", " between them.
std::string joinNames(const std::vector<std::string>& names);

}  // namespace brushworks::host
