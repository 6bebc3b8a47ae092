// Phasers on Stun: thin beams of light flash across the tile at random moments,
// each at its brightest in one frame and fading out over the next three. A
// diagonal beam is continued across the tile's corner.
//
// The loop closes by a timetable: the moments of firing are frame numbers taken
// modulo the frame count.
#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "raster/lines.h"
#include "runtime/random.h"
#include "styles/fill_colors.h"
#include "styles/sprite_store.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "styles/supersampled_drawing.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 403,
    kFrames = 405,
    kPower = 407,
    kDensity = 409,
    kSeed = 411,
    kWidth = 413,
    kDepth = 415,
    kColor1 = 417,
    kColor2 = 419,
    kColor3 = 421,
    kColor4 = 423,
    kColor5 = 425,
    kEnable2 = 427,
    kEnable3 = 428,
    kEnable4 = 429,
    kEnable5 = 430,
    kLineEast2South = 431,
    kLineWest2South = 432,
    kLineHorizontal = 433,
    kLineVertical = 434,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style010Background",     kBackground,     ColorButton, 0x000000},
    {"Style010Density",        kDensity,        Spinner,     256},
    {"Style010Depth",          kDepth,          Spinner,     128},
    {"Style010FillColor1",     kColor1,         ColorButton, 0x0000FF},
    {"Style010FillColor2",     kColor2,         ColorButton, 0x00FF00},
    {"Style010FillColor3",     kColor3,         ColorButton, 0xFF0000},
    {"Style010FillColor4",     kColor4,         ColorButton, 0xFF00FF},
    {"Style010FillColor5",     kColor5,         ColorButton, 0x00FFFF},
    {"Style010FillEnable2",    kEnable2,        CheckBox,    1},
    {"Style010FillEnable3",    kEnable3,        CheckBox,    1},
    {"Style010FillEnable4",    kEnable4,        CheckBox,    1},
    {"Style010FillEnable5",    kEnable5,        CheckBox,    1},
    {"Style010Frames",         kFrames,         Spinner,     64},
    {"Style010LineEast2South", kLineEast2South, CheckBox,    1},
    {"Style010LineHorizontal", kLineHorizontal, CheckBox,    1},
    {"Style010LineVertical",   kLineVertical,   CheckBox,    1},
    {"Style010LineWest2South", kLineWest2South, CheckBox,    1},
    {"Style010Power",          kPower,          Spinner,     5},
    {"Style010Seed",           kSeed,           Spinner,     10632},
    {"Style010Width",          kWidth,          Spinner,     192},
};
// clang-format on

enum BeamKind : std::int32_t { kEast2South, kWest2South, kHorizontal, kVertical };

constexpr std::array<std::uint8_t, 4> kLevels = {255, 192, 128, 64};

/// One flash of one beam; a beam has one for each of kLevels.
struct PhaserEntry {
    std::int32_t X1, Y1, X2, Y2;  // first stroke, in tile pixels
    std::int32_t X3, Y3, X4, Y4;  // second stroke
    std::int32_t TwoStrokes;      // nonzero when the second is in use
    std::int32_t Kind;
    ColorWord Color;
    std::int32_t Frame;  // the one frame in which this entry is drawn
    std::int32_t Power;
};

struct PhaserState {
    std::int32_t Width, Depth;
    std::int32_t FrameCount;
    FillColorList FillColors;
    platform::WorkArray<PhaserEntry> Entries;
    std::array<std::int32_t, 4> Kinds;
    std::int32_t KindCount;
    SpriteStore Masks;
};

void ReadKinds(platform::WindowHandle dialog, PhaserState& state) {
    constexpr int kBoxes[] = {kLineEast2South, kLineWest2South, kLineHorizontal, kLineVertical};
    for (std::int32_t kind = kEast2South; kind <= kVertical; ++kind) {
        if (platform::IsChecked(dialog, kBoxes[kind])) {
            state.Kinds[static_cast<std::size_t>(state.KindCount++)] = kind;
        }
    }
    // Without any, the list is its first entry, which is kEast2South.
    if (state.KindCount == 0) state.KindCount = 1;
}

/// Draws where the beam stands; the outer tenth of each side is left out. The two
/// strokes of a diagonal are one line, cut at the tile's edge and resumed from the
/// opposite one.
void PlaceBeam(const PhaserState& state, PhaserEntry& beam) {
    const int width = state.Width;
    const int depth = state.Depth;
    if (beam.Kind == kVertical) {
        const int x = width / 10 + runtime::rand() % (width * 8 / 10);
        beam.X1 = beam.X2 = x;
        beam.Y2 = depth;
        return;
    }
    const int y = depth / 10 + runtime::rand() % (depth * 8 / 10);
    beam.Y1 = y;
    if (beam.Kind == kHorizontal) {
        beam.X2 = width;
        beam.Y2 = y;
        return;
    }
    const int crossing = static_cast<int>(static_cast<double>(y) / depth * width);
    const bool east = beam.Kind == kEast2South;
    beam.X1 = east ? width : 0;
    beam.X2 = beam.X4 = east ? crossing : width - crossing - 1;
    beam.Y2 = depth;
    beam.X3 = width - beam.X1;
    beam.Y3 = y;
    beam.TwoStrokes = 1;
}

bool StyleSetup(StyleContext& context, PhaserState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    state.Width = GetSpinnerValue(dialog, kWidth);
    state.Depth = GetSpinnerValue(dialog, kDepth);
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    const int density = GetSpinnerValue(dialog, kDensity);
    const int power = GetSpinnerValue(dialog, kPower);
    runtime::srand(static_cast<unsigned>(GetSpinnerValue(dialog, kSeed)));
    state.FillColors = ReadFillColors(dialog, {kColor1, kColor2, kColor3, kColor4, kColor5},
                                      {kEnable2, kEnable3, kEnable4, kEnable5});
    state.Entries =
        platform::WorkArray<PhaserEntry>(kLevels.size() * static_cast<std::size_t>(density));
    if (!state.Entries) return false;
    ReadKinds(dialog, state);

    PhaserEntry* next = state.Entries.begin();
    for (int i = 0; i < density; ++i) {
        PhaserEntry beam{};
        beam.Kind = state.Kinds[static_cast<std::size_t>(runtime::rand() % state.KindCount)];
        PlaceBeam(state, beam);
        beam.Color = state.FillColors.Colors[runtime::rand() % state.FillColors.Count];
        beam.Power = power;
        const int first_frame = runtime::rand() % state.FrameCount;
        for (int flash = 0; flash < static_cast<int>(kLevels.size()); ++flash) {
            beam.Frame = (first_frame + flash) % state.FrameCount;
            *next++ = beam;
        }
    }
    return true;
}

/// The part of the tile that a beam can reach. The scaler weighs three pixels to
/// either side; where an upright or level beam's part ends before the tile does,
/// as many again are left dark, so that it is scaled as it would be in the tile.
raster::Rect BeamBox(const PhaserState& state, const PhaserEntry& beam) {
    const int reach = beam.Power + 8;
    raster::Rect box{0, 0, state.Width, state.Depth};
    if (beam.Kind == kHorizontal) {
        box.top = std::max(beam.Y1 - reach, 0);
        box.bottom = std::min(beam.Y1 + reach, state.Depth);
    } else if (beam.Kind == kVertical) {
        box.left = std::max(beam.X1 - reach, 0);
        box.right = std::min(beam.X1 + reach, state.Width);
    }
    return box;
}

/// Draws a stroke at twice the size. A diagonal one is lengthened by a whole tile
/// at each end, along its own slope, so that it has no visible end.
void DrawStroke(raster::DrawingContext& context, const PhaserState& state, std::int32_t kind,
                raster::Point from, raster::Point to) {
    if (kind == kEast2South || kind == kWest2South) {
        const int along = kind == kEast2South ? -state.Width : state.Width;
        from = {from.x - along, from.y - state.Depth};
        to = {to.x + along, to.y + state.Depth};
    }
    raster::MoveToEx(context, 2 * from.x, 2 * from.y);
    raster::LineTo(context, 2 * to.x, 2 * to.y);
}

/// A 32-bit picture that has kLevels as its channels where `drawn` is white.
ImageHandle SpreadLevels(ImageHandle drawn) {
    const LockedImage from(drawn);
    if (!from) return nullptr;
    platform::OwnedBlock result(NewPackedDib(from->Width, from->Height, nullptr, 32));
    const LockedImage image(result.Get());
    if (!image) return nullptr;
    const auto lit = std::bit_cast<std::uint32_t>(kLevels);
    for (int y = 0; y < image->Height; ++y) {
        const std::uint8_t* white = DibRow(from.Get(), y);
        std::uint8_t* pixel = DibRow(image.Get(), y);
        for (int x = 0; x < image->Width; ++x, white += 3, pixel += sizeof lit) {
            const std::uint32_t value = *white != 0 ? lit : 0;
            std::memcpy(pixel, &value, sizeof value);
        }
    }
    return result.Release();
}

/// A row of a beam's masks without the dark pixels at either end. A block of masks
/// is one for each row of the beam's box, then the rows' pixels, kLevels each.
struct MaskRow {
    std::int32_t Left, Count;
    std::uint32_t First;  // pixel of the block
};

/// Returns a block with what `picture` has beside darkness, or null.
platform::MemoryHandle TrimMasks(ImageHandle picture) {
    const LockedImage image(picture);
    if (!image) return nullptr;
    const auto height = static_cast<std::size_t>(image->Height);
    platform::WorkArray<MaskRow> rows(height);
    if (!rows) return nullptr;
    constexpr std::size_t kPixelBytes = kLevels.size();
    const auto is_dark = [](const std::uint8_t* pixel) {
        return std::all_of(pixel, pixel + kPixelBytes, [](int level) { return level == 0; });
    };
    std::uint32_t count = 0;
    for (std::size_t y = 0; y < height; ++y) {
        const std::uint8_t* pixels = DibRow(image.Get(), static_cast<int>(y));
        int left = 0;
        int right = image->Width;
        while (left < right && is_dark(pixels + kPixelBytes * static_cast<std::size_t>(left)))
            ++left;
        while (left < right && is_dark(pixels + kPixelBytes * static_cast<std::size_t>(right - 1)))
            --right;
        rows[y] = {left, right - left, count};
        count += static_cast<std::uint32_t>(right - left);
    }
    platform::OwnedBlock result(
        platform::AllocateBlock(height * sizeof(MaskRow) + count * kPixelBytes));
    const platform::LockedBlock<std::uint8_t> bytes(result.Get());
    if (!bytes) return nullptr;
    std::memcpy(bytes, rows.data(), height * sizeof(MaskRow));
    std::uint8_t* target = bytes.Get() + height * sizeof(MaskRow);
    for (std::size_t y = 0; y < height; ++y) {
        const std::size_t length = kPixelBytes * static_cast<std::size_t>(rows[y].Count);
        std::memcpy(target,
                    DibRow(image.Get(), static_cast<int>(y)) +
                        kPixelBytes * static_cast<std::size_t>(rows[y].Left),
                    length);
        target += length;
    }
    return result.Release();
}

/// The masks of a beam's four flashes, drawn once as the channels of one 32-bit
/// picture of its box's size: the scaler treats each channel by itself. The caller
/// owns the block; null on failure.
platform::MemoryHandle RenderBeamMask(const PhaserState& state, const PhaserEntry& beam,
                                      const raster::Rect& box) {
    SupersampledDrawing drawing(2 * (box.right - box.left), 2 * (box.bottom - box.top));
    if (!drawing) return nullptr;
    drawing.Fill(raster::kBlackBrush);
    raster::DrawingContext& context = drawing.Context();
    context.pen = raster::SolidPen(2 * beam.Power, 0xFFFFFF);
    const auto placed = [&box](int x, int y) { return raster::Point{x - box.left, y - box.top}; };
    DrawStroke(context, state, beam.Kind, placed(beam.X1, beam.Y1), placed(beam.X2, beam.Y2));
    if (beam.TwoStrokes != 0) {
        DrawStroke(context, state, beam.Kind, placed(beam.X3, beam.Y3), placed(beam.X4, beam.Y4));
    }
    platform::OwnedBlock picture(drawing.TakeLarge());
    picture.Reset(SpreadLevels(picture.Get()));
    picture.Reset(ScaleImagePercent(picture.Get(), 50, 50));
    return TrimMasks(picture.Get());
}

/// The masks of the beam, owned by the state, or null. Its kind and place tell
/// what they are, for the power is the same for all.
platform::MemoryHandle FindMasks(PhaserState& state, const PhaserEntry& beam,
                                 const raster::Rect& box) {
    const int place = beam.Kind == kVertical ? beam.X1 : beam.Y1;
    return state.Masks.Find(static_cast<std::uint64_t>(beam.Kind << 16 | place),
                            [&] { return RenderBeamMask(state, beam, box); });
}

/// Blends the color into the tile, with one channel of a beam's masks as weights.
void BlendFlash(PackedDib* tile, const raster::Rect& box, const MaskRow* rows, std::size_t channel,
                ColorWord color) {
    const std::uint8_t colors[3] = {BlueOf(color), GreenOf(color), RedOf(color)};
    const auto* pixels = reinterpret_cast<const std::uint8_t*>(rows + (box.bottom - box.top));
    for (int y = box.top; y < box.bottom; ++y, ++rows) {
        const std::uint8_t* level = pixels + kLevels.size() * rows->First + channel;
        std::uint8_t* target = DibRow(tile, y) + std::ptrdiff_t{3} * (box.left + rows->Left);
        for (int x = 0; x < rows->Count; ++x, level += kLevels.size(), target += 3) {
            for (int i = 0; i < 3; ++i) {
                target[i] = static_cast<std::uint8_t>(target[i] * (255 - *level) / 255 +
                                                      colors[i] * *level / 255);
            }
        }
    }
}

ImageHandle RenderFrame(StyleContext& context, PhaserState& state, int frame) {
    platform::OwnedBlock tile(
        NewSolidImage({0, 0, state.Width, state.Depth},
                      platform::ControlNumber(context.Dialog, kBackground, false)));
    {
        const LockedImage picture(tile.Get());
        if (!picture) return nullptr;
        for (std::size_t i = 0; i < state.Entries.size(); ++i) {
            const PhaserEntry& entry = state.Entries[i];
            if (entry.Frame != frame) continue;
            const raster::Rect box = BeamBox(state, entry);
            const platform::LockedBlock<const MaskRow> masks(FindMasks(state, entry, box));
            if (!masks) return nullptr;
            BlendFlash(picture, box, masks, i % kLevels.size(), entry.Color);
        }
    }
    return tile.Release();
}

}  // namespace

const StyleEntry PhasersOnStunStyle = {
    .Name = "Phasers on Stun",
    .ConfigurationName = "Style010",
    .PanelTemplate = 7410,
    .Parameters = parameters,
    .Test = TestStyle<PhaserState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<PhaserState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
