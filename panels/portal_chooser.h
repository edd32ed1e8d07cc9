// File choosers by the desktop portal (org.freedesktop.portal.FileChooser), which shows the
// desktop's own and reaches out of a sandbox.
#pragma once

#include "panels/panel_way.h"

namespace brushworks {

/// The address of the session's bus, or nothing where there is none that runs: none is started.
std::string SessionBusAddress(const char* addressVariable, const char* runtimeFolder);

class PortalChooser final : public IPanelWay {
  public:
    /// A portal that is slow to answer before it shows anything is not there; then the user has all
    /// the time that they want. A portal that asks and fails is taken for a user who declined,
    /// since some answer so when the user closes the window.
    Attempt Choose(WindowId parent, Purpose purpose, const FileRequest& request) override;
    /// Portals have no alerts.
    bool Alert(WindowId, const AlertTexts&) override { return false; }
};

}  // namespace brushworks
