// Turns all but letters and digits into hyphens, and counts repetitions.
#include "file_names.h"

#include "host/names.h"

namespace brushworks::tools {
namespace {

std::string plainName(std::string_view name) {
    std::string plain;
    for (const char c : host::foldCase(name)) {
        const bool kept = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        if (kept) {
            plain += c;
        } else if (!plain.empty() && plain.back() != '-') {
            plain += '-';
        }
    }
    if (plain.ends_with('-')) plain.pop_back();
    return plain.empty() ? "picture" : plain;
}

}  // namespace

std::string FileNames::make(std::string_view name) {
    const std::string plain = plainName(name);
    std::string unique = plain;
    for (int i = 2; !m_used.insert(unique).second; ++i) unique = plain + "-" + std::to_string(i);
    return unique + m_sExtension;
}

}  // namespace brushworks::tools
