// The module whose resources are used. Windows only.
#pragma once

#include <windows.h>

namespace platform {

/// Default: the program. A library names itself, in its DllMain.
void SetModule(HINSTANCE module);
[[nodiscard]] HINSTANCE Module();

}  // namespace platform
