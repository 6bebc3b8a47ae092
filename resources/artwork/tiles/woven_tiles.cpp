// Tiles of threads and ribbons.
#include "resources/artwork/tiles/tile_painting.h"

namespace artwork {

namespace {

/// How bright a round thread is across its width; `across` runs from -1 to 1.
double RoundThread(double across) {
    return 0.45 + 0.62 * std::sqrt(Clamp(1 - across * across, 0, 1));
}

/// Broad strips of willow over and under one another, two at a time.
Color PaintBasket(double x, double y) {
    constexpr double kCell = 24;  // a block of three strips
    const int column = static_cast<int>(std::floor(x / kCell));
    const int row = static_cast<int>(std::floor(y / kCell));
    const bool is_level = ((column + row) & 1) == 0;
    const double along = Modulo(is_level ? x : y, kCell), across = Modulo(is_level ? y : x, kCell);
    const int strip = static_cast<int>(across / 8);
    const double side = Modulo(across, 8) / 4 - 1;
    const int key_x = Modulo(column, 4) * 3 + strip, key_y = Modulo(row, 4);
    const double tone = 0.86 + 0.24 * Hash(key_x, key_y, is_level ? 1 : 2);
    const double bulge = 1 - 0.38 * (along / 12 - 1) * (along / 12 - 1);
    const double grain = 1 + 0.05 * Sine(along * 0.9 + key_x * 2.1) * Sine(across * 2.3 + key_y);
    if (std::fabs(side) > 0.90) return Rgb(0x4A2C12) * bulge;
    return Rgb(0xD9A860) * (tone * bulge * grain * (0.62 + 0.42 * RoundThread(side)));
}

/// Rows of knitted stitches.
Color PaintKnit(double x, double y) {
    constexpr double kStitch = 16, kRow = 14;
    const int column = static_cast<int>(std::floor(x / kStitch));
    const double half = Modulo(x, kStitch) - kStitch / 2;
    const double slope = std::fabs(half) * 0.9;  // both legs run down to the middle
    const double leg = Modulo(y + slope, kRow);
    const int row = Modulo(static_cast<int>(std::floor((y + slope) / kRow)), 8);
    const double side = leg / kRow * 2 - 1;
    const double middle = std::fabs(half) / (kStitch / 2) * 2 - 1;
    const double edge = 1 - middle * middle;
    constexpr Color kRed = Rgb(0xB3303B), kWhite = Rgb(0xF4ECE0);
    // A row of small diamonds every eight rows.
    const int place = Modulo(column, 6);
    const int arm = place < 3 ? place : 6 - place;
    const bool is_white = row == 0 || row == 6 || (row == 3 && arm < 3) ||
                          ((row == 2 || row == 4) && arm < 2) ||
                          ((row == 1 || row == 5) && arm < 1);
    const double twist = 1 + 0.07 * Sine((leg + half * 0.5) * 2.2);
    const double light = (0.50 + 0.55 * RoundThread(side)) * (0.72 + 0.32 * edge) * twist;
    return (is_white ? kWhite : kRed) * light;
}

/// The width that a thread has in a tartan, by its place in the sett.
Color TartanThread(int thread) {
    constexpr Color kGreen = Rgb(0x1E4D38), kBlue = Rgb(0x1B2A52), kRed = Rgb(0xB5282F),
                    kYellow = Rgb(0xE5C445), kBlack = Rgb(0x14161B), kWhite = Rgb(0xECE8DC);
    const int place = Modulo(thread, 64) < 32 ? Modulo(thread, 64) : 63 - Modulo(thread, 64);
    if (place < 2) return kYellow;
    if (place < 10) return kGreen;
    if (place < 12) return kBlack;
    if (place < 14) return kRed;
    if (place < 16) return kBlack;
    if (place < 26) return kBlue;
    if (place < 28) return kRed;
    return place < 30 ? kBlue : kWhite;
}

/// A tartan in twill: each thread goes over two and under two.
Color PaintTartan(double x, double y) {
    constexpr double kThread = 2;
    const int warp = static_cast<int>(std::floor(x / kThread));
    const int weft = static_cast<int>(std::floor(y / kThread));
    const bool is_warp = Modulo(warp + weft, 4) < 2;
    const double side = Modulo(is_warp ? x : y, kThread) / (kThread / 2) - 1;
    return TartanThread(is_warp ? warp : weft) * (0.88 + 0.20 * (RoundThread(side) - 0.45));
}

/// Houndstooth as cloth makes it: four dark, four light, in twill.
Color PaintHoundstooth(double x, double y) {
    constexpr double kThread = 4;
    const int warp = static_cast<int>(std::floor(x / kThread));
    const int weft = static_cast<int>(std::floor(y / kThread));
    const bool is_warp = Modulo(warp - weft, 4) < 2;
    const bool is_dark = Modulo(is_warp ? warp : weft, 8) < 4;
    const double along = Modulo(x + y, 1.6) / 0.8 - 1;
    const double light = 0.96 + 0.06 * (1 - along * along);
    return (is_dark ? Rgb(0x23242B) : Rgb(0xF0EBDF)) * light;
}

/// Diamonds in three wools with thin crossing lines.
Color PaintArgyle(double x, double y) {
    constexpr double kWidth = 48, kHeight = 72;
    const double u = x / kWidth, v = y / kHeight;
    const double a = Modulo(u + v, 1.0), b = Modulo(u - v, 1.0);
    const bool first = a < 0.5, second = b < 0.5;
    constexpr Color kNavy = Rgb(0x2C3E5C), kSand = Rgb(0xE7D8B9), kWine = Rgb(0x8C2F39);
    Color color = first == second ? (first ? kNavy : kWine) : kSand;
    const double line_a = std::fabs(Nearest(u + v - 0.25, 0.5)) * 40;
    const double line_b = std::fabs(Nearest(u - v - 0.25, 0.5)) * 40;
    const double dash = Modulo(u * 24, 1.0);
    if ((line_a < 0.75 || line_b < 0.75) && dash < 0.72) color = first == second ? kSand : kNavy;
    const double rib = std::fabs(Nearest(x, 3)) / 1.5;
    return color * (1.03 - 0.13 * rib * rib);
}

/// Twill of carbon, dark and glossy.
Color PaintCarbon(double x, double y) {
    constexpr double kTow = 8;
    const int column = static_cast<int>(std::floor(x / kTow));
    const int row = static_cast<int>(std::floor(y / kTow));
    const bool is_upright = Modulo(column + row, 4) < 2;
    // Where the tow dives at its two ends.
    const int phase = Modulo(column + row, 2);
    const double along = (Modulo(is_upright ? y : x, kTow) + (is_upright   ? 1 - phase
                                                              : phase == 0 ? 0
                                                                           : 1) *
                                                                 kTow) /
                         (2 * kTow);
    const double side = Modulo(is_upright ? x : y, kTow) / (kTow / 2) - 1;
    const double near_crest = Clamp(1 - std::fabs(along - 0.42) * 1.9, 0, 1);
    const double gloss = near_crest * near_crest;
    const double fiber = 1 + 0.10 * Sine(Modulo(is_upright ? x : y, kTow) * 4.7);
    const double edge = std::fabs(side) > 0.9 ? 0.55 : 1;
    const Color base = is_upright ? Rgb(0x2A2E35) : Rgb(0x1C1F25);
    return Mix(base, Rgb(0x8E99A8), gloss * 0.62) *
           (fiber * edge * (0.75 + 0.3 * RoundThread(side)));
}

/// One wavy ribbon of a plait: its distance from the middle and whether it is above.
struct RibbonHit {
    double side, height;
};
RibbonHit HitRibbon(double along, double across, double phase) {
    constexpr double kPeriod = 64, kSwing = 13, kHalf = 6.5;
    const double angle = along / kPeriod * 2 * kPi + phase;
    const double slope = kSwing * 2 * kPi / kPeriod * Cosine(angle);
    const double side = Nearest(across - kSwing * Sine(angle), 64) / std::sqrt(1 + slope * slope);
    return {side / kHalf, Cosine(2 * angle + phase)};
}

/// Ribbons that wind about each other.
Color PaintPlait(double x, double y) {
    constexpr Color kGround = Rgb(0x25202D);
    constexpr Color kRibbons[] = {Rgb(0xD8B25C), Rgb(0xB04A5A), Rgb(0x4F8A8B), Rgb(0xE6DCC8)};
    double best = -9;
    Color color = kGround * (0.85 + 0.25 * Noise(x / 4, y / 4, 16, 16, 3));
    for (int i = 0; i < 4; ++i) {
        const double phase = (i & 1) == 0 ? 0 : kPi;
        const RibbonHit hit = HitRibbon(y, x - (i < 2 ? 16 : 48), phase);
        const double size = std::fabs(hit.side);
        if (size > 1.35) continue;
        // At a crossing the ribbon whose turn it is lies above.
        const double turn = Cosine(y / 64 * 2 * kPi) * ((i & 1) == 0 ? 1 : -1);
        if (size > 1) {
            if (best < -1 && turn > -2) color = color * (0.55 + 0.45 * SmoothStep(1, 1.35, size));
            continue;
        }
        if (turn < best) continue;
        best = turn;
        const double fold = 0.70 + 0.30 * (turn * 0.5 + 0.5);
        const double hem = size > 0.72 && size < 0.86 ? 0.74 : 1;
        color = kRibbons[i] * (fold * hem * (0.60 + 0.42 * RoundThread(hit.side)));
    }
    return color;
}

/// Tufted leather with buttons.
Color PaintQuilt(double x, double y) {
    constexpr double kWidth = 48, kHeight = 64;
    const auto height = [](double px, double py) {
        const double u = px / kWidth, v = py / kHeight;
        const double pillow = std::fabs(Sine(kPi * (u + v)) * Sine(kPi * (u - v)));
        return 8.5 * std::sqrt(pillow);
    };
    const double u = x / kWidth, v = y / kHeight;
    const double dx = Nearest(u, 1.0) * kWidth, dy = Nearest(v, 1.0) * kHeight;
    const double ex = Nearest(u - 0.5, 1.0) * kWidth, ey = Nearest(v - 0.5, 1.0) * kHeight;
    const double one = std::sqrt(dx * dx + dy * dy), other = std::sqrt(ex * ex + ey * ey);
    const double button = one < other ? one : other;
    if (button < 4.2) {
        const double side = one < other ? dx + dy : ex + ey;
        return Mix(Rgb(0x7A3C24), Rgb(0xE8B48A), Clamp(0.35 - side / 9, 0, 1));
    }
    // From above, so that both seams of a diamond look alike.
    const double slope = (height(x, y + 0.6) - height(x, y - 0.6)) / 1.2;
    const double light = Clamp(1.02 - 1.15 * slope / std::sqrt(slope * slope + 1), 0.42, 1.6);
    const double pores = 1 + 0.05 * Noise(x / 1.5, y / 2, 64, 64, 8);
    const Color leather = Rgb(0x9C4F2E) * (light * pores);
    return Mix(leather, Rgb(0xFFE0C4), SmoothStep(1.15, 1.6, light) * 0.45);
}

/// Coarse linen: plain weave of uneven threads.
Color PaintLinen(double x, double y) {
    constexpr double kThread = 4;
    constexpr int kThreads = 24;
    const double sway_x = 0.7 * Noise(x / 12, y / 32, 8, 3, 1);
    const double sway_y = 0.7 * Noise(x / 32, y / 12, 3, 8, 2);
    const double u = x + sway_x, v = y + sway_y;
    const int warp = Modulo(static_cast<int>(std::floor(u / kThread)), kThreads);
    const int weft = Modulo(static_cast<int>(std::floor(v / kThread)), kThreads);
    const bool is_warp = ((warp + weft) & 1) == 0;
    const double side = Modulo(is_warp ? u : v, kThread) / 2 - 1;
    const double along = Modulo(is_warp ? v : u, kThread) / 2 - 1;
    const double tone = 0.90 + 0.22 * Hash(is_warp ? warp : 90, is_warp ? 90 : weft, 3);
    const double slub = 1 + 0.10 * Noise(x / 6, y / 6, 16, 16, 5);
    return Rgb(0xC9B896) *
           (tone * slub * (0.58 + 0.42 * RoundThread(side)) * (1.04 - 0.22 * along * along));
}

constexpr TileDesign kTiles[] = {
    {"basket", 96, 96, PaintBasket},   {"knit", 96, 112, PaintKnit},
    {"tartan", 128, 128, PaintTartan}, {"houndstooth", 32, 32, PaintHoundstooth},
    {"argyle", 48, 72, PaintArgyle},   {"carbon", 32, 32, PaintCarbon},
    {"plait", 64, 64, PaintPlait},     {"leather", 96, 64, PaintQuilt},
    {"linen", 96, 96, PaintLinen},
};

}  // namespace

std::span<const TileDesign> WovenTiles() {
    return kTiles;
}

}  // namespace artwork
