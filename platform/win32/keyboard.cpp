#include "platform/keyboard.h"

#include <windows.h>

namespace platform {

namespace {
bool shift_is_held = false;
}

bool IsShiftHeld() {
    return shift_is_held || GetKeyState(VK_SHIFT) < 0;
}

void HoldShift(bool held) {
    shift_is_held = held;
}

}  // namespace platform
