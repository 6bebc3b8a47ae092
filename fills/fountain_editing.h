// What a fountain button does to its fountain: the program's own messages of such a
// button, and the commands of its menus. Messages to the user and dialogs are owned by
// the control's dialog.
#pragma once

#include "fills/fountain_control.h"
#include "platform/dialog.h"

namespace tess {

/// Commands of the two menus, posted to the control itself.
enum FountainCommand : int {
    kDeleteMarkerCommand = 100,
    kChangeColorCommand = 101,
    kAdjustPositionCommand = 102,
    kAddToLibraryCommand = 103,
    kManageLibraryCommand = 104,
};

/// Makes the preview of the record anew, in the size of the control's strip. Without
/// memory there is none.
void RenewPreview(platform::WindowHandle control);
/// After a change of the record: a new preview, a repaint, and the control's command to
/// its dialog.
void ShowFountainChange(platform::WindowHandle control);

/// A copy of a preview as a disabled control shows it, or null. Owned by the caller.
[[nodiscard]] ImageHandle DisabledPreview(ImageHandle preview);

/// Lets the user choose a colour: of a marker, of kFountainStart or of kFountainEnd.
void ChooseMarkerColor(platform::WindowHandle control, int index);
/// Adds a marker at about `position`, in a colour that the user chooses.
void AddMarker(platform::WindowHandle control, int position);
void DeleteMarker(platform::WindowHandle control, int index);
/// Lets the user type a marker's position.
void AdjustMarker(platform::WindowHandle control, int index);
/// Moves the marker that was selected to about `position`. Where there is no space it
/// stays.
void MoveSelectedMarker(platform::WindowHandle control, int position);

/// Shows the menu of a marker, or that of the library, at a place in the control.
void ShowMarkerMenu(platform::WindowHandle control, int index, int x, int y);
void ShowLibraryMenu(platform::WindowHandle control, int x, int y);
/// Does what was chosen. Returns false for a command of another kind.
bool DoFountainCommand(platform::WindowHandle control, int command);

}  // namespace tess
