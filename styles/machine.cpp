// Machine: a checkerboard of diamonds, each like a turned metal disc, that spin
// against one another as meshed wheels do. Two cones of colour are computed for a
// frame and stood on their corners: the first fills the middle of the tile, and the
// second, cut into quarters and swapped, fills the corners, where on the torus it
// makes the neighbouring diamond.
//
// The loop closes by angle: a rotation divides 360, so the cones turn once.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "raster/shapes.h"
#include "runtime/mathematics.h"
#include "styles/image_rotation.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "styles/supersampled_drawing.h"

namespace tess {

namespace {

enum Control : int {
    kSize = 469,
    kStart = 471,
    kEnd = 473,
    kRotation = 475,
    kOffset = 477,
    kInverse = 479,
};

using enum ParameterKind;

constexpr char kChoices[] =
    "-60;-45;-40;-30;-24;-20;-15;-12;-10;-9;-8;-6;-5;-4;-3;-2;-1;1;2;3;4;5;6;8;9;10;12;15;20;24;30;"
    "40;45;60";

// clang-format off
StyleParameter parameters[] = {
    {"Style012End",      kEnd,      ColorButton, 0x996633},
    {"Style012Inverse",  kInverse,  CheckBox,    0},
    {"Style012Offset",   kOffset,   Spinner,     180},
    {"Style012Size",     kSize,     Spinner,     48},
    {"Style012Start",    kStart,    ColorButton, 0xFFFFFF},
    {"Style012Rotation", kRotation, ChoiceList,  22, kChoices},
};
// clang-format on

constexpr int kRampSteps = 256;

struct MachineState {
    std::int32_t TileWidth, TileHeight;  // equal and even
    std::int32_t Size;                   // side of the square in which a cone is computed
    std::int32_t FrameCount;
    std::int32_t Rotation;  // degrees a frame
    std::int32_t Offset;    // degrees
    std::int32_t InverseSign;
    ColorWord Start, End;
    std::array<platform::OwnedBlock, 4> Masks;  // the corner triangles
    // What all cones of a run share: the direction of each pixel from the centre,
    // in degrees, row by row, and the ramp from Start to End.
    platform::WorkArray<float> Directions;
    std::array<ColorWord, kRampSteps + 1> Ramp;
};

/// Corners 0 to 3: top left, top right, bottom left, bottom right.
ImageHandle MakeCornerMask(const MachineState& state, int corner) {
    const int side = state.TileWidth / 2 * 4;
    const raster::Point triangles[4][4] = {
        {{0, 0}, {side, 0}, {0, side}, {0, 0}},
        {{0, 0}, {side, side}, {side, 0}, {0, 0}},
        {{0, 0}, {side, side}, {0, side}, {0, 0}},
        {{side, 0}, {side, side}, {0, side}, {side, 0}},
    };
    SupersampledDrawing drawing(side, side);
    if (!drawing) return nullptr;
    drawing.Fill(raster::kBlackBrush);
    raster::DrawingContext& context = drawing.Context();
    context.polygon_fill = raster::PolygonFill::Alternate;
    context.brush = raster::kWhiteBrush;
    context.pen = raster::kNullPen;
    raster::Polygon(context, triangles[corner]);
    return drawing.TakeScaled(25);
}

/// In degrees, 0 to 360. Each step is computed in double precision and rounded to
/// single; the quotient alone is single from the start.
float DirectionOf(int dx, int dy) {
    constexpr double kDegrees = 57.29577951308232;
    if (dx == 0) return dy > 0 ? 270.0F : 90.0F;
    const auto angle =
        static_cast<float>(runtime::ArcTangent(static_cast<float>(dy) / static_cast<float>(dx)));
    auto direction = static_cast<float>(angle * kDegrees);
    if (dx > 0) direction = static_cast<float>(direction + 180.0);
    while (direction < 0.0F)
        direction = static_cast<float>(direction + 360.0);
    return direction;
}

bool FillDirections(MachineState& state) {
    const int size = state.Size;
    state.Directions =
        platform::WorkArray<float>(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    if (!state.Directions) return false;
    const int center = static_cast<int>(0.5 * size);
    float* direction = state.Directions.begin();
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x)
            *direction++ = DirectionOf(x - center, y - center);
    }
    return true;
}

ColorWord RampColor(ColorWord start, ColorWord end, int step) {
    const double weight = std::clamp(step * 0.00390625, 0.0, 1.0);
    const auto mix = [weight](int from, int to) {
        return static_cast<int>(to * weight + from * (1.0 - weight));
    };
    return MakeColor(mix(RedOf(start), RedOf(end)), mix(GreenOf(start), GreenOf(end)),
                     mix(BlueOf(start), BlueOf(end)));
}

/// Reads the list's text. What is no number counts as 10.
std::int32_t ReadRotation(platform::WindowHandle dialog) {
    const auto rotation =
        static_cast<std::int32_t>(platform::ControlNumber(dialog, kRotation, true));
    return rotation == 0 ? 10 : rotation;
}

bool StyleSetup(StyleContext& context, MachineState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    state.Size = GetSpinnerValue(dialog, kSize);
    state.TileWidth = 2 * static_cast<int>(std::floor(state.Size / std::sqrt(2.0)));
    state.TileHeight = state.TileWidth;
    state.Rotation = ReadRotation(dialog);
    state.FrameCount = static_cast<std::int32_t>(360 / std::abs(std::int64_t{state.Rotation}));
    state.Offset = GetSpinnerValue(dialog, kOffset);
    state.InverseSign = platform::IsChecked(dialog, kInverse) ? -1 : 1;
    state.Start = platform::ControlNumber(dialog, kStart, false);
    state.End = platform::ControlNumber(dialog, kEnd, false);
    for (int corner = 0; corner < 4; ++corner) {
        platform::OwnedBlock& mask = state.Masks[static_cast<std::size_t>(corner)];
        mask.Reset(MakeCornerMask(state, corner));
        if (!mask) return false;
    }
    for (int step = 0; step <= kRampSteps; ++step) {
        state.Ramp[static_cast<std::size_t>(step)] = RampColor(state.Start, state.End, step);
    }
    return FillDirections(state);
}

/// A cone turned by `angle` degrees, of the ramp from start to end and back. The
/// caller owns it; null on failure.
ImageHandle RenderCone(const MachineState& state, int angle) {
    platform::OwnedBlock cone(NewPackedDib(state.Size, state.Size, nullptr, 24));
    const LockedImage image(cone.Get());
    if (!image) return nullptr;
    int turned = 360 - angle;
    if (turned < 0) turned += 360;
    const float* direction = state.Directions.begin();
    for (int y = 0; y < state.Size; ++y) {
        std::uint8_t* pixel = DibRow(image.Get(), y);
        for (int x = 0; x < state.Size; ++x, pixel += 3) {
            double away = static_cast<double>(*direction++) + turned;
            while (away > 360.0)
                away -= 360.0;
            if (away > 180.0) away = 360.0 - away;
            const int step = static_cast<int>(away / 180.0 * kRampSteps);
            const ColorWord color =
                state.Ramp[static_cast<std::size_t>(std::clamp(step, 0, kRampSteps))];
            pixel[0] = BlueOf(color);
            pixel[1] = GreenOf(color);
            pixel[2] = RedOf(color);
        }
    }
    return cone.Release();
}

/// A cone standing on its corner, of the tile's size.
ImageHandle RenderDiamond(const MachineState& state, int angle) {
    const platform::OwnedBlock cone(RenderCone(state, angle));
    return RotateImage45(cone.Get(), state.TileWidth, state.TileHeight);
}

/// Blends the mask's size of `source` into `destination`, where both are from the
/// given places on. Requires: all inside both.
void BlendBlock(PackedDib* destination, raster::Point to, const PackedDib* source,
                raster::Point from, const PackedDib* mask) {
    for (int j = 0; j < mask->Height; ++j) {
        const std::uint8_t* level = DibRow(mask, j);
        const std::uint8_t* added = DibRow(source, from.y + j) + std::ptrdiff_t{3} * from.x;
        std::uint8_t* target = DibRow(destination, to.y + j) + std::ptrdiff_t{3} * to.x;
        for (int i = 0; i < 3 * mask->Width; ++i) {
            target[i] = static_cast<std::uint8_t>(target[i] * (255 - level[i]) / 255 +
                                                  added[i] * level[i] / 255);
        }
    }
}

ImageHandle RenderFrame(StyleContext&, MachineState& state, int frame) {
    const int turned = frame * state.Rotation;
    platform::OwnedBlock tile(RenderDiamond(state, turned));
    const platform::OwnedBlock other(
        RenderDiamond(state, (state.Offset - turned) * state.InverseSign));
    {
        const LockedImage target(tile.Get());
        const LockedImage source(other.Get());
        if (!target || !source) return nullptr;
        // The second diamond goes half a tile away in both directions, over what the
        // first leaves grey.
        const int half = state.TileWidth / 2;
        for (int corner = 0; corner < 4; ++corner) {
            const raster::Point to{corner % 2 * half, corner / 2 * half};
            const LockedImage mask(state.Masks[static_cast<std::size_t>(corner)].Get());
            if (!mask) return nullptr;
            BlendBlock(target, to, source, {half - to.x, half - to.y}, mask);
        }
    }
    return tile.Release();
}

}  // namespace

const StyleEntry MachineStyle = {
    .Name = "Machine",
    .ConfigurationName = "Style012",
    .PanelTemplate = 7412,
    .Parameters = parameters,
    .Test = TestStyle<MachineState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<MachineState, StyleSetup, RenderFrame>,
    .BackgroundControl = 0,
};

}  // namespace tess
