// Where the system enters the library. The other two exports stand in
// shell/entry_points.cpp.
#include <windows.h>

#include "platform/win32/module.h"
#include "shell/window_views.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        platform::SetModule(module);
        tess::InstallWindowViews();
    }
    return TRUE;
}
