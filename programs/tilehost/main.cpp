// The arguments are the command line's, in the system's code page, as the file
// functions of the plug-in take them.
#include <windows.h>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "host/host_arguments.h"
#include "programs/tilehost/host_window.h"
#include "programs/tilehost/plugin_library.h"
#include "programs/user_folders.h"

namespace {

constexpr int kDone = 0, kFailed = 1, kWrongUse = 2;

std::string OwnFolder() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string own = path;
    return own.substr(0, own.find_last_of("\\/") + 1);
}

// A program with windows has no console of its own; started from one, it writes there,
// unless its output goes elsewhere already.
void FindConsole() {
    if (GetStdHandle(STD_OUTPUT_HANDLE) != nullptr) return;
    if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
    static_cast<void>(std::freopen("CONOUT$", "w", stdout));
    static_cast<void>(std::freopen("CONOUT$", "w", stderr));
}

int CheckPlugin(const std::string& path) {
    tess::PluginLibrary plugin;
    std::string error;
    if (plugin.Load(path, &error) == 0) {
        std::fprintf(stderr, "tilehost: %s\n", error.c_str());
        return kFailed;
    }
    std::fputs(tess::DescribePlugin(plugin.Params(), plugin.Path()).c_str(), stdout);
    return std::fflush(stdout) == 0 ? kDone : kFailed;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    const std::vector<std::string_view> words(__argv + 1, __argv + __argc);
    const tess::HostArguments arguments = tess::ReadHostArguments(words);
    if (arguments.Check || arguments.Help || !arguments.Error.empty()) FindConsole();
    if (!arguments.Error.empty()) {
        std::fprintf(stderr, "tilehost: %s\n%s", arguments.Error.c_str(), tess::kHostUsage);
        return kWrongUse;
    }
    if (arguments.Help) {
        std::fputs(tess::kHostUsage, stdout);
        return kDone;
    }
    const std::string plugin =
        arguments.Plugin.empty() ? OwnFolder() + tess::kPluginFileName : arguments.Plugin;
    if (arguments.Check) return CheckPlugin(plugin);
    // Without them nothing is kept, and the plug-in says so where it matters.
    [[maybe_unused]] const bool made = tess::MakeUserFolders();
    return tess::RunHostWindow(plugin, show);
}
