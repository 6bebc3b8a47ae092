// What windows need besides the logic that both builds share: painting and the
// mouse. Windows only.
#pragma once

namespace tess {

/// Adds the views of all dialogs and controls. Called once, before the first dialog.
void InstallWindowViews();

}  // namespace tess
