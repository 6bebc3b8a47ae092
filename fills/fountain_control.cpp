#include "fills/fountain_control.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "controls/control_line.h"
#include "controls/hexadecimal.h"
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

/// Reads the record from the control's own file. Returns false for a file that
/// cannot be opened, is short or is of another kind.
bool ReadRecordFile(WindowHandle control, Fountain* fountain) {
    std::FILE* stream = platform::OpenFile(FountainFileName(control), "rb");
    if (stream == nullptr) return false;
    const bool is_whole = std::fread(fountain, sizeof *fountain, 1, stream) == 1;
    std::fclose(stream);
    return is_whole && HasFountainMagic(*fountain);
}

/// What is stored of a record: its preview is there in memory alone.
Fountain StoredForm(const Fountain& fountain) {
    Fountain stored = fountain;
    stored.Preview = nullptr;
    return stored;
}

void WriteRecordFile(WindowHandle control, const Fountain& fountain) {
    platform::NewFile file(FountainFileName(control), platform::FileMode::Binary);
    if (!file) return;
    const Fountain stored = StoredForm(fountain);
    if (std::fwrite(&stored, sizeof stored, 1, file.Stream()) != 1) return;
    static_cast<void>(file.Commit());  // a failure leaves the old file, and nothing is shown
}

void Initialize(WindowHandle control, bool remember) {
    OwnedBlock block(platform::AllocateBlock(sizeof(Fountain)));
    {
        const LockedFountain fountain(block.Get());
        if (!fountain) return;
        if (!remember || platform::IsShiftHeld() || !ReadRecordFile(control, fountain)) {
            InitFountain(fountain, FountainPreset::SevenColors);
        }
        fountain->Preview = nullptr;
        const std::string text =
            platform::ControlText(platform::ParentDialog(control), platform::ControlId(control));
        if (text.find(kLoopedFountainText) != std::string::npos) fountain->Flags |= kFountainLooped;
        if (remember) fountain->Flags |= kFountainSaved;
    }
    ReplaceRecord(control, block.Release());
}

void Destroy(WindowHandle control) {
    if (const LockedFountain fountain = LockFountain(control);
        fountain && (fountain->Flags & kFountainSaved) != 0) {
        WriteRecordFile(control, *fountain.Get());
    }
    ReplaceRecord(control, nullptr);
}

std::intptr_t Save(WindowHandle control, std::FILE* stream) {
    const LockedFountain fountain = LockFountain(control);
    if (!fountain) return 0;
    const Fountain stored = StoredForm(*fountain.Get());
    std::fprintf(stream, "%s%d=", kFountainTag, platform::ControlId(control));
    WriteHexadecimal({reinterpret_cast<const std::uint8_t*>(&stored), sizeof stored}, stream);
    std::fputc('\n', stream);
    return 1;
}

std::intptr_t Load(WindowHandle control, const char* line) {
    const char* value = FindLineValue(line, kFountainTag);
    if (value == nullptr) return 0;
    OwnedBlock block(platform::AllocateBlock(sizeof(Fountain)));
    {
        const LockedFountain fountain(block.Get());
        if (!fountain) return 1;
        auto* bytes = reinterpret_cast<std::uint8_t*>(fountain.Get());
        if (!ReadHexadecimal(value, {bytes, sizeof(Fountain)})) return 1;
        fountain->Preview = nullptr;
    }
    ReplaceRecord(control, block.Release());
    platform::PostToWindow(platform::ParentDialog(control), RefreshSample, 0, 0);
    return 1;
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
