// The pictures that a viewer of an animation sees: each frame drawn over the ones
// before it, its transparent pixels leaving what was there.
#pragma once

#include <cstdint>

#include "host/animation.h"

namespace tess {

class Composition {
public:
    /// Requires: `animation` outlives this.
    explicit Composition(const Animation& animation);

    /// False when memory is short.
    explicit operator bool() const { return static_cast<bool>(pixels_); }
    /// All frames have one bit count below 9 and one colour table: pixels are
    /// indexes, one byte each. Otherwise they are red, green, blue.
    [[nodiscard]] bool IsIndexed() const { return indexed_; }
    [[nodiscard]] int PixelBytes() const { return indexed_ ? 1 : 3; }
    /// 1, 4 or 8 for an indexed animation, else 24.
    [[nodiscard]] int Bits() const { return bits_; }
    /// The colours of an indexed animation, 256 entries of red, green, blue.
    [[nodiscard]] const std::uint8_t* Palette() const { return palette_; }

    /// Draws frame `index` over what is there. Returns 1, or 0 when it could not
    /// be read. Requires: frames are shown in order, each once.
    [[nodiscard]] int ShowFrame(int index);
    /// What is shown, `Height` rows of `Width` pixels, the top row first.
    [[nodiscard]] const std::uint8_t* Pixels() const { return pixels_.data(); }
    [[nodiscard]] std::size_t RowBytes() const;

private:
    void DrawRow(const PackedDib* image, const std::uint8_t* table, int y, int transparent);

    const Animation& animation_;
    int bits_ = 24;
    bool indexed_;
    std::uint8_t palette_[kPaletteBytes];
    platform::WorkArray<std::uint8_t> pixels_;
};

}  // namespace tess
