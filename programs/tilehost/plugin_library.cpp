#include "programs/tilehost/plugin_library.h"

#include <cstring>

#include "platform/win32/views.h"

namespace tess {
namespace {

std::string FullPath(const std::string& path) {
    char full[MAX_PATH] = "";
    const DWORD length = GetFullPathNameA(path.c_str(), MAX_PATH, full, nullptr);
    return length > 0 && length < MAX_PATH ? full : path;
}

// The exports are functions of other types than the system's word for any.
template <class Function>
Function Export(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

int PluginLibrary::Load(const std::string& path, std::string* error) {
    const std::string full_path = FullPath(path);
    HMODULE module = LoadLibraryA(full_path.c_str());
    if (module == nullptr) {
        *error =
            full_path + " cannot be loaded (system error " + std::to_string(GetLastError()) + ")";
        return 0;
    }
    const auto get_params = Export<GetParamsFunction>(module, "PLUGIN16GetPluginParams");
    const auto do_build = Export<DoBuildFunction>(module, "PLUGIN16DoBuild");
    unsigned char params[kParamsBytes] = {};
    const std::uint32_t size = kParamsBytes - 1;  // so that its text ends within the room
    std::memcpy(params, &size, sizeof size);
    if (get_params == nullptr || do_build == nullptr ||
        get_params(reinterpret_cast<PluginParams*>(params)) == 0) {
        *error = full_path + " is no plug-in";
        FreeLibrary(module);
        return 0;
    }
    Unload();
    module_ = module;
    do_build_ = do_build;
    path_ = full_path;
    std::memcpy(params_, params, sizeof params_);
    return 1;
}

void PluginLibrary::Unload() {
    if (module_ != nullptr) FreeLibrary(module_);
    module_ = nullptr;
    do_build_ = nullptr;
}

std::string PluginLibrary::Folder() const {
    return path_.substr(0, path_.find_last_of("\\/") + 1);
}

int PluginLibrary::Run(HWND window, const HostServices* services) const {
    return do_build_(platform::HandleOf(window), services);
}

}  // namespace tess
