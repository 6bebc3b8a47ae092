// The working values of one run of the build driver, and what its stages share.
#pragma once

#include <optional>

#include "pipeline/build_driver.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "shell/control_contract.h"
#include "shell/host_interface.h"

namespace tess {

/// Owns a list of frames for a scope.
class OwnedFrameList {
public:
    OwnedFrameList() = default;
    OwnedFrameList(const OwnedFrameList&) = delete;
    OwnedFrameList& operator=(const OwnedFrameList&) = delete;
    ~OwnedFrameList() { FrameListFree(&list_); }

    [[nodiscard]] FrameList* Get() { return &list_; }
    [[nodiscard]] int Count() const { return list_.Count; }
    void Reset() { FrameListFree(&list_); }

    /// Copies record `i`. Returns false when the records could not be read.
    [[nodiscard]] bool Read(int i, FrameRecord* record) const;
    /// Replaces record `i`, whose handles stay with the caller. Returns false, with
    /// the list as it was, when the records could not be read.
    [[nodiscard]] bool Write(int i, const FrameRecord& record);

private:
    FrameList list_{};
};

struct BuildRun {
    BuildRun(platform::WindowHandle dialog, const HostServices* host, BuildMode mode)
        : Dialog(dialog), Host(host), Mode(mode) {}

    platform::WindowHandle Dialog;
    const HostServices* Host;
    BuildMode Mode;

    int StyleIndex = 0;  ///< 0 to kStyleCount - 1
    bool TrueColor = false;
    bool Dither = false;
    bool CustomPalette = false;
    bool Supercompress = false;
    bool MaskBackground = false;
    ColorWord BackgroundColor = 0;     ///< or kNoBackground
    int MostColors = kPaletteEntries;  ///< of a custom palette, with all slots that it needs

    std::uint8_t Palette[kPaletteBytes] = {};
    int FixedDepth = 0;                   ///< bits per pixel of the fixed palette in Palette
    int Depth = kPaletteEntries;          ///< bits per pixel, once the palette stands
    int PaletteColors = kPaletteEntries;  ///< passed to remapping
    int BackgroundIndex = -1;             ///< palette slot of the background, -1 for none
    int TransparentIndex = -1;            ///< palette slot of unchanged pixels, -1 for none
    ColorWord TransparentColor = 0;       ///< what that slot shows
    int MaxWidth = 0, MaxHeight = 0;      ///< the largest frame seen

    // Freed in the reverse of this order.
    std::optional<platform::WaitCursor> Cursor;
    OwnedFrameList Frames;
    platform::OwnedBlock LastImage;  ///< the picture so far, for Supercompress
};

/// Shows a stage's title on the host's progress display.
void ShowStage(const BuildRun& run, const char* title);
void ShowProgress(const BuildRun& run, int done, int total);
void ClearProgress(const BuildRun& run);

/// Tells the user. Always returns false, what a failed stage returns.
bool Fail(const BuildRun& run, const char* text);
bool Fail(const BuildRun& run, StringId id);

/// Takes the 24-bit frames of the run through quantizing, supercompressing and
/// remapping, as its settings say. Returns false after telling the user.
/// Requires: there are frames; Palette and FixedDepth hold the fixed palette.
[[nodiscard]] bool FinishFrames(BuildRun& run);

/// Frees everything that the run holds and restores the cursor.
void ReleaseRun(BuildRun& run);

}  // namespace tess
