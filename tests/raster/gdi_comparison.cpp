// Draws random shapes with our rasteriser and with GDI on a 24-bit DIB section,
// and reports for each kind how many were compared, how many differ, and where
// the first difference lies.
//
// Two things are ours on purpose and are judged so that GDI can still be the judge:
// - Without a pen our shapes fill their box up to but not including right and
//   bottom. GDI's Rectangle stops one pixel shorter, and so do RoundRect and
//   Ellipse where an axis of the corners is 2 or less, as those are handed to
//   Rectangle. There GDI gets Rectangle with a box one pixel larger.
// - Wine's walk round an ellipse much taller than wide ends before the last row,
//   and the rows behind are read though they were never written. Such a box is
//   judged by its flat twin: GDI draws with the axes exchanged, and the picture is
//   transposed.
#include <windows.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "raster/lines.h"
#include "raster/shapes.h"
#include "tests/raster/comparison_shapes.h"

namespace {

using comparison::Figure;
using comparison::Kind;
using comparison::Shape;

constexpr unsigned char kBackground = 0x55;

int StrideOf(int width) {
    return (width * 3 + 3) & ~3;
}

/// One picture, bottom row first, in memory that may be GDI's.
struct Picture {
    unsigned char* bits;
    int width, height;

    [[nodiscard]] const unsigned char* Pixel(int x, int y) const {
        return bits + (height - 1 - y) * StrideOf(width) + 3 * x;
    }
    void Clear() { std::memset(bits, kBackground, static_cast<size_t>(StrideOf(width) * height)); }
};

/// A memory device context with a DIB section of its own size.
class GdiCanvas {
public:
    GdiCanvas(int width, int height) : context_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 24;
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(context_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (bitmap_ == nullptr) {
            std::puts("gdi_comparison: no DIB section could be made");
            std::exit(2);
        }
        previous_ = SelectObject(context_, bitmap_);
        picture_ = {static_cast<unsigned char*>(bits), width, height};
    }
    GdiCanvas(const GdiCanvas&) = delete;
    GdiCanvas& operator=(const GdiCanvas&) = delete;
    ~GdiCanvas() {
        SelectObject(context_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }

    [[nodiscard]] HDC Context() const { return context_; }
    [[nodiscard]] Picture& Result() { return picture_; }

private:
    HDC context_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
    Picture picture_{};
};

/// A GDI object for a scope.
class GdiObject {
public:
    explicit GdiObject(HGDIOBJ object) : object_(object) {}
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    ~GdiObject() { DeleteObject(object_); }  // stock objects stay
    [[nodiscard]] HGDIOBJ Get() const { return object_; }

private:
    HGDIOBJ object_;
};

HGDIOBJ MakePen(const raster::Pen& pen) {
    if (pen.style == raster::PenStyle::None) return GetStockObject(NULL_PEN);
    return CreatePen(pen.style == raster::PenStyle::Solid ? PS_SOLID : PS_INSIDEFRAME, pen.width,
                     pen.color);
}

HGDIOBJ MakeBrush(const raster::Brush& brush) {
    return brush.paints ? CreateSolidBrush(brush.color) : GetStockObject(NULL_BRUSH);
}

void CallGdi(HDC context, const Shape& shape, HBRUSH brush) {
    const raster::Rect& box = shape.box;
    POINT points[comparison::kMaximumPoints];
    for (std::size_t i = 0; i < shape.point_count; ++i)
        points[i] = {shape.points[i].x, shape.points[i].y};
    const int count = static_cast<int>(shape.point_count);
    switch (shape.figure) {
        case Figure::FillRect: {
            const RECT rect{box.left, box.top, box.right, box.bottom};
            FillRect(context, &rect, brush);
            break;
        }
        case Figure::Rectangle:
            Rectangle(context, box.left, box.top, box.right, box.bottom);
            break;
        case Figure::Ellipse:
            Ellipse(context, box.left, box.top, box.right, box.bottom);
            break;
        case Figure::RoundRect:
            RoundRect(context, box.left, box.top, box.right, box.bottom, shape.corner_width,
                      shape.corner_height);
            break;
        case Figure::Polygon:
            SetPolyFillMode(context,
                            shape.fill == raster::PolygonFill::Winding ? WINDING : ALTERNATE);
            Polygon(context, points, count);
            break;
        case Figure::Line:
            MoveToEx(context, points[0].x, points[0].y, nullptr);
            LineTo(context, points[1].x, points[1].y);
            break;
        case Figure::Polyline:
            Polyline(context, points, count);
            break;
        case Figure::Bezier:
            PolyBezier(context, points, static_cast<DWORD>(count));
            break;
    }
}

void DrawWithGdi(GdiCanvas& canvas, const Shape& shape) {
    canvas.Result().Clear();
    const GdiObject pen(MakePen(shape.pen));
    const GdiObject brush(MakeBrush(shape.brush));
    const HGDIOBJ old_pen = SelectObject(canvas.Context(), pen.Get());
    const HGDIOBJ old_brush = SelectObject(canvas.Context(), brush.Get());
    CallGdi(canvas.Context(), shape, static_cast<HBRUSH>(brush.Get()));
    GdiFlush();
    SelectObject(canvas.Context(), old_pen);
    SelectObject(canvas.Context(), old_brush);
}

void DrawWithOurs(Picture& picture, const Shape& shape) {
    picture.Clear();
    raster::DrawingContext context{
        .surface = {picture.bits, picture.width, picture.height, StrideOf(picture.width)},
        .pen = shape.pen,
        .brush = shape.brush,
        .polygon_fill = shape.fill};
    const raster::Rect& box = shape.box;
    switch (shape.figure) {
        case Figure::FillRect:
            raster::FillRect(context, box, shape.brush);
            break;
        case Figure::Rectangle:
            raster::Rectangle(context, box.left, box.top, box.right, box.bottom);
            break;
        case Figure::Ellipse:
            raster::Ellipse(context, box.left, box.top, box.right, box.bottom);
            break;
        case Figure::RoundRect:
            raster::RoundRect(context, box.left, box.top, box.right, box.bottom, shape.corner_width,
                              shape.corner_height);
            break;
        case Figure::Polygon:
            raster::Polygon(context, shape.Points());
            break;
        case Figure::Line:
            raster::MoveToEx(context, shape.points[0].x, shape.points[0].y);
            raster::LineTo(context, shape.points[1].x, shape.points[1].y);
            break;
        case Figure::Polyline:
            raster::Polyline(context, shape.Points());
            break;
        case Figure::Bezier:
            raster::PolyBezier(context, shape.Points());
            break;
    }
    if (context.failed) std::puts("gdi_comparison: our drawing had no memory");
}

/// What GDI is asked, so that its picture is the one that ours must be.
struct Question {
    Shape shape;
    bool transposed;
};

struct Axes {
    int width, height;
};

/// The axes of the ellipse that rounds the shape, cut to its box.
Axes RoundAxes(const Shape& shape) {
    Axes box{std::abs(shape.box.right - shape.box.left),
             std::abs(shape.box.bottom - shape.box.top)};
    if (shape.pen.style == raster::PenStyle::InsideFrame) {
        box.width -= std::max(shape.pen.width, 1) - 1;
        box.height -= std::max(shape.pen.width, 1) - 1;
    }
    if (shape.figure == Figure::Ellipse) return box;
    return {std::min(box.width, std::abs(shape.corner_width)),
            std::min(box.height, std::abs(shape.corner_height))};
}

Question AskOf(const Shape& shape) {
    Question question{shape, false};
    if (shape.figure != Figure::Rectangle && shape.figure != Figure::Ellipse &&
        shape.figure != Figure::RoundRect)
        return question;
    const Axes axes = RoundAxes(shape);
    const bool square = shape.figure == Figure::Rectangle || axes.width <= 2 || axes.height <= 2;
    raster::Rect& box = question.shape.box;
    if (square && shape.pen.style == raster::PenStyle::None) {
        question.shape.figure = Figure::Rectangle;
        if (box.left > box.right) std::swap(box.left, box.right);
        if (box.top > box.bottom) std::swap(box.top, box.bottom);
        const bool empty = box.left == box.right || box.top == box.bottom;
        if (!empty) box = {box.left, box.top, box.right + 1, box.bottom + 1};
    } else if (!square && axes.height >= 2LL * (axes.width - 1) * (axes.width - 1)) {
        question.transposed = true;
        box = {box.top, box.left, box.bottom, box.right};
        std::swap(question.shape.width, question.shape.height);
        std::swap(question.shape.corner_width, question.shape.corner_height);
    }
    return question;
}

/// Returns whether the pictures differ, and where first in reading order.
bool FindDifference(const Picture& ours, const Picture& theirs, bool transposed, POINT& where) {
    for (int y = 0; y < ours.height; ++y)
        for (int x = 0; x < ours.width; ++x) {
            const unsigned char* judge = transposed ? theirs.Pixel(y, x) : theirs.Pixel(x, y);
            if (std::memcmp(ours.Pixel(x, y), judge, 3) != 0) {
                where = {x, y};
                return true;
            }
        }
    return false;
}

char Sign(const unsigned char* pixel, const Shape& shape) {
    const raster::Color color = pixel[2] | static_cast<raster::Color>(pixel[1]) << 8 |
                                static_cast<raster::Color>(pixel[0]) << 16;
    if (shape.pen.style != raster::PenStyle::None && color == shape.pen.color) return '#';
    if (color == shape.brush.color) return 'o';
    return pixel[0] == kBackground && pixel[1] == kBackground ? '.' : '?';
}

/// Prints the two pictures side by side, ours on the left, and what differs.
void Show(const Picture& ours, const Picture& theirs, bool transposed, const Shape& shape) {
    for (int y = 0; y < ours.height; ++y) {
        std::string left, right, marks;
        for (int x = 0; x < ours.width; ++x) {
            const unsigned char* judge = transposed ? theirs.Pixel(y, x) : theirs.Pixel(x, y);
            left += Sign(ours.Pixel(x, y), shape);
            right += Sign(judge, shape);
            marks += std::memcmp(ours.Pixel(x, y), judge, 3) != 0 ? '!' : ' ';
        }
        std::printf("    %s  %s  %s\n", left.c_str(), right.c_str(), marks.c_str());
    }
}

/// DIB sections by their size, made when first asked for.
class CanvasStore {
public:
    GdiCanvas& Of(int width, int height) {
        auto& slot = canvases_[{width, height}];
        if (!slot) slot = std::make_unique<GdiCanvas>(width, height);
        return *slot;
    }

private:
    std::map<std::pair<int, int>, std::unique_ptr<GdiCanvas>> canvases_;
};

struct Options {
    std::uint64_t seed = 1;
    std::uint64_t count = 2000;
    std::string_view only;  ///< one kind's name, or all
    int pictures = 0;       ///< how many differences of a kind are shown
    long long show_index = -1;
};

bool TakeOptions(int argc, char** argv, Options& options) {
    int place = 0;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "--kind" && i + 1 < argc) {
            options.only = argv[++i];
        } else if (word == "--show" && i + 1 < argc) {
            options.pictures = std::atoi(argv[++i]);
        } else if (word == "--index" && i + 1 < argc) {
            options.show_index = std::atoll(argv[++i]);
        } else if (!word.empty() && word[0] >= '0' && word[0] <= '9' && place < 2) {
            (place++ == 0 ? options.seed : options.count) = std::strtoull(argv[i], nullptr, 10);
        } else {
            return false;
        }
    }
    return true;
}

struct Tally {
    std::uint64_t compared = 0;
    std::uint64_t differ = 0;
};

/// Draws one shape both ways. Returns whether they differ; prints the first
/// difference of a kind, and pictures as the options want them.
bool CompareOne(const Kind& kind, std::uint64_t index, const Options& options,
                CanvasStore& canvases, Tally& tally) {
    const Shape shape = comparison::MakeShape(kind, options.seed, index);
    const Question question = AskOf(shape);
    GdiCanvas& canvas = canvases.Of(question.shape.width, question.shape.height);
    DrawWithGdi(canvas, question.shape);
    std::vector<unsigned char> bits(static_cast<size_t>(StrideOf(shape.width) * shape.height));
    Picture ours{bits.data(), shape.width, shape.height};
    DrawWithOurs(ours, shape);

    POINT where{};
    const bool differs = FindDifference(ours, canvas.Result(), question.transposed, where);
    ++tally.compared;
    if (differs) ++tally.differ;
    const bool wanted = static_cast<long long>(index) == options.show_index;
    const bool pictured =
        wanted || (differs && tally.differ <= static_cast<std::uint64_t>(options.pictures));
    if ((differs && tally.differ == 1) || pictured) {
        std::printf("  number %llu: %s", static_cast<unsigned long long>(index),
                    comparison::Describe(shape).c_str());
        if (differs) std::printf(", first at (%ld, %ld)", where.x, where.y);
        std::puts(question.transposed ? ", judged transposed" : "");
    }
    if (pictured) Show(ours, canvas.Result(), question.transposed, shape);
    return differs;
}

/// Returns whether the kind's figure is within what is allowed.
bool CompareKind(const Kind& kind, const Options& options, CanvasStore& canvases) {
    Tally tally;
    for (std::uint64_t i = 0; i < options.count; ++i)
        CompareOne(kind, i, options, canvases, tally);
    const double allowed = kind.allowed_per_mille * static_cast<double>(tally.compared) / 1000;
    const bool good = static_cast<double>(tally.differ) <= allowed;
    std::printf("%-26s %8llu compared %8llu differ, %.0f allowed%s\n", kind.name,
                static_cast<unsigned long long>(tally.compared),
                static_cast<unsigned long long>(tally.differ), allowed, good ? "" : "  FAIL");
    std::fflush(stdout);
    return good;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!TakeOptions(argc, argv, options)) {
        std::puts(
            "gdi_comparison [SEED [COUNT]] [--kind NAME] [--show PICTURES] [--index NUMBER]\n"
            "Compares COUNT random shapes of each kind (or of one) with GDI's. Prints the first\n"
            "difference of each kind, and as many pictures of differences as --show says, ours\n"
            "left; --index prints the picture of one shape, whether it differs or not.");
        return 2;
    }
    CanvasStore canvases;
    bool good = true;
    bool known = options.only.empty();
    for (const Kind& kind : comparison::Kinds()) {
        if (!options.only.empty() && options.only != kind.name) continue;
        known = true;
        if (!CompareKind(kind, options, canvases)) good = false;
    }
    if (!known) std::puts("gdi_comparison: no such kind");
    return good && known ? 0 : 1;
}
