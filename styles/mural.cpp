// Mural: a picture tile that scrolls. What one sees is the tile of the Matrix control,
// shrunk by Resize and rolled in one of four directions.
//
// Frame f is rolled by its share f / F of the picture's size, so the frame behind the
// last one would be rolled by the whole size, which is the first frame again. Frames
// are made from scratch and carry nothing over.
//
// The frames are counted on the tile before Resize, so that a shrunk one repeats some
// of its distances. A Build takes the tile's size from the target rectangle, which the
// sample's painting has left in the record; one before any sample fails.
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include "controls/direction_picker.h"
#include "fills/matrix_control.h"
#include "pipeline/image_scaling.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kFrames = 358,
    kScroll = 360,
    kMatrix = 362,
    kResize = 364,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style008Frames", kFrames, Spinner, 64},
    {"Style008Matrix", kMatrix, Matrix,  0},
    {"Style008Resize", kResize, Spinner, 100},
    {"Style008Scroll", kScroll, Scroll4, 1},
};
// clang-format on

StyleParameter& MatrixParameter() {
    return *std::find_if(std::begin(parameters), std::end(parameters),
                         [](const StyleParameter& row) { return row.ControlId == kMatrix; });
}

enum ScrollDirection : std::uint32_t {
    kUp = 0,
    kLeft = 2,
    kDown = 3,  // right is 1, and any other
};

struct MuralState {
    std::int32_t Width, Depth;  ///< of the tile before Resize
    std::int32_t FrameCount;
    double Phase;  ///< in [0, 1)
};

platform::WindowHandle MatrixControl(const StyleContext& context) {
    return platform::Control(context.Dialog, kMatrix);
}

/// Limits the frames so that the tile is rolled by one pixel a frame at least.
bool StyleSetup(const StyleContext& context, MuralState& state, std::int32_t width,
                std::int32_t depth) {
    if (width < 1 || depth < 1) return false;
    const std::uint32_t scroll = SelectedDirection(context.Dialog, kScroll);
    state.Width = width;
    state.Depth = depth;
    state.FrameCount = std::min(GetSpinnerValue(context.Dialog, kFrames),
                                scroll == kUp || scroll == kDown ? depth : width);
    return true;
}

bool SetUpFromPicture(StyleContext& context, MuralState& state) {
    platform::PixelSize size{};
    if (const LockedMatrixTile tile = LockMatrixTile(MatrixControl(context)); tile)
        size = MatrixPictureSize(*tile.Get());
    return StyleSetup(context, state, size.Width, size.Height);
}

bool SetUpFromTarget(StyleContext& context, MuralState& state) {
    const LockedMatrixTile tile = LockMatrixTile(MatrixControl(context));
    if (!tile) return false;
    const std::int64_t width = std::int64_t{tile->TargetRect.right} - tile->TargetRect.left;
    const std::int64_t depth = std::int64_t{tile->TargetRect.bottom} - tile->TargetRect.top;
    // A crossed rectangle of a document must not wrap to a size that looks right.
    if (!std::in_range<std::int32_t>(width) || !std::in_range<std::int32_t>(depth)) return false;
    return StyleSetup(context, state, static_cast<std::int32_t>(width),
                      static_cast<std::int32_t>(depth));
}

/// The tile at its size before Resize. Leaves that size in the record.
ImageHandle RenderTile(const StyleContext& context, const MuralState& state) {
    const LockedMatrixTile tile = LockMatrixTile(MatrixControl(context));
    if (!tile) return nullptr;
    tile->TargetRect = {0, 0, state.Width, state.Depth};
    return RenderMatrixTile(*tile.Get());
}

ImageHandle RenderFrame(StyleContext& context, MuralState& state, int frame) {
    constexpr int kWhole = 100;
    state.Phase = static_cast<double>(frame) / state.FrameCount;
    const std::uint32_t scroll = SelectedDirection(context.Dialog, kScroll);
    const int percent = GetSpinnerValue(context.Dialog, kResize);
    platform::OwnedBlock tile(RenderTile(context, state));
    if (tile && percent != kWhole) tile.Reset(ScaleImagePercent(tile.Get(), percent, percent));
    int across = 0, down = 0;
    {
        const LockedImage image(tile.Get());
        // A picture that Resize has left without a pixel is no frame for anyone.
        if (!image || image->Width < 1 || image->Height < 1) return nullptr;
        across = static_cast<int>(image->Width * state.Phase);
        down = static_cast<int>(image->Height * state.Phase);
    }
    const int distance = scroll == kUp || scroll == kDown ? down : across;
    if (distance < 1) return tile.Release();
    switch (scroll) {
        case kUp:
            return RollImageUp(tile.Get(), distance);
        case kLeft:
            return RollImageLeft(tile.Get(), distance);
        case kDown:
            return RollImageDown(tile.Get(), distance);
        default:
            return RollImageRight(tile.Get(), distance);
    }
}

/// What the panel asks for, which can be more than a small tile has.
int ProgressCount(const StyleContext& context, const MuralState&) {
    return GetSpinnerValue(context.Dialog, kFrames);
}

/// Takes the control's selection into the configuration, whether the run succeeded or
/// failed, so that the last one is what is saved.
void KeepElement(const StyleContext& context) {
    if (const LockedMatrixTile tile = LockMatrixTile(MatrixControl(context)); tile)
        MatrixParameter().Value = static_cast<std::uint32_t>(tile->Element);
}

int TestMural(StyleContext* context) {
    const int result = TestStyle<MuralState, SetUpFromPicture, RenderFrame>(context);
    KeepElement(*context);
    return result;
}

int BuildMural(StyleContext* context) {
    const int result = BuildStyle<MuralState, SetUpFromTarget, RenderFrame, StateFrames<MuralState>,
                                  ProgressCount>(context);
    KeepElement(*context);
    return result;
}

}  // namespace

const StyleEntry MuralStyle = {
    .Name = "Mural",
    .ConfigurationName = "Style008",
    .PanelTemplate = 7408,
    .Parameters = parameters,
    .Test = TestMural,
    .Build = BuildMural,
    .BackgroundControl = 0,
};

}  // namespace tess
