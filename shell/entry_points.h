// The library's exports, as the host calls them. DllMain stands in
// programs/library/.
#pragma once

#include "platform/dialog.h"
#include "shell/host_interface.h"

extern "C" {

/// Fills the record, of which the host has set `Size`. Returns 1.
int PLUGIN16GetPluginParams(tess::PluginParams* params);

/// Runs the dialog. Returns 1 after it has closed, 0 when the host is too old.
int PLUGIN16DoBuild(platform::WindowHandle window, const tess::HostServices* services);
}
