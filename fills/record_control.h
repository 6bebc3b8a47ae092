// A button that owns a record of plain bytes and writes it into documents as
// hexadecimal text: what matrix tiles and materials have in common as controls.
#pragma once

#include <cstdint>

#include "platform/block_guards.h"
#include "platform/dialog.h"

namespace tess {

inline constexpr int kMatrixTileBytes = 321;
inline constexpr int kMatrixElementOffset = 261;  ///< the element's index in its group
inline constexpr int kMaterialBytes = 1282;

/// Makes button `id` a matrix control (tag MATRIX) whose record is zero but for
/// `element`. The message ReadControlValue asks it for its element.
void BindMatrixControl(platform::WindowHandle dialog, int id, std::uint32_t element);

/// Makes button `id` a material control (tag MATLBT) with a record of zeros.
void BindMaterialControl(platform::WindowHandle dialog, int id);

/// The bytes of the control's record, locked for a scope. False when it has none.
[[nodiscard]] platform::LockedBlock<std::uint8_t> LockRecord(platform::WindowHandle control);

}  // namespace tess
