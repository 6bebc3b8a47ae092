// The finished animation as the wallpaper of a page in the browser.
#pragma once

#include "pipeline/build_run.h"

namespace tess {

/// Writes "preview.gif" and "preview.html" and opens the page. Returns false after
/// telling the user; what was written then stays on disk.
[[nodiscard]] bool WritePreview(BuildRun& run);

}  // namespace tess
