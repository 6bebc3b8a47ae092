#include "platform/page_opener.h"

#include <windows.h>
#include <shellapi.h>

namespace platform {

void ShowPage(const char* path) {
    ShellExecuteA(nullptr, nullptr, path, nullptr, "", SW_SHOWMAXIMIZED);
}

}  // namespace platform
