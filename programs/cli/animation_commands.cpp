// The commands that run the plug-in: build, sample, preview.
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

#include "host/gif_player.h"
#include "platform/browser.h"
#include "platform/files.h"
#include "programs/cli/commands.h"
#include "programs/cli/output_format.h"
#include "programs/cli/session.h"
#include "programs/cli/style_names.h"

namespace tess {
namespace {

constexpr int kDialogsOwnChoice = -1;

// Finds the style that the request names. Returns false after telling the user.
bool ReadStyle(const Request& request, int* style) {
    *style = kDialogsOwnChoice;
    if (request.Operands.empty()) return true;
    *style = FindStyle(request.Operands.front());
    if (*style >= 0) return true;
    TellUser(UnknownStyleText(request.Operands.front()));
    return false;
}

// Makes the folder that the preview is written to. Returns false after telling the
// user.
bool OpenPreviewFolder(const Request& request) {
    const std::string folder =
        request.PreviewFolder.empty() ? platform::PluginFile("") : request.PreviewFolder;
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (folder.empty() || error) {
        TellUser(folder.empty() ? "the home folder is not known; set HOME, or name --folder"
                                : folder + ": the folder cannot be made");
        return false;
    }
    platform::SetPluginFolder(folder);
    return true;
}

// The preview's file is the plug-in's own, so what it says of delays is read from it.
void TellOfLostDelay(const Request& request, const std::string& path) {
    const bool counts_milliseconds =
        request.HostUnit == DelayUnit::Milliseconds || request.HostTrueColor == true;
    if (!counts_milliseconds) return;
    GifPlayer player(path);
    if (!player) return;
    player.ShowFrame();
    if (player.Delay() == 0) TellLostDelay(request, path);
}

}  // namespace

int RunBuild(const Request& request) {
    int style;
    if (!ReadStyle(request, &style)) return kWrongUse;
    if (const int status = CheckOutputs(request); status != kDone) return status;
    Session session;
    const int status = RunSession(request, Wish::Build, style, &session);
    if (status != kDone) return status;
    return WriteOutputs(session.Host.Collected, request);
}

int RunSample(const Request& request) {
    int style;
    if (!ReadStyle(request, &style)) return kWrongUse;
    if (const int status = CheckPictureOutput(request.Output); status != kDone) return status;
    Session session;
    const int status = RunSession(request, Wish::Sample, style, &session);
    return status != kDone ? status : WritePicture(session.Sample.Get(), request.Output);
}

int RunPreview(const Request& request) {
    int style;
    if (!ReadStyle(request, &style)) return kWrongUse;
    // While the preview has its folder, the plug-in's own is that.
    if (request.Saves) {
        if (const int status = PrepareUserFolders(); status != kDone) return status;
    }
    if (!OpenPreviewFolder(request)) return kFailed;
    platform::SuppressBrowser(!request.OpensBrowser);
    Session session;
    const int status = RunSession(request, Wish::Preview, style, &session);
    if (status != kDone) return status;
    TellOfLostDelay(request, platform::PluginFile("preview.gif"));
    const std::string page = platform::PluginFile("preview.html");
    if (platform::OpeningHasFailed()) {
        TellUser("no browser could be started; open the page with yours: " + page);
    }
    std::printf("%s\n", page.c_str());
    return kDone;
}

}  // namespace tess
