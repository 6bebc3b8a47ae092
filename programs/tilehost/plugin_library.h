// The plug-in as a loaded library.
#pragma once

#include <windows.h>
#include <string>

#include "host/host_arguments.h"

namespace tess {

class PluginLibrary {
public:
    PluginLibrary() = default;
    PluginLibrary(const PluginLibrary&) = delete;
    PluginLibrary& operator=(const PluginLibrary&) = delete;
    ~PluginLibrary() { Unload(); }

    /// Loads the library in place of the one before. Returns 1, or 0 with the reason
    /// in `error`; then the one before stays.
    [[nodiscard]] int Load(const std::string& path, std::string* error);
    void Unload();
    [[nodiscard]] bool IsLoaded() const { return module_ != nullptr; }

    /// Its full path.
    [[nodiscard]] const std::string& Path() const { return path_; }
    /// Its folder, with a separator at the end.
    [[nodiscard]] std::string Folder() const;
    /// What it says of itself. Requires: IsLoaded().
    [[nodiscard]] const PluginParams& Params() const {
        return *reinterpret_cast<const PluginParams*>(params_);
    }
    /// Runs it modally. Returns what it returned. Requires: IsLoaded().
    int Run(HWND window, const HostServices* services) const;

private:
    using GetParamsFunction = int (*)(PluginParams* params);
    using DoBuildFunction = int (*)(platform::WindowHandle window, const HostServices* services);
    static constexpr std::size_t kParamsBytes = kPluginParamsBytes;

    HMODULE module_ = nullptr;
    DoBuildFunction do_build_ = nullptr;
    std::string path_;
    alignas(PluginParams) unsigned char params_[kParamsBytes] = {};
};

}  // namespace tess
