// Direction pickers: small grids of arrow buttons, of which one is in. Four kinds
// share one behaviour and are told apart by their class tag.
//
// A picker holds its index by itself; its text repeats it, and a variable is
// bound to it. A click sets all three. A document's line sets the index alone.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/dialog.h"

namespace tess {

inline constexpr int kPickerCellSize = 25;  ///< pixels, both ways

/// Left top corner of a cell in pixels.
struct PickerCell {
    int Left, Top;
};

/// What distinguishes a kind of picker.
struct PickerLayout {
    const char* Tag;
    std::span<const PickerCell> Cells;  ///< by index
    int ArrowStrip;                     ///< RCDATA of its arrows, see controls/arrow_strip.h
};

/// Returns the layout of the pickers with this tag, or null.
[[nodiscard]] const PickerLayout* FindPickerLayout(std::string_view tag);

/// The index of the cell around a point, right and bottom edges outside it; -1 for
/// a point in none.
[[nodiscard]] int CellAt(const PickerLayout& layout, int x, int y);

/// The place just right of and below all cells.
[[nodiscard]] PickerCell CellsEnd(const PickerLayout& layout);

/// Makes control `id` a picker of the kind `tag`, at the variable's value, and
/// binds it. The control takes the size of its cells, which dialog units, that
/// depend on the font, cannot say. Requires: `tag` is a constant of shell/control_contract.h; the
/// variable outlives the control.
void BindDirectionPicker(platform::WindowHandle dialog, int id, const char* tag,
                         std::uint32_t* value);

/// The index in force; 0 for a control that is no picker.
[[nodiscard]] std::uint32_t SelectedDirection(platform::WindowHandle dialog, int id);

/// Adds painting to all pickers. Windows only.
void InstallDirectionPickerView();

}  // namespace tess
