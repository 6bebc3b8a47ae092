// Tiles of lines, circles and polygons.
#include "resources/artwork/tiles/tile_painting.h"

namespace artwork {

namespace {

/// Overlapping rows of rings, as waves are drawn on cloth.
Color PaintWaves(double x, double y) {
    constexpr double kRadius = 24, kRow = kRadius / 2;
    constexpr Color kDeep = Rgb(0x17395C), kFoam = Rgb(0xE9F1F2), kSea = Rgb(0x4C8FB5);
    // The lowest row whose disc covers the point lies on top.
    const int row = static_cast<int>(std::floor(y / kRow));
    for (int candidate = row + 2; candidate >= row - 1; --candidate) {
        const double center_y = candidate * kRow + kRadius - kRow;
        const double shift = Modulo(candidate, 2) == 0 ? 0 : kRadius;
        const double dx = Nearest(x - shift, 2 * kRadius), dy = y - center_y;
        const double distance = std::sqrt(dx * dx + dy * dy);
        if (distance > kRadius) continue;
        const double ring = distance / kRadius;
        if (ring > 0.93) return kFoam;
        if (ring > 0.70) return Mix(kSea, kDeep, (ring - 0.70) / 0.23 * 0.45);
        if (ring > 0.62) return kFoam;
        if (ring > 0.40) return Mix(kSea, kDeep, 0.25 + (ring - 0.40) / 0.22 * 0.4);
        if (ring > 0.32) return kFoam;
        return Mix(kSea, kDeep, 0.75);
    }
    return kDeep;
}

/// Honeycomb: cells of wax with rims that catch the light.
Color PaintHexagons(double x, double y) {
    constexpr double kWidth = 28, kHeight = 48;  // of two rows
    constexpr double kRoot3 = 1.7320508075688772;
    // In units where cells are regular, 1 from a centre to the middle of a side.
    const auto height = [&](double px, double py) {
        double edge = -9;
        for (int i = 0; i < 2; ++i) {
            const double dx = Nearest(px - i * kWidth / 2, kWidth) * 2 / kWidth;
            const double dy = Nearest(py - i * kHeight / 2, kHeight) * 2 * kRoot3 / kHeight;
            const double ax = std::fabs(dx), ay = std::fabs(dy);
            const double slanted = ax / 2 + ay * kRoot3 / 2;
            const double inside = 1 - (ax > slanted ? ax : slanted);
            if (inside > edge) edge = inside;
        }
        return edge;
    };
    const double edge = height(x, y);
    const double light = LightOf(
        [&](double px, double py) { return 4.5 * (1 - SmoothStep(0.04, 0.42, height(px, py))); }, x,
        y);
    const Color wax = Mix(Rgb(0xF6C64B), Rgb(0xB86A12), SmoothStep(0.08, 0.75, edge));
    return wax * Clamp(light, 0.45, 1.35);
}

/// Stars of eight points and the crosses between them.
Color PaintStars(double x, double y) {
    constexpr double kPeriod = 64;
    constexpr Color kStar = Rgb(0x1F6F78), kCross = Rgb(0xEFE3C2), kLine = Rgb(0x7A2E22),
                    kHeart = Rgb(0xD9A441);
    const double dx = std::fabs(Nearest(x - kPeriod / 2, kPeriod));
    const double dy = std::fabs(Nearest(y - kPeriod / 2, kPeriod));
    // A star is a square and the same half turned; its distance is the nearer of both.
    constexpr double kHalf = 22.6274;  // so that the points of two stars meet
    const double square = (dx > dy ? dx : dy) - kHalf;
    const double turned = (dx + dy) * 0.70710678 - kHalf;
    const double star = square < turned ? square : turned;
    const double both = square > turned ? square : turned;
    if (std::fabs(star) < 1.6) return kLine;
    if (star > 0) {
        const double cx = kPeriod / 2 - dx, cy = kPeriod / 2 - dy;
        const double corner = std::fabs(cx) + std::fabs(cy);
        if (std::fabs(corner - 7) < 0.9) return kLine;
        return corner < 7 ? kHeart : Mix(kCross, Rgb(0xD8C79A), SmoothStep(0, 14, star));
    }
    const double inner = both + 8;
    if (std::fabs(inner) < 1.0) return kCross;
    if (inner < 0) {
        const double heart = std::sqrt(dx * dx + dy * dy);
        if (heart < 5.2) return kHeart;
        return Mix(kHeart, kStar, SmoothStep(-15, -2, inner) * 0.55 + 0.45);
    }
    return kStar * (1 - 0.20 * SmoothStep(-6, 0, star));
}

/// Cubes seen from a corner.
Color PaintCubes(double x, double y) {
    constexpr double kWidth = 42, kHeight = 72;  // two rows of cubes
    constexpr Color kTop = Rgb(0xF2D7A0), kLeft = Rgb(0x5A7D9A), kRight = Rgb(0x2B3F55);
    const double u = x / kWidth * 2, v = y / kHeight * 4;  // a cube is 2 wide, rows 2 apart
    int row = static_cast<int>(std::floor(v / 2));
    double dx = Nearest(u - (Modulo(row, 2) == 0 ? 0 : 1), 2);
    double dy = v - row * 2.0;  // 0 at the back corner of the top
    // Above the top's two back edges is the row before.
    if (dy < std::fabs(dx) * 2.0 / 3 * 1) {
        const double limit = std::fabs(dx) * 2.0 / 3;
        if (dy < limit) {
            --row;
            dx = Nearest(u - (Modulo(row, 2) == 0 ? 0 : 1), 2);
            dy = v - row * 2.0;
        }
    }
    const double side = std::fabs(dx) * 2.0 / 3;
    const bool is_top = dy < 4.0 / 3 - side;
    if (is_top) return Mix(kTop, Rgb(0xFFF1CE), Clamp((2.0 / 3 - dy) * 0.9, 0, 1));
    const double depth = Clamp((dy - (4.0 / 3 - side)) / (4.0 / 3), 0, 1);
    return (dx < 0 ? kLeft : kRight) * (1.12 - 0.30 * depth);
}

/// Zigzag stripes.
Color PaintChevron(double x, double y) {
    constexpr Color kStripes[] = {Rgb(0x264653), Rgb(0x2A9D8F), Rgb(0xE9C46A),
                                  Rgb(0xF4A261), Rgb(0xE76F51), Rgb(0xFBF3E4)};
    const double fold = std::fabs(Nearest(x, 32));
    const double place = Modulo(y + fold, 72) / 12;
    const int stripe = static_cast<int>(place) % 6;
    const double shade = x - 32 * std::floor(x / 32) < 16 ? 1.0 : 0.90;
    return kStripes[stripe] * shade;
}

/// Quarter rings, each cell turned by chance.
Color PaintArcs(double x, double y) {
    constexpr double kCell = 16;
    constexpr int kCells = 8;
    constexpr Color kGround = Rgb(0x20303C), kLine = Rgb(0xF3B562), kEdge = Rgb(0x8C4A2F);
    const int column = Modulo(static_cast<int>(std::floor(x / kCell)), kCells);
    const int row = Modulo(static_cast<int>(std::floor(y / kCell)), kCells);
    double u = Modulo(x, kCell), v = Modulo(y, kCell);
    if (Hash(column, row, 4) < 0.5) u = kCell - u;
    const double first = std::fabs(std::sqrt(u * u + v * v) - kCell / 2);
    const double other_u = kCell - u, other_v = kCell - v;
    const double second = std::fabs(std::sqrt(other_u * other_u + other_v * other_v) - kCell / 2);
    const double distance = first < second ? first : second;
    if (distance < 2.2) return Mix(Rgb(0xFFE2AE), kLine, SmoothStep(0, 2.2, distance));
    if (distance < 3.3) return kEdge;
    return kGround * (0.80 + 0.35 * SmoothStep(3.3, 7, distance));
}

/// Dots that swell and shrink in two colours.
Color PaintDots(double x, double y) {
    constexpr double kSpacing = 16;
    constexpr Color kGround = Rgb(0xFDF6E3);
    constexpr Color kInks[] = {Rgb(0xD1495B), Rgb(0x00798C), Rgb(0xEDAE49)};
    Color color = kGround;
    for (int layer = 0; layer < 2; ++layer) {
        const double shift = layer * kSpacing / 2;
        const int column = Modulo(static_cast<int>(std::floor((x - shift) / kSpacing)), 6);
        const int row = Modulo(static_cast<int>(std::floor((y - shift) / kSpacing)), 6);
        const double dx = Modulo(x - shift, kSpacing) - kSpacing / 2;
        const double dy = Modulo(y - shift, kSpacing) - kSpacing / 2;
        const double swell =
            Sine((column + row) * kPi / 3 + layer) * 1.4 + (layer == 0 ? 4.6 : 2.6);
        if (std::sqrt(dx * dx + dy * dy) < swell)
            color = kInks[layer == 0 ? Modulo(column - row, 2) : 2];
    }
    return color;
}

/// Squares in squares that trade their colours: flat, and yet they bulge.
Color PaintSquares(double x, double y) {
    constexpr double kCell = 32;
    constexpr Color kLight = Rgb(0xF1EDE4), kDark = Rgb(0x1E1B2E), kAccent = Rgb(0xC8553D);
    const int column = static_cast<int>(std::floor(x / kCell));
    const int row = static_cast<int>(std::floor(y / kCell));
    const double dx = std::fabs(Modulo(x, kCell) - kCell / 2);
    const double dy = std::fabs(Modulo(y, kCell) - kCell / 2);
    const double ring = dx > dy ? dx : dy;
    if (ring < 2.5) return kAccent;
    const bool is_dark = (static_cast<int>(ring / 2.7) + column + row) % 2 == 0;
    const bool is_side = dx > dy;
    return is_dark ? kDark : kLight * (is_side ? 1.0 : 0.90);
}

/// Fish scales with a sheen.
Color PaintScales(double x, double y) {
    constexpr double kWidth = 24, kRow = 12;
    const int row = static_cast<int>(std::floor(y / kRow));
    for (int candidate = row + 1; candidate >= row - 2; --candidate) {
        // Rows above lie over those below, as on a fish that swims up.
        const int upper = 2 * row - candidate - 1;
        const double center_y = upper * kRow;
        const double shift = Modulo(upper, 2) == 0 ? 0 : kWidth / 2;
        const double dx = Nearest(x - shift, kWidth), dy = y - center_y;
        if (dy < 0) continue;
        const double distance = std::sqrt(dx * dx + dy * dy * 0.46);
        if (distance > kWidth / 2) continue;
        const int column = Modulo(static_cast<int>(std::floor((x - shift) / kWidth + 0.5)), 4);
        const double tone = Hash(column, Modulo(upper, 8), 9);
        constexpr Color kTones[] = {Rgb(0x0B6E69), Rgb(0x18A999), Rgb(0x3C6997), Rgb(0x5FB49C)};
        const Color base = Ramp(kTones, tone);
        const double rim = distance / (kWidth / 2);
        if (rim > 0.92) return base * 0.45;
        const double sheen = SmoothStep(0.35, 0.0, std::fabs(dx + 3.5) / 12) *
                             SmoothStep(0.1, 0.75, dy / 17) * (1 - SmoothStep(0.75, 0.95, rim));
        return Mix(base * (0.62 + 0.45 * SmoothStep(0, 16, dy)), Rgb(0xE8FFF4), sheen * 0.5);
    }
    return Rgb(0x0B3B3A);
}

/// Three-armed wheels turned into one another.
Color PaintPinwheels(double x, double y) {
    constexpr double kCell = 32;
    const int column = static_cast<int>(std::floor(x / kCell));
    const int row = static_cast<int>(std::floor(y / kCell));
    double u = Modulo(x, kCell) - kCell / 2, v = Modulo(y, kCell) - kCell / 2;
    if (((column + row) & 1) != 0) u = -u;
    constexpr Color kBlades[] = {Rgb(0x355070), Rgb(0x6D597A), Rgb(0xB56576), Rgb(0xE56B6F)};
    constexpr Color kPaper = Rgb(0xF7E8D0);
    const int quarter = u > 0 ? (v > 0 ? 2 : 1) : (v > 0 ? 3 : 0);
    for (int turn = 0; turn < quarter; ++turn) {
        const double old = u;  // turned back into the quarter at the top left
        u = v;
        v = -old;
    }
    const bool is_blade = v < u;
    return is_blade ? kBlades[quarter] * (1 - 0.012 * (-u)) : kPaper * (1 - 0.004 * (-v));
}

constexpr TileDesign kTiles[] = {
    {"waves", 48, 48, PaintWaves},     {"honeycomb", 56, 96, PaintHexagons},
    {"stars", 64, 64, PaintStars},     {"cubes", 84, 72, PaintCubes},
    {"chevron", 32, 72, PaintChevron}, {"arcs", 128, 128, PaintArcs},
    {"dots", 96, 96, PaintDots},       {"squares", 64, 64, PaintSquares},
    {"scales", 96, 96, PaintScales},   {"pinwheels", 64, 64, PaintPinwheels},
};

}  // namespace

std::span<const TileDesign> GeometricTiles() {
    return kTiles;
}

}  // namespace artwork
