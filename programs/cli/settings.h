// What --set does: a key is taken to a control of the open dialog, its value is
// checked against what that control takes, and the control loads it as a line of a
// document. The few configuration values that have no control are set as variables.
#pragma once

#include <string>

#include "platform/dialog.h"
#include "programs/cli/request.h"

namespace tess {

/// Applies one setting. Returns the text of what is wrong with it, empty when it
/// was applied. Requires: `dialog` is the open main dialog.
[[nodiscard]] std::string ApplySetting(platform::WindowHandle dialog, const Setting& setting);

/// Lets control `id` load `value` as a line of a document. Returns whether it took
/// the line.
bool LoadControlValue(platform::WindowHandle dialog, int id, const std::string& value);

}  // namespace tess
