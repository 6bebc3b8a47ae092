// Phasers on Stun with nothing kept: every flash draws its mask anew, as large as
// the tile, and stamps all of it. What the style must equal byte for byte.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "pipeline/image_scaling.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "raster/lines.h"
#include "raster/shapes.h"
#include "runtime/random.h"
#include "shell/control_contract.h"
#include "shell/style_table.h"
#include "styles/styles.h"
#include "tests/support/style_panel.h"
#include "toolkit/wrap_compositing.h"

namespace tess::reference {

/// Kinds: 0 from east to south, 1 from west to south, 2 level, 3 upright.
struct PlainFlash {
    std::array<raster::Point, 4> ends;  // of two strokes, in tile pixels
    int strokes;
    int kind;
    int level;
    ColorWord color;
    int frame;
};

struct PlainPhasers {
    int width, depth, frames, power;
    platform::WorkArray<PlainFlash> flashes;
};

inline PlainPhasers ReadPlainPhasers(platform::WindowHandle dialog) {
    constexpr const char* kKinds[] = {"LineEast2South", "LineWest2South", "LineHorizontal",
                                      "LineVertical"};
    const test::StylePanel panel(PhasersOnStunStyle, dialog);
    PlainPhasers run{
        panel.Get("Width"), panel.Get("Depth"), panel.Get("Frames"), panel.Get("Power"),
        platform::WorkArray<PlainFlash>(4 * static_cast<std::size_t>(panel.Get("Density")))};
    runtime::srand(static_cast<unsigned>(panel.Get("Seed")));
    const std::vector<ColorWord> colors = panel.FillColors();
    const int color_count = static_cast<int>(colors.size());
    std::array<int, 4> kinds{};
    int kind_count = 0;
    for (int kind = 0; kind < 4; ++kind) {
        if (panel.IsChecked(kKinds[kind])) kinds[static_cast<std::size_t>(kind_count++)] = kind;
    }
    if (kind_count == 0) kind_count = 1;
    const int w = run.width;
    const int h = run.depth;
    for (std::size_t beam = 0; beam + 4 <= run.flashes.size(); beam += 4) {
        PlainFlash flash{};
        flash.kind = kinds[static_cast<std::size_t>(runtime::rand() % kind_count)];
        flash.strokes = flash.kind < 2 ? 2 : 1;
        if (flash.kind == 3) {
            const int x = w / 10 + runtime::rand() % ((w * 8) / 10);
            flash.ends = {{{x, 0}, {x, h}}};
        } else {
            const int y = h / 10 + runtime::rand() % ((h * 8) / 10);
            const int x = static_cast<int>(static_cast<double>(y) / h * w);
            const int mirrored = w - x - 1;
            if (flash.kind == 0) flash.ends = {{{w, y}, {x, h}, {0, y}, {x, 0}}};
            if (flash.kind == 1) flash.ends = {{{0, y}, {mirrored, h}, {w, y}, {mirrored, 0}}};
            if (flash.kind == 2) flash.ends = {{{0, y}, {w, y}}};
        }
        flash.color = colors[static_cast<std::size_t>(runtime::rand() % color_count)];
        const int first = runtime::rand() % run.frames;
        for (int i = 0; i < 4; ++i) {
            constexpr int kLevels[] = {255, 192, 128, 64};
            flash.level = kLevels[i];
            flash.frame = (first + i) % run.frames;
            run.flashes[beam + static_cast<std::size_t>(i)] = flash;
        }
    }
    return run;
}

inline ImageHandle PlainBeamMask(const PlainPhasers& run, const PlainFlash& flash) {
    DibCanvas canvas;
    if (DibCanvasOpen(2 * run.width, 2 * run.depth, &canvas) == 0) return nullptr;
    raster::FillRect(canvas.MemoryDC, canvas.Bounds, raster::kBlackBrush);
    canvas.MemoryDC.pen =
        raster::SolidPen(2 * run.power, MakeColor(flash.level, flash.level, flash.level));
    const int along = flash.kind == 0 ? run.width : flash.kind == 1 ? -run.width : 0;
    const int down = flash.kind < 2 ? run.depth : 0;
    for (int stroke = 0; stroke < flash.strokes; ++stroke) {
        const raster::Point from = flash.ends[static_cast<std::size_t>(2 * stroke)];
        const raster::Point to = flash.ends[static_cast<std::size_t>(2 * stroke + 1)];
        raster::MoveToEx(canvas.MemoryDC, 2 * (from.x + along), 2 * (from.y - down));
        raster::LineTo(canvas.MemoryDC, 2 * (to.x - along), 2 * (to.y + down));
    }
    const platform::OwnedBlock large(DibCanvasClose(&canvas, CanvasClose::Keep));
    return ScaleImagePercent(large.Get(), 50, 50);
}

inline ImageHandle PlainPhasersFrame(const PlainPhasers& run, ColorWord background, int frame) {
    platform::OwnedBlock tile(NewSolidImage({0, 0, run.width, run.depth}, background));
    {
        const LockedImage picture(tile.Get());
        if (!picture) return nullptr;
        for (const PlainFlash& flash : run.flashes) {
            if (flash.frame != frame) continue;
            const platform::OwnedBlock owner(PlainBeamMask(run, flash));
            const LockedImage mask(owner.Get());
            if (!mask) return nullptr;
            WrapStampMask(picture, mask, 0, 0, flash.color, 255);
        }
    }
    return tile.Release();
}

/// A Build slot.
inline int PlainPhasersBuild(StyleContext* context) {
    const PlainPhasers run = ReadPlainPhasers(context->Dialog);
    if (!run.flashes) return 0;
    const test::StylePanel panel(PhasersOnStunStyle, context->Dialog);
    const auto delay = static_cast<std::uint32_t>(GetSpinnerValue(context->Dialog, kDelayEdit));
    for (int frame = 0; frame < run.frames; ++frame) {
        const ColorWord background = panel.Color("Background");
        const FrameRecord record{PlainPhasersFrame(run, background, frame), nullptr, delay, -1};
        if (record.Image == nullptr || FrameListAdd(context->Frames, &record) == 0) {
            platform::FreeBlock(record.Image);
            return 0;
        }
    }
    return 1;
}

}  // namespace tess::reference
