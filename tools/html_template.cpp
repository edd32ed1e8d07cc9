// Walks through a template from tag to tag.
#include "html_template.h"

#include <stdexcept>

namespace brushworks::tools {
namespace {

constexpr std::string_view kOpen = "{{";
constexpr std::string_view kClose = "}}";

/// The values that can be seen from where the walk is, the nearest first.
struct Scope {
    const TemplateValues& values;
    const Scope* outer = nullptr;

    const std::string* text(std::string_view name) const {
        const auto found = values.texts.find(name);
        if (found != values.texts.end()) return &found->second;
        return outer != nullptr ? outer->text(name) : nullptr;
    }
    const std::vector<TemplateValues>* list(std::string_view name) const {
        const auto found = values.lists.find(name);
        if (found != values.lists.end()) return &found->second;
        return outer != nullptr ? outer->list(name) : nullptr;
    }
};

template <class Value>
const Value& known(const Value* value, std::string_view name) {
    if (value == nullptr) {
        throw std::logic_error("the template's {{" + std::string(name) + "}} has no value");
    }
    return *value;
}

/// Takes what stands before `mark` off the front of `text`, and the mark.
std::string_view takeUntil(std::string_view& text, std::string_view mark) {
    const std::size_t place = text.find(mark);
    if (place == std::string_view::npos) {
        throw std::logic_error("the template lacks " + std::string(mark));
    }
    const std::string_view before = text.substr(0, place);
    text.remove_prefix(place + mark.size());
    return before;
}

void fill(std::string_view text, const Scope& scope, std::string& out) {
    while (text.find(kOpen) != std::string_view::npos) {
        out += takeUntil(text, kOpen);
        std::string_view name = takeUntil(text, kClose);
        if (name.starts_with('#')) {
            name.remove_prefix(1);
            const std::string end = "{{/" + std::string(name) + "}}";
            const std::string_view body = takeUntil(text, end);
            for (const TemplateValues& item : known(scope.list(name), name)) {
                fill(body, {item, &scope}, out);
            }
        } else if (name.starts_with('&')) {
            name.remove_prefix(1);
            out += known(scope.text(name), name);
        } else {
            out += escapeHtml(known(scope.text(name), name));
        }
    }
    out += text;
}

}  // namespace

std::string fillTemplate(std::string_view text, const TemplateValues& values) {
    std::string out;
    fill(text, {values}, out);
    return out;
}

std::string escapeHtml(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            case '\'':
                escaped += "&#39;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

}  // namespace brushworks::tools
