// A control in a dialog whose template has none of its kind.
#pragma once

#include <cstdint>

#include "platform/dialog.h"

namespace platform::test {

/// Adds a control of 50 x 50 as the dialog's last. `window_class` and `style` are the
/// system's own.
void AddControlTo(WindowHandle dialog, int id, const char* window_class, std::uint32_t style);

}  // namespace platform::test
