// One frame of Shaped Fountain as it is described: every ring drawn in its colour
// on a fresh canvas. All in a header, since only tests from styles/ up can link it.
#pragma once

#include <cmath>

#include "fills/fountain.h"
#include "pipeline/image_scaling.h"
#include "raster/shapes.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

struct PlainShapes {
    int Size;
    bool Reverse;
    int Shape;  ///< 0 circle, 1 diamond, 3 biscuit, else square
};

[[nodiscard]] inline ImageHandle PlainShapedFountain(const Fountain& fountain,
                                                     const PlainShapes& shapes, double phase) {
    const platform::OwnedBlock strip(RenderFountainImage(fountain, 256, 1));
    const int n = static_cast<int>(phase * 256.0);
    const platform::OwnedBlock ramp(shapes.Reverse ? RollImageRight(strip.Get(), n)
                                                   : RollImageLeft(strip.Get(), n));
    const LockedImage colors(ramp.Get());
    DibCanvas canvas;
    if (!colors || DibCanvasOpen(4 * shapes.Size, 4 * shapes.Size, &canvas) == 0) return nullptr;
    raster::DrawingContext& context = canvas.MemoryDC;
    context.pen = raster::kNullPen;
    const int c = 4 * shapes.Size / 2;
    for (int i = 0; i < c; ++i) {
        const double t = static_cast<double>(i) / c;
        const ColorWord color = GetDibPixel(colors, static_cast<int>(t * 256.0), 0) & kColorBits;
        context.brush = raster::SolidBrush(color);
        const int a = static_cast<int>(c * t + 0.5);
        if (shapes.Shape == 0) {
            const double corner = std::sqrt(static_cast<double>(c * c + c * c));
            const int r = static_cast<int>(corner * (1 - t) + 0.5);
            raster::Ellipse(context, c - r, c - r, c + r, c + r);
        } else if (shapes.Shape == 1) {
            const int r = 2 * c - static_cast<int>(2 * c * t + 0.5);
            const raster::Point points[] = {
                {c - r, c}, {c, c - r}, {c + r, c}, {c, c + r}, {c - r, c}};
            raster::Polygon(context, points);
        } else if (shapes.Shape == 3) {
            raster::RoundRect(context, a, a, 2 * c - a, 2 * c - a, a, a);
        } else {
            raster::FillRect(context, {a, a, 2 * c - a, 2 * c - a}, context.brush);
        }
    }
    const platform::OwnedBlock large(DibCanvasClose(&canvas, CanvasClose::Keep));
    return ScaleImagePercent(large.Get(), 25, 25);
}

}  // namespace tess::test
