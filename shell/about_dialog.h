// DIALOG 8900: what the program is, with its logo.
#pragma once

#include "platform/dialog.h"

namespace tess {

inline constexpr int kAboutTemplate = 8900;
inline constexpr int kAboutLogo = 106;
inline constexpr int kWebPageButton = 104;

/// Runs the dialog modally.
void RunAbout(platform::WindowHandle owner);

/// Adds painting and the logo to the dialog. Windows only.
void InstallAboutView();

}  // namespace tess
