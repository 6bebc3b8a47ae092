// The random shapes of the comparison with GDI: what kinds there are, and shape
// number `index` of a kind for a seed. Each shape can be had alone, so a
// difference found among thousands is drawn again by its number.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "raster/drawing_context.h"

namespace comparison {

enum class Figure { FillRect, Rectangle, Ellipse, RoundRect, Polygon, Line, Polyline, Bezier };
enum class PenClass { None, Zero, One, Wide, InsideFrame };

struct Kind {
    const char* name;
    Figure figure;
    PenClass pen;
    raster::PolygonFill fill = raster::PolygonFill::Alternate;
    /// How many of a thousand shapes may differ.
    double allowed_per_mille = 0;
};

/// All kinds that are compared.
[[nodiscard]] std::span<const Kind> Kinds();

inline constexpr std::size_t kMaximumPoints = 13;

struct Shape {
    Figure figure;
    int width, height;  ///< of the surface
    raster::Pen pen;
    raster::Brush brush;
    raster::PolygonFill fill;
    raster::Rect box;
    int corner_width, corner_height;
    std::array<raster::Point, kMaximumPoints> points;
    std::size_t point_count;

    [[nodiscard]] std::span<const raster::Point> Points() const {
        return {points.data(), point_count};
    }
};

[[nodiscard]] Shape MakeShape(const Kind& kind, std::uint64_t seed, std::uint64_t index);

/// The call as text, with its pen and brush.
[[nodiscard]] std::string Describe(const Shape& shape);

}  // namespace comparison
