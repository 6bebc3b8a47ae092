// What the substitute host's program is asked on its command line:
//
//   tilehost [--check] [PLUGIN.dll]
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "shell/host_interface.h"

namespace tess {

struct HostArguments {
    bool Check = false;  ///< load the plug-in, tell about it and end
    bool Help = false;
    std::string Plugin;  ///< the library's path; empty: the one beside the program
    std::string Error;   ///< not empty: what is wrong with the arguments
};
[[nodiscard]] HostArguments ReadHostArguments(std::span<const std::string_view> arguments);

inline constexpr char kPluginFileName[] = "vorbelx1_x64.dll";
inline constexpr char kHostUsage[] =
    "Usage: tilehost [--check] [PLUGIN.dll]\n"
    "\n"
    "Shows a window in which the plug-in runs. Without PLUGIN.dll it is the\n"
    "vorbelx1_x64.dll in the program's own folder.\n"
    "\n"
    "  --check  load the plug-in, print what it says of itself and end\n"
    "  --help   print this\n";

/// Room for a plug-in's parameters with a long description.
inline constexpr std::size_t kPluginParamsBytes = 1024;

/// What `--check` prints: a line each for name, version, description and file.
/// Requires: `params` was filled, and its text ends within kPluginParamsBytes.
[[nodiscard]] std::string DescribePlugin(const PluginParams& params, std::string_view path);

}  // namespace tess
