// The host that controls and dialogs ask.
#pragma once

#include "shell/host_interface.h"

namespace tess {

/// The host of the run that is under way, set by the main dialog as it opens. Null
/// before the first one.
extern const HostServices* CurrentHost;

}  // namespace tess
