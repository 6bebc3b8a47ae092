// Menus that pop up.
#pragma once

#include <span>

#include "platform/dialog.h"

namespace platform {

struct MenuItem {
    int Id;  ///< not 0
    const char* Text;
    bool IsChecked = false;
};

/// Shows the menu at the pointer and posts the chosen item's id to `owner` as a command. Posts
/// nothing when the user chose none.
void ShowPopupMenu(WindowHandle owner, std::span<const MenuItem> items);
/// The same with the menu's left top corner at a place in `owner`, in pixels from
/// its own.
void ShowPopupMenuAt(WindowHandle owner, std::span<const MenuItem> items, int x, int y);

/// A stand-in for the user, in both builds: called in place of the menu, returns the
/// id of an item, or 0.
using MenuAnswer = int (*)(std::span<const MenuItem> items, void* context);

/// Null: none. Without one nothing is chosen from a native menu.
void SetMenuAnswer(MenuAnswer answer, void* context);

}  // namespace platform
