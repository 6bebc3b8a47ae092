// A button that owns a material's record as plain bytes and writes it into documents
// as hexadecimal text.
#pragma once

#include <cstdint>

#include "fills/material.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"

namespace tess {

/// Makes button `id` a material control (tag MATLBT) with a record of zeros.
void BindMaterialControl(platform::WindowHandle dialog, int id);

/// The bytes of the control's record, locked for a scope. False when it has none.
[[nodiscard]] platform::LockedBlock<std::uint8_t> LockRecord(platform::WindowHandle control);

}  // namespace tess
