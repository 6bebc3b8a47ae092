#include "platform/cairo/gradient_pixels.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace platform {
namespace {

std::uint32_t MixChannel(Argb first, Argb second, int shift, double share) {
    const double from = first >> shift & 255;
    const double to = second >> shift & 255;
    return static_cast<std::uint32_t>(from + (to - from) * share + 0.5) << shift;
}

/// The share for an edge that is `reach` times as far from the centre as the place.
double ShareOf(double reach) {
    return reach > 1 ? 1 / reach : 1;
}

/// How many times `way` leads from `from` to the side of [start, start + length] ahead.
double ReachOfSide(double start, double length, double from, double way) {
    if (way == 0) return std::numeric_limits<double>::infinity();
    return ((way > 0 ? start + length : start) - from) / way;
}

}  // namespace

Argb MixColors(Argb first, Argb second, double share) {
    return 0xFF000000U | MixChannel(first, second, 0, share) | MixChannel(first, second, 8, share) |
           MixChannel(first, second, 16, share);
}

double ShareInEllipse(const VectorBox& box, VectorPoint center, int x, int y) {
    const double radius_x = box.Width * 0.5;
    const double radius_y = box.Height * 0.5;
    // In coordinates where the ellipse is the unit circle, the edge is where
    // |from + reach * way| = 1.
    const double from_x = (center.X - box.X - radius_x) / radius_x;
    const double from_y = (center.Y - box.Y - radius_y) / radius_y;
    const double way_x = (x - box.X - radius_x) / radius_x - from_x;
    const double way_y = (y - box.Y - radius_y) / radius_y - from_y;
    const double square = way_x * way_x + way_y * way_y;
    if (square == 0) return 0;
    const double half = from_x * way_x + from_y * way_y;
    const double rest = from_x * from_x + from_y * from_y - 1;
    const double discriminant = half * half - square * rest;
    if (discriminant < 0) return 1;
    return ShareOf((std::sqrt(discriminant) - half) / square);
}

double ShareInRectangle(const VectorBox& box, VectorPoint center, int x, int y) {
    const double way_x = static_cast<double>(x) - center.X;
    const double way_y = static_cast<double>(y) - center.Y;
    if (way_x == 0 && way_y == 0) return 0;
    return ShareOf(std::min(ReachOfSide(box.X, box.Width, center.X, way_x),
                            ReachOfSide(box.Y, box.Height, center.Y, way_y)));
}

double ShareAlong(const VectorBox& box, double cosine, double sine, int x, int y) {
    const double unit_x = (static_cast<double>(x) - box.X) / box.Width - 0.5;
    const double unit_y = (static_cast<double>(y) - box.Y) / box.Height - 0.5;
    const double share =
        0.5 + (unit_x * cosine + unit_y * sine) / (std::fabs(cosine) + std::fabs(sine));
    return share - std::floor(share);
}

}  // namespace platform
