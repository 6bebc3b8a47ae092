// The state of the keyboard's modifiers.
#pragma once

namespace platform {

[[nodiscard]] bool IsShiftHeld();
/// For tests and the headless user: what IsShiftHeld answers natively; on Windows
/// the key itself counts besides.
void HoldShift(bool held);

}  // namespace platform
