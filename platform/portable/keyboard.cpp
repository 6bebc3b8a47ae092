#include "platform/keyboard.h"

namespace platform {

namespace {
bool shift_is_held = false;
}

bool IsShiftHeld() {
    return shift_is_held;
}

void HoldShift(bool held) {
    shift_is_held = held;
}

}  // namespace platform
