// Tiles of what grows, flows and lies about.
#include "resources/artwork/tiles/tile_painting.h"

namespace artwork {

namespace {

constexpr double kSide = 128;  // of every tile in this file

/// Fair-weather clouds.
Color PaintClouds(double x, double y) {
    const double u = x / 32, v = y / 32;  // 4 waves across
    const double warp = 0.5 * Fractal(u, v, 4, 4, 3, 60);
    const double density = Fractal(u + warp, v + warp * 0.6, 4, 4, 6, 21);
    const double above = Fractal(u + warp - 0.12, v + warp * 0.6 - 0.16, 4, 4, 6, 21);
    const double cover = SmoothStep(-0.08, 0.50, density);
    const double light = Clamp(0.90 + (density - above) * 0.55, 0.70, 1.06);
    const Color sky = Mix(Rgb(0x3F86CE), Rgb(0x77B1E6), 0.5 + 0.5 * Noise(u / 2, v / 2, 2, 2, 5));
    return Mix(sky, Rgb(0xFBFCFF) * light, cover);
}

/// White marble with grey veins.
Color PaintMarble(double x, double y) {
    const double u = x / 64, v = y / 64;
    const double warp_x = Fractal(u, v, 2, 2, 4, 31), warp_y = Fractal(u, v, 2, 2, 4, 37);
    // Two families of veins, broad and fine, along the slopes of warped stripes.
    const double broad = std::fabs(Sine((x + y) / kSide * 2 * kPi + warp_x * 4.5));
    const double fine = std::fabs(Sine((x - 2 * y) / kSide * 2 * kPi + warp_y * 5.5 + 1));
    const double cloud = 0.5 + 0.5 * Fractal(u * 2 + warp_y * 0.5, v * 2, 4, 4, 4, 50);
    const double depth = 0.35 + 0.65 * SmoothStep(-0.5, 0.7, warp_y);
    Color stone = Mix(Rgb(0xDAD8D4), Rgb(0xF9F7F3), cloud);
    stone = Mix(Rgb(0x8B8F96), stone, 1 - (1 - SmoothStep(0, 0.42, broad)) * 0.55 * depth);
    stone = Mix(Rgb(0x4E535B), stone, 1 - (1 - SmoothStep(0, 0.10, broad)) * 0.60 * depth);
    stone = Mix(Rgb(0x80765F), stone, 1 - (1 - SmoothStep(0, 0.09, fine)) * 0.42 * (1.2 - depth));
    return stone;
}

/// Planks of pine with their rings.
Color PaintPlanks(double x, double y) {
    constexpr double kWidth = 32;
    const int plank = Modulo(static_cast<int>(std::floor(x / kWidth)), 4);
    const double across = Modulo(x, kWidth);
    const double start = Hash(plank, 0, 7) * kSide;
    const double along = Modulo(y - start, kSide);
    const double bend = Noise(across / 32, y / 32, 1000, 4, 200 + plank) * 5 +
                        Noise(across / 16, y / 64, 1000, 2, 220 + plank) * 3;
    // A knot that the rings run around.
    const double knot_y = Nearest(along - 40 - 50 * Hash(plank, 1, 7), kSide) * 0.42;
    const double knot_x = across - 10 - 12 * Hash(plank, 2, 7);
    const double knot = std::sqrt(knot_x * knot_x + knot_y * knot_y);
    const bool has_knot = Hash(plank, 3, 7) < 0.6;
    const double around = has_knot ? 9 / (1 + knot * knot / 26) : 0;
    const double ring = Modulo((across + bend) / 4.3 + around + Hash(plank, 4, 7), 1.0);
    const double late = SmoothStep(0.25, 0.92, ring) * (1 - SmoothStep(0.92, 1.0, ring));
    const double fiber = Noise(across * 1.3, y / 9.142857, 1000, 14, 240 + plank);
    Color wood = Mix(Rgb(0xE3B778), Rgb(0xA9713A), late * 0.62 + 0.10 * fiber);
    wood = wood * (0.90 + 0.20 * Hash(plank, 5, 7));
    if (has_knot) wood = Mix(Rgb(0x5A3418), wood, SmoothStep(1.2, 4.4, knot));
    const double seam = across < kWidth / 2 ? across : kWidth - across;
    const double end = along < kSide / 2 ? along : kSide - along;
    const double gap = seam < end ? seam : end;
    return wood * (0.34 + 0.66 * SmoothStep(0.4, 1.7, gap));
}

/// Handmade paper with fibres in it.
Color PaintPaper(double x, double y) {
    const double grain = Fractal(x / 4, y / 4, 32, 32, 3, 70);
    const double cloud = Fractal(x / 32, y / 32, 4, 4, 3, 80);
    const double relief = Light(Fractal(x / 3.2 + 0.2, y / 3.2, 40, 40, 2, 90) * 0.22 -
                                    Fractal(x / 3.2 - 0.2, y / 3.2, 40, 40, 2, 90) * 0.22,
                                Fractal(x / 3.2, y / 3.2 + 0.2, 40, 40, 2, 90) * 0.22 -
                                    Fractal(x / 3.2, y / 3.2 - 0.2, 40, 40, 2, 90) * 0.22);
    Color paper = Mix(Rgb(0xEADFC8), Rgb(0xF6EFDF), 0.5 + 0.5 * cloud) * (1 + 0.018 * grain);
    paper = paper * (0.55 + 0.45 * relief);
    for (int fiber = 0; fiber < 34; ++fiber) {
        const double angle = Hash(fiber, 0, 71) * 2 * kPi;
        const double half = 3 + 7 * Hash(fiber, 1, 71);
        const double dx = Nearest(x - Hash(fiber, 2, 71) * kSide, kSide);
        const double dy = Nearest(y - Hash(fiber, 3, 71) * kSide, kSide);
        const double along = dx * Cosine(angle) + dy * Sine(angle);
        const double curve = (Hash(fiber, 4, 71) - 0.5) * 0.16;
        const double across =
            dy * Cosine(angle) - dx * Sine(angle) - curve * (along * along - half * half / 3);
        if (std::fabs(along) > half) continue;
        const double ink =
            (1 - SmoothStep(0.1, 0.9, std::fabs(across))) * (0.25 + 0.35 * Hash(fiber, 5, 71));
        const bool is_dark = fiber % 3 != 0;
        paper = Mix(paper, is_dark ? Rgb(0x9A7E55) : Rgb(0xFFFDF6), ink);
    }
    return paper;
}

/// A leaf's own place: from its base to its tip, -1 to 1, and to the sides.
struct LeafHit {
    double along, across, rim;
};
LeafHit HitLeaf(double dx, double dy, double angle, double length) {
    const double along = (dx * Cosine(angle) + dy * Sine(angle)) / length;
    const double across = (dy * Cosine(angle) - dx * Sine(angle)) / length;
    const double width = 0.42 * (1 - along * along) * (1.0 - 0.25 * along);
    return {along, across, width > 0 ? 1 - std::fabs(across) / width : -1};
}

/// Fallen leaves over one another.
Color PaintLeaves(double x, double y) {
    Color color = Rgb(0x2B1D12) * (0.9 + 0.25 * Fractal(x / 8, y / 8, 16, 16, 3, 101));
    constexpr Color kHues[] = {Rgb(0xB5481B), Rgb(0xD98324), Rgb(0xE6B04A),
                               Rgb(0x8A3B1E), Rgb(0x7C8B3A), Rgb(0xC2602B)};
    for (int leaf = 0; leaf < 90; ++leaf) {
        const double angle = Hash(leaf, 0, 102) * 2 * kPi;
        const double length = 13 + 7 * Hash(leaf, 1, 102);
        const double dx = Nearest(x - Hash(leaf, 2, 102) * kSide, kSide);
        const double dy = Nearest(y - Hash(leaf, 3, 102) * kSide, kSide);
        if (dx * dx + dy * dy > 30 * 30) continue;
        const LeafHit shadow = HitLeaf(dx - 1.6, dy - 2.0, angle, length);
        const LeafHit hit = HitLeaf(dx, dy, angle, length);
        const bool is_leaf = std::fabs(hit.along) < 1 && hit.rim > 0;
        const bool is_stem =
            hit.along <= -0.98 && hit.along > -1.35 && std::fabs(hit.across) < 0.035;
        if (is_leaf || is_stem) {
            const Color hue = kHues[static_cast<int>(Hash(leaf, 4, 102) * 6)];
            const double side = hit.across * (hit.across * 0.4 > 0 ? 1 : -1);
            const double rib = std::fabs(Nearest(hit.along * 5 - side * 9, 1.0));
            const double vein = std::fabs(hit.across) < 0.028 ? 0 : SmoothStep(0.05, 0.16, rib);
            const double fold = hit.across > 0 ? 1.08 : 0.88;
            const double spots = 1 + 0.10 * Noise(x / 3.2, y / 3.2, 40, 40, leaf);
            color = Mix(hue * 0.72, hue, 0.35 + 0.65 * vein) *
                    (fold * spots * (0.78 + 0.26 * SmoothStep(0, 0.5, hit.rim)));
        } else if (std::fabs(shadow.along) < 1 && shadow.rim > 0) {
            color = color * (1 - 0.45 * SmoothStep(0, 0.25, shadow.rim));
        }
    }
    return color;
}

/// Round stones in sand.
Color PaintCobbles(double x, double y) {
    constexpr double kScale = 16;  // 8 stones across
    const auto height = [](double px, double py) {
        const Cell cell = FindCell(px / kScale, py / kScale, 8, 8, 0.72, 111);
        const double gap = cell.second - cell.nearest;
        return 6.0 * SmoothStep(-0.1, 0.8, gap);
    };
    const Cell cell = FindCell(x / kScale, y / kScale, 8, 8, 0.72, 111);
    const double gap = cell.second - cell.nearest;
    if (gap < 0.075) return Rgb(0x6B5F4C) * (0.62 + 0.25 * Fractal(x / 2, y / 2, 64, 64, 2, 113));
    constexpr Color kTones[] = {Rgb(0x8F8B86), Rgb(0xB0A99D), Rgb(0xC8BBA5), Rgb(0x9C9386),
                                Rgb(0xA6AFB2)};
    const Color stone = Ramp(kTones, Hash(cell.column, cell.row, 114));
    const double light = Clamp(LightOf(height, x, y, 0.6), 0.55, 1.35);
    const double speckle = 1 + 0.10 * Fractal(x / 3.2, y / 3.2, 40, 40, 3, 115);
    return stone * (light * speckle * (0.62 + 0.38 * SmoothStep(0.07, 0.22, gap)));
}

/// Light on the floor of a pool.
Color PaintWater(double x, double y) {
    const double sway_x = 5 * Fractal(x / 32, y / 32, 4, 4, 2, 121);
    const double sway_y = 5 * Fractal(x / 32, y / 32, 4, 4, 2, 127);
    double glow = 0;
    for (int layer = 0; layer < 2; ++layer) {
        const double scale = layer == 0 ? 32 : 21.333333333333332;
        const int cells = layer == 0 ? 4 : 6;
        const Cell cell =
            FindCell((x + sway_x) / scale, (y + sway_y) / scale, cells, cells, 0.9, 131 + layer);
        const double web = 1 - SmoothStep(0, 0.34, cell.second - cell.nearest);
        glow += web * web * (layer == 0 ? 0.75 : 0.45);
    }
    const double depth = 0.5 + 0.5 * Fractal(x / 64, y / 64, 2, 2, 3, 141);
    return Mix(Mix(Rgb(0x0C6F9C), Rgb(0x22A2BF), depth), Rgb(0xE4FBF4), Clamp(glow * 0.85, 0, 1));
}

/// A clear night.
Color PaintNight(double x, double y) {
    const double haze = Fractal(x / 42.666666666666664, y / 42.666666666666664, 3, 3, 5, 151);
    const double dust = Fractal(x / 21.333333333333332, y / 21.333333333333332, 6, 6, 4, 161);
    Color sky = Mix(Rgb(0x0A0F24), Rgb(0x2B2A5E), SmoothStep(-0.3, 0.9, haze));
    sky = Mix(sky, Rgb(0x6B4A7E), SmoothStep(0.15, 1.0, haze) * SmoothStep(-0.2, 0.7, dust) * 0.75);
    for (int star = 0; star < 120; ++star) {
        const double dx = Nearest(x - Hash(star, 0, 173) * kSide, kSide);
        const double dy = Nearest(y - Hash(star, 1, 173) * kSide, kSide);
        const double distance = std::sqrt(dx * dx + dy * dy);
        if (distance > 9) continue;
        const bool is_large = star < 7;
        const double size = is_large ? 1.5 : 0.40 + 0.62 * Hash(star, 2, 173);
        double shine = 1 - SmoothStep(size * 0.4, size, distance);
        if (is_large) {
            const double ray =
                (1 - SmoothStep(0, 0.7, std::fabs(dx))) * (1 - SmoothStep(1, 7, std::fabs(dy))) +
                (1 - SmoothStep(0, 0.7, std::fabs(dy))) * (1 - SmoothStep(1, 7, std::fabs(dx)));
            shine = Clamp(shine + ray * 0.75 + 0.25 * (1 - SmoothStep(0, 6, distance)), 0, 1);
        }
        constexpr Color kHues[] = {Rgb(0xFFFFFF), Rgb(0xCFE0FF), Rgb(0xFFE9C4)};
        sky = Mix(sky, kHues[star % 3], shine * (0.55 + 0.45 * Hash(star, 3, 173)));
    }
    return sky;
}

/// Wind-blown sand.
Color PaintSand(double x, double y) {
    const auto height = [](double px, double py) {
        const double warp =
            9 * Fractal(px / 42.666666666666664, py / 42.666666666666664, 3, 3, 3, 181);
        const double wave = (py + px / 4 + warp) / kSide * 8;  // 8 ripples down, 2 across
        const double phase = Modulo(wave, 1.0);
        const double crest = phase < 0.68 ? phase / 0.68 : (1 - phase) / 0.32;
        return 5.2 * crest * crest * (3 - 2 * crest) +
               0.6 * Fractal(px / 8, py / 8, 16, 16, 2, 191);
    };
    const double light = Clamp(LightOf(height, x, y, 0.7), 0.5, 1.35);
    const double grain = 1 + 0.075 * Noise(x * 0.9375, y * 0.9375, 120, 120, 195);
    return Mix(Rgb(0xB98B52), Rgb(0xF0D6A2), SmoothStep(0.55, 1.25, light)) * grain;
}

/// Cloth that hides its wearer in a wood.
Color PaintCamouflage(double x, double y) {
    const auto blot = [&](int seed) { return Fractal(x / 32, y / 25.6, 4, 5, 3, seed); };
    Color color = Rgb(0x8A8458);
    if (blot(201) > 0.10) color = Rgb(0x4C5B34);
    if (blot(211) > 0.24) color = Rgb(0x6A4B2F);
    if (blot(221) > 0.36) color = Rgb(0x23271E);
    const double thread = std::fabs(Nearest(x + y, 2)) + std::fabs(Nearest(x - y, 4)) * 0.5;
    return color * (0.92 + 0.07 * thread);
}

constexpr TileDesign kTiles[] = {
    {"clouds", 128, 128, PaintClouds}, {"marble", 128, 128, PaintMarble},
    {"planks", 128, 128, PaintPlanks}, {"paper", 128, 128, PaintPaper},
    {"leaves", 128, 128, PaintLeaves}, {"cobbles", 128, 128, PaintCobbles},
    {"water", 128, 128, PaintWater},   {"night", 128, 128, PaintNight},
    {"sand", 128, 128, PaintSand},     {"camouflage", 128, 128, PaintCamouflage},
};

}  // namespace

std::span<const TileDesign> NaturalTiles() {
    return kTiles;
}

}  // namespace artwork
