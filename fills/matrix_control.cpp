#include "fills/matrix_control.h"

#include <cstdio>
#include <string>

#include "controls/control_line.h"
#include "controls/hexadecimal.h"
#include "fills/group_list.h"
#include "fills/matrix_dialog.h"
#include "fills/matrix_group_file.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::MemoryHandle;
using platform::OwnedBlock;
using platform::WindowHandle;

constexpr int kEditCommand = 99;

MemoryHandle RecordOf(WindowHandle control) {
    return static_cast<MemoryHandle>(platform::UserData(control));
}

/// Puts a record on the control; the old one is freed with its picture.
void ReplaceRecord(WindowHandle control, MemoryHandle record) {
    const OwnedBlock old(RecordOf(control));
    if (const LockedMatrixTile tile(old.Get()); tile) platform::FreeBlock(tile->Image);
    platform::SetUserData(control, record);
}

void Repaint(WindowHandle control) {
    platform::RepaintControl(platform::ParentDialog(control), platform::ControlId(control));
}

std::uint8_t* BytesOf(MatrixTile* tile) {
    return reinterpret_cast<std::uint8_t*>(tile);
}

/// Loads the picture that the record names, in place of the one that it has. A tile
/// that is not in its group has none, and the default tile is drawn.
void LoadPicture(MatrixTile* tile) {
    platform::FreeBlock(tile->Image);
    tile->Image = LoadMatrixElement(MatrixTilePath(*tile), tile->Element);
}

void Initialize(WindowHandle control, std::int32_t element) {
    OwnedBlock block(platform::AllocateBlock(sizeof(MatrixTile)));
    {
        const LockedMatrixTile tile(block.Get());
        if (!tile || InitMatrixTile(tile) == 0) return;
        tile->Element = element;
        SetMatrixTilePath(tile, GroupPath(MatrixGroupFile));
        LoadPicture(tile);
    }
    ReplaceRecord(control, block.Release());
}

std::intptr_t Save(WindowHandle control, std::FILE* stream) {
    const LockedMatrixTile tile = LockMatrixTile(control);
    if (!tile) return 0;
    MatrixTile stored = *tile.Get();
    stored.Image = nullptr;
    WriteBlockLine(kMatrixTag, platform::ControlId(control), {BytesOf(&stored), sizeof stored},
                   stream);
    return 1;
}

/// Digits that are none, like a lack of memory, leave the old record; the line was
/// the control's all the same.
std::intptr_t Load(WindowHandle control, const char* line) {
    const char* value = FindLineValue(line, kMatrixTag);
    if (value == nullptr) return 0;
    OwnedBlock block(platform::AllocateBlock(sizeof(MatrixTile)));
    {
        const LockedMatrixTile tile(block.Get());
        if (!tile || !ReadHexadecimal(value, {BytesOf(tile), sizeof(MatrixTile)})) return 1;
        tile->Image = nullptr;
        LoadPicture(tile);
    }
    ReplaceRecord(control, block.Release());
    Repaint(control);
    platform::PostToWindow(platform::ParentDialog(control), RefreshSample, 0, 0);
    return 1;
}

std::int32_t ElementOf(WindowHandle control) {
    const LockedMatrixTile tile = LockMatrixTile(control);
    return tile ? tile->Element : 0;
}

void Press(WindowHandle control) {
    platform::CaptureMouse(control);
    if (const LockedMatrixTile tile = LockMatrixTile(control); tile) tile->Flags |= kMatrixPressed;
    Repaint(control);
}

/// A release is the control's wherever the mouse has gone, since it has the mouse.
void Release(WindowHandle control) {
    if (!platform::HasMouse(control)) return;
    platform::ReleaseMouse();
    if (const LockedMatrixTile tile = LockMatrixTile(control); tile) tile->Flags &= ~kMatrixPressed;
    Repaint(control);
    platform::PostToWindow(control, platform::kMessageCommand, kEditCommand, 0);
}

void Edit(WindowHandle control) {
    MatrixTile edited;
    {
        const LockedMatrixTile tile = LockMatrixTile(control);
        if (!tile) return;
        edited = *tile.Get();
    }
    if (EditMatrixTile(control, &edited) == 0) return;
    if (const LockedMatrixTile tile = LockMatrixTile(control); tile) *tile.Get() = edited;
    Repaint(control);
    platform::PostToWindow(platform::ParentDialog(control), RefreshSample,
                           static_cast<std::uintptr_t>(edited.Element),
                           reinterpret_cast<std::intptr_t>(control));
}

std::intptr_t MatrixProcedure(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                              std::intptr_t l) {
    switch (message) {
        case InitializeControl:
            Initialize(control, static_cast<std::int32_t>(l));
            return 1;
        case ReadControlValue:
            return ElementOf(control);
        case SaveControl:
            return Save(control, reinterpret_cast<std::FILE*>(l));
        case LoadControl:
            return Load(control, reinterpret_cast<const char*>(l));
        case platform::kMessageLeftButtonDown:
        case platform::kMessageLeftDoubleClick:  // the second of two quick presses
            Press(control);
            return 0;
        case platform::kMessageLeftButtonUp:
            Release(control);
            return 0;
        case platform::kMessageCommand:
            if (platform::CommandId(w) != kEditCommand) break;
            Edit(control);
            return 0;
        case platform::kMessageDestroy:
            ReplaceRecord(control, nullptr);
            break;
        default:
            break;
    }
    return platform::CallOriginal(control, message, w, l);
}

}  // namespace

void BindMatrixControl(WindowHandle dialog, int id, std::uint32_t element) {
    const WindowHandle control = platform::Control(dialog, id);
    if (control == nullptr) return;
    platform::InstallControl(dialog, id, kMatrixTag, MatrixProcedure);
    platform::SendToWindow(control, InitializeControl, 0, static_cast<std::int32_t>(element));
}

LockedMatrixTile LockMatrixTile(WindowHandle control) {
    return LockedMatrixTile(RecordOf(control));
}

MatrixFace RenderMatrixFace(WindowHandle control) {
    constexpr int kPressedInset = 1, kRaisedInset = 2;
    const LockedMatrixTile tile = LockMatrixTile(control);
    if (!tile) return {nullptr, kRaisedInset, false};
    const bool is_pressed = (tile->Flags & kMatrixPressed) != 0;
    const int inset = is_pressed ? kPressedInset : kRaisedInset;
    const platform::PixelSize size = platform::ClientSize(control);
    MatrixTile shown = *tile.Get();
    shown.TargetRect = {inset, inset, size.Width - inset, size.Height - inset};
    return {RenderMatrixTile(shown), inset, is_pressed};
}

}  // namespace tess
