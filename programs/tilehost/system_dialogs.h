// What the system asks the user on the host's behalf, and loads and shows for it.
#pragma once

#include <windows.h>
#include <string>

#include "shell/host_interface.h"

namespace tess {

/// Asks for a plug-in to load. Returns its path, or nothing.
[[nodiscard]] std::string AskForPlugin(HWND owner);
/// Asks where to save a GIF. Returns the path, or nothing.
[[nodiscard]] std::string AskWhereToSaveGif(HWND owner);
/// Asks for a picture. Returns whether there is one; its path goes to `path`, which
/// has `room` bytes.
[[nodiscard]] bool AskForImage(HWND owner, char* path, std::size_t room);
/// Asks for a colour, at first `*color`.
[[nodiscard]] bool AskForColor(HWND owner, ColorWord* color);

/// Reads a picture of any kind that the system reads (BMP, GIF, JPEG, PNG, TIFF), at
/// 24 bits, transparent places on white. Returns null when it cannot. The caller
/// owns it.
[[nodiscard]] ImageHandle LoadPicture(const char* path);

/// Shows the page of help in the user's browser. `folder` ends with a separator.
/// Returns false when there is no such page.
[[nodiscard]] bool OpenHelp(const std::string& folder, const char* target);

}  // namespace tess
