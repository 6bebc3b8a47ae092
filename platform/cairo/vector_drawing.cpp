// platform/vector_drawing.h over Cairo, for the native build's programs that ask for it.
//
// Cairo counts from the corners of pixels and GDI+ from their middles, so all is drawn
// half a pixel further right and down. Text is not: it is placed by its box.
#include "platform/vector_drawing.h"

#include <algorithm>

#include "platform/block_guards.h"
#include "platform/cairo/cairo_objects.h"
#include "platform/cairo/gradient_pixels.h"
#include "platform/cairo/line_path.h"
#include "platform/cairo/pixel_rows.h"

namespace platform {
namespace {

constexpr double kHalfPixel = 0.5;
/// Cairo keeps places in 24 bits before the binary point, and strokes need room.
constexpr std::int32_t kFarthest = 1 << 20;
/// How far the handles of a quarter circle lie along its tangents, of the radius.
constexpr double kQuarterHandle = 0.5522847498307936;

constexpr std::int32_t Near(std::int32_t place) {
    return std::clamp(place, -kFarthest, kFarthest);
}

constexpr VectorPoint Near(VectorPoint point) {
    return {Near(point.X), Near(point.Y)};
}

void AppendQuarter(cairo_t* context, const VectorBox& box, int start) {
    cairo_matrix_t turn;
    cairo_matrix_init_rotate(&turn, start * (3.14159265358979323846 / 180));
    const double radius_x = Near(box.Width) * 0.5;
    const double radius_y = Near(box.Height) * 0.5;
    double x[4] = {1, 1, kQuarterHandle, 0};
    double y[4] = {0, kQuarterHandle, 1, 1};
    for (int i = 0; i < 4; ++i) {
        cairo_matrix_transform_point(&turn, &x[i], &y[i]);
        x[i] = Near(box.X) + radius_x + x[i] * radius_x;
        y[i] = Near(box.Y) + radius_y + y[i] * radius_y;
    }
    cairo_line_to(context, x[0], y[0]);
    cairo_curve_to(context, x[1], y[1], x[2], y[2], x[3], y[3]);
}

void AppendEllipse(cairo_t* context, const VectorBox& box) {
    cairo_new_sub_path(context);
    for (int start = 0; start < 360; start += 90) {
        AppendQuarter(context, box, start);
    }
    cairo_close_path(context);
}

void AppendRectangle(cairo_t* context, const VectorBox& box) {
    cairo_rectangle(context, Near(box.X), Near(box.Y), Near(box.Width), Near(box.Height));
}

void AppendPolygon(cairo_t* context, const VectorPoint* points, int count) {
    cairo_new_sub_path(context);
    for (int i = 0; i < count; ++i) {
        const VectorPoint point = Near(points[i]);
        cairo_line_to(context, point.X, point.Y);
    }
    cairo_close_path(context);
}

void Stroke(cairo_t* context, const VectorPen& pen) {
    SetColor(context, pen.Color);
    cairo_set_line_width(context, std::clamp(pen.Width, 1, kFarthest));
    cairo_set_line_join(
        context, pen.Join == LineJoin::Round ? CAIRO_LINE_JOIN_ROUND : CAIRO_LINE_JOIN_MITER);
    cairo_set_line_cap(context,
                       pen.StartCap == LineCap::Round ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    cairo_stroke_preserve(context);
}

void Fill(cairo_t* context, Argb color, cairo_fill_rule_t rule = CAIRO_FILL_RULE_EVEN_ODD) {
    SetColor(context, color);
    cairo_set_fill_rule(context, rule);
    cairo_fill_preserve(context);
}

/// Keeps the path that is being built aside, for as long as a shape is drawn.
class PathAside {
public:
    explicit PathAside(cairo_t* context) : context_(context), path_(cairo_copy_path(context)) {
        cairo_new_path(context_);
    }
    PathAside(const PathAside&) = delete;
    PathAside& operator=(const PathAside&) = delete;
    ~PathAside() {
        cairo_new_path(context_);
        cairo_append_path(context_, path_.get());
    }

private:
    cairo_t* context_;
    CairoPath path_;
};

}  // namespace

void SetColor(cairo_t* context, Argb color) {
    cairo_set_source_rgba(context, (color >> 16 & 255) / 255.0, (color >> 8 & 255) / 255.0,
                          (color & 255) / 255.0, (color >> 24) / 255.0);
}

struct VectorDrawing::State {
    int width, height;
    WorkArray<std::uint32_t> pixels;
    CairoSurface surface{};
    CairoContext context{};
    VectorBox figure{};  ///< what the path was last given
    bool figure_is_ellipse = false;
    bool is_whole = true;

    [[nodiscard]] CairoSurface SurfaceOn(WorkArray<std::uint32_t>& array) const {
        return CairoSurface(
            cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(array.data()),
                                                CAIRO_FORMAT_RGB24, width, height, width * 4));
    }

    /// Fills the path with what `color_at` says for each pixel.
    template <class ColorAt>
    void FillPixels(const ColorAt& color_at) {
        WorkArray<std::uint32_t> source(pixels.size());
        if (!source) {
            is_whole = false;
            return;
        }
        std::uint32_t* pixel = source.data();
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                *pixel++ = color_at(x, y);
            }
        }
        const CairoSurface painted = SurfaceOn(source);
        cairo_set_source_surface(context.get(), painted.get(), -kHalfPixel, -kHalfPixel);
        cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_NEAREST);
        cairo_fill_preserve(context.get());
        SetColor(context.get(), 0);  // the source ends with this function
    }
};

VectorDrawing::VectorDrawing(int width, int height) {
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    state_ = std::make_unique<State>(State{width, height, WorkArray<std::uint32_t>(count)});
    if (state_->pixels) {
        state_->surface = state_->SurfaceOn(state_->pixels);
        state_->context.reset(cairo_create(state_->surface.get()));
        cairo_translate(state_->context.get(), kHalfPixel, kHalfPixel);
    }
    // Cairo refuses sides above 32767.
    if (!state_->context || cairo_status(state_->context.get()) != CAIRO_STATUS_SUCCESS) {
        state_.reset();
    }
}

VectorDrawing::~VectorDrawing() = default;

void VectorDrawing::SetSmoothing(Smoothing smoothing) {
    cairo_set_antialias(state_->context.get(),
                        smoothing == Smoothing::None ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_BEST);
}

// Only pictures are interpolated, and none is drawn here.
void VectorDrawing::SetInterpolation(Interpolation) {}

void VectorDrawing::Clear(Argb color) {
    SetColor(state_->context.get(), color);
    cairo_paint(state_->context.get());
}

void VectorDrawing::DrawLine(const VectorPen& pen, VectorPoint from, VectorPoint to) {
    const PathAside aside(state_->context.get());
    VectorPen near_pen = pen;
    near_pen.Width = Near(pen.Width);
    AppendLineOutline(state_->context.get(), near_pen, Near(from), Near(to));
    Fill(state_->context.get(), pen.Color, CAIRO_FILL_RULE_WINDING);
}

void VectorDrawing::DrawEllipse(const VectorPen& pen, const VectorBox& box) {
    const PathAside aside(state_->context.get());
    AppendEllipse(state_->context.get(), box);
    Stroke(state_->context.get(), pen);
}

void VectorDrawing::FillEllipse(Argb color, const VectorBox& box) {
    const PathAside aside(state_->context.get());
    AppendEllipse(state_->context.get(), box);
    Fill(state_->context.get(), color);
}

void VectorDrawing::DrawRectangle(const VectorPen& pen, const VectorBox& box) {
    const PathAside aside(state_->context.get());
    AppendRectangle(state_->context.get(), box);
    Stroke(state_->context.get(), pen);
}

void VectorDrawing::FillRectangle(Argb color, const VectorBox& box) {
    const PathAside aside(state_->context.get());
    AppendRectangle(state_->context.get(), box);
    Fill(state_->context.get(), color);
}

void VectorDrawing::DrawPolygon(const VectorPen& pen, const VectorPoint* points, int count) {
    const PathAside aside(state_->context.get());
    AppendPolygon(state_->context.get(), points, count);
    Stroke(state_->context.get(), pen);
}

void VectorDrawing::FillPolygon(Argb color, const VectorPoint* points, int count) {
    const PathAside aside(state_->context.get());
    AppendPolygon(state_->context.get(), points, count);
    Fill(state_->context.get(), color);
}

void VectorDrawing::DrawString(const TextFont& font, std::string_view text, Argb color,
                               TextHint hint) {
    const PathAside aside(state_->context.get());
    cairo_save(state_->context.get());
    cairo_identity_matrix(state_->context.get());
    DrawWithFont(state_->context.get(), *font.state_, text, 0, 0, color, hint);
    cairo_restore(state_->context.get());
}

void VectorDrawing::AddQuarterArc(const VectorBox& box, int start) {
    AppendQuarter(state_->context.get(), box, start);
}

void VectorDrawing::AddEllipse(const VectorBox& box) {
    state_->figure = box;
    state_->figure_is_ellipse = true;
    AppendEllipse(state_->context.get(), box);
}

void VectorDrawing::AddRectangle(const VectorBox& box) {
    state_->figure = box;
    state_->figure_is_ellipse = false;
    AppendRectangle(state_->context.get(), box);
}

void VectorDrawing::CloseFigure() {
    cairo_close_path(state_->context.get());
}

int VectorDrawing::AddString(const char* family, int style, float em, std::string_view text) {
    return AppendTextOutlines(state_->context.get(), family, style, em, text);
}

void VectorDrawing::DrawPath(const VectorPen& pen) {
    Stroke(state_->context.get(), pen);
}

void VectorDrawing::FillPath(Argb color) {
    Fill(state_->context.get(), color);
}

void VectorDrawing::FillPathGradient(Argb center_color, Argb edge_color, VectorPoint center) {
    const auto share = state_->figure_is_ellipse ? ShareInEllipse : ShareInRectangle;
    state_->FillPixels([&](int x, int y) {
        return MixColors(center_color, edge_color, share(state_->figure, center, x, y));
    });
}

void VectorDrawing::FillRectangleGradient(Argb first, Argb second, int degrees,
                                          const VectorBox& box) {
    const PathAside aside(state_->context.get());
    AppendRectangle(state_->context.get(), box);
    cairo_matrix_t turn;
    cairo_matrix_init_rotate(&turn, degrees % 360 * (3.14159265358979323846 / 180));
    state_->FillPixels([&](int x, int y) {
        return MixColors(first, second, ShareAlong(box, turn.xx, turn.yx, x, y));
    });
}

int VectorDrawing::Finish() {
    cairo_surface_flush(state_->surface.get());
    return state_->is_whole && cairo_status(state_->context.get()) == CAIRO_STATUS_SUCCESS;
}

int VectorDrawing::CopyRows(std::uint8_t* rows) const {
    CopyBottomUp(state_->pixels.data(), state_->width, state_->height, rows);
    return 1;
}

}  // namespace platform
