#include "presets/document_guard.h"

#include <algorithm>
#include <cstdint>

namespace brushworks {
namespace {

constexpr int kMaxDepth = 16;
constexpr int kMaxAttributes = 64;
constexpr char kBlanks[] = " \t\r\n";
/// What a name or an unquoted value ends at.
constexpr char kEnds[] = " \t\r\n=/<>\"'";

/// How many bytes the character at the start of `text` takes; 0 for one that XML does not allow.
std::size_t CharacterBytes(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t first = byte(0);
    if (first < 0x80)
        return first >= ' ' || first == '\t' || first == '\n' || first == '\r' ? 1 : 0;
    const std::size_t bytes = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < bytes) return 0;
    for (std::size_t i = 1; i < bytes; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 0;
    // Longer than need be, half of a surrogate pair, past the last character.
    if ((first == 0xE0 && byte(1) < 0xA0) || (first == 0xED && byte(1) > 0x9F) ||
        (first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) > 0x8F))
        return 0;
    return bytes;
}

/// What of a text is not read yet.
class Rest {
  public:
    explicit Rest(std::string_view text) : m_text(text) {}

    bool IsEmpty() const { return m_text.empty(); }
    bool Take(std::string_view token) {
        if (!m_text.starts_with(token)) return false;
        m_text.remove_prefix(token.size());
        return true;
    }
    /// What stands before the first of the characters `ends`, or before the end.
    std::string_view TakeUntil(std::string_view ends) {
        const std::string_view taken = m_text.substr(0, m_text.find_first_of(ends));
        m_text.remove_prefix(taken.size());
        return taken;
    }
    /// False where there is no `end`.
    bool TakePast(std::string_view end) {
        const std::size_t at = m_text.find(end);
        if (at == m_text.npos) return false;
        m_text.remove_prefix(at + end.size());
        return true;
    }
    void SkipBlanks() {
        m_text.remove_prefix(std::min(m_text.find_first_not_of(kBlanks), m_text.size()));
    }

  private:
    std::string_view m_text;
};

// Each Take... below ends where the parser's own reading of the same piece does, or the parser
// stops in it: so the two never see one character in different places. What would make them is
// refused.

/// A declaration, from behind its "<?". The parser reads its attributes where it sees their names
/// at the start of a word, also within a value of another: so no value may have words, nor what
/// some locale takes for a blank.
bool TakeDeclaration(Rest& rest) {
    char quote = 0;
    for (const char c : rest.TakeUntil("<>")) {
        if (quote == 0 && (c == '"' || c == '\''))
            quote = c;
        else if (c == quote)
            quote = 0;
        else if (quote != 0 && !(c > ' ' && c < 0x7F))
            return false;
    }
    return quote == 0 && rest.Take(">");
}

/// A name, "=" and a value, which the parser forgives the lack of quotes.
bool TakeAttribute(Rest& rest) {
    if (rest.TakeUntil(kEnds).empty()) return false;
    rest.SkipBlanks();
    if (!rest.Take("=")) return false;
    rest.SkipBlanks();
    for (const std::string_view ends : {"<\"", "<'"})
        if (const std::string_view quote = ends.substr(1); rest.Take(quote)) {
            rest.TakeUntil(ends);
            return rest.Take(quote);
        }
    rest.TakeUntil(kEnds);  // one of =<"' is in the way of the next attribute
    return true;
}

/// What the parser takes for an element's name; anything else between brackets it passes over.
bool IsElementName(std::string_view name) {
    if (name.empty()) return false;
    const char first = name.front();
    const bool isLetter = (first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z');
    return isLetter || first == '_' || static_cast<std::uint8_t>(first) >= 0x80;
}

/// An element's opening tag, from behind its "<", and what it does to the depth.
bool TakeOpeningTag(Rest& rest, int& depth) {
    if (!IsElementName(rest.TakeUntil(kEnds))) return false;
    for (int attributes = 0;; ++attributes) {
        rest.SkipBlanks();
        if (rest.Take("/>")) return depth < kMaxDepth;
        if (rest.Take(">")) return ++depth <= kMaxDepth;
        if (attributes == kMaxAttributes || !TakeAttribute(rest)) return false;
    }
}

bool TakeClosingTag(Rest& rest, int& depth) {
    rest.TakeUntil("<>\"'");
    return rest.Take(">") && --depth >= 0;
}

}  // namespace

bool IsXmlText(std::string_view text) {
    while (!text.empty()) {
        const std::size_t bytes = CharacterBytes(text);
        if (bytes == 0) return false;
        text.remove_prefix(bytes);
    }
    return true;
}

bool IsSafeToParse(std::string_view text) {
    if (text.size() > kMaxDocumentBytes || !IsXmlText(text)) return false;
    int depth = 0;
    Rest rest(text);
    for (rest.TakeUntil("<>"); !rest.IsEmpty(); rest.TakeUntil("<>")) {
        const bool taken = rest.Take("<!--") ? rest.TakePast("-->")
                           : rest.Take("<?") ? TakeDeclaration(rest)
                           : rest.Take("</") ? TakeClosingTag(rest, depth)
                           : rest.Take("<")  ? TakeOpeningTag(rest, depth)
                                             : false;
        if (!taken) return false;
    }
    return depth == 0;
}

}  // namespace brushworks
