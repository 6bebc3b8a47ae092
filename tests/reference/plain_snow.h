// Snow step by step: every flake's branches in single precision, stamped and scaled one
// pixel at a time.
#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"
#include "raster/lines.h"
#include "raster/shapes.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "tests/reference/plain_compositing.h"
#include "tests/reference/plain_scaling.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

struct PlainSnowSettings {
    int width = 192, depth = 192;
    int size = 48;
    int density = 32;
    int frames = 64;
    int drift = 8;
    int opacity = 160;
    unsigned seed = 10645;
    ColorWord background = 0xFFFFFF;
    std::vector<ColorWord> colors = {0xEAE3DB, 0xDDBC9B, 0xC08243, 0x95632C, 0x7E5429};
};

struct PlainFlakeRecipe {
    bool subdivides;
    int limit;
    int angle;
    float position, length;
};

/// Makes the six draws of a flake's shape.
inline PlainFlakeRecipe PlainDrawFlakeRecipe(int side) {
    PlainFlakeRecipe recipe{};
    const int b = runtime::rand() % 2;
    recipe.subdivides = b == 0;
    runtime::SkipDraw();
    recipe.angle = runtime::rand() % 150 + 15;
    const float place = static_cast<float>(runtime::rand()) * 4.656613e-10F;
    recipe.position = place * 0.6F + 0.2F;
    const float part = static_cast<float>(runtime::rand()) * 4.656613e-10F;
    recipe.length = part * 0.4F + 0.3F;
    if (static_cast<double>(recipe.position * recipe.length) > 0.36) {
        if (b == 0) {
            recipe.length /= 2;
        } else {
            recipe.position /= 2;
        }
    }
    if (static_cast<double>(recipe.position * recipe.length) < 0.1) recipe.length *= 2;
    const double s = static_cast<float>(side);
    if (recipe.subdivides) {
        recipe.limit = runtime::rand() % (3 - static_cast<int>(s / -900.0));
        recipe.limit += static_cast<int>(runtime::Power(s, 0.17));
    } else {
        recipe.limit = runtime::rand() % (4 - static_cast<int>(s / -50.0));
        recipe.limit += static_cast<int>(runtime::Power(s, 0.2));
    }
    return recipe;
}

struct PlainSnowPoint {
    float x, y;
};

/// A flake's lines on a canvas of twice its side.
class PlainFlakeDrawing {
public:
    PlainFlakeDrawing(int side, const PlainFlakeRecipe& recipe) : recipe_(recipe) {
        if (DibCanvasOpen(2 * side, 2 * side, &canvas_) == 0) return;
        raster::FillRect(canvas_.MemoryDC, canvas_.Bounds, raster::kBlackBrush);
        const auto h = static_cast<float>(side / 2);
        for (const int a : {0, 60, 120, 180, 240, 300}) {
            const auto r = static_cast<float>(a * 3.141592653589793 / 180.0);
            const auto s = static_cast<float>(runtime::Sine(static_cast<double>(r)));
            const auto c = static_cast<float>(runtime::Cosine(static_cast<double>(r)));
            DrawBranch({h, h}, {h + h * s, h - h * c}, 0);
        }
    }
    PlainFlakeDrawing(const PlainFlakeDrawing&) = delete;
    PlainFlakeDrawing& operator=(const PlainFlakeDrawing&) = delete;
    ~PlainFlakeDrawing() { DibCanvasClose(&canvas_, CanvasClose::Discard); }

    /// The mask, owned by the caller.
    [[nodiscard]] ImageHandle TakeMask() {
        DibCanvasClose(&canvas_, CanvasClose::Keep);
        const platform::OwnedBlock large(std::exchange(canvas_.Block, nullptr));
        return reference::PlainScaleImagePercent(large.Get(), 50, 50);
    }

private:
    void DrawLine(PlainSnowPoint p, PlainSnowPoint q) {
        canvas_.MemoryDC.pen = raster::SolidPen(2, 0xFFFFFF);
        raster::MoveToEx(canvas_.MemoryDC, static_cast<int>(p.x) * 2, static_cast<int>(p.y) * 2);
        raster::LineTo(canvas_.MemoryDC, static_cast<int>(q.x) * 2, static_cast<int>(q.y) * 2);
    }

    void DrawBranch(PlainSnowPoint p, PlainSnowPoint q, int depth) {
        if (!recipe_.subdivides) DrawLine(p, q);
        const PlainSnowPoint a{p.x + recipe_.position * (q.x - p.x),
                               p.y + recipe_.position * (q.y - p.y)};
        const PlainSnowPoint b{a.x + recipe_.length * (q.x - p.x),
                               a.y + recipe_.length * (q.y - p.y)};
        const PlainSnowPoint d{b.x - a.x, b.y - a.y};
        const auto rotated = [&](float t) {
            const auto c = static_cast<float>(runtime::Cosine(static_cast<double>(t)));
            const auto s = static_cast<float>(runtime::Sine(static_cast<double>(t)));
            return PlainSnowPoint{c * d.x - s * d.y + a.x, c * d.y + s * d.x + a.y};
        };
        const float t = static_cast<float>(recipe_.angle) * 3.1415927F / 180.0F;
        const PlainSnowPoint one = rotated(t);
        const PlainSnowPoint other = rotated(-t);
        if (depth == recipe_.limit) {
            if (recipe_.subdivides) DrawLine(a, one);
            if (recipe_.subdivides) DrawLine(a, other);
            return;
        }
        DrawBranch(a, one, depth + 1);
        DrawBranch(a, other, depth + 1);
        if (!recipe_.subdivides) return;
        DrawBranch(p, a, depth + 1);
        DrawBranch(a, q, depth + 1);
    }

    PlainFlakeRecipe recipe_;
    DibCanvas canvas_{};
};

class PlainSnow {
public:
    explicit PlainSnow(PlainSnowSettings settings) : settings_(std::move(settings)) {
        runtime::srand(settings_.seed);
        const int v = std::max(settings_.size / 9, 1);
        int last_color = -1;
        for (int i = 0; i < settings_.density; ++i) {
            Flake flake{};
            flake.x = runtime::rand() % settings_.width;
            flake.y = runtime::rand() % settings_.depth;
            runtime::SkipDraw();
            flake.size = settings_.size - runtime::rand() % v;
            flake.laps = 1 << i % 3;
            flake.sway_angle = static_cast<float>(runtime::rand() % 360);
            flake.color = settings_.colors[static_cast<std::size_t>(
                PickFillColor(static_cast<int>(settings_.colors.size()), &last_color))];
            flake.sprite.Reset(
                PlainFlakeDrawing(flake.size, PlainDrawFlakeRecipe(flake.size)).TakeMask());
            flakes_.push_back(std::move(flake));
        }
    }

    /// Owned by the caller. Frames come in order, since the flakes sway on.
    [[nodiscard]] ImageHandle RenderFrame(int f) {
        const ImageHandle picture =
            NewSolidImage({0, 0, settings_.width, settings_.depth}, settings_.background);
        const LockedImage tile(picture);
        const auto width = static_cast<double>(static_cast<float>(settings_.width));
        const auto frames = static_cast<float>(settings_.frames);
        const auto drift = static_cast<double>(static_cast<float>(settings_.drift));
        for (Flake& flake : flakes_) {
            const auto angle = static_cast<double>(flake.sway_angle);
            const double s = runtime::Sine(angle * 3.141592653589793 / 180.0);
            const int w = static_cast<int>(drift / -100.0 * width);
            const int x = flake.x - static_cast<int>(s * w);
            const int p = static_cast<int>(static_cast<float>(f) / frames *
                                           static_cast<float>(settings_.depth));
            const int y = p * flake.laps + flake.y - settings_.depth + 1;
            const LockedImage sprite(flake.sprite.Get());
            reference::PlainWrapStampMask(tile, sprite, x - flake.size / 2, y - flake.size / 2,
                                          flake.color, settings_.opacity);
            flake.sway_angle =
                static_cast<float>(1.0 / static_cast<double>(frames) * 360.0 + angle);
        }
        return picture;
    }

private:
    struct Flake {
        int x, y, size, laps;
        float sway_angle;
        ColorWord color;
        platform::OwnedBlock sprite;
    };

    PlainSnowSettings settings_;
    std::vector<Flake> flakes_;
};

}  // namespace tess::test
