#include "tests/toolkit/shape_sprites/shape_requests.h"

#include <algorithm>

namespace tess::test {

StartedShapes::StartedShapes() {
    request_.Op = ShapeOp::Start;
    if (RunShapeRequest(&request_) == 0) request_.Token = 0;
}

StartedShapes::~StartedShapes() {
    request_.Op = ShapeOp::Stop;
    static_cast<void>(RunShapeRequest(&request_));
}

ShapeRequest ShapeOfSize(ShapeOp op, int width, int height) {
    ShapeRequest request{};
    request.Op = op;
    request.Left = 100;
    request.Top = -50;
    request.Right = 100 + width;
    request.Bottom = -50 + height;
    request.Smooth = 1;
    request.FillColor = request.OutlineColor = kNoShapeColor;
    request.PolygonFill = request.PolygonOutline = kNoShapeColor;
    return request;
}

ShapeRequest LineFrom(platform::VectorPoint from, platform::VectorPoint to, int width) {
    ShapeRequest request =
        ShapeOfSize(ShapeOp::Line, std::max(from.X, to.X) - std::min(from.X, to.X),
                    std::max(from.Y, to.Y) - std::min(from.Y, to.Y));
    request.LineX1 = from.X;
    request.LineY1 = from.Y;
    request.LineX2 = to.X;
    request.LineY2 = to.Y;
    request.LineWidth = width;
    request.LineCap = 1;
    request.LineColor = kWhite;
    return request;
}

ShapeRequest GradientOfSize(ShapeGradientKind kind, int width, int height, ColorWord first,
                            ColorWord second) {
    ShapeRequest request{};
    request.Op = ShapeOp::Gradient;
    request.Smooth = 1;
    request.GradientKind = kind;
    request.GradientWidth = width;
    request.GradientHeight = height;
    request.GradientColor1 = first;
    request.GradientColor2 = second;
    return request;
}

ShapeRequest TextOn(platform::TextTarget* target, const char* text, ShapeTextMode mode) {
    ShapeRequest request{};
    request.Op = ShapeOp::Text;
    request.Smooth = 1;
    request.FontName = "DejaVu Sans";
    request.Text = text;
    request.TextColor = kWhite;
    request.TextAlpha = 255;
    request.TextDc = target;
    request.TextMode = mode;
    return request;
}

ShapePicture::ShapePicture(ShapeRequest request)
    : block_(reinterpret_cast<ImageHandle>(RunShapeRequest(&request))) {}

int ShapePicture::Width() const {
    return LockedImage(block_.Get())->Width;
}

int ShapePicture::Height() const {
    return LockedImage(block_.Get())->Height;
}

ColorWord ShapePicture::At(int x, int y) const {
    return GetDibPixel(LockedImage(block_.Get()), x, y);
}

double ShapePicture::Area(ColorWord color) const {
    const LockedImage image(block_.Get());
    double area = 0;
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x) {
            const ColorWord pixel = GetDibPixel(image, x, y) & color;
            area += std::max({RedOf(pixel), GreenOf(pixel), BlueOf(pixel)}) / 255.0;
        }
    }
    return area;
}

ShapePicture::Extent ShapePicture::Covered() const {
    const LockedImage image(block_.Get());
    Extent extent{image->Width, image->Height, -1, -1};
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x) {
            if (GetDibPixel(image, x, y) == 0) continue;
            extent = {std::min(extent.left, x), std::min(extent.top, y), std::max(extent.right, x),
                      std::max(extent.bottom, y)};
        }
    }
    return extent;
}

}  // namespace tess::test
