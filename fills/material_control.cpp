#include "fills/material_control.h"

#include <cstdio>
#include <iterator>
#include <string>

#include "controls/color_button.h"
#include "controls/control_line.h"
#include "controls/hexadecimal.h"
#include "fills/gradient_dialog.h"
#include "fills/group_list.h"
#include "fills/material_file.h"
#include "fills/matrix_dialog.h"
#include "fills/matrix_group_file.h"
#include "fills/texture_dialog.h"
#include "platform/files.h"
#include "platform/keyboard.h"
#include "platform/popup_menu.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::OwnedBlock;
using platform::PixelSize;
using platform::WindowHandle;

constexpr int kArrowWidth = 16, kFaceInset = 2;  // pixels

MaterialHandle RecordOf(WindowHandle control) {
    return static_cast<MaterialHandle>(platform::UserData(control));
}

void ReplaceRecord(WindowHandle control, MaterialHandle record) {
    FreeMaterial(RecordOf(control));
    platform::SetUserData(control, record);
}

void Repaint(WindowHandle control) {
    platform::RepaintControl(platform::ParentDialog(control), platform::ControlId(control));
}

/// The control's own file, beside those that PluginFile names by default.
std::string MaterialFileName(WindowHandle control) {
    char name[64];
    std::snprintf(name, sizeof name, "Tessellomatics 1/Material%05d.mtrl",
                  platform::ControlId(control));
    return platform::UserFile(name);
}

/// Renders the preview anew; a failure leaves the old one.
void RenderPreview(WindowHandle control, Material* material) {
    const auto [left, top, right, bottom] = MaterialFaceRect(platform::ClientSize(control));
    OwnedBlock preview(RenderMaterial(material, right - left, bottom - top));
    if (!preview) return;
    platform::FreeBlock(material->Preview);
    material->Preview = preview.Release();
}

void RenderAndMeasurePreview(WindowHandle control, Material* material) {
    RenderPreview(control, material);
    material->AverageColor = AverageImageColour(material->Preview);
}

void Initialize(WindowHandle control, ColorWord color) {
    const MaterialHandle record =
        LoadMaterial(MaterialFileName(control), color, platform::IsShiftHeld() ? 0 : 1);
    if (const LockedMaterial material(record); material) {
        // Whatever group the file has named, the present one counts.
        const std::string group = GroupPath(MatrixGroupFile);
        SetMatrixTilePath(&material->Tile, group);
        platform::FreeBlock(material->Tile.Image);
        material->Tile.Image = LoadMatrixElement(group, material->Tile.Element);
        RenderAndMeasurePreview(control, material);
    }
    ReplaceRecord(control, record);
}

void Destroy(WindowHandle control) {
    // A failure leaves the old file, and nothing is shown.
    SaveMaterial(RecordOf(control), MaterialFileName(control));
    ReplaceRecord(control, nullptr);
}

std::intptr_t Save(WindowHandle control, std::FILE* stream) {
    const LockedMaterial material = LockMaterial(control);
    if (!material) return 0;
    Material stored = *material.Get();
    ForgetMaterialHandles(&stored);
    WriteBlockLine(kMaterialTag, platform::ControlId(control),
                   {reinterpret_cast<const std::uint8_t*>(&stored), sizeof stored}, stream);
    return 1;
}

/// Digits that are none, like a lack of memory, leave the old record; the line was the
/// control's all the same. The tile's picture is not loaded: until it is edited the
/// tile is the default one.
std::intptr_t Load(WindowHandle control, const char* line) {
    const char* value = FindLineValue(line, kMaterialTag);
    if (value == nullptr) return 0;
    OwnedBlock block(platform::AllocateBlock(sizeof(Material)));
    {
        const LockedMaterial material(block.Get());
        if (!material) return 1;
        auto* bytes = reinterpret_cast<std::uint8_t*>(material.Get());
        if (!ReadHexadecimal(value, {bytes, sizeof(Material)})) return 1;
        ForgetMaterialHandles(material);
        material->Pressed = 0;  // the mouse is elsewhere
        if (const LockedMaterial old = LockMaterial(control); old) {
            material->Preview = old->Preview;
            old->Preview = nullptr;
        }
        RenderAndMeasurePreview(control, material);
    }
    ReplaceRecord(control, block.Release());
    Repaint(control);
    return 1;
}

int EditSimple(WindowHandle control) {
    ColorWord color = LockMaterial(control)->SimpleColor;
    if (ChooseColor(control, &color) == 0) return 0;
    LockMaterial(control)->SimpleColor = color;
    return 1;
}

/// Lets the user edit a copy of one of the record's fills and keeps it if accepted. The
/// record is not locked while the dialog is open.
template <class Fill>
int EditFill(WindowHandle control, Fill Material::*fill, int (*edit)(WindowHandle, Fill*)) {
    Fill copy = LockMaterial(control)->*fill;
    if (edit(control, &copy) == 0) return 0;
    LockMaterial(control)->*fill = copy;
    return 1;
}

int EditInMode(WindowHandle control, MaterialMode mode) {
    switch (mode) {
        case MaterialMode::Simple:
            return EditSimple(control);
        case MaterialMode::Gradient:
            return EditFill(control, &Material::Gradient, EditGradient);
        case MaterialMode::Texture:
            return EditFill(control, &Material::Texture, EditTexture);
        case MaterialMode::Tile:
            return EditFill(control, &Material::Tile, EditMatrixTile);
        default:
            return 0;
    }
}

MaterialMode ModeOf(WindowHandle control) {
    const LockedMaterial material = LockMaterial(control);
    return material ? material->Mode : MaterialMode::Simple;
}

void TellParent(WindowHandle control) {
    platform::PostToWindow(platform::ParentDialog(control), RefreshSample,
                           static_cast<std::uintptr_t>(ModeOf(control)),
                           reinterpret_cast<std::intptr_t>(control));
}

void Edit(WindowHandle control) {
    if (RecordOf(control) == nullptr) return;
    if (EditInMode(control, ModeOf(control)) != 0) {
        if (const LockedMaterial material = LockMaterial(control); material) {
            RenderAndMeasurePreview(control, material);
        }
        Repaint(control);
    }
    TellParent(control);
}

void ShowMenu(WindowHandle control) {
    platform::MenuItem items[kMaterialModes];
    for (int mode = 0; mode < kMaterialModes; ++mode)
        items[mode] = {kFirstMaterialMode + mode, kMaterialModeNames[mode],
                       mode == static_cast<int>(ModeOf(control))};
    const PixelSize client = platform::ClientSize(control);
    platform::ShowPopupMenuAt(control, items, client.Width, client.Height / 2);
}

/// The average colour stays, and with it the colour of the text, until an edit.
void ChangeMode(WindowHandle control, int mode) {
    if (const LockedMaterial material = LockMaterial(control); material) {
        material->Mode = static_cast<MaterialMode>(mode);
        RenderPreview(control, material);
    }
    Repaint(control);
    TellParent(control);
}

void OnCommand(WindowHandle control, int id) {
    if (id == kEditMaterial) return Edit(control);
    const int mode = id - kFirstMaterialMode;
    if (mode >= 0 && mode < kMaterialModes) ChangeMode(control, mode);
}

void Press(WindowHandle control, int x) {
    const LockedMaterial material = LockMaterial(control);
    if (!material) return;
    const bool is_arrow = x >= MaterialArrow(platform::ClientSize(control)).Left;
    material->Pressed |= is_arrow ? kArrowPressed : kFacePressed;
    platform::CaptureMouse(control);
    Repaint(control);
}

void Release(WindowHandle control) {
    const LockedMaterial material = LockMaterial(control);
    if (!material || material->Pressed == 0) return;
    const std::uint32_t pressed = material->Pressed;
    material->Pressed = 0;
    platform::ReleaseMouse();
    Repaint(control);
    if ((pressed & kArrowPressed) != 0) platform::PostToWindow(control, ShowMaterialMenu, 0, 0);
    if ((pressed & kFacePressed) != 0) platform::PostCommand(control, kEditMaterial);
}

std::intptr_t MaterialProcedure(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                                std::intptr_t l) {
    switch (message) {
        case InitializeControl:
            Initialize(control, static_cast<ColorWord>(l));
            return 1;
        case ReadControlValue:
            return reinterpret_cast<std::intptr_t>(ReadMaterialButton(control));
        case SaveControl:
            return Save(control, reinterpret_cast<std::FILE*>(l));
        case LoadControl:
            return Load(control, reinterpret_cast<const char*>(l));
        case ShowMaterialMenu:
            ShowMenu(control);
            return 1;
        case platform::kMessageCommand:
            OnCommand(control, platform::CommandId(w));
            return 1;
        case platform::kMessageLeftButtonDown:
        case platform::kMessageLeftDoubleClick:  // the second of two quick presses
            Press(control, platform::MouseX(l));
            return 0;
        case platform::kMessageLeftButtonUp:
            Release(control);
            return 0;
        case platform::kMessageDestroy:
            Destroy(control);
            break;
        default:
            break;
    }
    return platform::CallOriginal(control, message, w, l);
}

}  // namespace

void BindMaterialButton(WindowHandle dialog, int id, ColorWord color) {
    const WindowHandle control = platform::Control(dialog, id);
    if (control == nullptr) return;
    platform::InstallControl(dialog, id, kMaterialTag, MaterialProcedure);
    platform::MakeOwnerDrawn(dialog, id);
    platform::SendToWindow(control, InitializeControl, 0, static_cast<std::intptr_t>(color));
}

LockedMaterial LockMaterial(WindowHandle control) {
    return LockedMaterial(RecordOf(control));
}

MaterialHandle ReadMaterialButton(WindowHandle control) {
    const LockedMaterial material = LockMaterial(control);
    if (!material) return nullptr;
    OwnedBlock block(DuplicateImage(RecordOf(control)));
    const LockedMaterial copy(block.Get());
    if (!copy) return nullptr;
    copy->Preview = nullptr;
    copy->Tile.Image = nullptr;
    if (material->Tile.Image != nullptr) {
        copy->Tile.Image = DuplicateImage(material->Tile.Image);
        if (copy->Tile.Image == nullptr) return nullptr;
    }
    return block.Release();
}

MaterialBox MaterialFace(PixelSize client) {
    return {0, 0, client.Width - kArrowWidth, client.Height};
}

MaterialBox MaterialArrow(PixelSize client) {
    return {client.Width - kArrowWidth, 0, client.Width, client.Height};
}

MaterialBox MaterialFaceRect(PixelSize client) {
    const MaterialBox face = MaterialFace(client);
    return {face.Left + kFaceInset, face.Top + kFaceInset, face.Right - kFaceInset,
            face.Bottom - kFaceInset};
}

MaterialTriangle TriangleIn(const MaterialBox& arrow, bool is_pressed) {
    constexpr int kTallest = 20, kHalfWidth = 4, kHalfHeight = 2;
    int top = arrow.Top, bottom = arrow.Bottom;
    if (bottom - top > kTallest) {
        top += (bottom - top - kTallest) / 2;
        bottom = top + kTallest;
    }
    const int shift = is_pressed ? 1 : 0;
    const int x = (arrow.Left + arrow.Right) / 2 + shift, y = (top + bottom) / 2 + shift;
    return {x - kHalfWidth, x + kHalfWidth, x, y - kHalfHeight, y + kHalfHeight};
}

}  // namespace tess
