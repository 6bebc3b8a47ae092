// Gumdrops: small bevelled sweets swell from nothing and shrink back, and drift on
// little circular paths, each with a shape and colour of its own.
//
// The loop closes by angle, one turn of each drop's path, and nearly so by size: a
// drop's life ends where its size is that of the start, but for the one step that
// it loses at the turning point. The corners of a Biscuit follow its life itself,
// and may change at the seam.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <numbers>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "raster/shapes.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "styles/sprite_store.h"
#include "styles/style_run.h"
#include "styles/styles.h"
#include "styles/supersampled_drawing.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

enum Control : int {
    kBackground = 322,
    kFrames = 324,
    kColor1 = 326,
    kColor2 = 328,
    kColor3 = 330,
    kColor4 = 332,
    kColor5 = 334,
    kEnable2 = 336,
    kEnable3 = 337,
    kEnable4 = 338,
    kEnable5 = 339,
    kStyle1 = 340,
    kStyle2 = 341,
    kStyle3 = 342,
    kStyle4 = 343,
    kStyle5 = 344,
    kWidth = 345,
    kDepth = 347,
    kSeed = 349,
    kDensity = 351,
    kBevel = 353,
    kSize = 354,
    kDrift = 356,
};

using enum ParameterKind;

// clang-format off
StyleParameter parameters[] = {
    {"Style007Background",  kBackground, ColorButton, 0x462F17},
    {"Style007BevelEnable", kBevel,      CheckBox,    1},
    {"Style007Density",     kDensity,    Spinner,     72},
    {"Style007Depth",       kDepth,      Spinner,     128},
    {"Style007Drift",       kDrift,      Spinner,     16},
    {"Style007FillColor1",  kColor1,     ColorButton, 0x7E5429},
    {"Style007FillColor2",  kColor2,     ColorButton, 0x95632C},
    {"Style007FillColor3",  kColor3,     ColorButton, 0xC08243},
    {"Style007FillColor4",  kColor4,     ColorButton, 0xDDBC9B},
    {"Style007FillColor5",  kColor5,     ColorButton, 0xEAE3DB},
    {"Style007FillEnable2", kEnable2,    CheckBox,    1},
    {"Style007FillEnable3", kEnable3,    CheckBox,    1},
    {"Style007FillEnable4", kEnable4,    CheckBox,    1},
    {"Style007FillEnable5", kEnable5,    CheckBox,    1},
    {"Style007Frames",      kFrames,     Spinner,     88},
    {"Style007Seed",        kSeed,       Spinner,     12026},
    {"Style007Size",        kSize,       Spinner,     32},
    {"Style007Style1",      kStyle1,     ChoiceList,  1, "Circle;Diamond;Square;Biscuit"},
    {"Style007Style2",      kStyle2,     ChoiceList,  1, "Circle;Diamond;Square;Biscuit"},
    {"Style007Style3",      kStyle3,     ChoiceList,  1, "Circle;Diamond;Square;Biscuit"},
    {"Style007Style4",      kStyle4,     ChoiceList,  1, "Circle;Diamond;Square;Biscuit"},
    {"Style007Style5",      kStyle5,     ChoiceList,  1, "Circle;Diamond;Square;Biscuit"},
    {"Style007Width",       kWidth,      Spinner,     255},
};
// clang-format on

/// In the order of the lists. Indexes up to 5 are let through, and draw nothing.
enum DropShape : std::int32_t { kCircle, kDiamond, kSquare, kBiscuit, kLastShape = 5 };

struct GumdropRecord {
    std::int32_t XPercent, YPercent;  // of the tile, 0 to 99
    std::int32_t Bevel;
    ColorWord Color;
    std::int32_t Opacity;
    std::int32_t Shape;
    double Life;      // place in the swelling, 0 to 100
    double Orbit;     // percent of a turn
    double LifeStep;  // of a frame, rising or falling
    std::int32_t Spin;
};

struct GumdropState {
    std::int32_t Width, Depth;
    std::int32_t FrameCount;
    double StepPercent;  // of the loop, for a frame
    ColorWord Background;
    std::array<ColorWord, 5> FillColors;
    std::int32_t FillColorCount;
    std::array<std::int32_t, 5> Shapes;  // one for each colour
    platform::WorkArray<GumdropRecord> Drops;
    std::int32_t DropCount;
    SpriteStore Sprites;
};

struct SpriteShape {
    int width, height;
    std::int32_t shape;
    int grey;
    bool bevel;
    int percent;  // of a Biscuit's life
};

void ReadFills(platform::WindowHandle dialog, GumdropState& state) {
    constexpr int kColors[] = {kColor1, kColor2, kColor3, kColor4, kColor5};
    constexpr int kEnables[] = {0, kEnable2, kEnable3, kEnable4, kEnable5};
    constexpr int kStyles[] = {kStyle1, kStyle2, kStyle3, kStyle4, kStyle5};
    for (std::size_t i = 0; i < std::size(kColors); ++i) {
        if (i > 0 && !platform::IsChecked(dialog, kEnables[i])) continue;
        const auto fill = static_cast<std::size_t>(state.FillColorCount++);
        state.FillColors[fill] = platform::ControlNumber(dialog, kColors[i], false);
        state.Shapes[fill] =
            std::clamp<std::int32_t>(platform::Selection(dialog, kStyles[i]), kCircle, kLastShape);
    }
}

bool StyleSetup(StyleContext& context, GumdropState& state) {
    const platform::WindowHandle dialog = context.Dialog;
    runtime::srand(static_cast<unsigned>(GetSpinnerValue(dialog, kSeed)));
    state.Width = GetSpinnerValue(dialog, kWidth);
    state.Depth = GetSpinnerValue(dialog, kDepth);
    state.FrameCount = GetSpinnerValue(dialog, kFrames);
    state.StepPercent = 100.0 / state.FrameCount;
    state.Background = platform::ControlNumber(dialog, kBackground, false);
    ReadFills(dialog, state);
    state.DropCount = GetSpinnerValue(dialog, kDensity);
    state.Drops = platform::WorkArray<GumdropRecord>(static_cast<std::size_t>(state.DropCount));
    if (!state.Drops) return false;
    const std::int32_t bevel = platform::IsChecked(dialog, kBevel) ? 1 : 0;
    for (GumdropRecord& drop : state.Drops) {
        const auto fill = static_cast<std::size_t>(runtime::rand() % state.FillColorCount);
        drop.XPercent = runtime::rand() % 100;
        drop.YPercent = runtime::rand() % 100;
        drop.Life = runtime::rand() % 100;
        drop.LifeStep = runtime::rand() % 2 == 1 ? state.StepPercent : -state.StepPercent;
        drop.Spin = runtime::rand() % 2;
        drop.Color = state.FillColors[fill];
        drop.Shape = state.Shapes[fill];
        drop.Bevel = bevel;
        drop.Opacity = 255;
    }
    return true;
}

/// Draws the shape in the box, which has `inset` pixels round it.
void DrawDrop(raster::DrawingContext& context, const SpriteShape& sprite, int inset, int grey) {
    const int right = 4 * sprite.width - inset;
    const int bottom = 4 * sprite.height - inset;
    const int half_width = (right - inset) / 2;
    const int half_height = (bottom - inset) / 2;
    context.brush = raster::SolidBrush(MakeColor(grey, grey, grey));
    if (sprite.shape == kCircle) {
        raster::Ellipse(context, inset, inset, right, bottom);
    } else if (sprite.shape == kDiamond) {
        // The half extents serve as coordinates, without the inset, so that inner
        // rings slide up and to the left of the outer ones. So it is meant.
        const raster::Point points[] = {{inset, half_height},
                                        {half_width, inset},
                                        {right, half_height},
                                        {half_width, bottom},
                                        {inset, half_height}};
        raster::Polygon(context, points);
    } else if (sprite.shape == kSquare) {
        raster::Rectangle(context, inset, inset, right, bottom);
    } else if (sprite.shape == kBiscuit) {
        const double roundness = 1.0 - sprite.percent / 100.0;
        raster::RoundRect(context, inset, inset, right, bottom,
                          static_cast<int>(half_width * roundness + 0.5),
                          static_cast<int>(half_height * roundness + 0.5));
    }
}

/// The level of ring `i` of `count`: a bright ring between rim and centre.
int BevelGrey(int grey, int i, int count) {
    const double part = static_cast<double>(i) / count;
    const double raised = runtime::Cosine(part * 90.0 * std::numbers::pi / 180.0) *
                          (static_cast<double>(i + 1) / count) * 0.9;
    return std::clamp(static_cast<int>(grey * raised) + grey, 0, 255);
}

/// The mask of a drop, which the caller owns, or null.
ImageHandle GumdropSprite(const SpriteShape& sprite) {
    SupersampledDrawing drawing(4 * sprite.width, 4 * sprite.height);
    if (!drawing) return nullptr;
    drawing.Fill(raster::kBlackBrush);
    drawing.Context().pen = raster::kNullPen;
    drawing.Context().polygon_fill = raster::PolygonFill::Alternate;
    if (sprite.bevel) {
        const int rings = 4 * sprite.width / 2;
        for (int i = 0; i < rings; ++i)
            DrawDrop(drawing.Context(), sprite, i, BevelGrey(sprite.grey, i, rings));
    } else {
        DrawDrop(drawing.Context(), sprite, 0, sprite.grey);
    }
    return drawing.TakeScaled(25);
}

ImageHandle FindSprite(GumdropState& state, const SpriteShape& sprite) {
    const int life = sprite.shape == kBiscuit ? sprite.percent : 0;
    const std::uint64_t key =
        static_cast<std::uint64_t>(sprite.width << 8 | sprite.grey) << 16 |
        static_cast<std::uint64_t>(static_cast<int>(sprite.shape) << 8 | life);
    return state.Sprites.Find(key, [&] { return GumdropSprite(sprite); });
}

/// How far the orbit takes a drop from its place.
raster::Point OrbitOffset(const GumdropRecord& drop, int radius) {
    constexpr double kRadian = 0.017453292519943295;
    const int turned = static_cast<int>(drop.Orbit * 360.0 / 100.0);
    const double angle = (drop.Spin == 1 ? 360 - turned : turned) * kRadian;
    return {static_cast<int>(-radius * runtime::Cosine(angle)),
            static_cast<int>(-radius * runtime::Sine(angle))};
}

/// What a frame reads from the panel, and the shorter side of the tile.
struct FrameSettings {
    int size, drift, shorter;
};

/// Stamps one drop where it is in this frame. Returns false without memory.
bool StampDrop(GumdropState& state, const GumdropRecord& drop, const FrameSettings& settings,
               PackedDib* picture) {
    const double swelling = drop.Life <= 50.0 ? drop.Life : 50.0 - (drop.Life - 50.0);
    const int diameter =
        static_cast<int>(2 * settings.shorter * swelling / 100.0) * settings.size / 100;
    if (diameter <= 1) return true;
    const int grey = static_cast<int>(swelling * 510.0 / 100.0) & 255;
    const LockedImage sprite(FindSprite(state, {diameter, diameter, drop.Shape, grey,
                                                drop.Bevel != 0, static_cast<int>(drop.Life)}));
    if (!sprite) return false;
    int x = static_cast<int>(drop.XPercent / 100.0 * state.Width);
    int y = static_cast<int>(drop.YPercent / 100.0 * state.Depth);
    if (settings.drift > 0) {
        const raster::Point offset = OrbitOffset(drop, settings.shorter * settings.drift / 100);
        x += offset.x;
        y += offset.y;
    }
    WrapStampMask(picture, sprite, x - sprite->Width / 2, y - sprite->Height / 2, drop.Color,
                  drop.Opacity);
    return true;
}

/// The turn at either end of a life takes the step back that led there.
void Advance(GumdropRecord& drop, double step_percent) {
    drop.Life += drop.LifeStep;
    if (drop.Life <= 0.0 || drop.Life >= 100.0) {
        drop.LifeStep = -drop.LifeStep;
        drop.Life += drop.LifeStep;
    }
    drop.Orbit += step_percent;
}

/// Frames must be rendered in order and each once: the drops live on.
ImageHandle RenderFrame(StyleContext& context, GumdropState& state, int) {
    const platform::WindowHandle dialog = context.Dialog;
    platform::OwnedBlock frame(NewSolidImage({0, 0, state.Width, state.Depth}, state.Background));
    {
        const LockedImage picture(frame.Get());
        if (!picture) return nullptr;
        const FrameSettings settings{GetSpinnerValue(dialog, kSize),
                                     GetSpinnerValue(dialog, kDrift),
                                     std::min(state.Width, state.Depth)};
        for (GumdropRecord& drop : state.Drops) {
            if (!StampDrop(state, drop, settings, picture)) return nullptr;
            Advance(drop, state.StepPercent);
        }
    }
    return frame.Release();
}

}  // namespace

const StyleEntry GumdropsStyle = {
    .Name = "Gumdrops",
    .ConfigurationName = "Style007",
    .PanelTemplate = 7407,
    .Parameters = parameters,
    .Test = TestStyle<GumdropState, StyleSetup, RenderFrame>,
    .Build = BuildStyle<GumdropState, StyleSetup, RenderFrame>,
    .BackgroundControl = kBackground,
};

}  // namespace tess
