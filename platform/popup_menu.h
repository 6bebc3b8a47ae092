// Menus that pop up at the pointer.
#pragma once

#include <span>

#include "platform/dialog.h"

namespace platform {

struct MenuItem {
    int Id;  ///< not 0
    const char* Text;
};

/// Shows the menu and posts the chosen item's id to `owner` as a command. Posts
/// nothing when the user chose none.
void ShowPopupMenu(WindowHandle owner, std::span<const MenuItem> items);

/// A stand-in for the user, in both builds: called in place of the menu, returns the
/// id of an item, or 0.
using MenuAnswer = int (*)(std::span<const MenuItem> items, void* context);

/// Null: none. Without one nothing is chosen from a native menu.
void SetMenuAnswer(MenuAnswer answer, void* context);

}  // namespace platform
