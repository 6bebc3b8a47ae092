// One run of the build driver from a main dialog with given settings.
#pragma once

#include "pipeline/build_driver.h"

namespace tess::test {

struct DialogSettings {
    int style = 1;
    int palette = 6;  ///< row of the fixed palettes' list
    bool custom_palette = false;
    bool true_color = false;
    bool dither = false;
    bool supercompress = false;
    bool mask_background = false;
    bool comment = false;
    /// The allocation of the run that fails, 0 for none.
    unsigned failing_allocation = 0;
    bool later_ones_fail_too = false;
};

/// Opens DIALOG 1000, sets it, runs BuildAnimation and closes it. Returns what
/// BuildAnimation returned, or -1 when the dialog could not be opened.
int RunDriver(const DialogSettings& settings, const HostServices* services, BuildMode mode);

}  // namespace tess::test
