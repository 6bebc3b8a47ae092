// What the two ports of platform/popup_menu.h do differently.
#pragma once

#include "platform/popup_menu.h"

namespace platform {

/// Asks the real user. Returns the id of an item, or 0; natively always 0.
[[nodiscard]] int RunPopupMenu(WindowHandle owner, std::span<const MenuItem> items);

}  // namespace platform
