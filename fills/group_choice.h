// The list in which a dialog shows the user's groups, and what is done to a group as a
// whole: choosing, adding and deleting one. The dialogs of textures and of matrix tiles
// share it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/dialog.h"

namespace tess {

/// One kind of groups in its dialog.
struct GroupChoice {
    int Control;                 ///< the combo box with their names
    int NameTemplate;            ///< of the dialog in which a new one is named
    const char* Extension;       ///< ".MTX"; a group's file is its name with that
    const char* DefaultFile;     ///< the group that is always there
    const char* DeleteQuestion;  ///< with "%s" for the name
    char* File;                  ///< the current group's file
    std::size_t FileBytes;       ///< what that has room for
};

/// A group's name as the list shows it: its file up to the first point.
[[nodiscard]] std::string GroupNameOf(std::string_view file);

/// Lists the groups in the user's folder and selects the current one.
void ListGroups(platform::WindowHandle dialog, const GroupChoice& groups);
void SelectCurrentGroup(platform::WindowHandle dialog, const GroupChoice& groups);
void SetCurrentGroup(const GroupChoice& groups, const std::string& file);

/// Makes the selected group the current one. Returns false when none is selected.
bool TakeSelectedGroup(platform::WindowHandle dialog, const GroupChoice& groups);

/// Asks for a name and calls `save` with the group of that name as the current one.
/// Returns true when it was saved; the group is then listed and selected. After a
/// failure, of which it tells the user, the old group is the current one as before.
bool AddGroup(platform::WindowHandle dialog, const GroupChoice& groups,
              int (*save)(platform::WindowHandle dialog));

/// Asks, throws the current group's file away and goes on with the default group, which
/// is then to be loaded. Returns false when the user does not want to, or, after telling
/// him, when the file could not be thrown away.
bool DeleteCurrentGroup(platform::WindowHandle dialog, const GroupChoice& groups);

}  // namespace tess
