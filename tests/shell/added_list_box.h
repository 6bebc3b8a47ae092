// A list box in a dialog whose template has none.
#pragma once

#include "platform/dialog.h"

namespace tess::test {

/// Adds an empty list box with this id as the dialog's last control.
void AddListBox(platform::WindowHandle dialog, int id);

}  // namespace tess::test
