// What the designs of tiles are made of: colours, periodic noise, distances on a torus,
// light. A design is a function from a point, in pixels from the top left, to a colour;
// it must have the tile's width and height as periods. Only operations with one right
// answer are used (runtime/ has the sine), so that the tiles are the same everywhere.
#pragma once

#include <cmath>
#include <cstdint>
#include <span>
#include <type_traits>

#include "runtime/mathematics.h"

namespace artwork {

/// Levels of 0 to 255; beyond them while it is worked on.
struct Color {
    double red = 0, green = 0, blue = 0;
};

constexpr Color Rgb(std::uint32_t word) {
    return {static_cast<double>(word >> 16 & 255), static_cast<double>(word >> 8 & 255),
            static_cast<double>(word & 255)};
}
constexpr Color operator*(const Color& color, double factor) {
    return {color.red * factor, color.green * factor, color.blue * factor};
}
constexpr Color operator+(const Color& color, double level) {
    return {color.red + level, color.green + level, color.blue + level};
}
/// `share` 0 gives `from`, 1 `to`.
constexpr Color Mix(const Color& from, const Color& to, double share) {
    return {from.red + (to.red - from.red) * share, from.green + (to.green - from.green) * share,
            from.blue + (to.blue - from.blue) * share};
}

constexpr double Clamp(double value, double least, double most) {
    return value < least ? least : value > most ? most : value;
}
/// 0 below `from`, 1 above `to`, an s-curve between.
constexpr double SmoothStep(double from, double to, double value) {
    const double t = Clamp((value - from) / (to - from), 0, 1);
    return t * t * (3 - 2 * t);
}
/// The colour at `place` (0 to 1) of a ramp of equal steps.
Color Ramp(std::span<const Color> colors, double place);

inline constexpr double kPi = 3.141592653589793;
inline double Sine(double angle) {
    return runtime::Sine(angle);
}
inline double Cosine(double angle) {
    return runtime::Cosine(angle);
}

/// The rest of `value` by `period`, 0 up to it; of two whole numbers a whole one.
template <class Value, class Period>
auto Modulo(Value value, Period period) {
    if constexpr (std::is_integral_v<Value> && std::is_integral_v<Period>) {
        const int rest = value % period;
        return rest < 0 ? rest + period : rest;
    } else {
        return value - period * std::floor(value / period);
    }
}
/// The shortest way to 0 on a circle of `period`.
inline double Nearest(double difference, double period) {
    return difference - period * std::floor(difference / period + 0.5);
}

/// A number from 0 up to 1 for a cell, the same each time.
double Hash(int x, int y, int seed);

/// Smooth noise of about -1 to 1, one wave a unit, with whole periods.
double Noise(double x, double y, int period_x, int period_y, int seed);
/// Octaves of it, each of half the size and height.
double Fractal(double x, double y, int period_x, int period_y, int octaves, int seed);

/// Cells around points that are strewn one a unit square.
struct Cell {
    double nearest, second;  ///< distances of the two nearest points
    double from_x, from_y;   ///< from the nearest point
    int column, row;         ///< the nearest point's square, within the periods
};
/// `strewing` 0 is a grid, 1 as wild as can be.
Cell FindCell(double x, double y, int period_x, int period_y, double strewing, int seed);

/// How far a point is from a line through two others; `along` is where, 0 to 1.
struct SegmentHit {
    double distance, along;
};
SegmentHit HitSegment(double x, double y, double x0, double y0, double x1, double y1);

/// Brightness of a surface from its slopes, 1 where it is flat; the light comes from
/// the top left.
inline double Light(double slope_x, double slope_y) {
    const double length = std::sqrt(slope_x * slope_x + slope_y * slope_y + 1);
    return (0.5 * slope_x + 0.62 * slope_y + 0.82) / length / 0.82;
}
/// The same of a height field, a function of x and y.
template <class Height>
double LightOf(Height height, double x, double y, double step = 0.35) {
    return Light((height(x + step, y) - height(x - step, y)) / (-2 * step),
                 (height(x, y + step) - height(x, y - step)) / (-2 * step));
}

struct TileDesign {
    const char* name;
    int width, height;
    Color (*paint)(double x, double y);
};

std::span<const TileDesign> GeometricTiles();
std::span<const TileDesign> WovenTiles();
std::span<const TileDesign> NaturalTiles();
std::span<const TileDesign> BuiltTiles();

}  // namespace artwork
