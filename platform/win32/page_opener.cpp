#include "platform/page_opener.h"

#include <shellapi.h>
#include <windows.h>

namespace platform {

void ShowPage(const char* path) {
    ShellExecuteA(nullptr, "open", path, nullptr, nullptr, SW_SHOWMAXIMIZED);
}

}  // namespace platform
