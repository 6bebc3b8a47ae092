// The boundary with the host editor: records, op codes and flags. The host is
// another program, so the records are a wire format and their offsets are held
// by the assertions below.
#pragma once

#include <cstddef>
#include <cstdint>

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"

namespace tess {

inline constexpr char kProgramName[] = "Tessellomatics #1";
inline constexpr std::uint32_t kHostVersion = 0x1000;  ///< major number 16 in bits 8 to 15

/// Filled by PLUGIN16GetPluginParams. `Description` runs to the end of `Size`.
struct PluginParams {
    std::uint32_t Size;
    std::uint32_t Version;
    char Name[261];
    char Description[1];
};
static_assert(offsetof(PluginParams, Name) == 8);
static_assert(offsetof(PluginParams, Description) == 269);

/// What HostCall is asked for.
enum class HostOp : std::int64_t {
    OpenBuild = 1,
    AddFrame = 2,
    AddComment = 3,
    CloseTask = 4,
    OpenTest = 5,
    ChooseImageFile = 6,
    LoadImageFile = 8,
    ShowHelp = 9,
    StageTitle = 10,
    ChooseColor = 11,
    Progress = 13,
    ButtonPressed = 18,
    FileDialogSize = 21,
};

/// One animation as handed to the host.
struct TaskRecord {
    std::uint32_t Size;  ///< 1080
    std::uint32_t Version;
    platform::WindowHandle Window;
    std::uint32_t Reserved16;
    std::uint32_t Depth;         ///< bits per pixel, 1 to 8 or 24
    std::int32_t Width, Height;  ///< the largest of all frames
    std::uint8_t Palette[kPaletteBytes];
    std::uint32_t Reserved800;
    std::int32_t FrameCount;
    std::uint8_t Reserved808[264];
    std::int32_t BackgroundIndex;  ///< 0
    std::uint32_t Reserved1076;
};
static_assert(sizeof(TaskRecord) == 1080);
static_assert(offsetof(TaskRecord, Window) == 8);
static_assert(offsetof(TaskRecord, Depth) == 20);
static_assert(offsetof(TaskRecord, Width) == 24 && offsetof(TaskRecord, Height) == 28);
static_assert(offsetof(TaskRecord, Palette) == 32);
static_assert(offsetof(TaskRecord, FrameCount) == 804);
static_assert(offsetof(TaskRecord, BackgroundIndex) == 1072);

/// One frame as handed to the host, which does not own its picture.
struct ImageRecord {
    std::uint32_t Size;  ///< 112
    std::uint32_t Version;
    ImageHandle Image;
    std::uint32_t Reserved16;
    std::uint32_t RestoreToBackground;  ///< 0
    std::uint64_t Reserved24;
    std::uint32_t Delay;
    std::int32_t FrameNumber;       ///< from 0
    std::int32_t TransparentIndex;  ///< -1 for none
    std::uint8_t Reserved44[68];
};
static_assert(sizeof(ImageRecord) == 112);
static_assert(offsetof(ImageRecord, Image) == 8);
static_assert(offsetof(ImageRecord, RestoreToBackground) == 20);
static_assert(offsetof(ImageRecord, Delay) == 32);
static_assert(offsetof(ImageRecord, FrameNumber) == 36);
static_assert(offsetof(ImageRecord, TransparentIndex) == 40);

/// What the host's colour chooser is given and gives back.
struct ColorDialogRecord {
    std::uint32_t Size;  ///< 40
    std::uint32_t Version;
    const std::uint8_t* Palette;  ///< the 256-colour orthogonal one
    std::uint32_t Depth;          ///< 24
    std::uint32_t Reserved20;
    ColorWord Color;  ///< in and out
    std::uint32_t Reserved28;
    platform::WindowHandle Owner;
};
static_assert(sizeof(ColorDialogRecord) == 40);
static_assert(offsetof(ColorDialogRecord, Color) == 24);
static_assert(offsetof(ColorDialogRecord, Owner) == 32);

using HostCallFunction = std::int64_t (*)(TaskRecord* task, std::int64_t opcode, std::int64_t a,
                                          std::int64_t b);

/// Given by the host, read only.
struct HostServices {
    std::uint32_t Size;
    std::uint32_t Version;
    std::uint32_t SkinButtons;  ///< look of push buttons, 0 for the system's
    std::uint32_t Reserved12;
    HostCallFunction HostCall;
    std::uint64_t Reserved24;
    std::uint32_t HostFlags;
    std::uint32_t Reserved36;
};
static_assert(offsetof(HostServices, SkinButtons) == 8);
static_assert(offsetof(HostServices, HostCall) == 16);
static_assert(offsetof(HostServices, HostFlags) == 32);

/// Bits of HostFlags.
inline constexpr std::uint32_t HostDelayHundredths = 1;  ///< delays in hundredths, else thousandths
inline constexpr std::uint32_t HostTrueColor = 2;  ///< takes 24-bit frames; delays 10 times finer

/// Asks the host; pointers travel as integers.
inline std::int64_t CallHost(const HostServices* host, TaskRecord* task, HostOp op, std::int64_t a,
                             std::int64_t b) {
    return host->HostCall(task, static_cast<std::int64_t>(op), a, b);
}
inline std::int64_t CallHost(const HostServices* host, TaskRecord* task, HostOp op, std::int64_t a,
                             const void* b) {
    return CallHost(host, task, op, a,
                    static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(b)));
}

}  // namespace tess
