#include "resources/artwork/tiles/tile_painting.h"

namespace artwork {

Color Ramp(std::span<const Color> colors, double place) {
    const double step = Clamp(place, 0, 1) * static_cast<double>(colors.size() - 1);
    std::size_t index = static_cast<std::size_t>(step);
    if (index + 1 >= colors.size()) index = colors.size() - 2;
    return Mix(colors[index], colors[index + 1], step - static_cast<double>(index));
}

double Hash(int x, int y, int seed) {
    std::uint32_t bits = static_cast<std::uint32_t>(x) * 0x9E3779B1u ^
                         static_cast<std::uint32_t>(y) * 0x85EBCA77u ^
                         static_cast<std::uint32_t>(seed) * 0xC2B2AE3Du;
    bits = (bits ^ bits >> 15) * 0x2C1B3C6Du;
    bits = (bits ^ bits >> 12) * 0x297A2D39u;
    bits ^= bits >> 15;
    return bits / 4294967296.0;
}

namespace {

constexpr double kDirections[8][2] = {{1, 0},  {0.70711, 0.70711},   {0, 1},  {-0.70711, 0.70711},
                                      {-1, 0}, {-0.70711, -0.70711}, {0, -1}, {0.70711, -0.70711}};

/// The slope that stands at a point of the lattice, met at a distance from it.
double Slope(int column, int row, double dx, double dy, int seed) {
    const double* direction = kDirections[static_cast<int>(Hash(column, row, seed) * 8)];
    return direction[0] * dx + direction[1] * dy;
}

double Fade(double t) {
    return t * t * t * (t * (t * 6 - 15) + 10);
}

}  // namespace

double Noise(double x, double y, int period_x, int period_y, int seed) {
    const double left = std::floor(x), top = std::floor(y);
    const double dx = x - left, dy = y - top;
    const int x0 = Modulo(static_cast<int>(left), period_x), x1 = (x0 + 1) % period_x;
    const int y0 = Modulo(static_cast<int>(top), period_y), y1 = (y0 + 1) % period_y;
    const double u = Fade(dx), v = Fade(dy);
    const double upper =
        Slope(x0, y0, dx, dy, seed) * (1 - u) + Slope(x1, y0, dx - 1, dy, seed) * u;
    const double lower =
        Slope(x0, y1, dx, dy - 1, seed) * (1 - u) + Slope(x1, y1, dx - 1, dy - 1, seed) * u;
    return (upper * (1 - v) + lower * v) * 1.5;
}

double Fractal(double x, double y, int period_x, int period_y, int octaves, int seed) {
    double sum = 0, height = 1;
    for (int i = 0; i < octaves; ++i) {
        sum += Noise(x, y, period_x, period_y, seed + i) * height;
        x *= 2;
        y *= 2;
        period_x *= 2;
        period_y *= 2;
        height /= 2;
    }
    return sum;
}

Cell FindCell(double x, double y, int period_x, int period_y, double strewing, int seed) {
    const int left = static_cast<int>(std::floor(x)), top = static_cast<int>(std::floor(y));
    Cell cell{8, 8, 0, 0, 0, 0};
    for (int row = top - 2; row <= top + 2; ++row) {
        for (int column = left - 2; column <= left + 2; ++column) {
            const int own_column = Modulo(column, period_x), own_row = Modulo(row, period_y);
            const double px = column + 0.5 + (Hash(own_column, own_row, seed) - 0.5) * strewing;
            const double py = row + 0.5 + (Hash(own_column, own_row, seed + 77) - 0.5) * strewing;
            const double dx = x - px, dy = y - py;
            const double distance = std::sqrt(dx * dx + dy * dy);
            if (distance < cell.nearest) {
                cell = {distance, cell.nearest, dx, dy, own_column, own_row};
            } else if (distance < cell.second) {
                cell.second = distance;
            }
        }
    }
    return cell;
}

SegmentHit HitSegment(double x, double y, double x0, double y0, double x1, double y1) {
    const double dx = x1 - x0, dy = y1 - y0;
    const double along = Clamp(((x - x0) * dx + (y - y0) * dy) / (dx * dx + dy * dy), 0, 1);
    const double from_x = x - x0 - dx * along, from_y = y - y0 - dy * along;
    return {std::sqrt(from_x * from_x + from_y * from_y), along};
}

}  // namespace artwork
