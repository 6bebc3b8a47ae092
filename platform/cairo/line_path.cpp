#include "platform/cairo/line_path.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace platform {
namespace {

struct Place {
    double x, y;
};

/// Draws in coordinates where the line's end is the origin, the line comes in along the x
/// axis and 1 is half of the line's width. Every figure runs the same way round, so that
/// they add up when filled by winding.
class EndPainter {
public:
    EndPainter(cairo_t* context, Place end, Place direction, double half_width)
        : context_(context),
          end_(end),
          along_{direction.x * half_width, direction.y * half_width} {}

    void Figure(std::initializer_list<Place> corners) {
        cairo_new_sub_path(context_);
        for (const Place& corner : corners) {
            const Place at = Map(corner);
            cairo_line_to(context_, at.x, at.y);
        }
        cairo_close_path(context_);
    }

    void Circle(double radius) {
        const double length = std::hypot(along_.x, along_.y);
        cairo_new_sub_path(context_);
        cairo_arc(context_, end_.x, end_.y, radius * length, 0, 2 * std::numbers::pi);
        cairo_close_path(context_);
    }

    [[nodiscard]] Place Map(Place place) const {
        return {end_.x + place.x * along_.x - place.y * along_.y,
                end_.y + place.x * along_.y + place.y * along_.x};
    }

private:
    cairo_t* context_;
    Place end_;
    Place along_;
};

/// An arrow is an equilateral triangle, twice as high as the line is wide.
constexpr double kArrowLength = 4;
constexpr double kArrowHalfBase = kArrowLength * std::numbers::inv_sqrt3;

void AppendEnd(EndPainter& painter, LineCap cap) {
    switch (cap) {
        case LineCap::Square:
            painter.Figure({{0, -1}, {1, -1}, {1, 1}, {0, 1}});
            break;
        case LineCap::Round:
            painter.Circle(1);
            break;
        case LineCap::Triangle:
            painter.Figure({{0, -1}, {1, 0}, {0, 1}});
            break;
        case LineCap::SquareAnchor:
            painter.Figure({{-std::numbers::sqrt2, -std::numbers::sqrt2},
                            {std::numbers::sqrt2, -std::numbers::sqrt2},
                            {std::numbers::sqrt2, std::numbers::sqrt2},
                            {-std::numbers::sqrt2, std::numbers::sqrt2}});
            break;
        case LineCap::RoundAnchor:
            painter.Circle(2);
            break;
        case LineCap::DiamondAnchor:
            painter.Figure({{-2, 0}, {0, -2}, {2, 0}, {0, 2}});
            break;
        case LineCap::ArrowAnchor:
            painter.Figure(
                {{-kArrowLength, -kArrowHalfBase}, {0, 0}, {-kArrowLength, kArrowHalfBase}});
            break;
        case LineCap::Flat:
            break;
    }
}

/// How far before its end, in half widths, the line itself stops: under an arrow it
/// would stick out beside the tip.
double Inset(LineCap cap) {
    return cap == LineCap::ArrowAnchor ? kArrowLength : 0;
}

}  // namespace

void AppendLineOutline(cairo_t* context, const VectorPen& pen, VectorPoint from, VectorPoint to) {
    const double half_width = std::max(pen.Width, 1) / 2.0;
    const Place start{static_cast<double>(from.X), static_cast<double>(from.Y)};
    const Place end{static_cast<double>(to.X), static_cast<double>(to.Y)};
    const double length = std::hypot(end.x - start.x, end.y - start.y);
    const Place way =
        length > 0 ? Place{(end.x - start.x) / length, (end.y - start.y) / length} : Place{1, 0};
    EndPainter at_end(context, end, way, half_width);
    EndPainter at_start(context, start, {-way.x, -way.y}, half_width);
    AppendEnd(at_start, pen.StartCap);
    AppendEnd(at_end, pen.EndCap);

    const double start_inset = Inset(pen.StartCap);
    const double end_inset = Inset(pen.EndCap);
    if ((start_inset + end_inset) * half_width >= length) return;
    // Seen from the end, the start lies at minus the length.
    const double far = -length / half_width + start_inset;
    at_end.Figure({{far, -1}, {-end_inset, -1}, {-end_inset, 1}, {far, 1}});
}

}  // namespace platform
