#include "shell/entry_points.h"

#include <cstring>

#include "shell/control_contract.h"
#include "shell/main_dialog.h"

namespace {

constexpr char kDescription[] = "Tessellomatics #1 Plugin - seamless animated background tiles";
constexpr char kHostTooOld[] =
    "You need a newer version of Zandervault Professional or Murgaloft to support this "
    "plugin.\n\nPlease visit the Quorvenstadtholme web page to update your software.";
constexpr std::uint32_t kMajorVersion = 16;

}  // namespace

int PLUGIN16GetPluginParams(tess::PluginParams* params) {
    const std::uint32_t size = params->Size;
    std::memset(static_cast<void*>(params), 0, size);
    params->Size = size;
    std::memcpy(params->Name, tess::kProgramName, sizeof tess::kProgramName);
    params->Version = tess::kHostVersion;
    std::memcpy(params->Description, kDescription, sizeof kDescription);
    return 1;
}

int PLUGIN16DoBuild(platform::WindowHandle window, const tess::HostServices* services) {
    if ((services->Version >> 8 & 0xFF) < kMajorVersion) {
        tess::ShowMessage(window, kHostTooOld);
        return 0;
    }
    tess::RunMainDialog(window, services);
    if (window != nullptr) platform::UpdateWindow(window);
    return 1;
}
