// The host's window: the tiled animation, a status line, and the menu.
#pragma once

#include <windows.h>
#include <string>

namespace tess {

inline constexpr char kHostWindowClass[] = "TessellomaticsTileHost";

/// Shows the window with the plug-in of that path loaded and runs until the user
/// closes it. A plug-in that cannot be loaded is told about; the user may load
/// another. Returns the program's exit status.
[[nodiscard]] int RunHostWindow(const std::string& plugin_path, int show);

}  // namespace tess
