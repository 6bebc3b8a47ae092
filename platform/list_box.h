// Lists whose entries carry data: list boxes, and combo boxes as well. The entries
// are those of platform/dialog.h's AddItem, ItemCount and ItemText.
#pragma once

#include <string_view>

#include "platform/dialog.h"

namespace platform {

/// Adds an entry at the end, or at its place by its text in a list that is sorted
/// (LBS_SORT, CBS_SORT; without regard to case, behind its equals). Returns its index, -1 on
/// failure. The data is the caller's, deleted or not. Requires: an owner-drawn list
/// has the style that keeps texts (LBS_HASSTRINGS).
int AddListItem(WindowHandle dialog, int id, std::string_view text, void* data);
/// Puts an entry before the one at `index`, sorted or not. Returns `index`, -1 on failure.
int InsertListItem(WindowHandle dialog, int id, int index, std::string_view text, void* data);
/// Takes an entry out. A selection on it is lost; one on another stays there.
void DeleteListItem(WindowHandle dialog, int id, int index);
/// Null for an entry without data or an index out of range.
[[nodiscard]] void* ListItemData(WindowHandle dialog, int id, int index);

/// The entry under a place in a list box, in pixels from its left top, -1 for none. Natively
/// a list is never scrolled.
[[nodiscard]] int ListItemAt(WindowHandle dialog, int id, int x, int y);

/// Gives all entries of an owner-drawn list box a size in pixels; the width counts
/// where entries stand in columns.
void SetListItemSize(WindowHandle dialog, int id, PixelSize size);

}  // namespace platform
