#include "panels/desktop_panels.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>

#include "panels/chosen_path.h"

namespace brushworks {
namespace {

bool IsSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

bool HasDisplay() {
    return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY");
}

/// Also a link to nothing.
bool IsThere(const std::string& path) {
    struct stat facts;
    return lstat(path.c_str(), &facts) == 0;
}

/// A program that answers without a user must not be asked for ever.
constexpr int kMostPanels = 5;

}  // namespace

std::optional<std::string> DesktopPanels::ChooseToSave(OpaqueWindowPtr* parent,
                                                       const FileRequest& request) {
    FileRequest asked = request;
    for (int panels = 0; panels < kMostPanels; ++panels) {
        auto path = Choose(WindowIdOf(parent), Purpose::kSave, asked);
        if (!path || path->empty()) return path;
        const std::string whole = WithExtension(*path, request.extension);
        if (whole == *path || !IsThere(whole)) return whole;
        const std::size_t name = whole.rfind('/') + 1;
        asked.folder = whole.substr(0, name);
        asked.name = whole.substr(name);
    }
    return std::nullopt;
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
