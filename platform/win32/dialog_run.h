// One modal run of a dialog. Windows only.
#pragma once

#include <string>

#include "platform/win32/views.h"

namespace platform {

struct DialogRun {
    DialogProcedure procedure;
    void* parameter;
    std::string template_name;
    bool ended = false;
    std::intptr_t result = 0;
    bool has_chosen_focus = false;  ///< FocusControl was called as the dialog opened
};

/// Returns the run of one of this program's dialogs, else null.
[[nodiscard]] DialogRun* RunOf(HWND dialog);

/// Makes the system's up-down and slider controls known, once.
void RegisterCommonControls();

}  // namespace platform
