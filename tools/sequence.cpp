// Takes names apart, and looks what a folder holds of them.
#include "sequence.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <stdexcept>
#include <vector>

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

constexpr int kMostDigits = 18;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Reads "%d" or "%04d" at `at`, and moves behind it.
std::optional<int> digitsAt(const std::string& text, std::size_t& at) {
    std::size_t end = at + 1;
    int digits = 0;
    for (; end < text.size() && isDigit(text[end]); ++end) {
        digits = std::min(digits * 10 + (text[end] - '0'), kMostDigits);
    }
    if (end >= text.size() || text[end] != 'd') return std::nullopt;
    at = end + 1;
    return digits;
}

}  // namespace

std::optional<NumberedName> NumberedName::parse(const std::string& path) {
    NumberedName name;
    const std::size_t slash = path.rfind('/');
    const std::size_t begin = slash == std::string::npos ? 0 : slash + 1;
    name.m_sFolder = path.substr(0, begin);
    bool found = false;
    for (std::size_t i = begin; i < path.size();) {
        std::string& part = found ? name.m_sAfter : name.m_sBefore;
        if (path[i] == '%') {
            if (path.compare(i, 2, "%%") == 0) {
                part += '%';
                i += 2;
                continue;
            }
            const std::optional<int> digits = found ? std::nullopt : digitsAt(path, i);
            if (!digits) return std::nullopt;
            name.m_nDigits = *digits;
            found = true;
            continue;
        }
        part += path[i++];
    }
    return found ? std::optional(name) : std::nullopt;
}

std::string NumberedName::at(std::int64_t number) const {
    std::string digits = std::to_string(number);
    const auto wanted = static_cast<std::size_t>(m_nDigits);
    if (digits.size() < wanted) digits.insert(0, wanted - digits.size(), '0');
    return m_sFolder + m_sBefore + digits + m_sAfter;
}

std::optional<std::int64_t> NumberedName::numberIn(const std::string& name) const {
    if (name.size() <= m_sBefore.size() + m_sAfter.size()) return std::nullopt;
    std::int64_t number = 0;
    const char* end = name.data() + name.size() - m_sAfter.size();
    const auto [rest, error] = std::from_chars(name.data() + m_sBefore.size(), end, number);
    if (error != std::errc() || rest != end || number < 0) return std::nullopt;
    return at(number) == m_sFolder + name ? std::optional(number) : std::nullopt;
}

std::optional<Sequence> findSequence(const std::string& path, std::int64_t start) {
    const std::optional<NumberedName> name = NumberedName::parse(path);
    std::error_code error;
    if (!name || fs::exists(path, error)) return std::nullopt;

    std::vector<std::int64_t> numbers;
    const fs::path folder = name->folder().empty() ? "." : name->folder();
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        const auto number = name->numberIn(entry.path().filename().string());
        if (number && *number >= start) numbers.push_back(*number);
    }
    if (error) throw std::runtime_error("cannot read " + folder.string() + ": " + error.message());
    std::sort(numbers.begin(), numbers.end());
    if (numbers.empty()) {
        throw std::runtime_error("there is no picture " + path +
                                 (start < 0 ? "" : " from " + name->at(start) + " on"));
    }
    const std::int64_t first = start < 0 ? numbers.front() : start;
    const auto count = static_cast<std::int64_t>(numbers.size());
    for (std::int64_t i = 0; i < count; ++i) {
        if (numbers[static_cast<std::size_t>(i)] == first + i) continue;
        throw std::runtime_error(name->at(first + i) + " is missing from the sequence, which " +
                                 "goes on to " + std::to_string(numbers.back()));
    }
    return Sequence{*name, first, count};
}

}  // namespace brushworks::tools
