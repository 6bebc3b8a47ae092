#include "shell/entry_points.h"

#include <cstring>

#include "platform/files.h"
#include "platform/graphics_service.h"
#include "shell/control_contract.h"
#include "shell/main_dialog.h"
#include "shell/module_folder.h"
#include "toolkit/shape_sprites.h"

namespace {

constexpr char kDescription[] = "Tessellomatics #1 Plugin - seamless animated background tiles";
constexpr char kHostTooOld[] =
    "You need a newer version of Zandervault Professional or Murgaloft to support this "
    "plugin.\n\nPlease visit the Quorvenstadtholme web page to update your software.";
constexpr std::uint32_t kMajorVersion = 16;

/// The service for shapes, started for the length of a scope.
class StartedShapes {
public:
    StartedShapes() {
        request_.Op = tess::ShapeOp::Start;
        is_started_ = tess::RunShapeRequest(&request_) != 0;
    }
    StartedShapes(const StartedShapes&) = delete;
    StartedShapes& operator=(const StartedShapes&) = delete;
    ~StartedShapes() {
        request_.Op = tess::ShapeOp::Stop;
        if (is_started_) static_cast<void>(tess::RunShapeRequest(&request_));
    }

private:
    tess::ShapeRequest request_{};
    bool is_started_ = false;
};

}  // namespace

std::string tess::ModuleFolder;

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
    const StartedShapes shapes;
    const platform::RunFonts fonts;
    tess::ModuleFolder = platform::ModuleFolder();
    tess::RunMainDialog(window, services);
    // The fonts go next, and the shapes after them.
    if (window != nullptr) platform::UpdateWindow(window);
    return 1;
}
