// Snow: large six-armed snowflakes fall over a flat background and sway from side
// to side. Each has a shape of its own, grown by a branching rule with random
// numbers, and is stamped as a mask.
//
// A flake's six arms are one segment each, turned by 60 degrees. A segment P to Q
// throws two side branches from a point A on it, at an angle to both sides, each a
// fraction of the segment long, and they do the same down to a limit of depth. A
// branching flake draws every segment; a subdividing one also goes into both parts
// of the segment, P to A and A to Q, and draws the last side branches alone, which
// looks feathered.
//
// The loop closes by position, one, two or four falls through the tile, and by
// angle, one sway.
#include <algorithm>
#include <cstdint>
#include <numbers>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "raster/lines.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "styles/fill_colors.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "styles/supersampled_drawing.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 550,
    kOpacity = 552,
    kFrames = 554,
    kDrift = 556,
    kSize = 558,
    kDensity = 560,
    kSeed = 562,
    kWidth = 564,
    kDepth = 566,
    kColor1 = 568,
    kColor2 = 570,
    kColor3 = 572,
    kColor4 = 574,
    kColor5 = 576,
    kEnable2 = 578,
    kEnable3 = 579,
    kEnable4 = 580,
    kEnable5 = 581,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style015Background",  kBackground, ColorButton, 0xFFFFFF},
    {"Style015Density",     kDensity,    Spinner,     36},
    {"Style015Depth",       kDepth,      Spinner,     192},
    {"Style015Drift",       kDrift,      Spinner,     8},
    {"Style015FillColor1",  kColor1,     ColorButton, 0xEAE3DB},
    {"Style015FillColor2",  kColor2,     ColorButton, 0xDDBC9B},
    {"Style015FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style015FillColor4",  kColor4,     ColorButton, 0x95632C},
    {"Style015FillColor5",  kColor5,     ColorButton, 0x7E5429},
    {"Style015FillEnable2", kEnable2,    CheckBox,    1},
    {"Style015FillEnable3", kEnable3,    CheckBox,    1},
    {"Style015FillEnable4", kEnable4,    CheckBox,    1},
    {"Style015FillEnable5", kEnable5,    CheckBox,    1},
    {"Style015FillOpacity", kOpacity,    Spinner,     160},
    {"Style015Frames",      kFrames,     Spinner,     64},
    {"Style015Seed",        kSeed,       Spinner,     10645},
    {"Style015Size",        kSize,       Spinner,     48},
    {"Style015Width",       kWidth,      Spinner,     192},
};
// clang-format on

struct SnowFlake {
    std::int32_t X, Y;  // centre at frame 0, before sway and fall
    std::int32_t Size;  // side of the sprite
    std::int32_t Laps;  // falls through the tile a loop
    std::int32_t Opacity;
    float SwayAngle;  // degrees; advances from frame to frame
    ColorWord Color;
    ImageHandle Sprite;  // grey mask, owned
};

enum class FlakeKind { Branching, Subdividing };

/// What makes one flake's shape.
struct FlakeRecipe {
    FlakeKind Kind;
    std::int32_t DepthLimit;
    std::int32_t Angle;  // degrees between a side branch and its parent
    float Position;      // where on a segment its branches spring, as a fraction
    float Length;        // of a branch, as a fraction of its parent
    ColorWord PenColor;
};

struct FlakePoint {
    float x, y;
};

/// The flakes of a run, with their sprites.
class FlakeList {
public:
    FlakeList() = default;
    FlakeList(const FlakeList&) = delete;
    FlakeList& operator=(const FlakeList&) = delete;
    ~FlakeList() {
        for (const SnowFlake& flake : flakes_)
            platform::FreeBlock(flake.Sprite);
    }

    [[nodiscard]] bool Allocate(int count) {
        flakes_ = platform::WorkArray<SnowFlake>(static_cast<std::size_t>(count));
        return static_cast<bool>(flakes_);
    }
    SnowFlake* begin() { return flakes_.begin(); }
    SnowFlake* end() { return flakes_.end(); }

private:
    platform::WorkArray<SnowFlake> flakes_;
};

struct SnowState {
    std::int32_t TileWidth, TileHeight;
    std::int32_t FrameCount;
    std::int32_t Size, Drift;
    ColorWord Background;
    FillColorList FillColors;
    FlakeList Flakes;
    std::int32_t FlakeCount;
};

/// A fraction for a generator of 31 bits. From draws of 15 bits it stays within a
/// hundred-thousandth of `least`, and this is how the shapes are wanted.
float DrawFraction(float range, float least) {
    return static_cast<float>(runtime::rand()) * 4.656613e-10F * range + least;
}

int DrawDepthLimit(FlakeKind kind, int size) {
    const double side = static_cast<float>(size);
    if (kind == FlakeKind::Branching) {
        return runtime::rand() % (4 - static_cast<int>(side / -50.0)) +
               static_cast<int>(runtime::Power(side, 0.2));
    }
    return runtime::rand() % (3 - static_cast<int>(side / -900.0)) +
           static_cast<int>(runtime::Power(side, 0.17));
}

/// Keeps branches from growing too long or too short together. With the fractions
/// that the draws give, the length always doubles and the rest never happens.
void BalanceRecipe(FlakeRecipe& recipe) {
    if (recipe.Position * recipe.Length > 0.36F) {
        (recipe.Kind == FlakeKind::Subdividing ? recipe.Length : recipe.Position) *= 0.5F;
    }
    if (recipe.Position * recipe.Length < 0.1F) recipe.Length *= 2.0F;
}

/// Makes the six draws of a flake's shape.
FlakeRecipe DrawRecipe(int size) {
    FlakeRecipe recipe{};
    recipe.Kind = runtime::rand() % 2 == 0 ? FlakeKind::Subdividing : FlakeKind::Branching;
    runtime::SkipDraw();
    recipe.Angle = runtime::rand() % 150 + 15;
    recipe.Position = DrawFraction(0.6F, 0.2F);
    recipe.Length = DrawFraction(0.4F, 0.3F);
    recipe.PenColor = 0xFFFFFF;
    BalanceRecipe(recipe);
    recipe.DepthLimit = DrawDepthLimit(recipe.Kind, size);
    return recipe;
}

/// The point `fraction` of the way from `from` on along `end` - `start`.
FlakePoint Along(FlakePoint from, FlakePoint start, FlakePoint end, float fraction) {
    return {from.x + fraction * (end.x - start.x), from.y + fraction * (end.y - start.y)};
}

/// The end of branch `center` to `end`, turned round `center`.
FlakePoint Turned(FlakePoint center, FlakePoint end, float radians) {
    const float c = static_cast<float>(runtime::Cosine(radians));
    const float s = static_cast<float>(runtime::Sine(radians));
    const float dx = end.x - center.x;
    const float dy = end.y - center.y;
    return {c * dx - s * dy + center.x, c * dy + s * dx + center.y};
}

/// Draws on a canvas of twice the points' scale, each coordinate cut before it is
/// doubled.
void DrawSegment(raster::DrawingContext& context, FlakePoint from, FlakePoint to,
                 const FlakeRecipe& recipe) {
    constexpr int kPenWidth = 2;
    context.pen = raster::SolidPen(kPenWidth, recipe.PenColor);
    raster::MoveToEx(context, static_cast<int>(from.x) * 2, static_cast<int>(from.y) * 2);
    raster::LineTo(context, static_cast<int>(to.x) * 2, static_cast<int>(to.y) * 2);
}

void DrawFlakeBranch(raster::DrawingContext& context, FlakePoint start, FlakePoint end, int depth,
                     const FlakeRecipe& recipe) {
    const bool subdivides = recipe.Kind == FlakeKind::Subdividing;
    if (!subdivides) DrawSegment(context, start, end, recipe);
    const FlakePoint root = Along(start, start, end, recipe.Position);
    const FlakePoint straight = Along(root, start, end, recipe.Length);
    const float turn = static_cast<float>(recipe.Angle) * 3.1415927F / 180.0F;
    const FlakePoint left = Turned(root, straight, turn);
    const FlakePoint right = Turned(root, straight, -turn);
    if (depth >= recipe.DepthLimit) {
        if (subdivides) {
            DrawSegment(context, root, left, recipe);
            DrawSegment(context, root, right, recipe);
        }
        return;
    }
    DrawFlakeBranch(context, root, left, depth + 1, recipe);
    DrawFlakeBranch(context, root, right, depth + 1, recipe);
    if (subdivides) {
        DrawFlakeBranch(context, start, root, depth + 1, recipe);
        DrawFlakeBranch(context, root, end, depth + 1, recipe);
    }
}

void DrawArms(raster::DrawingContext& context, int size, const FlakeRecipe& recipe) {
    const float center = static_cast<float>(size / 2);
    for (int degrees = 0; degrees < 360; degrees += 60) {
        const double radians = static_cast<float>(degrees * std::numbers::pi / 180.0);
        const float s = static_cast<float>(runtime::Sine(radians));
        const float c = static_cast<float>(runtime::Cosine(radians));
        DrawFlakeBranch(context, {center, center}, {center + center * s, center - center * c}, 0,
                        recipe);
    }
}

/// Draws a flake's shape at random and returns its mask, size x size, or null. A
/// scaler that fails leaves the large picture.
ImageHandle MakeFlake(int size) {
    const FlakeRecipe recipe = DrawRecipe(size);
    SupersampledDrawing drawing(size * 2, size * 2);
    if (!drawing) return nullptr;
    drawing.Fill(raster::kBlackBrush);
    DrawArms(drawing.Context(), size, recipe);
    return drawing.TakeShrunk(50).Picture.Release();
}

/// Makes the flake with number `index`. Returns false without memory.
bool DrawFlake(const SnowState& state, int index, int opacity, int* last_color, SnowFlake& flake) {
    constexpr int kLaps[] = {1, 2, 4};
    flake.X = runtime::rand() % state.TileWidth;
    flake.Y = runtime::rand() % state.TileHeight;
    runtime::SkipDraw();
    flake.Size = state.Size - runtime::rand() % std::max(state.Size / 9, 1);
    flake.Laps = kLaps[index % 3];
    flake.SwayAngle = static_cast<float>(runtime::rand() % 360);
    flake.Opacity = opacity;
    flake.Color = state.FillColors.Colors[PickFillColor(state.FillColors.Count, last_color)];
    flake.Sprite = MakeFlake(flake.Size);
    return flake.Sprite != nullptr;
}

bool StyleSetup(StyleContext& context, SnowState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    state.TileWidth = GetSpinnerValue(dialog, kWidth);
    state.TileHeight = GetSpinnerValue(dialog, kDepth);
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.Size = GetSpinnerValue(dialog, kSize);
    state.Drift = GetSpinnerValue(dialog, kDrift);
    state.Background = platform::ControlNumber(dialog, kBackground, false);
    state.FlakeCount = GetSpinnerValue(dialog, kDensity);
    const int opacity = GetSpinnerValue(dialog, kOpacity);
    const int seed = GetSpinnerValue(dialog, kSeed);
    state.FillColors = ReadFillColors(dialog, {kColor1, kColor2, kColor3, kColor4, kColor5},
                                      {kEnable2, kEnable3, kEnable4, kEnable5});
    runtime::srand(static_cast<unsigned>(seed));
    if (!state.Flakes.Allocate(state.FlakeCount)) return false;
    int last_color = -1;
    int index = 0;
    for (SnowFlake& flake : state.Flakes) {
        if (!DrawFlake(state, index++, opacity, &last_color, flake)) return false;
    }
    return true;
}

/// Stamps one flake where it is in this frame. Returns false without memory.
/// `fall` rows are cut to a whole number before the laps multiply them, so fast
/// flakes fall in steps.
bool StampFlake(const SnowState& state, SnowFlake& flake, PackedDib* tile, int sway, int fall) {
    const double s = runtime::Sine(static_cast<double>(flake.SwayAngle) * std::numbers::pi / 180.0);
    const int x = flake.X - static_cast<int>(s * sway);
    const int y = fall * flake.Laps + flake.Y - state.TileHeight + 1;
    const LockedImage sprite(flake.Sprite);
    if (!sprite) return false;
    WrapStampMask(tile, sprite, x - flake.Size / 2, y - flake.Size / 2, flake.Color, flake.Opacity);
    const double step = 1.0 / static_cast<double>(static_cast<float>(state.FrameCount)) * 360.0;
    flake.SwayAngle = static_cast<float>(step + static_cast<double>(flake.SwayAngle));
    return true;
}

/// Frames must be rendered in order and each once: the flakes sway on.
ImageHandle RenderFrame(StyleContext&, SnowState& state, int frame) {
    platform::OwnedBlock image(
        NewSolidImage({0, 0, state.TileWidth, state.TileHeight}, state.Background));
    {
        const LockedImage tile(image.Get());
        if (!tile) return nullptr;
        const auto width = static_cast<float>(state.TileWidth);
        const auto height = static_cast<float>(state.TileHeight);
        const int sway = static_cast<int>(static_cast<double>(static_cast<float>(state.Drift)) /
                                          -100.0 * static_cast<double>(width));
        const int fall = static_cast<int>(static_cast<float>(frame) /
                                          static_cast<float>(state.FrameCount) * height);
        for (SnowFlake& flake : state.Flakes) {
            if (!StampFlake(state, flake, tile, sway, fall)) return nullptr;
        }
    }
    return image.Release();
}

}  // namespace

const StyleEntry SnowStyle = {
    .Name = "Snow",
    .ConfigurationName = "Style015",
    .PanelTemplate = 7415,
    .Parameters = parameters,
    .Test = TestStyle<SnowState, StyleSetup, RenderFrame, SampleDraft>,
    .Build = BuildStyle<SnowState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
