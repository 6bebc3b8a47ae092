// What the headless user must know of a control and of the port's dialogs.
#pragma once

#include <cstddef>

#include "platform/dialog.h"

namespace platform {

[[nodiscard]] bool IsAutoCheckBox(WindowHandle dialog, int id);
/// How many characters the user may type into an edit.
[[nodiscard]] std::size_t TextLimit(WindowHandle dialog, int id);
[[nodiscard]] bool IsComboBox(WindowHandle dialog, int id);

/// Asks the stand-in for the user what to do with `dialog`, whose queue is empty.
/// Returns 0 when there is none. For the ports' dialog loops.
int AskHeadlessUser(WindowHandle dialog);

}  // namespace platform
