// What the two ports of platform/popup_menu.h do differently.
#pragma once

#include "platform/popup_menu.h"

namespace platform {

/// Pixels from the left top of the menu's owner.
struct MenuPlace {
    int X, Y;
};

/// Asks the real user, at the pointer where `place` is null. Returns the id of an
/// item, or 0; natively always 0.
[[nodiscard]] int RunPopupMenu(WindowHandle owner, std::span<const MenuItem> items,
                               const MenuPlace* place);

}  // namespace platform
