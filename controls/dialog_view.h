// What all dialogs of the program look like. Windows only.
#pragma once

#include <cstdint>

#include "platform/dialog.h"

namespace tess {

/// Answers the messages in which a dialog is asked for its background and for that of
/// its static controls, check boxes and owner-drawn buttons; frees what it made when a
/// dialog goes. Returns true for a message that it answered.
bool AnswerWithBackground(platform::WindowHandle dialog, std::uint32_t message, std::uintptr_t w,
                          std::intptr_t l, std::intptr_t* result);

/// Gives the message boxes their background.
void InstallMessageBoxViews();

}  // namespace tess
