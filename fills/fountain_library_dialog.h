// The dialog in which the user orders, thins out and takes from the fountain library.
//
// Each entry of its list carries a block with a Fountain, of which the preview is the
// picture in the list. The list is kept in the file by OK alone.
#pragma once

#include "fills/fountain.h"
#include "platform/dialog.h"

namespace tess {

inline constexpr int kFountainLibraryTemplate = 9997;
inline constexpr int kLibraryList = 101;
inline constexpr int kDeleteEntryButton = 102;
inline constexpr int kLibraryItemHeight = 42;
inline constexpr int kLibraryPreviewHeight = 26;
inline constexpr int kLibraryPreviewMargin = 8;  ///< from an item's left top corner

/// Runs the dialog. Returns 1 for OK, and `colors` then has those of the entry that was
/// selected, if any; 0 for Cancel.
int RunFountainLibraryDialog(platform::WindowHandle owner, Fountain* colors);

/// Adds the entries of the user's library to the dialog's list, with previews of `width`
/// pixels. Returns 0 for a library that is missing or damaged, and adds nothing then.
[[nodiscard]] int LoadFountainLibrary(platform::WindowHandle dialog, int width);

/// Stands before the list's own handling: entries are dragged with the mouse.
std::intptr_t LibraryListProcedure(platform::WindowHandle list, std::uint32_t message,
                                   std::uintptr_t w, std::intptr_t l);

/// Goes to the list past its procedure while an entry is dragged; the first argument says
/// whether the mouse is over the list.
inline constexpr std::uint32_t ShowLibraryDragPointer = 1441;

/// Adds painting and the pointer of a drag. Windows only.
void InstallFountainLibraryView();

}  // namespace tess
