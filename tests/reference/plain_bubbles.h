// Bubbles with nothing kept: every bubble has a mask of its own on every frame, and
// every frame is reckoned from the draws by itself but for the phases, which walk on.
// What the style must equal byte for byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "pipeline/image_scaling.h"
#include "platform/block_guards.h"
#include "platform/dialog.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "shell/control_contract.h"
#include "shell/style_table.h"
#include "styles/styles.h"
#include "tests/support/style_panel.h"
#include "toolkit/wrap_compositing.h"

namespace tess::reference {

/// The bubbles of one size. Lengths are in render pixels.
struct PlainLayer {
    int count, size;
    int columns;    ///< centres stand on as many, from half the size; may be 0 or less
    int diameters;  ///< that many, from the size downwards
    int speed, peak;
};

struct PlainBubble {
    int x, y, diameter, speed, peak;
    double phase;
    ColorWord color;
};

struct PlainBubbles {
    int factor, width, depth;  // of the large picture
    int frames, drift, opacity;
    bool inverse;
    ColorWord background;
    std::vector<PlainBubble> bubbles;
};

/// A remainder has the sign of the dividend, which a draw never has below zero.
inline int PlainDraw(int divisor) {
    const int draw = runtime::rand();
    return divisor == 0 ? 0 : draw % std::abs(divisor);
}

inline std::vector<PlainBubble> DrawPlainBubbles(int seed, int depth,
                                                 const std::vector<PlainLayer>& layers,
                                                 const std::vector<ColorWord>& colors) {
    runtime::srand(static_cast<unsigned>(seed));
    std::vector<PlainBubble> bubbles;
    int last_color = -1;
    for (const PlainLayer& layer : layers) {
        for (int i = 0; i < layer.count; ++i) {
            PlainBubble bubble{};
            bubble.x = layer.size / 2 + PlainDraw(layer.columns);
            bubble.y = runtime::rand() % depth;
            runtime::SkipDraw();
            bubble.diameter = layer.size - runtime::rand() % layer.diameters;
            bubble.phase = runtime::rand() % 360;
            const int color = PickFillColor(static_cast<int>(colors.size()), &last_color);
            bubble.color = colors[static_cast<std::size_t>(color)];
            bubble.speed = layer.speed;
            bubble.peak = layer.peak;
            bubbles.push_back(bubble);
        }
    }
    return bubbles;
}

inline PlainBubbles ReadPlainBubbles(platform::WindowHandle dialog) {
    const test::StylePanel panel(BubblesStyle, dialog);
    PlainBubbles run{};
    run.factor = panel.IsChecked("Smooth") ? 4 : 2;
    run.width = run.factor * panel.Get("Width");
    run.depth = run.factor * panel.Get("Depth");
    run.frames = panel.Get("Frames");
    run.drift = panel.Get("Drift");
    run.opacity = panel.Get("FillOpacity");
    run.inverse = panel.IsChecked("Inverse");
    run.background = panel.Color("Background");
    const int density = panel.Get("Density");
    const int big = panel.Get("Size") * run.factor;
    const auto layer = [&run](int count, int size, int speed, int peak) {
        const int ninth = size / 9;
        return PlainLayer{count, size, run.width - size, ninth < 1 ? 1 : ninth, speed, peak};
    };
    run.bubbles = DrawPlainBubbles(
        panel.Get("Seed"), run.depth,
        {layer(density / 2, big, 1, 255), layer(density * 3 / 4, big * 3 / 4, 2, 160),
         layer(density, big / 2, 4, 128)},
        panel.FillColors());
    return run;
}

/// The picture with each bubble's centre where `centre` has it, shrunk.
template <class Centre>
ImageHandle StampPlainBubbles(const PlainBubbles& run, Centre centre) {
    const platform::OwnedBlock large(NewSolidImage({0, 0, run.width, run.depth}, run.background));
    {
        const LockedImage picture(large.Get());
        if (!picture) return nullptr;
        for (const PlainBubble& bubble : run.bubbles) {
            const raster::Point at = centre(bubble);
            const platform::OwnedBlock owner(RadialMask(bubble.diameter, bubble.peak, run.inverse));
            const LockedImage mask(owner.Get());
            if (!mask) return nullptr;
            WrapStampMask(picture, mask, at.x - bubble.diameter / 2, at.y - bubble.diameter / 2,
                          bubble.color, run.opacity);
        }
    }
    return ScaleImagePercent(large.Get(), 100 / run.factor, 100 / run.factor);
}

/// One frame; the phases walk on.
inline ImageHandle PlainBubblesFrame(PlainBubbles& run, int frame) {
    const int sway = static_cast<int>(run.drift / -100.0 * run.width);
    const double part = static_cast<double>(frame) / run.frames;
    const ImageHandle picture = StampPlainBubbles(run, [&](const PlainBubble& bubble) {
        const double sine = runtime::Sine(bubble.phase * 3.141592653589793 / 180.0);
        return raster::Point{bubble.x - static_cast<int>(sine * sway),
                             bubble.y - static_cast<int>(part * run.depth) * bubble.speed};
    });
    for (PlainBubble& bubble : run.bubbles)
        bubble.phase += 1.0 / run.frames * 360.0;
    return picture;
}

/// A Build slot.
inline int PlainBubblesBuild(StyleContext* context) {
    PlainBubbles run = ReadPlainBubbles(context->Dialog);
    const auto delay = static_cast<std::uint32_t>(GetSpinnerValue(context->Dialog, kDelayEdit));
    for (int frame = 0; frame < run.frames; ++frame) {
        const FrameRecord record{PlainBubblesFrame(run, frame), nullptr, delay, -1};
        if (record.Image == nullptr || FrameListAdd(context->Frames, &record) == 0) {
            platform::FreeBlock(record.Image);
            return 0;
        }
    }
    return 1;
}

}  // namespace tess::reference
