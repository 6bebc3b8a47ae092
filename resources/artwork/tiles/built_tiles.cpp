// Tiles of what people build and lay.
#include "resources/artwork/tiles/tile_painting.h"

namespace artwork {

namespace {

/// A stone or brick of a size: how far a point is from its rim, rounded at the corners.
double RimDistance(double x, double y, double width, double height, double round) {
    const double dx = std::fabs(x - width / 2) - (width / 2 - round);
    const double dy = std::fabs(y - height / 2) - (height / 2 - round);
    const double ox = dx > 0 ? dx : 0, oy = dy > 0 ? dy : 0;
    const double inside = dx > dy ? dx : dy;
    return round - std::sqrt(ox * ox + oy * oy) - (inside < 0 ? inside : 0);
}

/// A wall of bricks, each row half a brick on.
Color PaintBricks(double x, double y) {
    constexpr double kWidth = 32, kHeight = 16, kJoint = 1.5;
    const int row = static_cast<int>(std::floor(y / kHeight));
    const double shift = (row & 1) == 0 ? 0 : kWidth / 2;
    const int column = Modulo(static_cast<int>(std::floor((x - shift) / kWidth)), 4);
    const auto height = [&](double px, double py) {
        const double rim =
            RimDistance(Modulo(px - shift, kWidth), py - row * kHeight, kWidth, kHeight, 3) -
            kJoint + 0.45 * Noise(px / 4, py / 4, 32, 32, 301);
        return 2.2 * SmoothStep(-0.5, 1.8, rim) + 0.55 * Fractal(px / 4, py / 4, 32, 32, 3, 303);
    };
    const double rim =
        RimDistance(Modulo(x - shift, kWidth), y - row * kHeight, kWidth, kHeight, 3) - kJoint +
        0.45 * Noise(x / 4, y / 4, 32, 32, 301);
    const double light = Clamp(LightOf(height, x, y, 0.5), 0.5, 1.4);
    const Color mortar = Rgb(0xB9B0A2) * (0.78 + 0.12 * Fractal(x / 2, y / 2, 64, 64, 2, 305));
    constexpr Color kTones[] = {Rgb(0x8C3B2A), Rgb(0xA84B33), Rgb(0xB85F40), Rgb(0x95412F),
                                Rgb(0x7A3328)};
    const Color brick = Ramp(kTones, Hash(column, row & 7, 307)) *
                        (1 + 0.12 * Fractal(x / 8, y / 8, 16, 16, 4, 309));
    return Mix(mortar, brick, SmoothStep(-0.4, 0.4, rim)) * light;
}

/// A parquet of blocks laid as herringbone.
Color PaintHerringbone(double x, double y) {
    // Blocks of 4 by 1 cells; the pattern repeats every 8 cells along either axis.
    constexpr double kCell = 16;
    constexpr int kLong = 4;
    const int column = static_cast<int>(std::floor(x / kCell)),
              row = static_cast<int>(std::floor(y / kCell));
    const int place = Modulo(column - row, 2 * kLong);
    const bool is_level = place < kLong;
    const int head_x = is_level ? column - place : column;
    const int head_y = is_level ? row : row - (2 * kLong - 1 - place);
    const double along = (is_level ? x - head_x * kCell : y - head_y * kCell);
    const double across = (is_level ? y - head_y * kCell : x - head_x * kCell);
    const int key_x = Modulo(head_x, 8), key_y = Modulo(head_y, 8);
    const int seed = 320 + key_x * 8 + key_y;
    const double rim = RimDistance(along, across, kLong * kCell, kCell, 1.0);
    const double bend = Noise(along / 24, across / 12, 1000, 1000, seed) * 2.4;
    const double ring = Modulo((across + bend) / 3.1 + Hash(key_x, key_y, 331) * 4, 1.0);
    const double fiber = Noise(along / 5, across * 1.4, 1000, 1000, seed + 3);
    constexpr Color kTones[] = {Rgb(0xB57B45), Rgb(0x9A6234), Rgb(0xC58F58), Rgb(0xA66D3B)};
    const Color wood = Ramp(kTones, Hash(key_x, key_y, 333)) *
                       (1.04 - 0.16 * SmoothStep(0.35, 0.95, ring) + 0.07 * fiber) *
                       (is_level ? 1.03 : 0.94);
    return wood * (0.42 + 0.58 * SmoothStep(0.15, 1.3, rim));
}

/// Roof tiles in rows, lit from above.
Color PaintRoof(double x, double y) {
    constexpr double kWidth = 24, kRow = 20;
    x += kWidth / 4;  // the picture's edge runs through the middle of a tile's half
    const int row = static_cast<int>(std::floor(y / kRow));
    for (int candidate = row + 1; candidate >= row - 1; --candidate) {
        const int upper = 2 * row - candidate;  // the row above lies over the one below
        const double shift = (upper & 1) == 0 ? 0 : kWidth / 2;
        const double u = Modulo(x - shift, kWidth) - kWidth / 2;
        const double end = kRow + 4 + 6.5 * std::sqrt(Clamp(1 - u * u / 144, 0, 1));  // a round lip
        const double v = y - upper * kRow;
        if (v < 0 || v > end) continue;
        const int column = Modulo(static_cast<int>(std::floor((x - shift) / kWidth)), 4);
        constexpr Color kTones[] = {Rgb(0xA4492E), Rgb(0xC06A42), Rgb(0x8E3E2B), Rgb(0xB65A38)};
        const Color clay = Ramp(kTones, Hash(column, Modulo(upper, 4), 341));
        const double bow = Light(-u / 11, 0);
        const double lip = 1 - 0.5 * SmoothStep(1.6, 0, end - v);
        const double under = 0.50 + 0.50 * SmoothStep(0, 9, v - 5);  // in the upper row's shadow
        const double grain = 1 + 0.08 * Fractal(x / 3, y / 2.5, 32, 32, 3, 343);
        const double side = 0.55 + 0.45 * SmoothStep(0, 1.2, kWidth / 2 - std::fabs(u));
        return clay * (Clamp(bow, 0.5, 1.25) * lip * under * grain * side);
    }
    return Rgb(0x3A1A12);
}

/// Tracks and pads of a printed circuit.
Color PaintCircuit(double x, double y) {
    constexpr double kCell = 16;
    constexpr int kCells = 8;
    const int column = static_cast<int>(std::floor(x / kCell)),
              row = static_cast<int>(std::floor(y / kCell));
    double track = 99, pad = 99;
    // Each cell's centre has a track to some of its eight neighbours.
    constexpr int kWays[4][2] = {{1, 0}, {0, 1}, {1, 1}, {1, -1}};
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const int from_x = column + dx, from_y = row + dy;
            const int key_x = Modulo(from_x, kCells), key_y = Modulo(from_y, kCells);
            const double cx = (from_x + 0.5) * kCell, cy = (from_y + 0.5) * kCell;
            const int way = static_cast<int>(Hash(key_x, key_y, 351) * 5);
            if (way < 4) {
                // A slanted track gives way where it would cross another.
                const int right_way = static_cast<int>(
                    Hash(Modulo(from_x, kCells), Modulo(from_y + kWays[way][1], kCells), 351) * 5);
                const bool crosses = way >= 2 && right_way == 5 - way;
                if (!crosses) {
                    const double hit = HitSegment(x, y, cx, cy, cx + kWays[way][0] * kCell,
                                                  cy + kWays[way][1] * kCell)
                                           .distance;
                    if (hit < track) track = hit;
                }
            }
            if (Hash(key_x, key_y, 353) < 0.42) {
                const double distance = std::sqrt((x - cx) * (x - cx) + (y - cy) * (y - cy));
                if (distance < pad) pad = distance;
            }
        }
    }
    const double weave = 1 + 0.04 * Sine(x * kPi / 2) * Sine(y * kPi / 2);
    Color color =
        Mix(Rgb(0x0E5A36), Rgb(0x0A4428), 0.5 + 0.5 * Noise(x / 32, y / 32, 4, 4, 355)) * weave;
    const double copper = track - 1.5;
    if (copper < 1.1) color = Mix(Rgb(0x2FA866), color, SmoothStep(0, 1.1, copper)) * 1.0;
    if (pad < 4.4) {
        color = pad < 1.7 ? Rgb(0x1A1F1C)
                          : Mix(Rgb(0xF2D98B), Rgb(0xA97F2E), SmoothStep(1.7, 4.4, pad));
    }
    return color;
}

/// Steel plate with raised lozenges.
Color PaintPlate(double x, double y) {
    constexpr double kPeriod = 32;
    const auto height = [](double px, double py) {
        double top = 0;
        for (int i = 0; i < 2; ++i) {
            const double dx = Nearest(px - 8 - i * 16, kPeriod),
                         dy = Nearest(py - 8 - i * 16, kPeriod);
            for (int way = 0; way < 2; ++way) {
                const double sx = way == 0 ? dx : Nearest(dx - 16, kPeriod);
                const double sign = way == 0 ? 1 : -1;
                const double along = (sx + sign * dy) * 0.70710678,
                             across = (dy - sign * sx) * 0.70710678;
                const double size = std::fabs(along) / 9.6;
                const double width = 3.1 * (1 - size * size);
                if (width <= 0) continue;
                const double rise = SmoothStep(0, 1, 1.35 * (1 - std::fabs(across) / width));
                if (rise > top) top = rise;
            }
        }
        return 2.6 * top;
    };
    const double light = Clamp(LightOf(height, x, y, 0.5), 0.35, 1.5);
    const double brushed =
        1 + 0.05 * Noise(x / 8, y * 1.5, 8, 96, 361) + 0.03 * Noise(x / 2, y * 2, 32, 128, 363);
    const Color steel = Mix(Rgb(0x8A929B), Rgb(0xAEB6BD), height(x, y) / 2.6);
    const Color lit = steel * (light * brushed);
    return Mix(lit, Rgb(0xFFFFFF), SmoothStep(1.12, 1.5, light) * 0.5);
}

/// A ring that leans to the right: how far a point is from its wire, and how high the
/// wire is there.
struct WireHit {
    double across, height;
};
WireHit HitRing(double dx, double dy) {
    const double distance = std::sqrt(dx * dx + dy * dy);
    return {(distance - 13.0) / 2.5, dx};
}

/// Rings through rings, as in a shirt of mail.
Color PaintMail(double x, double y) {
    constexpr double kWidth = 32, kRow = 16;
    Color color = Rgb(0x15171B);
    double best = -99;
    const int row = static_cast<int>(std::floor(y / kRow));
    for (int candidate = row - 1; candidate <= row + 2; ++candidate) {
        const bool is_even = Modulo(candidate, 2) == 0;
        const double shift = is_even ? 0 : kWidth / 2;
        for (int i = -1; i <= 1; ++i) {
            const double center_x = (std::floor((x - shift) / kWidth + 0.5) + i) * kWidth + shift;
            const double dx = x - center_x, dy = y - candidate * kRow;
            const WireHit hit = HitRing(dx, dy);
            if (std::fabs(hit.across) > 1 || hit.height < best) continue;
            best = hit.height;
            const double length = std::sqrt(dx * dx + dy * dy);
            const double tilt = hit.across * 1.1;
            const double light =
                Clamp(Light(tilt * dx / length * -1, tilt * dy / length * -1), 0.2, 1.5);
            const double round = std::sqrt(Clamp(1 - hit.across * hit.across, 0, 1));
            const Color steel = Mix(Rgb(0x3B4047), Rgb(0xB9C0C8), round);
            color = steel * (0.55 + 0.45 * round) * Clamp(1.6 - light, 0.35, 1.3);
            color = Mix(color, Rgb(0xFFFFFF),
                        SmoothStep(0.86, 1.0, round) * SmoothStep(0.3, 1.0, -dy / length) * 0.45);
        }
    }
    return color;
}

/// Chips of stone in cement, ground smooth.
Color PaintTerrazzo(double x, double y) {
    constexpr Color kChips[] = {Rgb(0xC65D47), Rgb(0xE3B04B), Rgb(0x2F5D62), Rgb(0x6B7A8F),
                                Rgb(0xF7F3EA), Rgb(0x3B3A3C), Rgb(0xD99A8B)};
    Color color = Rgb(0xE9E4DA) * (1 + 0.035 * Fractal(x / 2, y / 2, 64, 64, 2, 371));
    for (int layer = 0; layer < 2; ++layer) {
        const double scale = layer == 0 ? 16 : 8;
        const int cells = layer == 0 ? 8 : 16;
        const Cell cell = FindCell(x / scale, y / scale, cells, cells, 0.95, 373 + layer);
        const double pick = Hash(cell.column, cell.row, 375 + layer);
        if (pick > 0.72) continue;
        // A chip is a polygon: the nearest of a few straight cuts.
        double rim = 9;
        for (int cut = 0; cut < 5; ++cut) {
            const double angle =
                (cut + 0.7 * Hash(cell.column * 5 + cut, cell.row, 377)) * 2 * kPi / 5;
            const double reach = 0.20 + 0.20 * Hash(cell.column, cell.row * 5 + cut, 379);
            const double away = reach - (cell.from_x * Cosine(angle) + cell.from_y * Sine(angle));
            if (away < rim) rim = away;
        }
        const double gap = (cell.second - cell.nearest) / 2 - 0.02;
        if (gap < rim) rim = gap;
        if (rim < 0) continue;
        const Color chip = kChips[static_cast<int>(pick / 0.72 * 7)];
        color = chip * (0.96 + 0.10 * Fractal(x / 4, y / 4, 32, 32, 2, 381)) *
                (0.90 + 0.10 * SmoothStep(0, 0.06, rim));
    }
    return color;
}

struct GlazeRing {
    double radius;  ///< where it ends, in stones
    std::uint32_t glaze;
};

constexpr GlazeRing kMiddleRings[] = {
    {1.7, 0xD9902F}, {3.3, 0x8E2F2B}, {4.6, 0xE8C77A}, {6.2, 0x24647A}};
constexpr GlazeRing kCornerRings[] = {{1.9, 0x8E2F2B}, {3.2, 0x3F8C8C}};

/// The glaze of the ring at a distance from the rings' middle; `otherwise` outside of all.
std::uint32_t GlazeAt(std::span<const GlazeRing> rings, double distance, std::uint32_t otherwise) {
    for (const GlazeRing& ring : rings) {
        if (distance < ring.radius) return ring.glaze;
    }
    return otherwise;
}

/// Small glazed stones in a pattern of rings, with uneven joints.
Color PaintMosaic(double x, double y) {
    constexpr double kStone = 8;
    constexpr int kStones = 16;
    const Cell cell = FindCell(x / kStone, y / kStone, kStones, kStones, 0.34, 391);
    const double gap = cell.second - cell.nearest;
    // The pattern is reckoned at a stone's middle, so that each has one colour.
    const double px = (cell.column + 0.5) - 8, py = (cell.row + 0.5) - 8;
    const double dx = std::fabs(px), dy = std::fabs(py);
    const double radius = std::sqrt(px * px + py * py);
    const double corner = std::sqrt((8 - dx) * (8 - dx) + (8 - dy) * (8 - dy));
    const std::uint32_t plain =
        GlazeAt(kMiddleRings, radius, GlazeAt(kCornerRings, corner, 0xEFE7D3));
    Color glaze = Rgb(plain) * (0.86 + 0.24 * Hash(cell.column, cell.row, 393));
    const double joint = SmoothStep(0.10, 0.24, gap);
    const double gloss = SmoothStep(0.36, 0.10,
                                    std::sqrt((cell.from_x + 0.14) * (cell.from_x + 0.14) +
                                              (cell.from_y + 0.16) * (cell.from_y + 0.16)));
    glaze = Mix(glaze, Rgb(0xFFFFFF), gloss * 0.22);
    return Mix(Rgb(0x5F574C), glaze * (0.80 + 0.20 * SmoothStep(0.2, 0.5, gap)), joint);
}

constexpr TileDesign kTiles[] = {
    {"bricks", 128, 128, PaintBricks},     {"herringbone", 128, 128, PaintHerringbone},
    {"roof", 96, 80, PaintRoof},           {"circuit", 128, 128, PaintCircuit},
    {"plate", 64, 64, PaintPlate},         {"mail", 32, 32, PaintMail},
    {"terrazzo", 128, 128, PaintTerrazzo}, {"mosaic", 128, 128, PaintMosaic},
};

}  // namespace

std::span<const TileDesign> BuiltTiles() {
    return kTiles;
}

}  // namespace artwork
