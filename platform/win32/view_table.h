// The views that have been added, for the dialogs and controls that ask them.
// Windows only.
#pragma once

#include <string_view>

#include "platform/win32/views.h"

namespace platform {

/// Returns the view, or null. `dialog_template` is the number as text, or the name.
[[nodiscard]] ViewProcedure FindDialogView(std::string_view dialog_template);
/// The view that is added to all dialogs, or null.
[[nodiscard]] ViewProcedure CommonDialogView();
[[nodiscard]] ViewProcedure FindControlView(std::string_view tag, ControlProcedure procedure);

}  // namespace platform
