#include "panels/desktop_panels.h"

#include <cstdio>
#include <cstdlib>

namespace brushworks {
namespace {

bool IsSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

bool HasDisplay() {
    return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY");
}

}  // namespace

std::optional<std::string> DesktopPanels::ChooseToSave(OpaqueWindowPtr* parent,
                                                       const FileRequest& request) {
    return Choose(WindowIdOf(parent), Purpose::kSave, request);
}

std::optional<std::string> DesktopPanels::ChooseToOpen(OpaqueWindowPtr* parent,
                                                       const FileRequest& request) {
    return Choose(WindowIdOf(parent), Purpose::kOpen, request);
}

std::optional<std::string> DesktopPanels::Choose(WindowId parent, Purpose purpose,
                                                 const FileRequest& request) {
    if (!HasDisplay()) return std::nullopt;
    for (IPanelWay* way : Ways()) {
        const Attempt attempt = way->Choose(parent, purpose, request);
        if (attempt.shown) return attempt.path;
    }
    return std::nullopt;
}

void DesktopPanels::Alert(OpaqueWindowPtr* parent, const AlertTexts& texts) {
    if (HasDisplay())
        for (IPanelWay* way : Ways())
            if (way->Alert(WindowIdOf(parent), texts)) return;
    std::fprintf(stderr, "%s: %s\n", texts.title.c_str(), texts.text.c_str());
}

}  // namespace brushworks
