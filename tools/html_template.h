// Fills templates of HTML: {{name}} stands for a text, which is escaped; {{&name}} for HTML, which
// goes in as it is; and what lies between {{#name}} and {{/name}} comes once for each item of a
// list.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brushworks::tools {

/// What the names of a template stand for. Each item of a list has names of its own, and sees
/// those around it.
struct TemplateValues {
    std::map<std::string, std::string, std::less<>> texts;
    std::map<std::string, std::vector<TemplateValues>, std::less<>> lists;
};

/// The text with all names replaced. Throws std::logic_error for a name that has no value.
std::string fillTemplate(std::string_view text, const TemplateValues& values);

/// The text as HTML shows it, in element content and in quoted attributes.
std::string escapeHtml(std::string_view text);

}  // namespace brushworks::tools
