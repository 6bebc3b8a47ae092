// The small dialog in which the user names a new group: an edit, OK and Cancel.
#pragma once

#include <string>

#include "platform/dialog.h"

namespace tess {

/// Runs the DIALOG resource `dialog_template` with `name` selected in its edit.
/// Returns whether the user pressed OK; `name`, never empty, is the new one then.
bool AskName(platform::WindowHandle owner, int dialog_template, std::string* name);

}  // namespace tess
