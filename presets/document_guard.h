// Looks a text over before it is parsed: the XML parser recurses into elements and compares each
// attribute with those before it, so what it is given must be shallow and slim.
#pragma once

#include <cstddef>
#include <string_view>

namespace brushworks {

/// Far above what a hundred parameters take.
inline constexpr std::size_t kMaxDocumentBytes = 256 * 1024;

/// Well-formed UTF-8 without control characters, other than tabs and line ends.
bool IsXmlText(std::string_view text);

/// Small enough, plain text, and elements that close, nested no deeper than 16, with at most 64
/// attributes each. No text may show this scan one nesting and the parser another: refused are
/// document types and literal sections, angle brackets that stand nowhere (a comment holds any, a
/// quoted value of an element ">"), and declarations whose values have words in them.
bool IsSafeToParse(std::string_view text);

}  // namespace brushworks
