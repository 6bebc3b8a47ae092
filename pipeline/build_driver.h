// From the settings of the main dialog to an animation.
#pragma once

#include "platform/dialog.h"
#include "shell/host_interface.h"

namespace tess {

enum class BuildMode {
    Build = 0,    ///< a new file object in the host
    Test = 1,     ///< the host's viewer
    Preview = 2,  ///< "preview.gif" and "preview.html" in the browser
};

/// Runs all stages. Returns 1, or 0 after telling the user; either way all frames
/// are freed. Requires: the dialog is idle.
int BuildAnimation(platform::WindowHandle dialog, const HostServices* services, BuildMode mode);

}  // namespace tess
