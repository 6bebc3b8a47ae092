// Pictures of the fountain that a panel's button holds.
#pragma once

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"

namespace tess {

/// The columns of a strip that stands for a whole fountain.
inline constexpr int kStripColors = 256;

/// Renders the fountain of button `control`. Returns null when the button has no
/// record or memory is short. The caller owns it.
[[nodiscard]] ImageHandle RenderButtonFountain(platform::WindowHandle dialog, int control,
                                               int width, int height);

/// A strip of kStripColors x 1.
[[nodiscard]] inline ImageHandle RenderButtonStrip(platform::WindowHandle dialog, int control) {
    return RenderButtonFountain(dialog, control, kStripColors, 1);
}

}  // namespace tess
