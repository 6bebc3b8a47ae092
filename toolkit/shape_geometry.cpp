#include "toolkit/shape_geometry.h"

#include <algorithm>
#include <limits>

namespace tess {
namespace {

constexpr std::int64_t kMargin = 8;
constexpr std::int64_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();

constexpr std::int32_t Nearest(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp(value, kLeast, kMost));
}

constexpr std::int32_t Side(std::int64_t length) {
    return length < 1 || length > kMost ? 0 : static_cast<std::int32_t>(length);
}

std::int64_t BoxWidth(const ShapeRequest& request) {
    return std::int64_t{request.Right} - request.Left;
}

std::int64_t BoxHeight(const ShapeRequest& request) {
    return std::int64_t{request.Bottom} - request.Top;
}

/// What an ellipse or rectangle is laid out with, in full range.
struct InnerSize {
    std::int64_t start, width, height;
};

InnerSize Inner(const ShapeRequest& request) {
    const std::int64_t outline = request.OutlineWidth;
    return {outline / 2 + 4, BoxWidth(request) - outline, BoxHeight(request) - outline};
}

std::int32_t CenterAlong(std::int32_t length, std::int32_t percent) {
    const auto size = static_cast<float>(length);
    const float center = size * 0.5F + static_cast<float>(percent) * size * 0.5F / 100.0F;
    return TruncateToInt(center);
}

}  // namespace

std::int32_t TruncateToInt(float value) {
    // The ends of the range as numbers that a float holds.
    if (value >= 2147483648.0F) return std::numeric_limits<std::int32_t>::max();
    if (value < -2147483648.0F) return std::numeric_limits<std::int32_t>::min();
    return value == value ? static_cast<std::int32_t>(value) : 0;
}

ShapeSize ShapeBitmapSize(const ShapeRequest& request) {
    std::int64_t margin = kMargin;
    if (request.Op == ShapeOp::Gradient) {
        return {Side(request.GradientWidth), Side(request.GradientHeight)};
    }
    if (request.Op == ShapeOp::Line) {
        const std::int64_t width = request.LineWidth;
        margin += (width / 2 + width) * 2;
    }
    return {Side(BoxWidth(request) + margin), Side(BoxHeight(request) + margin)};
}

platform::VectorBox ShapeBox(const ShapeRequest& request) {
    const InnerSize inner = Inner(request);
    const std::int32_t start = Nearest(inner.start);
    return {start, start, Nearest(inner.width), Nearest(inner.height)};
}

std::int32_t CornerDiameter(const ShapeRequest& request) {
    const InnerSize inner = Inner(request);
    const std::int64_t shorter = std::min(inner.width, inner.height) - inner.start;
    return Nearest(shorter * request.CornerPercent / 100);
}

CornerArcs RoundedCorners(const ShapeRequest& request) {
    const InnerSize inner = Inner(request);
    const std::int32_t diameter = CornerDiameter(request);
    const std::int32_t left = Nearest(inner.start);
    const std::int32_t right = Nearest(inner.width - diameter);
    const std::int32_t bottom = Nearest(inner.height - diameter);
    return {{{{right, left, diameter, diameter}, 270},
             {{right, bottom, diameter, diameter}, 0},
             {{left, bottom, diameter, diameter}, 90},
             {{left, left, diameter, diameter}, 180}}};
}

LineEnds PlaceLine(const ShapeRequest& request) {
    const std::int64_t start = std::int64_t{request.LineWidth} + 4 + request.LineWidth / 2;
    const std::int64_t left = start - std::min(request.LineX1, request.LineX2);
    const std::int64_t top = start - std::min(request.LineY1, request.LineY2);
    return {{Nearest(left + request.LineX1), Nearest(top + request.LineY1)},
            {Nearest(left + request.LineX2), Nearest(top + request.LineY2)}};
}

platform::VectorPen LinePen(const ShapeRequest& request) {
    platform::VectorPen pen{ShapeArgb(request.LineColor), request.LineWidth};
    if (request.LineCap == 0) {
        pen.StartCap = pen.EndCap = platform::LineCap::Round;
    } else if (request.LineCap == kOwnLineCaps) {
        pen.StartCap = static_cast<platform::LineCap>(request.LineStartCap);
        pen.EndCap = static_cast<platform::LineCap>(request.LineEndCap);
    }
    return pen;
}

platform::VectorPoint GradientCenter(const ShapeRequest& request) {
    return {CenterAlong(request.GradientWidth, request.CentreX),
            CenterAlong(request.GradientHeight, request.CentreY)};
}

float TextEmSize(std::int32_t text_size) {
    return static_cast<float>(std::int64_t{text_size} * 88 / 100);
}

int TextStyle(const ShapeRequest& request) {
    return (request.TextBold != 0 ? platform::kBold : 0) |
           (request.TextItalic > 0 ? platform::kItalic : 0) |
           (request.TextUnderline > 0 ? platform::kUnderline : 0);
}

}  // namespace tess
