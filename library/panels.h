// The panels in force.
#pragma once

#include "panels/panels.h"

namespace brushworks {

/// The desktop's, unless SetPanels put others there.
IPanels& Panels();

/// Puts `panels`, borrowed, in force, or the desktop's again with null. Not while one is shown.
void SetPanels(IPanels* panels);

}  // namespace brushworks
