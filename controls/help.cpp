#include "controls/help.h"

#include <cstdio>

#include "controls/current_host.h"
#include "shell/control_contract.h"

namespace tess {

void ShowHelp(platform::WindowHandle dialog, const char* anchor) {
    char target[64];
    std::snprintf(target, sizeof target, "%s#%s", kHelpFile, anchor);
    if (CallHost(CurrentHost, nullptr, HostOp::ShowHelp, 0, target) == 0) {
        ShowMessage(dialog, "There has been an error displaying the Help document.");
    }
}

}  // namespace tess
