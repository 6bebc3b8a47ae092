// arrow_strips FOLDER            draws the arrow strips of the direction pickers there
// arrow_strips --check FOLDER    compares the files that are there with the drawing
//
// A picture is 24 by 24 pixels; a picker shows its inner 20 by 20. An arrow is a dark
// shape with a light rim, so that it reads on the button's face and on its shadow
// colour. Each pixel's cover by shape and rim is counted over a grid of samples. A
// strip is a bitmap of 32 bits with alpha, not multiplied into the colours.

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int kPicture = 24;
constexpr int kSamples = 16;  // each way within a pixel

struct Point {
    double x, y;
};

/// Directions as unit vectors on the screen, y downwards.
constexpr double kDiagonal = 0.70710678118654752;
constexpr Point kUp{0, -1}, kRight{1, 0}, kDown{0, 1}, kLeft{-1, 0};
constexpr Point kUpLeft{-kDiagonal, -kDiagonal}, kUpRight{kDiagonal, -kDiagonal};
constexpr Point kDownLeft{-kDiagonal, kDiagonal}, kDownRight{kDiagonal, kDiagonal};

struct Arrow {
    Point direction;
    bool is_double;  // a head at both ends
};

struct Strip {
    const char* name;
    std::span<const Arrow> arrows;
};

// The orders are those of the pickers' cells.
constexpr Arrow kShadowDirections[] = {{kUpLeft, false}, {kUp, false},       {kUpRight, false},
                                       {kRight, false},  {kLeft, false},     {kDownLeft, false},
                                       {kDown, false},   {kDownRight, false}};
constexpr Arrow kScroll4[] = {{kUp, false}, {kRight, false}, {kLeft, false}, {kDown, false}};
constexpr Arrow kScroll2[] = {{kLeft, false}, {kRight, false}};
constexpr Arrow kScrollHv[] = {{kRight, true}, {kUp, true}};
constexpr Strip kStrips[] = {
    {"arrows_shadow.bmp", kShadowDirections},
    {"arrows_four_ways.bmp", kScroll4},
    {"arrows_two_ways.bmp", kScroll2},
    {"arrows_axes.bmp", kScrollHv},
};

struct Color {
    int red, green, blue;
};
constexpr Color kInk{31, 56, 96}, kRim{255, 255, 255};
constexpr double kRimWidth = 1.0;    // pixels
constexpr double kRimOpacity = 0.7;  // of 1

double DistanceToSegment(Point p, Point a, Point b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    double t = ((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy);
    t = t < 0 ? 0 : t > 1 ? 1 : t;
    const double ex = p.x - (a.x + t * dx), ey = p.y - (a.y + t * dy);
    return std::sqrt(ex * ex + ey * ey);
}

/// The distance to a polygon, 0 inside.
double DistanceToPolygon(Point p, std::span<const Point> corners) {
    bool is_inside = false;
    double nearest = 1000;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point a = corners[i], b = corners[(i + 1) % corners.size()];
        const double distance = DistanceToSegment(p, a, b);
        if (distance < nearest) nearest = distance;
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y)) {
            is_inside = !is_inside;
        }
    }
    return is_inside ? 0 : nearest;
}

// An arrow that points along x, its middle at 0.
constexpr double kTip = 7.5, kHead = 7.0, kHeadHalf = 6.0, kShaftHalf = 2.0;
constexpr double kDoubleTip = 8.0, kDoubleHead = 5.5, kDoubleHeadHalf = 5.0;
constexpr std::array<Point, 7> kSingleArrow = {{{kTip, 0},
                                                {kTip - kHead, kHeadHalf},
                                                {kTip - kHead, kShaftHalf},
                                                {-kTip, kShaftHalf},
                                                {-kTip, -kShaftHalf},
                                                {kTip - kHead, -kShaftHalf},
                                                {kTip - kHead, -kHeadHalf}}};
constexpr std::array<Point, 10> kDoubleArrow = {{{kDoubleTip, 0},
                                                 {kDoubleTip - kDoubleHead, kDoubleHeadHalf},
                                                 {kDoubleTip - kDoubleHead, kShaftHalf},
                                                 {kDoubleHead - kDoubleTip, kShaftHalf},
                                                 {kDoubleHead - kDoubleTip, kDoubleHeadHalf},
                                                 {-kDoubleTip, 0},
                                                 {kDoubleHead - kDoubleTip, -kDoubleHeadHalf},
                                                 {kDoubleHead - kDoubleTip, -kShaftHalf},
                                                 {kDoubleTip - kDoubleHead, -kShaftHalf},
                                                 {kDoubleTip - kDoubleHead, -kDoubleHeadHalf}}};

double DistanceToArrow(Point p, const Arrow& arrow) {
    // Turned so that the arrow points along x.
    const Point turned{p.x * arrow.direction.x + p.y * arrow.direction.y,
                       p.y * arrow.direction.x - p.x * arrow.direction.y};
    return arrow.is_double ? DistanceToPolygon(turned, kDoubleArrow)
                           : DistanceToPolygon(turned, kSingleArrow);
}

/// The pixel as blue, green, red, alpha.
std::array<std::uint8_t, 4> PixelOf(const Arrow& arrow, int x, int y) {
    int ink = 0, rim = 0;
    for (int i = 0; i < kSamples * kSamples; ++i) {
        const double sample_x = x + (i % kSamples + 0.5) / kSamples - kPicture / 2;
        const double sample_y = y + (i / kSamples + 0.5) / kSamples - kPicture / 2;
        const double distance = DistanceToArrow({sample_x, sample_y}, arrow);
        if (distance <= 0) {
            ++ink;
        } else if (distance < kRimWidth) {
            ++rim;
        }
    }
    const double cover = ink + rim * kRimOpacity;
    if (cover <= 0) return {0, 0, 0, 0};
    const auto mix = [&](int ink_channel, int rim_channel) {
        const double sum = ink_channel * ink + rim_channel * rim * kRimOpacity;
        return static_cast<std::uint8_t>(sum / cover + 0.5);
    };
    return {mix(kInk.blue, kRim.blue), mix(kInk.green, kRim.green), mix(kInk.red, kRim.red),
            static_cast<std::uint8_t>(cover * 255 / (kSamples * kSamples) + 0.5)};
}

void AddNumber(std::string* bytes, std::uint32_t number, int size) {
    for (int i = 0; i < size; ++i)
        bytes->push_back(static_cast<char>(number >> (8 * i) & 255));
}

/// The bitmap file of a strip, its bottom row first.
std::string FileOf(const Strip& strip) {
    constexpr std::uint32_t kHeaders = 54;
    const auto width = static_cast<std::uint32_t>(strip.arrows.size()) * kPicture;
    const std::uint32_t pixel_bytes = width * kPicture * 4;
    std::string file = "BM";
    AddNumber(&file, kHeaders + pixel_bytes, 4);
    AddNumber(&file, 0, 4);
    AddNumber(&file, kHeaders, 4);
    AddNumber(&file, 40, 4);
    AddNumber(&file, width, 4);
    AddNumber(&file, kPicture, 4);
    AddNumber(&file, 1, 2);
    AddNumber(&file, 32, 2);
    AddNumber(&file, 0, 4);
    AddNumber(&file, pixel_bytes, 4);
    for (int i = 0; i < 4; ++i)
        AddNumber(&file, 0, 4);
    for (int y = kPicture - 1; y >= 0; --y) {
        for (const Arrow& arrow : strip.arrows) {
            for (int x = 0; x < kPicture; ++x) {
                for (const std::uint8_t byte : PixelOf(arrow, x, y))
                    file.push_back(static_cast<char>(byte));
            }
        }
    }
    return file;
}

bool Check(const std::string& path, const std::string& drawing) {
    std::ifstream stream(path, std::ios::binary);
    const std::string file{std::istreambuf_iterator<char>(stream), {}};
    if (file == drawing) return true;
    std::fprintf(stderr, "%s is not what this program draws\n", path.c_str());
    return false;
}

bool Write(const std::string& path, const std::string& drawing) {
    std::ofstream stream(path, std::ios::binary);
    stream << drawing;
    if (stream.flush()) return true;
    std::fprintf(stderr, "%s cannot be written\n", path.c_str());
    return false;
}

}  // namespace

int main(int count, char** arguments) {
    const bool is_check = count == 3 && std::string_view(arguments[1]) == "--check";
    if (count != 2 && !is_check) {
        std::fprintf(stderr, "usage: arrow_strips [--check] FOLDER\n");
        return 2;
    }
    const std::string folder = std::string(arguments[count - 1]) + "/";
    bool is_done = true;
    for (const Strip& strip : kStrips) {
        const std::string path = folder + strip.name;
        is_done = (is_check ? Check : Write)(path, FileOf(strip)) && is_done;
    }
    return is_done ? 0 : 1;
}
