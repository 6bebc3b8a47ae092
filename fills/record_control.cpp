#include "fills/record_control.h"

#include <cstdio>
#include <cstring>
#include <span>

#include "controls/control_line.h"
#include "controls/hexadecimal.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::LockedBlock;
using platform::MemoryHandle;
using platform::OwnedBlock;
using platform::WindowHandle;

constexpr std::size_t kHandleBytes = 8;

// Where a record holds handles of pictures. They mean nothing outside the run that
// made them, so a record that is read has none.
constexpr std::size_t kMaterialHandles[] = {68 + 281, 921 + 265, 1242};

struct RecordKind {
    const char* tag;
    std::size_t bytes;
    std::span<const std::size_t> handles;
};
constexpr RecordKind kMaterial{kMaterialTag, kMaterialBytes, kMaterialHandles};

MemoryHandle RecordOf(WindowHandle control) {
    return static_cast<MemoryHandle>(platform::UserData(control));
}

void ReplaceRecord(WindowHandle control, MemoryHandle record) {
    platform::FreeBlock(RecordOf(control));
    platform::SetUserData(control, record);
}

std::intptr_t Save(const RecordKind& kind, WindowHandle control, std::FILE* stream) {
    const LockedBlock<std::uint8_t> record = LockRecord(control);
    if (!record) return 0;
    std::fprintf(stream, "%s%d=", kind.tag, platform::ControlId(control));
    WriteHexadecimal({record.Get(), kind.bytes}, stream);
    std::fputc('\n', stream);
    return 1;
}

/// Digits that are none, like a lack of memory, leave the old record; the line was
/// the control's all the same.
std::intptr_t Load(const RecordKind& kind, WindowHandle control, const char* line) {
    const char* value = FindLineValue(line, kind.tag);
    if (value == nullptr) return 0;
    OwnedBlock block(platform::AllocateBlock(kind.bytes));
    {
        const LockedBlock<std::uint8_t> record(block.Get());
        if (!record || !ReadHexadecimal(value, {record.Get(), kind.bytes})) return 1;
        for (const std::size_t handle : kind.handles)
            std::memset(record.Get() + handle, 0, kHandleBytes);
    }
    ReplaceRecord(control, block.Release());
    platform::PostToWindow(platform::ParentDialog(control), RefreshSample, 0, 0);
    return 1;
}

template <const RecordKind& Kind>
std::intptr_t RecordProcedure(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                              std::intptr_t l) {
    switch (message) {
        case SaveControl:
            return Save(Kind, control, reinterpret_cast<std::FILE*>(l));
        case LoadControl:
            return Load(Kind, control, reinterpret_cast<const char*>(l));
        case platform::kMessageDestroy:
            ReplaceRecord(control, nullptr);
            break;
        default:
            break;
    }
    return platform::CallOriginal(control, message, w, l);
}

template <const RecordKind& Kind>
WindowHandle Install(WindowHandle dialog, int id) {
    const WindowHandle control = platform::Control(dialog, id);
    if (control == nullptr) return nullptr;
    platform::InstallControl(dialog, id, Kind.tag, RecordProcedure<Kind>);
    ReplaceRecord(control, platform::AllocateBlock(Kind.bytes));
    return control;
}

}  // namespace

void BindMaterialControl(WindowHandle dialog, int id) {
    Install<kMaterial>(dialog, id);
}

LockedBlock<std::uint8_t> LockRecord(WindowHandle control) {
    return LockedBlock<std::uint8_t>(RecordOf(control));
}

}  // namespace tess
