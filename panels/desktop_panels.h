// The panels of whatever desktop this is: the portal's, else a dialog program's, else none.
#pragma once

#include <array>

#include "panels/dialog_program.h"
#include "panels/portal_chooser.h"

namespace brushworks {

/// Costs nothing until a panel is asked for, and keeps nothing between panels. Without a display no
/// way is tried: nothing is chosen, and an alert is a line on standard error.
///
/// Panels ask before they replace the file whose name was typed. Where that name lacked its
/// extension and the whole one belongs to a file, the panel is shown again with the whole name, so
/// that it asks about this one.
class DesktopPanels final : public IPanels {
  public:
    std::optional<std::string> ChooseToSave(OpaqueWindowPtr* parent,
                                            const FileRequest& request) override;
    std::optional<std::string> ChooseToOpen(OpaqueWindowPtr* parent,
                                            const FileRequest& request) override;
    void Alert(OpaqueWindowPtr* parent, const AlertTexts& texts) override;

  private:
    /// In the order in which they are tried.
    std::array<IPanelWay*, 3> Ways() { return {&m_portal, &m_zenity, &m_kdialog}; }
    std::optional<std::string> Choose(WindowId parent, Purpose purpose, const FileRequest& request);

    PortalChooser m_portal;
    DialogProgram m_zenity{ZenityWords()};
    DialogProgram m_kdialog{KDialogWords()};
};

}  // namespace brushworks
