// Craters: a map of heights that many craters disturb, lit from one side. Their sizes
// follow a power law, so most are so small that they disturb one cell alone. A larger
// one is a bowl with a rim, sunk into the mean of the ground about its centre; towards
// its edge it is laid more and more on the ground that is there.
//
// The map does not wrap: craters are cut at its edges.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "fills/texture_picture.h"
#include "runtime/mathematics.h"
#include "toolkit/gaussian_draws.h"

namespace tess {

namespace {

constexpr std::uint16_t kGround = 32767;

/// A draw as a part of `reach`.
double Cast(double reach) {
    return reach * ((runtime::rand() & 0x7FFF) / kLargestDraw);
}

/// The low 16 bits of the number without its fraction; of one beyond 32 bits they are 0,
/// as those of the processor's own answer are.
std::uint16_t LowWord(double value) {
    if (!(value > -2147483649.0 && value < 2147483648.0)) return 0;
    return static_cast<std::uint16_t>(static_cast<std::int32_t>(value));
}

class ElevationMap {
public:
    ElevationMap(int width, int height)
        : width_(width),
          height_(height),
          cells_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
        std::fill(cells_.begin(), cells_.end(), kGround);
    }

    explicit operator bool() const { return static_cast<bool>(cells_); }
    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }
    [[nodiscard]] std::uint16_t* Row(int y) { return cells_.data() + std::ptrdiff_t{y} * width_; }

    /// The mean of the cells up to `reach` from (x, y), as far as there are any.
    [[nodiscard]] int Mean(int x, int y, int reach) {
        const int left = std::max(x - reach, 0), right = std::min(x + reach, width_ - 1);
        const int top = std::max(y - reach, 0), bottom = std::min(y + reach, height_ - 1);
        int sum = 0;
        for (int j = top; j <= bottom; ++j) {
            const std::uint16_t* row = Row(j);
            for (int i = left; i <= right; ++i)
                sum += row[i];
        }
        return sum / ((right - left + 1) * (bottom - top + 1));
    }

private:
    int width_, height_;
    platform::WorkArray<std::uint16_t> cells_;
};

/// A crater so small that it levels one cell, give or take a little.
void DisturbCell(ElevationMap& map, int x, int y, double size) {
    int level = map.Mean(x, y, 1);
    if (size >= 1.0) level += ((runtime::rand() >> 8) & 3) - 1;
    map.Row(y)[x] = static_cast<std::uint16_t>(level);
}

/// How far the ground that is there counts, at a distance squared from the centre.
double RollOff(double distance) {
    return (1 / (1 - std::min(0.9, distance)) / 10.000000000000002 - 0.09999999999999998) / 0.9;
}

struct Crater {
    int x, y;
    int radius;
    int mean;      // the ground that it lies in
    double scale;  // its depth

    /// What it adds to the ground at (i, j): below 0 inside its rim.
    [[nodiscard]] double Elevation(double dx, double dy, double distance) const {
        const double widened = distance * 2.25;
        const double bowl = std::sqrt(0.5) - std::sqrt(std::fabs(1 - widened));
        const double elevation = std::max(bowl, widened > 1 ? 0.0 : -10.0) * scale;
        const bool is_center = dx == 0.0 && dy == 0.0;
        if (is_center && std::fabs(elevation) < 1.0) return elevation < 0 ? -1.0 : 1.0;
        return elevation;
    }

    /// The cell at (i, j), which was `cell`.
    [[nodiscard]] std::uint16_t Reshape(int i, int j, std::uint16_t cell) const {
        constexpr std::uint16_t kLowest = 1000, kHighest = 64000;
        const double dx = (x - i) / static_cast<double>(radius);
        const double dy = (y - j) / static_cast<double>(radius);
        const double distance = dx * dx + dy * dy;
        const double elevation = Elevation(dx, dy, distance);
        const double roll = RollOff(distance);
        const std::uint16_t level =
            LowWord((cell + elevation) * roll + (mean + elevation) * (1 - roll));
        return std::clamp(level, kLowest, kHighest);
    }
};

void DigCrater(ElevationMap& map, int x, int y, double size, double depth) {
    const int radius = static_cast<int>(std::max(2.0, size));
    const Crater crater{x, y, radius, map.Mean(x, y, static_cast<int>(std::max(2.0, size / 3))),
                        runtime::Power(radius, depth)};
    for (int j = std::max(y - radius, 0); j <= std::min(y + radius, map.Height() - 1); ++j) {
        std::uint16_t* row = map.Row(j);
        for (int i = std::max(x - radius, 0); i <= std::min(x + radius, map.Width() - 1); ++i)
            row[i] = crater.Reshape(i, j, row[i]);
    }
}

void CraterField(ElevationMap& map, int count, double depth) {
    constexpr double kSmallest = 3.0;
    for (int crater = 0; crater < count; ++crater) {
        const int x = static_cast<int>(Cast(map.Width() - 1));
        const int y = static_cast<int>(Cast(map.Height() - 1));
        const double size = std::sqrt(1 / ((1 - Cast(1.0) * 0.9999) * std::numbers::pi));
        if (size < kSmallest) {
            DisturbCell(map, x, y, size);
        } else {
            DigCrater(map, x, y, size, depth);
        }
    }
}

constexpr int kSteepest = 52;
using ShadeTable = std::array<std::uint8_t, 2 * kSteepest + 1>;

/// The opacity for each slope from -kSteepest to kSteepest.
ShadeTable MakeShades() {
    ShadeTable shades;
    for (int slope = -kSteepest; slope <= kSteepest; ++slope) {
        const double turn = slope * std::numbers::pi / 2 / (slope <= 0 ? -52.0 : 52.0);
        const double lift = runtime::Power(runtime::Sine(turn), 0.5) * 127.0;
        shades[static_cast<std::size_t>(slope + kSteepest)] =
            static_cast<std::uint8_t>(slope <= 0 ? 128.0 - lift : lift + 128.0);
    }
    return shades;
}

/// The last column has no slope and keeps the background.
void Shade(PackedDib* image, ElevationMap& map, ColorWord color) {
    const ShadeTable shades = MakeShades();
    for (int y = 0; y < map.Height(); ++y) {
        const std::uint16_t* cells = map.Row(y);
        std::uint8_t* pixel = DibRow(image, y);
        for (int x = 0; x + 1 < map.Width(); ++x, pixel += 3) {
            const int slope = std::clamp(cells[x + 1] - cells[x], -kSteepest, kSteepest);
            LayColorOver(pixel, color, shades[static_cast<std::size_t>(slope + kSteepest)]);
        }
    }
}

}  // namespace

ImageHandle RenderCraterTexture(const TextureItem& item) {
    const TextureSize size = TargetSize(item);
    platform::OwnedBlock picture(NewFilledPicture(size, item.BackColour));
    const LockedImage image(picture.Get());
    if (!image) return nullptr;
    // A picture without pixels has no cell for a crater to fall on.
    if (size.Width == 0 || size.Height == 0) return picture.Release();
    ElevationMap map(size.Width, size.Height);
    if (!map) return nullptr;
    SeedGaussian(item.SeedValue[0]);
    // Only a damaged record has a count whose tenfold is beyond 32 bits; it wraps. One that
    // is far beyond the dialog's 100000 craters would take hours, and is held.
    constexpr std::int32_t kMostCraters = 1000000;
    const auto tenfold = static_cast<std::uint32_t>(std::int32_t{item.CreaterCount}) * 10u;
    const auto count = std::min(static_cast<std::int32_t>(tenfold), kMostCraters);
    CraterField(map, count, double{item.CreaterDepth});
    Shade(image, map, item.ForeColour[0]);
    return picture.Release();
}

}  // namespace tess
