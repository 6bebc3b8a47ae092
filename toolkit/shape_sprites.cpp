#include "toolkit/shape_sprites.h"

#include <cstring>

#include "platform/graphics_service.h"
#include "toolkit/shape_geometry.h"

namespace tess {
namespace {

using platform::LineJoin;
using platform::Smoothing;
using platform::VectorDrawing;

constexpr platform::Argb kOpaqueBlack = 0xFF000000;
constexpr std::size_t kMostCharacters = 260;

/// The picture of a finished drawing, or 0.
std::int64_t PictureOf(VectorDrawing& drawing, ShapeSize size) {
    if (!drawing.Finish()) return 0;
    platform::OwnedBlock picture(NewPackedDib(size.Width, size.Height, nullptr, 24));
    if (!picture) return 0;
    {
        const LockedImage image(picture.Get());
        if (!image || !drawing.CopyRows(DibRow(image.Get(), size.Height - 1))) return 0;
    }
    return reinterpret_cast<std::int64_t>(picture.Release());
}

/// Says whether a picture of that size can be, before a bitmap is asked for: its
/// picture's bytes are counted in 32 bits, and there is memory for picture and bitmap.
bool CanBePicture(ShapeSize size) {
    if (size.Width < 1 || size.Height < 1) return false;
    const std::int64_t pixels = std::int64_t{size.Width} * size.Height;
    constexpr std::int64_t kMostPixels = 0x7FFFFFFF / 4 - 1024;
    return pixels < kMostPixels && platform::HasMemoryFor(static_cast<std::size_t>(pixels) * 7);
}

bool IsNone(ColorWord color) {
    return color == kNoShapeColor;
}

bool CanBeOutlined(ColorWord color, std::int32_t width) {
    return IsNone(color) || width >= 0;
}

/// Opens the bitmap, draws with `draw` and hands over the picture.
template <class Draw>
std::int64_t MakePicture(ShapeSize size, Smoothing smoothing, const Draw& draw) {
    if (!CanBePicture(size)) return 0;
    VectorDrawing drawing(size.Width, size.Height);
    if (!drawing) return 0;
    drawing.SetSmoothing(smoothing);
    drawing.Clear(kOpaqueBlack);
    if (!draw(drawing)) return 0;
    return PictureOf(drawing, size);
}

template <class Draw>
std::int64_t MakeShape(const ShapeRequest& request, const Draw& draw) {
    return MakePicture(ShapeBitmapSize(request),
                       request.Smooth > 0 ? Smoothing::HighQuality : Smoothing::None, draw);
}

std::int64_t MakeLine(const ShapeRequest& request) {
    if (request.LineWidth < 0) return 0;
    return MakeShape(request, [&](VectorDrawing& drawing) {
        const LineEnds ends = PlaceLine(request);
        drawing.DrawLine(LinePen(request), ends.From, ends.To);
        return true;
    });
}

/// A box that an outline wider than the shape has turned inside out is not drawn.
bool IsInsideOut(const platform::VectorBox& box) {
    return box.Width < 0 || box.Height < 0;
}

std::int64_t MakeEllipse(const ShapeRequest& request) {
    if (!CanBeOutlined(request.OutlineColor, request.OutlineWidth)) return 0;
    return MakeShape(request, [&](VectorDrawing& drawing) {
        const platform::VectorBox box = ShapeBox(request);
        if (IsInsideOut(box)) return true;
        if (!IsNone(request.OutlineColor)) {
            drawing.DrawEllipse({ShapeArgb(request.OutlineColor), request.OutlineWidth}, box);
        }
        if (!IsNone(request.FillColor)) drawing.FillEllipse(ShapeArgb(request.FillColor), box);
        return true;
    });
}

void DrawRoundedRectangle(const ShapeRequest& request, VectorDrawing& drawing) {
    // Arcs without a size are no arcs.
    if (CornerDiameter(request) < 1) return;
    for (const CornerArc& arc : RoundedCorners(request).Arcs) {
        drawing.AddQuarterArc(arc.Box, arc.Start);
    }
    drawing.CloseFigure();
    if (!IsNone(request.OutlineColor)) {
        drawing.DrawPath({ShapeArgb(request.OutlineColor), request.OutlineWidth});
    }
    if (!IsNone(request.FillColor)) drawing.FillPath(ShapeArgb(request.FillColor));
}

std::int64_t MakeRectangle(const ShapeRequest& request) {
    if (!CanBeOutlined(request.OutlineColor, request.OutlineWidth)) return 0;
    return MakeShape(request, [&](VectorDrawing& drawing) {
        const platform::VectorBox box = ShapeBox(request);
        if (IsInsideOut(box)) return true;
        if (request.CornerPercent != 0) {
            DrawRoundedRectangle(request, drawing);
            return true;
        }
        if (!IsNone(request.OutlineColor)) {
            drawing.DrawRectangle({ShapeArgb(request.OutlineColor), request.OutlineWidth}, box);
        }
        if (!IsNone(request.FillColor)) drawing.FillRectangle(ShapeArgb(request.FillColor), box);
        return true;
    });
}

std::int64_t MakePolygon(const ShapeRequest& request) {
    if (request.PointCount < 1 || request.Points == nullptr) return 0;
    if (!CanBeOutlined(request.PolygonOutline, request.PolygonWidth)) return 0;
    return MakeShape(request, [&](VectorDrawing& drawing) {
        if (!IsNone(request.PolygonOutline)) {
            drawing.DrawPolygon(
                {ShapeArgb(request.PolygonOutline), request.PolygonWidth, LineJoin::Round,
                 platform::LineCap::Round, platform::LineCap::Round},
                request.Points, request.PointCount);
        }
        if (!IsNone(request.PolygonFill)) {
            drawing.FillPolygon(ShapeArgb(request.PolygonFill), request.Points, request.PointCount);
        }
        return true;
    });
}

void DrawGradient(const ShapeRequest& request, VectorDrawing& drawing) {
    const std::int32_t width = request.GradientWidth;
    const std::int32_t height = request.GradientHeight;
    const platform::Argb first = ShapeArgb(request.GradientColor1);
    const platform::Argb second = ShapeArgb(request.GradientColor2);
    switch (request.GradientKind) {
        case ShapeGradientKind::Linear:
            drawing.FillRectangleGradient(first, second, request.GradientAngle,
                                          {-1, -1, width + 1, height + 1});
            return;
        case ShapeGradientKind::Ellipse:
            drawing.AddEllipse({0, 0, width, height});
            drawing.Clear(second);
            break;
        case ShapeGradientKind::Rectangle:
            drawing.AddRectangle({0, 0, width, height});
            break;
        default:
            return;
    }
    drawing.FillPathGradient(first, second, GradientCenter(request));
}

std::int64_t MakeGradient(const ShapeRequest& request) {
    return MakeShape(request, [&](VectorDrawing& drawing) {
        DrawGradient(request, drawing);
        return true;
    });
}

/// Measures into the request.
void MeasureText(ShapeRequest* request, const platform::TextFont& font, std::string_view text) {
    const platform::TextSize size = font.Measure(text);
    request->TextWidth = TruncateToInt(size.Width);
    request->TextHeight = TruncateToInt(size.Height);
}

std::int64_t MakeTextSprite(const ShapeRequest& request, const platform::TextFont& font,
                            std::string_view text) {
    return MakePicture({request.TextWidth, request.TextHeight},
                       request.Smooth > 0 ? Smoothing::HighQuality : Smoothing::None,
                       [&](VectorDrawing& drawing) {
                           drawing.DrawString(font, text, ShapeArgb(request.TextColor),
                                              request.Smooth != 0 ? platform::TextHint::AntiAliased
                                                                  : platform::TextHint::SingleBit);
                           return true;
                       });
}

std::int64_t MakeTextPath(const ShapeRequest& request, std::string_view text) {
    const bool fills = request.TextMode == ShapeTextMode::Fill;
    const bool smooth = request.Smooth != 0;
    if (request.FontName == nullptr || (!fills && request.TextOutline < 0)) return 0;
    return MakePicture({request.TextWidth, request.TextHeight},
                       smooth ? Smoothing::AntiAliased : Smoothing::None,
                       [&](VectorDrawing& drawing) {
                           drawing.SetInterpolation(smooth ? platform::Interpolation::HighBicubic
                                                           : platform::Interpolation::Low);
                           if (!drawing.AddString(request.FontName, TextStyle(request),
                                                  TextEmSize(request.TextSize), text)) {
                               return false;
                           }
                           const platform::Argb color = ShapeArgb(request.TextColor);
                           if (fills) {
                               drawing.FillPath(color);
                           } else {
                               drawing.DrawPath({color, request.TextOutline, LineJoin::Round});
                           }
                           return true;
                       });
}

std::int64_t RunText(ShapeRequest* request) {
    if (request->Text == nullptr || request->TextDc == nullptr) return 0;
    const platform::TextFont font(request->TextDc, request->FontLog);
    if (!font) return 0;
    const std::string_view text(request->Text, strnlen(request->Text, kMostCharacters));
    MeasureText(request, font, text);
    switch (request->TextMode) {
        case ShapeTextMode::Measure:
            if (static_cast<unsigned char>(*request->Text) > ' ') {
                request->TextWidth -= TruncateToInt(font.Measure(" ").Width);
            }
            return 1;
        case ShapeTextMode::Direct:
            font.DrawOnTarget(text, request->TextX, request->TextY,
                              ShapeArgb(request->TextColor, request->TextAlpha),
                              platform::TextHint::SingleBit);
            return 1;
        case ShapeTextMode::Sprite:
            return MakeTextSprite(*request, font, text);
        case ShapeTextMode::Outline:
        case ShapeTextMode::Fill:
            return MakeTextPath(*request, text);
    }
    return 0;
}

}  // namespace

std::int64_t RunShapeRequest(ShapeRequest* request) {
    switch (request->Op) {
        case ShapeOp::Start:
            return platform::StartGraphics(&request->Token);
        case ShapeOp::Stop:
            platform::StopGraphics(request->Token);
            return 1;
        case ShapeOp::Line:
            return MakeLine(*request);
        case ShapeOp::Ellipse:
            return MakeEllipse(*request);
        case ShapeOp::Rectangle:
            return MakeRectangle(*request);
        case ShapeOp::Polygon:
            return MakePolygon(*request);
        case ShapeOp::Text:
            return RunText(request);
        case ShapeOp::Gradient:
            return MakeGradient(*request);
    }
    return 0;
}

}  // namespace tess
