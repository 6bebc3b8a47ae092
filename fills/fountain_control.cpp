#include "fills/fountain_control.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "controls/control_line.h"
#include "controls/hexadecimal.h"
#include "fills/fountain_editing.h"
#include "fills/fountain_markers.h"
#include "fills/fountain_mouse.h"
#include "platform/files.h"
#include "platform/keyboard.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::MemoryHandle;
using platform::OwnedBlock;
using platform::WindowHandle;

MemoryHandle RecordOf(WindowHandle control) {
    return static_cast<MemoryHandle>(platform::UserData(control));
}

/// Puts a record on the control; the old one is freed with its preview.
void ReplaceRecord(WindowHandle control, MemoryHandle record) {
    const OwnedBlock old(RecordOf(control));
    if (const LockedFountain fountain(old.Get()); fountain) platform::FreeBlock(fountain->Preview);
    platform::SetUserData(control, record);
}

/// The control's own file, beside those that PluginFile names by default.
std::string FountainFileName(WindowHandle control) {
    char name[64];
    std::snprintf(name, sizeof name, "Tessellomatics 1/Fountain%05d.mtrl",
                  platform::ControlId(control));
    return platform::UserFile(name);
}

/// What is stored of a record: its preview is there in memory alone.
Fountain StoredForm(const Fountain& fountain) {
    Fountain stored = fountain;
    stored.Preview = nullptr;
    return stored;
}

/// The flags that the control gives its record, whatever a file says.
std::uint32_t OwnFlags(WindowHandle control) {
    const std::string text =
        platform::ControlText(platform::ParentDialog(control), platform::ControlId(control));
    return text.find(kLoopedFountainText) != std::string::npos ? kFountainLooped : 0;
}

/// Gives the control a copy of a record, with a preview of its own. Returns 0 without
/// memory for it, and the old record stays.
int PutRecord(WindowHandle control, const Fountain& fountain) {
    OwnedBlock block(platform::AllocateBlock(sizeof(Fountain)));
    {
        const LockedFountain copy(block.Get());
        if (!copy) return 0;
        *copy.Get() = StoredForm(fountain);
    }
    ReplaceRecord(control, block.Release());
    RenewPreview(control);
    return 1;
}

/// The same for a record that came while the dialog is open, which shows it then.
int ShowRecord(WindowHandle control, const Fountain& fountain) {
    if (PutRecord(control, fountain) == 0) return 0;
    const WindowHandle dialog = platform::ParentDialog(control);
    platform::RepaintControl(dialog, platform::ControlId(control));
    platform::PostToWindow(dialog, RefreshSample, 0, 0);
    return 1;
}

void Initialize(WindowHandle control, bool remember) {
    platform::SetControlSize(platform::ParentDialog(control), platform::ControlId(control),
                             kFountainButtonSize.Width, kFountainButtonSize.Height);
    Fountain fountain;
    if (!remember || platform::IsShiftHeld() ||
        ReadFountainFile(FountainFileName(control), &fountain) == 0) {
        InitFountain(&fountain, FountainPreset::SevenColors);
    }
    fountain.Flags |= OwnFlags(control) | (remember ? kFountainSaved : 0);
    static_cast<void>(PutRecord(control, fountain));
}

void Destroy(WindowHandle control) {
    if (const LockedFountain fountain = LockFountain(control);
        fountain && (fountain->Flags & kFountainSaved) != 0) {
        // A failure leaves the old file, and nothing is shown.
        static_cast<void>(WriteFountainFile(FountainFileName(control), *fountain.Get()));
    }
    ReplaceRecord(control, nullptr);
}

std::intptr_t Save(WindowHandle control, std::FILE* stream) {
    const LockedFountain fountain = LockFountain(control);
    if (!fountain) return 0;
    const Fountain stored = StoredForm(*fountain.Get());
    WriteBlockLine(kFountainTag, platform::ControlId(control),
                   {reinterpret_cast<const std::uint8_t*>(&stored), sizeof stored}, stream);
    return 1;
}

/// A line that cannot be taken, for its digits or for lack of memory, leaves the old record;
/// it was the control's all the same.
std::intptr_t Load(WindowHandle control, const char* line) {
    const char* value = FindLineValue(line, kFountainTag);
    if (value == nullptr) return 0;
    Fountain fountain{};
    auto* bytes = reinterpret_cast<std::uint8_t*>(&fountain);
    if (ReadHexadecimal(value, {bytes, sizeof fountain}))
        static_cast<void>(ShowRecord(control, fountain));
    return 1;
}

/// Handles the messages that are a fountain button's alone. Returns false for another.
bool Edit(WindowHandle control, std::uint32_t message, std::uintptr_t w, std::intptr_t l) {
    const int index = static_cast<int>(w);
    switch (message) {
        case ChooseFountainColor:
            ChooseMarkerColor(control, index);
            return true;
        case AddFountainMarker:
            AddMarker(control, index);
            return true;
        case DeleteFountainMarker:
            DeleteMarker(control, index);
            return true;
        case AdjustFountainMarker:
            AdjustMarker(control, index);
            return true;
        case ShowFountainMarkerMenu:
            ShowMarkerMenu(control, index, platform::MouseX(l), platform::MouseY(l));
            return true;
        case ShowFountainLibraryMenu:
            ShowLibraryMenu(control, platform::MouseX(l), platform::MouseY(l));
            return true;
        case platform::kMessageCommand:
            return DoFountainCommand(control, platform::CommandId(w));
        default:
            return HandleFountainMouse(control, message, l);
    }
}

std::intptr_t FountainProcedure(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                                std::intptr_t l) {
    switch (message) {
        case InitializeControl:
            Initialize(control, w == kRememberFountain);
            return 1;
        case SaveControl:
            return Save(control, reinterpret_cast<std::FILE*>(l));
        case LoadControl:
            return Load(control, reinterpret_cast<const char*>(l));
        case platform::kMessageDestroy:
            Destroy(control);
            break;
        default:
            if (Edit(control, message, w, l)) return 0;
            break;
    }
    return platform::CallOriginal(control, message, w, l);
}

void Install(WindowHandle dialog, int id, std::uintptr_t remember) {
    constexpr std::intptr_t kUnused = 0xFFFFFF;
    const WindowHandle control = platform::Control(dialog, id);
    if (control == nullptr) return;
    platform::InstallControl(dialog, id, kFountainTag, FountainProcedure);
    platform::SendToWindow(control, InitializeControl, remember, kUnused);
}

}  // namespace

void BindFountainButton(WindowHandle dialog, int id, const char* text) {
    platform::SetControlText(dialog, id, text);
    Install(dialog, id, kRememberFountain);
}

void InstallFountainButton(WindowHandle dialog, int id) {
    Install(dialog, id, 0);
}

int ReadFountainFile(std::string_view path, Fountain* fountain) {
    std::FILE* stream = platform::OpenFile(path, "rb");
    if (stream == nullptr) return 0;
    const bool is_whole = std::fread(fountain, sizeof *fountain, 1, stream) == 1;
    std::fclose(stream);
    if (!is_whole || !HasFountainMagic(*fountain)) return 0;
    fountain->Preview = nullptr;
    return 1;
}

int WriteFountainFile(std::string_view path, const Fountain& fountain) {
    platform::NewFile file(path, platform::FileMode::Binary);
    if (!file) return 0;
    const Fountain stored = StoredForm(fountain);
    if (std::fwrite(&stored, sizeof stored, 1, file.Stream()) != 1) return 0;
    return file.Commit();
}

int LoadFountainFile(WindowHandle control, std::string_view path) {
    Fountain fountain;
    if (ReadFountainFile(path, &fountain) == 0) return 0;
    {
        const LockedFountain old = LockFountain(control);
        if (!old) return 0;
        fountain.Flags |= OwnFlags(control) | (old->Flags & kFountainSaved);
    }
    return ShowRecord(control, fountain);
}

LockedFountain LockFountain(WindowHandle control) {
    return LockedFountain(RecordOf(control));
}

int ReadFountainButton(WindowHandle control, Fountain* out) {
    const LockedFountain fountain = LockFountain(control);
    if (!fountain || !HasFountainMagic(*fountain.Get())) return 0;
    *out = *fountain.Get();
    return 1;
}

}  // namespace tess
