// The discs are painted one over the other, from the rim inwards, so a pixel shows
// the innermost disc that it lies in. Here each pixel is painted once: the discs
// are taken from the innermost outwards, and each paints, row by row, only what is
// still free. A row of a disc is one run about the middle column, and so is what is
// painted of a row at any time: one number a row says how far it reaches. The upper
// left quarter is painted so, and mirrored twice.
//
// The rows of a disc are those of raster::Ellipse without a pen, from the same walk
// (raster/quarter_arc.h); a box of two pixels a side is full.
#include <algorithm>
#include <cstring>

#include "platform/block_guards.h"
#include "raster/quarter_arc.h"
#include "toolkit/wrap_compositing.h"

namespace tess {

namespace {

/// The upper left quarter of a mask.
struct Quarter {
    std::uint8_t* top;    ///< the mask's first row
    std::ptrdiff_t step;  ///< from a row to the one below
    int side;             ///< of the mask
    int* reached;         ///< for each row, the leftmost column that is painted

    void Paint(int y, int left, int level) const {
        const auto grey = static_cast<std::uint8_t>(level);
        std::uint8_t* pixel = top + step * y + std::ptrdiff_t{3} * left;
        // Most runs are one or two pixels long.
        for (int run = reached[y] - left; run > 0; --run, pixel += 3) {
            const std::uint8_t channels[3] = {grey, grey, grey};
            std::memcpy(pixel, channels, sizeof channels);
        }
        reached[y] = std::min(reached[y], left);
    }
};

/// Paints a disc whose box lies `inset` pixels inside the mask.
void PaintDisc(const Quarter& quarter, int inset, int level) {
    const int side = quarter.side - 2 * inset;
    if (side <= 2) {
        for (int y = 0; y < (side + 1) / 2; ++y)
            quarter.Paint(inset + y, inset, level);
        return;
    }
    raster::QuarterArc arc(side, side);
    const int bottom = inset + side - 1;
    int row = arc.Row();
    quarter.Paint(bottom - row, inset, level);
    for (; !arc.IsPastMiddle(); arc.Advance()) {
        if (arc.Row() == row) continue;
        row = arc.Row();
        quarter.Paint(bottom - row, inset + arc.Inset(), level);
    }
}

/// Copies the left half of row `y` to its right half, and the row to its mirror.
void MirrorRow(const Quarter& quarter, int y) {
    std::uint8_t* row = quarter.top + quarter.step * y;
    std::uint8_t* right = row + std::ptrdiff_t{3} * (quarter.side - quarter.side / 2);
    const std::uint8_t* left = row + std::ptrdiff_t{3} * (quarter.side / 2);
    for (int x = quarter.side / 2; x > 0; --x, right += 3) {
        left -= 3;
        std::memcpy(right, left, 3);
    }
    const int mirror = quarter.side - 1 - y;
    if (mirror != y) {
        std::memcpy(quarter.top + quarter.step * mirror, row,
                    std::size_t{3} * static_cast<std::size_t>(quarter.side));
    }
}

}  // namespace

ImageHandle RadialMask(int diameter, int peak, bool inverse) {
    platform::OwnedBlock mask(NewPackedDib(diameter, diameter, nullptr, 24));
    const LockedImage image(mask.Get());
    if (!image) return nullptr;
    const int half = (diameter + 1) / 2;
    platform::WorkArray<int> reached(static_cast<std::size_t>(half));
    if (!reached) return nullptr;
    std::fill(reached.begin(), reached.end(), half);
    if (half == 0) return mask.Release();
    const Quarter quarter{DibRow(image.Get(), 0), -std::ptrdiff_t{Stride(diameter, 24)}, diameter,
                          reached.data()};
    const int discs = diameter / 2;
    for (int i = discs - 1; i >= 0; --i) {
        const int level = static_cast<int>(static_cast<double>(i) / discs * peak) & 255;
        PaintDisc(quarter, i, inverse ? level : 255 - level);
    }
    for (int y = 0; y < half; ++y)
        MirrorRow(quarter, y);
    return mask.Release();
}

}  // namespace tess
