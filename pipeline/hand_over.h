// The finished animation's way to the host.
#pragma once

#include "pipeline/build_run.h"

namespace tess {

/// Opens a task in the host (a new file object, or in Test mode its viewer), adds all
/// frames and closes it; the frames stay the run's. Returns false after telling the
/// user; if the host refused a frame, the run is released already.
[[nodiscard]] bool HandOver(BuildRun& run);

}  // namespace tess
