// The four shapes of a gradient.
//
// Linear: a rectangle 2 pixels larger than the picture on every side is rotated
// about the centre and cut into 256 bands, which are drawn as polygons in the order
// of the smallest rotated y. A band's lower edge is rounded up, so bands overlap
// and leave no gap. Bands on the same pixels cover each other wholly, so only the
// last of a run is drawn.
//
// Conical: 256 levels of the angle between each pixel and the start, the same on
// both sides of it.
//
// Elliptical and rectangular: as many shapes as there are pixels from the centre to
// a corner, each painted over the one before it.
#include "fills/gradient.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "raster/shapes.h"
#include "runtime/mathematics.h"

namespace tess {

namespace {

/// The colours of a gradient's steps, from its ramp where it has one.
class StepColors {
public:
    StepColors(ColorWord first, ColorWord second) : first_(first), second_(second) {}

    /// Takes the ramp of `gradient`, if it is not null. Returns false without memory.
    bool Open(const Gradient* gradient, int count) {
        if (gradient == nullptr) return true;
        ramp_.Reset(BuildGradientRamp(*gradient, count));
        return static_cast<bool>(ramp_);
    }

    /// Step `index` of the ramp, black outside it; without a ramp the part `t` of the
    /// way from the first colour to the second.
    [[nodiscard]] ColorWord At(int index, double t) const {
        if (!ramp_) return Mix(t);
        const LockedRamp ramp(ramp_.Get());
        if (!ramp || index < 0 || static_cast<std::uint32_t>(index) >= ramp->Count) return 0;
        return ramp->Colors()[index] & kColorBits;
    }

private:
    [[nodiscard]] ColorWord Mix(double t) const {
        const auto mix = [t](int from, int to) {
            return static_cast<int>(to * t + from * (1.0 - t));
        };
        return MakeColor(mix(RedOf(first_), RedOf(second_)), mix(GreenOf(first_), GreenOf(second_)),
                         mix(BlueOf(first_), BlueOf(second_)));
    }

    ColorWord first_, second_;
    platform::OwnedBlock ramp_;
};

/// A canvas that is thrown away unless it is kept.
class GradientCanvas {
public:
    GradientCanvas(int width, int height) : is_open_(DibCanvasOpen(width, height, &canvas_) != 0) {
        canvas_.MemoryDC.pen = raster::kNullPen;
    }
    GradientCanvas(const GradientCanvas&) = delete;
    GradientCanvas& operator=(const GradientCanvas&) = delete;
    ~GradientCanvas() {
        if (is_open_) DibCanvasClose(&canvas_, CanvasClose::Discard);
    }

    explicit operator bool() const { return is_open_; }
    /// The context, with a brush of this colour and no pen.
    raster::DrawingContext& Brush(ColorWord color) {
        canvas_.MemoryDC.brush = raster::SolidBrush(color);
        return canvas_.MemoryDC;
    }
    void Fill(ColorWord color) {
        raster::FillRect(canvas_.MemoryDC, canvas_.Bounds, raster::SolidBrush(color));
    }
    [[nodiscard]] ImageHandle Keep() {
        is_open_ = false;
        return DibCanvasClose(&canvas_, CanvasClose::Keep);
    }

private:
    DibCanvas canvas_;
    bool is_open_;
};

/// A place as a whole number. One so far away that it is outside every picture, which
/// the centre of a record from a file can be, would not fit into one.
int PlaceOf(double place) {
    constexpr double kFarthest = 1'000'000'000.0;
    return static_cast<int>(std::clamp(place, -kFarthest, kFarthest));
}

constexpr int kBands = 256;
constexpr int kMargin = 2;

using BandOutline = std::array<raster::Point, 5>;

bool IsSameOutline(const BandOutline& left, const BandOutline& right) {
    return std::equal(
        left.begin(), left.end(), right.begin(),
        [](const raster::Point& a, const raster::Point& b) { return a.x == b.x && a.y == b.y; });
}

/// Where the bands of a linear gradient lie.
class Bands {
public:
    Bands(int width, int height, int rotation) : center_x_(width / 2), center_y_(height / 2) {
        constexpr float kDegree = 0.01745328F;
        const float angle = static_cast<float>(rotation) * kDegree;
        cosine_ = static_cast<float>(runtime::Cosine(double{angle}));
        sine_ = static_cast<float>(runtime::Sine(double{angle}));
        const int left = -kMargin - center_x_, right = width + kMargin - center_x_;
        const int top = -kMargin - center_y_, bottom = height + kMargin - center_y_;
        const raster::Point corners[] = {Rotate(left, top), Rotate(right, top),
                                         Rotate(right, bottom), Rotate(left, bottom)};
        const auto [low_x, high_x] = std::minmax_element(std::begin(corners), std::end(corners),
                                                         [](auto a, auto b) { return a.x < b.x; });
        const auto [low_y, high_y] = std::minmax_element(std::begin(corners), std::end(corners),
                                                         [](auto a, auto b) { return a.y < b.y; });
        left_ = low_x->x - center_x_;
        right_ = high_x->x - center_x_;
        top_ = low_y->y - center_y_;
        span_ = static_cast<float>(high_y->y - low_y->y);
        step_ = span_ * 0.00390625F;
    }

    [[nodiscard]] int Count() const { return static_cast<int>(span_ / step_ + 0.5); }

    /// How far band `index` lies from the first, 0 to 1. The span is a small whole
    /// number and the step its 256th part, so this is exact.
    [[nodiscard]] static double Part(int index) { return index / double{kBands}; }

    [[nodiscard]] BandOutline Outline(int index) const {
        const float position = static_cast<float>(index) * step_;
        const int top = static_cast<int>(position) + top_;
        const int bottom = static_cast<int>(std::ceil(position + step_)) + top_;
        const raster::Point first = Rotate(left_, top);
        return {first, Rotate(right_, top), Rotate(right_, bottom), Rotate(left_, bottom), first};
    }

private:
    /// Every product and sum in single precision.
    [[nodiscard]] raster::Point Rotate(int column, int row) const {
        const auto x = static_cast<float>(column);
        const auto y = static_cast<float>(row);
        const float turned_x = x * cosine_ - y * sine_;
        const float turned_y = y * cosine_ + x * sine_;
        return {static_cast<int>(turned_x) + center_x_, static_cast<int>(turned_y) + center_y_};
    }

    int center_x_, center_y_;
    float cosine_, sine_;
    int left_, right_, top_;
    float span_, step_;
};

constexpr int kLevels = 256;

/// The angle of a pixel round a sweep's centre in degrees, 0 to 360.
float SweepAngle(int across, int down) {
    constexpr double kDegrees = 57.29577951308232;
    if (across == 0) return down > 0 ? 270.0F : 90.0F;
    const auto slope = static_cast<float>(static_cast<double>(down) / across);
    auto angle = static_cast<float>(runtime::ArcTangent(double{slope}) * kDegrees);
    if (across > 0) angle += 180.0F;
    while (angle < 0.0F)
        angle += 360.0F;
    return angle;
}

/// How far the angle is from the sweep's start, 0 to kLevels. Below the start all is 0.
int SweepLevel(float angle, int spin) {
    // Exact, and so the same as taking whole turns away one by one.
    float turned = std::fmod(angle + static_cast<float>(spin), 360.0F);
    if (turned > 180.0F) turned = 360.0F - turned;
    return std::clamp(static_cast<int>(turned / 180.0 * kLevels), 0, kLevels);
}

using BoxShape = void (*)(raster::DrawingContext& context, int left, int top, int right,
                          int bottom);

struct NestedBox {
    float left, top, right, bottom;
};

ImageHandle DrawNestedShapes(BoxShape shape, const raster::Rect& size, const raster::Point& center,
                             StepColors& colors, const Gradient* gradient) {
    constexpr double kRootOfTwo = 1.4142135623730951;
    const int half_width = size.right / 2, half_height = size.bottom / 2;
    const auto sum = static_cast<float>(half_width) * static_cast<float>(half_width) +
                     static_cast<float>(half_height) * static_cast<float>(half_height);
    const int count = static_cast<int>(std::sqrt(double{sum}) + 0.5);

    GradientCanvas canvas(size.right, size.bottom);
    if (!canvas || !colors.Open(gradient, count)) return nullptr;
    canvas.Fill(colors.At(0, 0.0));
    // A picture of one pixel has no steps, and a step's size would be a division by
    // zero.
    if (count == 0) return canvas.Keep();

    const auto width = static_cast<float>(size.right * kRootOfTwo);
    const auto height = static_cast<float>(size.bottom * kRootOfTwo);
    NestedBox box{static_cast<float>(half_width) - width / 2.0F,
                  static_cast<float>(half_height) - height / 2.0F,
                  static_cast<float>(half_width) + width / 2.0F,
                  static_cast<float>(half_height) + height / 2.0F};
    const auto steps = static_cast<float>(count);
    const float step_x = width / 2.0F / steps, step_y = height / 2.0F / steps;
    const float drift_x = width / steps * static_cast<float>(center.x) / 100.0F;
    const float drift_y = height / steps * static_cast<float>(center.y) / 100.0F;
    for (int i = 0; i < count; ++i) {
        shape(canvas.Brush(colors.At(i, static_cast<double>(i) / count)), PlaceOf(double{box.left}),
              PlaceOf(double{box.top}), PlaceOf(double{box.right}), PlaceOf(double{box.bottom}));
        box.left += step_x + drift_x;
        box.top += step_y + drift_y;
        box.right += drift_x - step_x;
        box.bottom += drift_y - step_y;
    }
    return canvas.Keep();
}

}  // namespace

ImageHandle DrawLinearGradient(ColorWord first, ColorWord second, int width, int height,
                               int rotation, const Gradient* gradient) {
    GradientCanvas canvas(width, height);
    if (!canvas) return nullptr;
    const Bands bands(width, height, rotation);
    StepColors colors(second, first);  // the first colour is at the far end
    if (!colors.Open(gradient, bands.Count())) return nullptr;
    BandOutline outline = bands.Outline(0);
    for (int i = 0; i < kBands; ++i) {
        const BandOutline next = i + 1 < kBands ? bands.Outline(i + 1) : BandOutline{};
        if (i + 1 == kBands || !IsSameOutline(outline, next)) {
            raster::Polygon(canvas.Brush(colors.At(i, Bands::Part(i))), outline);
        }
        outline = next;
    }
    return canvas.Keep();
}

ImageHandle DrawConicalGradient(ColorWord first, ColorWord second, int width, int height, int x,
                                int y, int rotation, const Gradient* gradient) {
    constexpr int kRampColors = 360;
    platform::OwnedBlock picture(NewPackedDib(width, height, nullptr, 24));
    StepColors colors(first, second);
    const LockedImage image(picture.Get());
    if (!image || !colors.Open(gradient, kRampColors)) return nullptr;
    ColorWord by_level[kLevels + 1];
    for (int level = 0; level <= kLevels; ++level) {
        const double part = level * 0.00390625;
        by_level[level] = colors.At(static_cast<int>(part * (kRampColors - 1)), part);
    }
    int spin = 360 - rotation;
    if (spin < 0) spin += 360;
    const int center_x = PlaceOf((x / 100.0 + 0.5) * width);
    const int center_y = PlaceOf((0.5 - y / 100.0) * height);
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            const float angle = SweepAngle(column - center_x, row - center_y);
            SetDibPixel(image, column, row, by_level[SweepLevel(angle, spin)]);
        }
    }
    return picture.Release();
}

ImageHandle DrawEllipticalGradient(ColorWord first, ColorWord second, int width, int height, int x,
                                   int y, const Gradient* gradient) {
    StepColors colors(first, second);
    return DrawNestedShapes(raster::Ellipse, {0, 0, width, height}, {x, y}, colors, gradient);
}

ImageHandle DrawRectangularGradient(ColorWord first, ColorWord second, int width, int height, int x,
                                    int y, const Gradient* gradient) {
    StepColors colors(first, second);
    return DrawNestedShapes(raster::Rectangle, {0, 0, width, height}, {x, y}, colors, gradient);
}

ImageHandle RenderGradient(int width, int height, const Gradient& gradient) {
    const ColorWord start = gradient.StartColor, end = gradient.EndColor;
    const int x = gradient.CenterX, y = gradient.CenterY;
    // A record from a file may hold anything. From about a million degrees on single
    // precision cannot tell an angle's tenths, and the largest could not be turned back.
    constexpr int kMostRotation = 1'000'000;
    const int rotation = std::clamp(std::int32_t{gradient.Rotation}, -kMostRotation, kMostRotation);
    switch (gradient.Type) {
        case GradientType::Conical:
            return DrawConicalGradient(start, end, width, height, x, y, rotation, &gradient);
        case GradientType::Elliptical:
            return DrawEllipticalGradient(start, end, width, height, x, y, &gradient);
        case GradientType::Rectangular:
            return DrawRectangularGradient(start, end, width, height, x, y, &gradient);
        case GradientType::Linear:
        default:
            return DrawLinearGradient(start, end, width, height, rotation, &gradient);
    }
}

}  // namespace tess
