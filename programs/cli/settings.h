// What --set, --document, --config, --fountain and --tile do in the open dialog. A --set names a
// control: its value is checked against what that control takes, and the control loads it as a line
// of a document. The few configuration values that have no control are set as variables. Files are
// read as the dialog itself reads them.
#pragma once

#include <string>

#include "platform/dialog.h"
#include "programs/cli/request.h"
#include "shell/style_table.h"

namespace tess {

/// What is wrong with a setting.
struct SettingFault {
    int Status = kDone;  ///< the exit status, kDone when nothing is
    std::string Text;    ///< with kDone a warning, or empty
};

/// Applies one setting. A document that is refused has told the dialog's user why; the
/// fault's text is then its path alone. Requires: `dialog` is the open main dialog.
[[nodiscard]] SettingFault ApplySetting(platform::WindowHandle dialog, const Setting& setting);

/// The style that the dialog shows.
[[nodiscard]] const StyleEntry& SelectedStyle(platform::WindowHandle dialog);

/// The control that a --set means, 0 for none.
[[nodiscard]] int FindSettingControl(platform::WindowHandle dialog, const Setting& setting);

/// Lets control `id` load `value` as a line of a document. Returns whether it took
/// the line.
bool LoadControlValue(platform::WindowHandle dialog, int id, const std::string& value);

/// What a control of the main dialog itself is called here and in the configuration;
/// null for one that holds no value, or that has no key.
[[nodiscard]] const char* GeneralSettingName(int id);
[[nodiscard]] const char* GeneralSettingKey(int id);

}  // namespace tess
