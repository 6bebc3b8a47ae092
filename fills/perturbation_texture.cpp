// Perturbation: up to eight octaves of lattice noise plus a map of bubbles, coloured
// through three curves. The noise starts at its own period and each octave doubles the
// scale, and bubbles go on at the opposite edge, so the picture joins itself at any
// width and height.
//
// A pixel's place on the lattice is that of its column and that of its row, octave by
// octave; those of the columns are the same in every row and reckoned once.
#include <algorithm>
#include <array>
#include <cstddef>

#include "fills/lattice_noise.h"
#include "fills/texture_fields.h"
#include "fills/texture_picture.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"

namespace tess {

namespace {

constexpr float kAlmostNothing = 1.1920929e-7F;
constexpr int kColors = 256;

/// A smooth curve through four points at 0, 1/3, 2/3 and 1 (E. Catmull and R. Rom, "A
/// Class of Local Interpolating Splines", 1974), with a point more at either end.
class Curve {
public:
    /// Of the values that `item` holds at these offsets.
    Curve(const TextureItem& item, std::size_t (*offset)(std::size_t point)) {
        double held[kCurvePoints];
        for (std::size_t i = 0; i < kCurvePoints; ++i)
            held[i] = HoldToUnit(double{TextureNumber<float>(item, offset(i))});
        points_ = {2 * held[0] - held[1], held[0], held[1], held[2], held[3],
                   2 * held[3] - held[2]};
    }

    [[nodiscard]] double CurveValue(double x) const {
        const double t = std::clamp(x, 0.0, 1.0) * 3;
        const int k = std::min(static_cast<int>(t), 2);
        const double u = t - k;
        const double* points = points_.data() + k;
        const double pa = points[0], pb = points[1], pc = points[2], pd = points[3];
        const double a = 1.5 * pb - 0.5 * pa - 1.5 * pc + 0.5 * pd;
        const double b = pa - 2.5 * pb + 2 * pc - 0.5 * pd;
        const double c = 0.5 * pc - 0.5 * pa;
        return ((a * u + b) * u + c) * u + pb;
    }

private:
    std::array<double, kCurvePoints + 2> points_;
};

using ColorTable = std::array<ColorWord, kColors>;

ColorTable MakeColorTable(const TextureItem& item) {
    const Curve red(item, ColorRedAt), green(item, ColorGreenAt), blue(item, ColorBlueAt);
    const auto level = [](double value) {
        return static_cast<int>(std::clamp(value * 255.0, 0.0, 255.0));
    };
    ColorTable colors;
    for (int i = 0; i < kColors; ++i) {
        const double x = static_cast<float>(i) / 255.0F;
        colors[static_cast<std::size_t>(i)] = MakeColor(
            level(red.CurveValue(x)), level(green.CurveValue(x)), level(blue.CurveValue(x)));
    }
    return colors;
}

/// How many octaves there are: whole ones, and perhaps a part of one more.
struct Octaves {
    int whole;    // 0 to 8
    double part;  // of the octave behind the whole ones
    std::array<double, 9> weights;

    [[nodiscard]] bool HasPart() const { return part > kAlmostNothing; }
    [[nodiscard]] int Count() const { return HasPart() ? whole + 1 : whole; }
};

Octaves OctavesOf(int matrix_size) {
    constexpr int kMost = 8;
    const float in_single =
        (static_cast<float>(matrix_size) - 32.0F) / 992.0F * 8.0F + kAlmostNothing;
    const double count = in_single < 0.0F || in_single > 8.0F ? 8.0 : double{in_single};
    Octaves octaves{};
    for (std::size_t k = 0; k < kMost; ++k)
        octaves.weights[k] = runtime::Power(1 << k, -0.5);
    while (octaves.whole < count)
        ++octaves.whole;
    // The part comes on top of the octave that it is a part of: of 2.5 octaves three are
    // whole, and half of the fourth is added.
    octaves.part = count - static_cast<int>(count);
    return octaves;
}

/// A coordinate's places on the lattice, an octave after another.
struct LatticePlaces {
    std::array<LatticePlace, 9> octaves;
};

LatticePlaces PlacesOf(float coordinate, int octaves) {
    LatticePlaces places{};
    float scaled = coordinate * 16.0F;
    for (int k = 0; k < octaves; ++k, scaled += scaled)
        places.octaves[static_cast<std::size_t>(k)] = PlaceOnLattice(scaled);
    return places;
}

double SumOctaves(const Octaves& octaves, const LatticePlaces& x, const LatticePlaces& y) {
    double sum = 0.0;
    const auto whole = static_cast<std::size_t>(octaves.whole);
    for (std::size_t k = 0; k < whole; ++k) {
        sum += double{LatticeNoise(x.octaves[k], y.octaves[k])} * octaves.weights[k];
    }
    if (octaves.HasPart()) {
        const double noise = LatticeNoise(x.octaves[whole], y.octaves[whole]);
        sum += noise * octaves.part * octaves.weights[whole];
    }
    return sum;
}

/// What a cell becomes under a bubble, `distance` from its centre; both squared.
float UnderBubble(float cell, BubbleShape shape, double distance, double radius) {
    const double old = cell;
    switch (shape) {
        case BubbleShape::Ellipse:
            return static_cast<float>(old + 1.0);
        case BubbleShape::Fuzzy:
            return static_cast<float>(old + 1.0 / (2 * distance / radius + 1.0));
        case BubbleShape::Luminous:
            return static_cast<float>(old + 1.0 / (16 * distance / radius + 0.1));
        case BubbleShape::Sphere:
            return static_cast<float>(old + (1.0 - old) * distance / radius);
        default:
            return cell;
    }
}

using BubbleCells = platform::WorkArray<float>;

/// Returns a map of the picture's size, an empty one without memory. Requires: the picture
/// has pixels.
BubbleCells BubbleMap(const TextureItem& item, const TextureSize& size, int count) {
    const int width = size.Width, height = size.Height;
    BubbleCells map(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    if (!map) return map;
    const int radius =
        std::min({height / 2, width / 2, std::max(1, std::int32_t{item.BubbleSize})});
    const std::int64_t farthest = std::int64_t{radius} * radius;
    const auto shape = static_cast<BubbleShape>(std::int32_t{item.BubbleShape});
    runtime::srand(static_cast<unsigned>(std::int32_t{item.SeedValue[0]}));
    for (int bubble = 0; bubble < count; ++bubble) {
        const int center_x = runtime::rand() % width + width;
        const int center_y = runtime::rand() % height + height;
        for (int dy = -radius; dy < radius; ++dy) {
            float* row = map.data() + std::ptrdiff_t{(center_y + dy) % height} * width;
            for (int dx = -radius; dx < radius; ++dx) {
                const std::int64_t distance = std::int64_t{dx} * dx + std::int64_t{dy} * dy;
                if (distance > farthest) continue;
                float& cell = row[(center_x + dx) % width];
                cell = UnderBubble(cell, shape, static_cast<double>(distance),
                                   static_cast<double>(farthest));
            }
        }
    }
    return map;
}

/// What a render works with.
struct Painter {
    ColorTable colors;
    Octaves octaves;
    double noise_power;
    double bubble_power;
    bool has_noise, has_bubbles;
    platform::WorkArray<LatticePlaces> columns;
    BubbleCells bubbles;

    void PaintRow(PackedDib* image, int y) const;
};

float PartOf(int pixel, int pixels) {
    return static_cast<float>(pixel) / static_cast<float>(pixels);
}

void Painter::PaintRow(PackedDib* image, int y) const {
    const int width = image->Width;
    LatticePlaces row{};
    if (has_noise) row = PlacesOf(PartOf(y, image->Height), octaves.Count());
    const float* bubble_row = has_bubbles ? bubbles.data() + std::ptrdiff_t{y} * width : nullptr;
    std::uint8_t* pixel = DibRow(image, y);
    for (int x = 0; x < width; ++x, pixel += 3) {
        double noise = 0.0, bubble = 0.0;
        if (has_noise) {
            noise = SumOctaves(octaves, columns[static_cast<std::size_t>(x)], row) * noise_power;
        }
        if (has_bubbles) bubble = bubble_power * 2.0 * double{bubble_row[x]} - 1.0;
        const double level = HoldToUnit((noise + bubble + 1.0) * 0.5);
        const ColorWord color = colors[static_cast<std::size_t>(level * 255.0)];
        pixel[0] = BlueOf(color);
        pixel[1] = GreenOf(color);
        pixel[2] = RedOf(color);
    }
}

}  // namespace

ImageHandle RenderPerturbationTexture(const TextureItem& item) {
    constexpr int kMostBubbles = 1024;
    const TextureSize size = TargetSize(item);
    platform::OwnedBlock picture(NewPackedDib(size.Width, size.Height, nullptr, 24));
    const LockedImage image(picture.Get());
    if (!image) return nullptr;
    if (size.Width == 0 || size.Height == 0) return picture.Release();

    const int bubbles = std::clamp(std::int32_t{item.BubbleCount}, 0, kMostBubbles);
    Painter painter{MakeColorTable(item),
                    OctavesOf(item.MatrixSize),
                    double{item.PerturbationPower},
                    double{item.BubblePower},
                    item.PerturbationPower > kAlmostNothing,
                    item.BubblePower != 0.0F && bubbles > 0,
                    {},
                    {}};
    // The map is made for bubbles without power, too, as far as it can fail.
    if (bubbles > 0) {
        painter.bubbles = BubbleMap(item, size, bubbles);
        if (!painter.bubbles) return nullptr;
    }
    if (painter.has_noise) {
        BuildLatticeNoise(item.SeedValue[0]);
        painter.columns = platform::WorkArray<LatticePlaces>(static_cast<std::size_t>(size.Width));
        if (!painter.columns) return nullptr;
        for (int x = 0; x < size.Width; ++x) {
            painter.columns[static_cast<std::size_t>(x)] =
                PlacesOf(PartOf(x, size.Width), painter.octaves.Count());
        }
    }
    for (int y = 0; y < size.Height; ++y)
        painter.PaintRow(image, y);
    return picture.Release();
}

}  // namespace tess
