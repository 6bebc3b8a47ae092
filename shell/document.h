// Documents, ".qv1": the state of the dialog as one line a control, by id.
#pragma once

#include <string_view>

#include "platform/dialog.h"

namespace tess {

/// Reads the document at `path` into the dialog's controls, then shows the style
/// that it selects. Returns 1, or 0 after a message; nothing was applied then,
/// unless the file could not be read to its end.
int ReadDocument(platform::WindowHandle dialog, const char* path);

/// The same for a text in memory.
int ReadDocumentText(platform::WindowHandle dialog, std::string_view text);

/// Writes every control that has a class tag, in the dialog's order. Returns 1, or
/// 0 after a message.
int WriteDocument(platform::WindowHandle dialog, const char* path);

}  // namespace tess
