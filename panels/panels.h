// What the library asks of the desktop: file choosers and alerts.
#pragma once

#include <optional>
#include <string>

#include "brushworks/preset_saver.h"

namespace brushworks {

/// A file that the user is to choose.
struct FileRequest {
    std::string folder;     ///< where the panel starts
    std::string extension;  ///< of the files to show, without a point
    std::string name;       ///< suggested for a file to be saved; empty for one to be opened
};

/// What an alert says.
struct AlertTexts {
    std::string title;
    std::string text;
    std::string button;
};

/// Panels run until the user is done with them. [the thread of the host's user interface]
class IPanels {
  public:
    virtual ~IPanels() = default;
    /// The chosen path, in UTF-8; none when the user did not confirm, or where there is no panel;
    /// empty for one that cannot be taken. `parent` may be null; else it is no address but the X11
    /// id of a window, in a pointer's place.
    ///
    /// A file to be saved has the extension, also where the user did not type it, and is replaced
    /// with the user's consent alone.
    virtual std::optional<std::string> ChooseToSave(OpaqueWindowPtr* parent,
                                                    const FileRequest& request) = 0;
    virtual std::optional<std::string> ChooseToOpen(OpaqueWindowPtr* parent,
                                                    const FileRequest& request) = 0;
    virtual void Alert(OpaqueWindowPtr* parent, const AlertTexts& texts) = 0;
};

}  // namespace brushworks
