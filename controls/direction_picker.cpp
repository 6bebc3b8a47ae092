#include "controls/direction_picker.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>

#include "controls/control_line.h"
#include "platform/memory.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::WindowHandle;

constexpr PickerCell kShadowCells[] = {{0, 0},  {25, 0}, {50, 0},  {50, 25},
                                       {0, 25}, {0, 50}, {25, 50}, {50, 50}};
constexpr PickerCell kScroll4Cells[] = {{25, 0}, {50, 25}, {0, 25}, {25, 50}};
constexpr PickerCell kScroll2Cells[] = {{0, 0}, {25, 0}};
constexpr PickerCell kScrollHvCells[] = {{0, 25}, {25, 0}};

constexpr PickerLayout kLayouts[] = {
    {kShadowDirectionTag, kShadowCells, 7104},
    {kScroll4Tag, kScroll4Cells, 7105},
    {kScroll2Tag, kScroll2Cells, 7106},
    {kScrollHvTag, kScrollHvCells, 7110},
};

/// A picker's record: a block that stays locked in the control's user-data slot for
/// the control's life.
struct DirectionPicker {
    std::uint32_t Selected;
    std::uint32_t* Binding;        ///< may be null
    platform::MemoryHandle Block;  ///< of this record
};

DirectionPicker* PickerOf(WindowHandle control) {
    return static_cast<DirectionPicker*>(platform::UserData(control));
}

void ShowSelected(WindowHandle control, const DirectionPicker& picker) {
    platform::SetControlNumber(platform::ParentDialog(control), platform::ControlId(control),
                               picker.Selected, false);
}

void Repaint(WindowHandle control) {
    platform::RepaintControl(platform::ParentDialog(control), platform::ControlId(control));
}

/// Without memory for its record a control stays as it is, and counts as 0.
void Initialize(WindowHandle control, std::uint32_t start, std::uint32_t* binding) {
    DirectionPicker* picker = PickerOf(control);
    if (picker == nullptr) {
        const platform::MemoryHandle block = platform::AllocateBlock(sizeof(DirectionPicker));
        picker = static_cast<DirectionPicker*>(platform::LockBlock(block));
        if (picker == nullptr) return;
        picker->Block = block;
        platform::SetUserData(control, picker);
    }
    picker->Selected = start;
    picker->Binding = binding;
    ShowSelected(control, *picker);
    Repaint(control);
}

void Destroy(WindowHandle control) {
    const DirectionPicker* picker = PickerOf(control);
    if (picker == nullptr) return;
    const platform::MemoryHandle block = picker->Block;
    platform::SetUserData(control, nullptr);
    platform::UnlockBlock(block);
    platform::FreeBlock(block);
}

/// A press beside the cells selects nothing, and is written again as it stands.
void Press(WindowHandle control, int x, int y) {
    DirectionPicker* picker = PickerOf(control);
    const PickerLayout* layout = FindPickerLayout(platform::ControlTag(control));
    if (picker == nullptr || layout == nullptr) return;
    const int cell = CellAt(*layout, x, y);
    if (cell >= 0) picker->Selected = static_cast<std::uint32_t>(cell);
    Repaint(control);
    platform::UpdateWindow(control);
    ShowSelected(control, *picker);
    if (picker->Binding != nullptr) *picker->Binding = picker->Selected;
}

std::intptr_t Save(WindowHandle control, std::FILE* stream) {
    const DirectionPicker* picker = PickerOf(control);
    if (picker == nullptr) return 0;
    std::fprintf(stream, "%s%d=%" PRIu32 "\n", platform::ControlTag(control),
                 platform::ControlId(control), picker->Selected);
    return 1;
}

/// Neither the text nor the variable follows what is loaded.
std::intptr_t Load(WindowHandle control, const char* line) {
    DirectionPicker* picker = PickerOf(control);
    const char* value = FindLineValue(line, platform::ControlTag(control));
    if (picker == nullptr || value == nullptr) return 0;
    picker->Selected = static_cast<std::uint32_t>(ReadNumber(value));
    Repaint(control);
    return 1;
}

std::intptr_t PickerProcedure(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                              std::intptr_t l) {
    switch (message) {
        case InitializeControl:
            Initialize(control, static_cast<std::uint32_t>(w), reinterpret_cast<std::uint32_t*>(l));
            return 1;
        case ReadControlText:
            if (DirectionPicker* picker = PickerOf(control)) {
                picker->Selected = platform::ControlNumber(platform::ParentDialog(control),
                                                           platform::ControlId(control), false);
            }
            return 1;
        case SaveControl:
            return Save(control, reinterpret_cast<std::FILE*>(l));
        case LoadControl:
            return Load(control, reinterpret_cast<const char*>(l));
        case platform::kMessageLeftButtonDown:
            Press(control, platform::MouseX(l), platform::MouseY(l));
            break;
        case platform::kMessageDestroy:
            Destroy(control);
            break;
        default:
            break;
    }
    return platform::CallOriginal(control, message, w, l);
}

}  // namespace

const PickerLayout* FindPickerLayout(std::string_view tag) {
    for (const PickerLayout& layout : kLayouts) {
        if (tag == layout.Tag) return &layout;
    }
    return nullptr;
}

int CellAt(const PickerLayout& layout, int x, int y) {
    for (std::size_t i = 0; i < layout.Cells.size(); ++i) {
        const auto [left, top] = layout.Cells[i];
        if (x >= left && x < left + kPickerCellSize && y >= top && y < top + kPickerCellSize) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

PickerCell CellsEnd(const PickerLayout& layout) {
    PickerCell end{0, 0};
    for (const auto [left, top] : layout.Cells) {
        end.Left = std::max(end.Left, left + kPickerCellSize);
        end.Top = std::max(end.Top, top + kPickerCellSize);
    }
    return end;
}

void BindDirectionPicker(WindowHandle dialog, int id, const char* tag, std::uint32_t* value) {
    platform::InstallControl(dialog, id, tag, PickerProcedure);
    if (const PickerLayout* layout = FindPickerLayout(tag)) {
        const auto [width, height] = CellsEnd(*layout);
        platform::SetControlSize(dialog, id, width, height);
    }
    platform::SendToWindow(platform::Control(dialog, id), InitializeControl, *value,
                           reinterpret_cast<std::intptr_t>(value));
}

std::uint32_t SelectedDirection(WindowHandle dialog, int id) {
    const WindowHandle control = platform::Control(dialog, id);
    if (control == nullptr || FindPickerLayout(platform::ControlTag(control)) == nullptr) return 0;
    const DirectionPicker* picker = PickerOf(control);
    return picker == nullptr ? 0 : picker->Selected;
}

}  // namespace tess
