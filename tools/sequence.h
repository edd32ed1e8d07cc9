// Pictures whose names count up: frame-%04d.png.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brushworks::tools {

/// A path with the place of a number in its last part: "%d", or "%04d" for at least four digits.
/// "%%" stands for a percent sign.
class NumberedName {
  public:
    /// Nothing where the path holds no such place.
    static std::optional<NumberedName> parse(const std::string& path);

    std::string at(std::int64_t number) const;
    /// The number in a file's name, which has no folder; nothing where at() never gives that name.
    std::optional<std::int64_t> numberIn(const std::string& name) const;
    const std::string& folder() const { return m_sFolder; }

  private:
    std::string m_sFolder;  ///< with its slash, or ""
    std::string m_sBefore;
    std::string m_sAfter;
    int m_nDigits = 0;
};

/// The pictures that are there.
struct Sequence {
    NumberedName name;
    std::int64_t start = 0;  ///< the number of the first one
    std::int64_t count = 0;

    std::string at(std::int64_t frame) const { return name.at(start + frame); }
};

/// The sequence that a path names; nothing where the path has no place for a number, or is itself a
/// file. It begins with `start`, or with the lowest number that is there when that is less than 0.
/// Throws std::runtime_error when there is none, or one in the middle is missing.
std::optional<Sequence> findSequence(const std::string& path, std::int64_t start);

}  // namespace brushworks::tools
