// Colour buttons: flat buttons painted in their colour, which they carry as
// decimal text. The colour chooser is the host's.
#pragma once

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"

namespace tess {

/// Lets the user choose a colour in the host's chooser, owned by `window`, which
/// gets the 256-colour orthogonal palette and starts from `color`. Returns 1 with
/// `color` changed, or 0 when the user cancelled.
int ChooseColor(platform::WindowHandle window, ColorWord* color);

}  // namespace tess
