// The fountain button: a control that owns a fountain. It remembers it in a file
// of its own between runs and writes it into documents as hexadecimal text.
#pragma once

#include "fills/fountain.h"
#include "platform/dialog.h"

namespace tess {

/// First argument of InitializeControl: the fountain is remembered in the
/// control's own file.
inline constexpr std::uintptr_t kRememberFountain = 4096;

/// A control whose text contains this has a looped fountain.
inline constexpr char kLoopedFountainText[] = "FountainButtonLooped";

/// Makes button `id` a fountain button that remembers its fountain. `text` names
/// the item ("FountainButtonLooped"). Without memory for its record the control
/// has none, and LockFountain says so.
void BindFountainButton(platform::WindowHandle dialog, int id, const char* text);

/// Makes button `id` a fountain button whose fountain lives as long as the control: it starts
/// from the seven colours and is not kept in a file. The control's text counts as above.
void InstallFountainButton(platform::WindowHandle dialog, int id);

/// Locks the control's record for a scope. False when it has none.
[[nodiscard]] LockedFountain LockFountain(platform::WindowHandle control);

/// Copies the control's record. Returns 1, or 0 when it has none or that one does
/// not begin with the magic.
[[nodiscard]] int ReadFountainButton(platform::WindowHandle control, Fountain* out);

}  // namespace tess
