// What the two ports of platform/file_dialog.h do differently.
#pragma once

#include <string>

#include "platform/file_dialog.h"

namespace platform {

/// Asks the real user. Natively there is none: returns an empty path.
[[nodiscard]] std::string RunFileDialog(const FileDialogRequest& request);

}  // namespace platform
