// Names as people type them: folding, nearest match and the message for a wrong one.
#include "host/names.h"

#include <algorithm>
#include <numeric>

namespace brushworks::host {
namespace {

char smallLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// How many letters must be inserted, dropped or changed to turn `a` into `b`.
std::size_t editDistance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t above = row[j + 1];
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            row[j + 1] = std::min({above + 1, row[j] + 1, changed});
            diagonal = above;
        }
    }
    return row[b.size()];
}

std::string capitalized(std::string_view word) {
    std::string text(word);
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') {
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    }
    return text;
}

}  // namespace

std::string foldCase(std::string_view name) {
    std::string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), smallLetter);
    return folded;
}

bool sameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return smallLetter(x) == smallLetter(y); });
}

std::string nearestName(std::string_view wrong, const std::vector<std::string>& right) {
    const std::string typed = foldCase(wrong);
    if (typed.empty()) return "";
    std::string nearest;
    // A third of the letters may be wrong; more is another word.
    std::size_t best = std::max<std::size_t>(2, typed.size() / 3) + 1;
    for (const std::string& name : right) {
        const std::string folded = foldCase(name);
        std::size_t distance = editDistance(typed, folded);
        // The beginning of a name is as good as a slip of one letter.
        if (typed.size() >= 3 && folded.starts_with(typed)) {
            distance = std::min<std::size_t>(distance, 1);
        }
        // A name of which no letter is right is no likely one.
        if (distance < best && distance < std::max(typed.size(), folded.size())) {
            best = distance;
            nearest = name;
        }
    }
    return nearest;
}

std::string printableName(std::string_view name) {
    std::string printable;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto byte = static_cast<unsigned char>(name[i]);
        // UTF-8 has a second range of control characters, of two bytes each.
        const bool second = byte == 0xC2 && i + 1 < name.size() &&
                            static_cast<unsigned char>(name[i + 1]) >= 0x80 &&
                            static_cast<unsigned char>(name[i + 1]) < 0xA0;
        if (second) ++i;
        printable += byte < ' ' || byte == 0x7F || second ? '?' : name[i];
    }
    return printable;
}

std::string joinNames(const std::vector<std::string>& names) {
    std::string joined;
    for (const std::string& name : names) {
        if (!joined.empty()) joined += ", ";
        joined += name;
    }
    return joined;
}

std::string unknownName(std::string_view kind, std::string_view wrong,
                        const std::vector<std::string>& right) {
    std::string message = "no " + std::string(kind) + " \"" + std::string(wrong) + "\"";
    const std::string nearest = nearestName(wrong, right);
    if (!nearest.empty())
        message += "; did you mean \"" + nearest + "\"?";
    else
        message += ".";
    return message + " " + capitalized(kind) + "s: " + joinNames(right);
}

}  // namespace brushworks::host
