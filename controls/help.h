// The help page, which the host shows.
#pragma once

#include "platform/dialog.h"

namespace tess {

/// Asks the host for the help page at `anchor`; a failure is told.
void ShowHelp(platform::WindowHandle dialog, const char* anchor);

inline constexpr char kHelpFile[] = "VORBELx1.HTML";

}  // namespace tess
