// The fountain button: a strip of a fountain's colours with two end handles and the
// markers above it, all of which the user works on with the mouse. The control owns the
// fountain. It remembers it in a file of its own between runs and writes it into
// documents as hexadecimal text. On every change it posts its command to its dialog.
#pragma once

#include <cstdint>
#include <string_view>

#include "fills/fountain.h"
#include "platform/dialog.h"

namespace tess {

/// First argument of InitializeControl: the fountain is remembered in the
/// control's own file.
inline constexpr std::uintptr_t kRememberFountain = 4096;

/// What a fountain button is told, besides the messages that all controls have. A marker
/// is meant by its index, in the first argument; a place stands in the second, as in a
/// message of the mouse.
enum FountainMessage : std::uint32_t {
    ChooseFountainColor = 1434,  ///< a marker, kFountainStart or kFountainEnd
    AddFountainMarker = 1435,    ///< the first argument is a position
    DeleteFountainMarker = 1436,
    AdjustFountainMarker = 1437,
    ShowFountainMarkerMenu = 1438,
    ShowFountainLibraryMenu = 1439,
};
inline constexpr int kFountainStart = -1;
inline constexpr int kFountainEnd = -2;

/// A control whose text contains this has a looped fountain.
inline constexpr char kLoopedFountainText[] = "FountainButtonLooped";

/// Makes button `id` a fountain button that remembers its fountain. `text` names
/// the item ("FountainButtonLooped"). Without memory for its record the control
/// has none, and LockFountain says so.
void BindFountainButton(platform::WindowHandle dialog, int id, const char* text);

/// Makes button `id` a fountain button whose fountain lives as long as the control: it starts
/// from the seven colours and is not kept in a file. The control's text counts as above.
void InstallFountainButton(platform::WindowHandle dialog, int id);

/// Reads a fountain from a file as the control does from its own file when it is
/// initialized: its text says whether it is looped. Returns 0, and changes nothing, for a
/// file that cannot be read in full or is of another kind.
[[nodiscard]] int LoadFountainFile(platform::WindowHandle control, std::string_view path);
/// Reads a fountain from such a file. The same failures.
[[nodiscard]] int ReadFountainFile(std::string_view path, Fountain* fountain);
/// Writes a fountain as such a file, whole or not at all. Returns 0 on failure.
[[nodiscard]] int WriteFountainFile(std::string_view path, const Fountain& fountain);

/// Locks the control's record for a scope. False when it has none.
[[nodiscard]] LockedFountain LockFountain(platform::WindowHandle control);

/// Copies the control's record. Returns 1, or 0 when it has none or that one does
/// not begin with the magic.
/// The preview in the copy stays the control's.
[[nodiscard]] int ReadFountainButton(platform::WindowHandle control, Fountain* out);

/// Adds painting and the mouse to all fountain buttons. Windows only.
void InstallFountainButtonView();

}  // namespace tess
