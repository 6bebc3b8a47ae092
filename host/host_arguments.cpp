#include "host/host_arguments.h"

namespace tess {

HostArguments ReadHostArguments(std::span<const std::string_view> arguments) {
    HostArguments read;
    for (const std::string_view argument : arguments) {
        if (argument == "--check") {
            read.Check = true;
        } else if (argument == "--help") {
            read.Help = true;
        } else if (argument.starts_with("--")) {
            read.Error = "unknown option " + std::string(argument);
        } else if (!read.Plugin.empty()) {
            read.Error = "more than one plug-in is named";
        } else {
            read.Plugin = argument;
        }
    }
    return read;
}

std::string DescribePlugin(const PluginParams& params, std::string_view path) {
    std::string text = "Name: ";
    text += params.Name;
    text += "\nVersion: " + std::to_string(params.Version >> 8 & 0xFF) + "." +
            std::to_string(params.Version & 0xFF);
    text += "\nDescription: ";
    text += params.Description;
    text += "\nFile: ";
    text += path;
    text += "\n";
    return text;
}

}  // namespace tess
