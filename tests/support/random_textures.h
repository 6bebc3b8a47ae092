// Texture records for tests: the defaults, and values drawn within what the dialog
// allows, the same in both builds.
#pragma once

#include <cstdint>

#include "fills/texture.h"

namespace tess::test {

/// A generator of the tests' own (D. Knuth's MMIX constants).
class TextureDraws {
public:
    explicit TextureDraws(std::uint64_t seed) : state_(seed) {}

    /// Draws from `low` to `high`.
    int Between(int low, int high) {
        state_ = state_ * 6364136223846793005u + 1442695040888963407u;
        return low + static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(high - low + 1));
    }

private:
    std::uint64_t state_;
};

[[nodiscard]] inline TextureItem DefaultTexture(int kind, int width, int height) {
    TextureItem item{};
    InitTextureItem(&item);
    item.TextureType = kind;
    item.Right = width;
    item.Bottom = height;
    return item;
}

/// An item whose fields are drawn from the ranges of the dialog's spinners, with meshes
/// up to `largest_mesh` and few enough craters to be quick.
[[nodiscard]] inline TextureItem RandomTexture(TextureDraws& draws, int kind, int width, int height,
                                               int largest_mesh) {
    TextureItem item = DefaultTexture(kind, width, height);
    const auto percent = [&draws](int low, int high) {
        return static_cast<float>(draws.Between(low, high) / 100.0);
    };
    item.MatrixSize = draws.Between(32, largest_mesh);
    for (int layer = 0; layer < kTextureLayers; ++layer) {
        item.ForeColour[layer] = static_cast<ColorWord>(draws.Between(0, 0xFFFFFF));
        item.Power[layer] = percent(0, 150);
        item.SeedValue[layer] = draws.Between(1, 32760);
        item.Dimension[layer] = percent(200, draws.Between(0, 3) == 0 ? 2000 : 300);
    }
    item.BackColour = static_cast<ColorWord>(draws.Between(0, 0xFFFFFF));
    item.CreaterCount = draws.Between(10, 200);
    item.CreaterDepth = percent(50, 400);
    for (int point = 0; point < kCurvePoints; ++point) {
        item.ColorRed[point] = percent(0, 100);
        item.ColorGreen[point] = percent(0, 100);
        item.ColorBlue[point] = percent(0, 100);
    }
    item.BubbleCount = draws.Between(0, 40);
    item.BubbleSize = draws.Between(1, 64);
    item.BubblePower = percent(0, 100);
    item.PerturbationPower = percent(0, 800);
    item.BubbleShape = draws.Between(0, kBubbleShapes - 1);
    return item;
}

}  // namespace tess::test
