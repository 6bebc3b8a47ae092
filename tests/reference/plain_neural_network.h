// Neural Network with nothing kept: every ball and every shadow made anew in every
// frame.
#pragma once

#include <utility>
#include <vector>

#include "runtime/random.h"
#include "tests/reference/plain_shaded_ball.h"

namespace tess::test {

struct PlainNeuralSettings {
    int columns = 12, rows = 8;
    int margin = 0;
    int glare = 160;
    int size = 14;
    int density = 40;
    unsigned seed = 12055;
    int shading = 70;
    PlainShadow shadow{1, 1};
    ColorWord background = 0x000000;
    std::vector<ColorWord> colors = {0xFF0000, 0x00FF00, 0x00CCFF, 0x0033CC, 0x0066FF};
};

class PlainNeuralNetwork {
public:
    explicit PlainNeuralNetwork(PlainNeuralSettings settings) : settings_(std::move(settings)) {
        const int count = FrameCount();
        runtime::srand(settings_.seed);
        std::vector<int> left;
        int last_color = -1;
        for (int i = 0; i < count; ++i) {
            left.push_back(i);
            colors_.push_back(settings_.colors[static_cast<std::size_t>(
                PickFillColor(static_cast<int>(settings_.colors.size()), &last_color))]);
        }
        for (; !left.empty(); left.pop_back()) {
            const auto j = static_cast<std::size_t>(runtime::rand()) % left.size();
            firing_order_.push_back(left[j]);
            left[j] = left.back();
        }
        trail_ = std::max(settings_.density * count / 100, 1);
        step_ = std::max((255 - 64) / trail_, 1);
    }

    [[nodiscard]] int FrameCount() const { return settings_.columns * settings_.rows; }
    [[nodiscard]] const std::vector<int>& FiringOrder() const { return firing_order_; }
    [[nodiscard]] ColorWord Color(int node) const {
        return colors_[static_cast<std::size_t>(node)];
    }

    [[nodiscard]] PlainSprite Ball(int node, int brightness) const {
        const ColorWord base = PlainChangeValue(Color(node), brightness / 255.0 - 1.0);
        const double s = settings_.shading / 100.0;
        return {PlainShape::SingleBall,
                settings_.size,
                settings_.size,
                0,
                base,
                PlainChangeValue(base, (1.0 - s) - 1.0),
                settings_.background,
                settings_.glare * brightness / 255};
    }

    /// Owned by the caller.
    [[nodiscard]] ImageHandle RenderFrame(int frame) const {
        std::vector<int> brightness(colors_.size(), 64);
        for (int k = 0, place = frame; k < trail_; ++k) {
            const int node = firing_order_[static_cast<std::size_t>(place)];
            brightness[static_cast<std::size_t>(node)] = 255 - k * step_;
            if (--place < 0) place = FrameCount() - 1;
        }
        const int pitch = settings_.size + settings_.margin;
        const ImageHandle picture = NewSolidImage(
            {0, 0, settings_.columns * pitch, settings_.rows * pitch}, settings_.background);
        const LockedImage tile(picture);
        for (int node = 0; node < FrameCount(); ++node) {
            PlainDrawSprite(
                tile, node % settings_.columns * pitch, node / settings_.columns * pitch,
                Ball(node, brightness[static_cast<std::size_t>(node)]), settings_.shadow);
        }
        return picture;
    }

private:
    PlainNeuralSettings settings_;
    std::vector<ColorWord> colors_;
    std::vector<int> firing_order_;
    int trail_ = 1;
    int step_ = 1;
};

}  // namespace tess::test
