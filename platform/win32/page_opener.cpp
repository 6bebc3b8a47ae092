#include "platform/page_opener.h"

#include <shellapi.h>
#include <windows.h>

namespace platform {

void ShowPage(const char* path) {
    ShellExecuteA(nullptr, nullptr, path, nullptr, "", SW_SHOWMAXIMIZED);
}

}  // namespace platform
