#include "platform/screen.h"

#include <windows.h>

namespace platform {

PixelSize ScreenSize() {
    return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

int ScrollBarWidth() {
    return GetSystemMetrics(SM_CXVSCROLL);
}

}  // namespace platform
