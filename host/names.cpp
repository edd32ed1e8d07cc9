// Names as people type them: folding, nearest match and the message for a wrong one.
#include "host/names.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace brushworks::host {
namespace {

char smallLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// How many letters must be inserted, dropped or changed, or neighbours swapped, to turn `a` into
/// `b`.
std::size_t editDistance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last;
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        beforeLast = std::exchange(last, row);
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = last[j] + (a[i] == b[j] ? 0 : 1);
            row[j + 1] = std::min({last[j + 1] + 1, row[j] + 1, changed});
            const bool swapped = i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j];
            if (swapped) row[j + 1] = std::min(row[j + 1], beforeLast[j - 1] + 1);
        }
    }
    return row[b.size()];
}

/// How many slips a name of that length may have: a third of the letters; more is another word.
std::size_t mostSlips(std::size_t length) {
    constexpr std::size_t kShort = 3;
    return length <= kShort ? 1 : std::max<std::size_t>(2, length / 3);
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
    std::size_t best = mostSlips(typed.size()) + 1;
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

std::string joinNames(const std::vector<std::string>& names) {
    std::string joined;
    for (const std::string& name : names) {
        if (!joined.empty()) joined += ", ";
        joined += name;
    }
    return joined;
}

std::string didYouMean(std::string_view wrong, const std::vector<std::string>& right) {
    const std::string nearest = nearestName(wrong, right);
    return nearest.empty() ? "" : "; did you mean \"" + nearest + "\"?";
}

std::string unknownName(std::string_view kind, std::string_view wrong,
                        const std::vector<std::string>& right,
                        const std::vector<std::string>& synonyms) {
    std::string message = "no " + std::string(kind) + " \"" + std::string(wrong) + "\"";
    std::vector<std::string> all = right;
    all.insert(all.end(), synonyms.begin(), synonyms.end());
    const std::string nearest = didYouMean(wrong, all);
    message += nearest.empty() ? "." : nearest;
    return message + " " + capitalized(kind) + "s: " + joinNames(right);
}

}  // namespace brushworks::host
