// Spokes are wide lines on a canvas four times the size, which is then scaled down.
// A spoke is 35 percent as thick as the gap between spokes is wide, counted in
// canvas pixels for a wheel of the tile's size, and thinner in smaller wheels.
//
// The angle of a spoke is a whole number of degrees that grows with the tick beyond
// full turns. Reduced by whole turns it would give the same sine and cosine but for
// the last bits, and those can move the cut end of a spoke by a pixel.
#include "styles/wheel_mask.h"

#include <algorithm>

#include "raster/lines.h"
#include "runtime/mathematics.h"
#include "styles/supersampled_drawing.h"

namespace tess {

namespace {

constexpr int kCanvasFactor = 4;

/// What all spokes of a wheel have in common, in canvas pixels.
struct WheelMeasures {
    int side, center;
    int angle;  // degrees between spokes
    int thickness;
    double outer, inner;  // distances of a spoke's ends from the centre
};

struct Spoke {
    raster::Point outer, inner;
};

WheelMeasures Measure(const WheelLook& look) {
    WheelMeasures wheel{};
    wheel.side = kCanvasFactor * look.Size;
    wheel.center = wheel.side / 2;
    wheel.angle = 360 / look.Spokes;
    const int full_thickness = wheel.angle * 35 / 100 * kCanvasFactor;
    const double thickness = static_cast<double>(full_thickness) * look.Size / look.TileSize;
    wheel.thickness = std::clamp(static_cast<int>(thickness), 4, 40);
    wheel.outer = wheel.center - wheel.thickness;
    wheel.inner = wheel.center - wheel.side * 25 / 100;
    return wheel;
}

/// Place of spoke `index` at `tick`.
Spoke PlaceSpoke(const WheelMeasures& wheel, int tick, int index) {
    constexpr double kRadiansPerDegree = 0.017453292519943295;
    const double radians = (wheel.angle * tick + wheel.angle * index) * kRadiansPerDegree;
    const double s = runtime::Sine(radians);
    const double c = runtime::Cosine(radians);
    const auto place = [&](double distance) {
        return raster::Point{static_cast<int>(distance * s) + wheel.center,
                             static_cast<int>(-distance * c) + wheel.center};
    };
    return {place(wheel.outer), place(wheel.inner)};
}

bool AreEqual(raster::Point a, raster::Point b) {
    return a.x == b.x && a.y == b.y;
}

}  // namespace

ImageHandle RenderWheelMask(const WheelLook& look) {
    const WheelMeasures wheel = Measure(look);
    SupersampledDrawing drawing(wheel.side, wheel.side);
    if (!drawing) return nullptr;
    drawing.Fill(raster::kBlackBrush);
    raster::DrawingContext& context = drawing.Context();
    for (int i = 0; i < look.Spokes; ++i) {
        const int grey = i * 255 / look.Spokes * look.Peak / 255;
        context.pen = raster::SolidPen(wheel.thickness, MakeColor(grey, grey, grey));
        const Spoke spoke = PlaceSpoke(wheel, look.Tick, i);
        raster::MoveToEx(context, spoke.outer.x, spoke.outer.y);
        raster::LineTo(context, spoke.inner.x, spoke.inner.y);
    }
    return drawing.TakeScaled(100 / kCanvasFactor);
}

bool IsSameTurn(const WheelLook& look, int other_tick) {
    if (look.Tick == other_tick) return true;
    if ((look.Tick - other_tick) % look.Spokes != 0) return false;
    const WheelMeasures wheel = Measure(look);
    for (int i = 0; i < look.Spokes; ++i) {
        const Spoke spoke = PlaceSpoke(wheel, look.Tick, i);
        const Spoke other = PlaceSpoke(wheel, other_tick, i);
        if (!AreEqual(spoke.outer, other.outer) || !AreEqual(spoke.inner, other.inner)) {
            return false;
        }
    }
    return true;
}

}  // namespace tess
