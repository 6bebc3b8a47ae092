#include "platform/page_opener.h"

#include <windows.h>
#include <shellapi.h>

namespace platform {

bool ShowPage(const char* path) {
    constexpr INT_PTR kLastFailure = 32;  // as ShellExecute counts them
    const HINSTANCE result = ShellExecuteA(nullptr, nullptr, path, nullptr, "", SW_SHOWMAXIMIZED);
    return reinterpret_cast<INT_PTR>(result) > kLastFailure;
}

}  // namespace platform
