// One way to show panels, of the several that a desktop may offer.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "panels/panels.h"

namespace brushworks {

enum class Purpose { kSave, kOpen };

/// For ways that have no title of their own.
inline const char* TitleOf(Purpose purpose) {
    return purpose == Purpose::kSave ? "Save As" : "Open";
}

/// The X11 id of a window, or 0 for none.
using WindowId = std::uint32_t;

/// The id that a host passes in a pointer's place. What does not fit an id is none.
inline WindowId WindowIdOf(const OpaqueWindowPtr* parent) {
    const auto value = reinterpret_cast<std::uintptr_t>(parent);
    return value <= UINT32_MAX ? static_cast<WindowId>(value) : 0;
}

/// What became of one way to let the user choose.
struct Attempt {
    bool shown = false;  ///< whether the user was asked; where not, the next way is worth a try
    std::optional<std::string> path;  ///< the confirmed one, as the header chosen_path.h has it
};

class IPanelWay {
  public:
    virtual ~IPanelWay() = default;
    /// Asks before it lets the user choose an existing file to save to.
    virtual Attempt Choose(WindowId parent, Purpose purpose, const FileRequest& request) = 0;
    /// Whether the alert was shown.
    virtual bool Alert(WindowId parent, const AlertTexts& texts) = 0;
};

}  // namespace brushworks
