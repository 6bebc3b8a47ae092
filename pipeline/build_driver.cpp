// One straight line of stages from the settings of the main dialog to an animation:
//
//   settings, background, fixed palette
//   building          the style renders all frames, at 24 bits
//   quantizing        one palette from all frames, if a custom one is wanted
//   supercompressing  a mask of unchanged pixels for each frame but the first
//   remapping         each frame onto the palette, one at a time, freeing its source,
//                     so that memory peaks at the 24-bit frames and one more
//   output            to the host, or as a page to the browser
//
// A stage that fails has told the user and returns false; the run's record then
// frees all it holds. Stage titles and progress reach the host in a Preview, too.
#include "pipeline/build_driver.h"

#include <algorithm>
#include <utility>

#include "pipeline/build_run.h"
#include "pipeline/color_tree.h"
#include "pipeline/hand_over.h"
#include "pipeline/palette.h"
#include "pipeline/preview.h"
#include "pipeline/remapping.h"
#include "pipeline/supercompress.h"
#include "shell/style_table.h"

namespace tess {

namespace {

void ReadSettings(BuildRun& run) {
    const bool for_host = run.Mode != BuildMode::Preview;
    // An index that the list has not would read beyond the table.
    run.StyleIndex = std::clamp(platform::Selection(run.Dialog, kEffectList), 0, kStyleCount - 1);
    run.TrueColor = for_host && platform::IsChecked(run.Dialog, kTrueColorBox);
    run.Dither = for_host && platform::IsChecked(run.Dialog, kDitherBox);
    run.CustomPalette = platform::IsChecked(run.Dialog, kCustomPaletteBox);
    run.Supercompress =
        for_host && !run.TrueColor && platform::IsChecked(run.Dialog, kSupercompressBox);
    run.MaskBackground = !run.Supercompress && platform::IsChecked(run.Dialog, kMaskBackgroundBox);
}

const StyleEntry& StyleOf(const BuildRun& run) {
    return *StyleTable[run.StyleIndex];
}

void ReadBackground(BuildRun& run) {
    // Styles may expect to be asked in this way first; the answer has no use.
    static_cast<void>(BackgroundQuery(StyleOf(run), run.Dialog, 1));
    run.BackgroundColor = BackgroundQuery(StyleOf(run), run.Dialog, 0);
    if (run.BackgroundColor == kNoBackground) run.MaskBackground = false;
}

bool BuildFrames(BuildRun& run) {
    constexpr char kTitle[] = "Building";
    ClearProgress(run);
    ShowStage(run, kTitle);
    StyleContext context{};
    context.Dialog = run.Dialog;
    context.Frames = run.Frames.Get();
    context.Host = run.Host;
    const StyleEntry& style = StyleOf(run);
    if (style.Build != nullptr) {
        ShowStage(run, kTitle);
        if (style.Build(&context) == 0) return Fail(run, StringId::MemoryError);
        ClearProgress(run);
        ClearProgress(run);
    }
    if (run.Frames.Count() == 0) return Fail(run, StringId::MemoryError);
    return true;
}

void SetPaletteEntry(BuildRun& run, int index, ColorWord color) {
    std::uint8_t* entry = run.Palette + std::ptrdiff_t{3} * index;
    entry[0] = RedOf(color);
    entry[1] = GreenOf(color);
    entry[2] = BlueOf(color);
}

/// Gives the background's colour an entry among the palette's `colors`, so that it is
/// kept; no background (-1) gives white one. Returns the new number of colours.
int AddBackgroundColor(BuildRun& run, int colors) {
    constexpr int kFullPalette = 254;
    if (colors < kFullPalette) {
        SetPaletteEntry(run, colors, run.BackgroundColor);
        ++run.PaletteColors;
        return colors + 1;
    }
    const int nearest = NearestColor(RedOf(run.BackgroundColor), GreenOf(run.BackgroundColor),
                                     BlueOf(run.BackgroundColor), run.Palette, colors);
    SetPaletteEntry(run, nearest, run.BackgroundColor);
    return colors;
}

/// The bits per pixel that `colors` colours need.
int DepthForColors(int colors) {
    for (int depth = 1; depth <= 8; ++depth) {
        if (colors <= 1 << depth) return depth;
    }
    return 24;
}

bool MakeCustomPalette(BuildRun& run) {
    const bool needs_slot = run.Supercompress || run.MaskBackground;
    const int slots = needs_slot ? 1 : 0;
    int colors = run.MostColors - slots;
    ShowStage(run, "Quantizing");
    if (QuantizeFrames(&colors, run.Palette, run.Frames.Get()) == 0) {
        return Fail(run, StringId::MemoryError);
    }
    run.PaletteColors = colors;
    // A palette that was asked to be short takes it only where there is room.
    const bool is_short = run.MostColors < kPaletteEntries;
    if (!run.MaskBackground && !(is_short && colors + slots >= run.MostColors)) {
        colors = AddBackgroundColor(run, colors);
    }
    SortPaletteByLuminance(run.Palette, colors);
    run.Depth = DepthForColors(colors + slots);
    run.BackgroundIndex = colors;
    if (needs_slot) SetPaletteEntry(run, colors, run.BackgroundColor);
    if (run.Supercompress) {
        run.TransparentIndex = colors;
        run.TransparentColor = run.BackgroundColor;
    }
    return true;
}

/// Puts the background's own slot where `source` has exactly its colour. Supercompress
/// comes here without a slot, too: -1 then sets the highest index of the picture, which
/// is meant.
bool ForceBackground(const BuildRun& run, ImageHandle source, platform::OwnedBlock* image) {
    image->Reset(ForceColorIndex(image->Get(), source, run.BackgroundColor, run.BackgroundIndex));
    return image->Get() != nullptr;
}

bool ApplyMask(const BuildRun& run, ImageHandle image_handle, ImageHandle mask_handle) {
    const LockedImage image(image_handle);
    const LockedImage mask(mask_handle);
    if (!image || !mask) return false;
    MakeUnchangedTransparent(image, mask, run.TransparentIndex, run.TransparentColor);
    return true;
}

/// Replaces the 24-bit picture of frame `i` by one on the palette.
bool RemapFrame(BuildRun& run, int i) {
    FrameRecord record;
    if (!run.Frames.Read(i, &record)) return false;
    const auto remap = run.Dither ? RemapDither : RemapPlain;
    platform::OwnedBlock image(remap(record.Image, run.Palette, run.Depth, run.PaletteColors));
    if (!image) return false;
    if (run.Supercompress && i == 0 && !ForceBackground(run, record.Image, &image)) return false;
    if (run.Supercompress && record.Mask != nullptr) {
        if (!ApplyMask(run, image.Get(), record.Mask)) return false;
        record.TransparentIndex = run.TransparentIndex;
    }
    if (run.MaskBackground && run.BackgroundIndex != -1 &&
        !ForceBackground(run, record.Image, &image)) {
        return false;
    }
    const ImageHandle source = std::exchange(record.Image, image.Get());
    if (!run.Frames.Write(i, record)) return false;
    record.Image = image.Release();  // the list's now
    platform::FreeBlock(source);
    return true;
}

bool NoteSize(BuildRun& run, int i) {
    FrameRecord record;
    if (!run.Frames.Read(i, &record)) return false;
    const LockedImage image(record.Image);
    if (!image) return false;
    run.MaxWidth = std::max(run.MaxWidth, image->Width);
    run.MaxHeight = std::max(run.MaxHeight, image->Height);
    return true;
}

bool RemapFrames(BuildRun& run) {
    ShowStage(run, "Remapping");
    for (int i = 0; i < run.Frames.Count(); ++i) {
        ShowProgress(run, i, run.Frames.Count());
        if ((!run.TrueColor && !RemapFrame(run, i)) || !NoteSize(run, i)) {
            return Fail(run, StringId::MemoryError);
        }
    }
    ClearProgress(run);
    return true;
}

bool MakeFrames(BuildRun& run) {
    ReadSettings(run);
    run.Cursor.emplace();
    ReadBackground(run);
    BuildFixedPalette(run.Palette, &run.FixedDepth, platform::Selection(run.Dialog, kPaletteList));
    return BuildFrames(run) && FinishFrames(run);
}

}  // namespace

bool FinishFrames(BuildRun& run) {
    if (run.Frames.Count() == 1) run.Supercompress = false;
    if (run.CustomPalette && !run.TrueColor) {
        if (!MakeCustomPalette(run)) return false;
    } else {
        run.Depth = run.FixedDepth;
    }
    ClearProgress(run);
    if (run.Supercompress && !SupercompressFrames(run)) return false;
    return RemapFrames(run);
}

int BuildAnimation(platform::WindowHandle dialog, const HostServices* services, BuildMode mode) {
    BuildRun run(dialog, services, mode);
    if (!MakeFrames(run)) return 0;
    const bool done = mode == BuildMode::Preview ? WritePreview(run) : HandOver(run);
    return done ? 1 : 0;
}

}  // namespace tess
