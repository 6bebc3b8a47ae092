// The service for anti-aliased shapes: one entry, which a record tells what to do. It
// draws one shape, line, piece of text or gradient into a bitmap of its own, black
// behind, and hands it back as a new 24-bit picture.
//
// Every bitmap has its own size (toolkit/shape_geometry.h), and an outline is drawn
// before the fill, which so goes over its inner half. The drawing itself is
// platform/vector_drawing.h; natively a program has it only when it is linked.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"
#include "platform/vector_drawing.h"

namespace tess {

enum class ShapeOp : std::int32_t {
    Start = 1,  ///< starts the service and stores `Token`
    Stop = 2,   ///< stops the service that `Token` started
    Line = 3,
    Ellipse = 4,
    Rectangle = 5,
    Polygon = 6,
    Text = 7,
    Gradient = 8,
};

enum class ShapeTextMode : std::int32_t {
    Measure = 0,  ///< without the blank that a measured text ends in
    Direct = 1,   ///< straight on `TextDc`
    Sprite = 2,
    Outline = 3,
    Fill = 4,
};

enum class ShapeGradientKind : std::int32_t { Linear = 0, Ellipse = 1, Rectangle = 2 };

/// In place of a fill or an outline: none.
inline constexpr ColorWord kNoShapeColor = 0xFFFFFFFF;

/// One call of the service. The caller zeroes it and fills in what the operation reads.
struct ShapeRequest {
    std::uint64_t Token;
    std::int32_t Left, Top, Right, Bottom;  ///< only width and height of the box count
    ShapeOp Op;
    std::uint8_t TextAlpha;  ///< of ShapeTextMode::Direct
    std::int32_t Smooth;     ///< above 0 shapes are smooth; for text, anything but 0

    std::int32_t LineX1, LineY1, LineX2, LineY2;
    std::int32_t LineWidth;
    std::uint32_t LineCap;  ///< 0 round; kOwnLineCaps; anything else flat
    ColorWord LineColor;
    std::uint32_t LineStartCap, LineEndCap;  ///< numbers of platform::LineCap

    std::int32_t OutlineWidth;   ///< of ellipse and rectangle
    ColorWord FillColor;         ///< may be kNoShapeColor
    ColorWord OutlineColor;      ///< may be kNoShapeColor
    std::int32_t CornerPercent;  ///< the corner's diameter in percent of the inner size; 0 square

    std::int32_t TextX, TextY;           ///< of ShapeTextMode::Direct
    std::int32_t TextWidth, TextHeight;  ///< results of the measurement
    std::int32_t TextSize;               ///< of the paths of Outline and Fill
    std::int32_t TextBold, TextItalic, TextUnderline;
    const char* FontName;  ///< the paths' family; may be null for the other modes
    const char* Text;      ///< in the ANSI code page; what is beyond 260 characters is cut off
    ColorWord TextColor;
    const platform::LogFont* FontLog;  ///< may be null: then the font of `TextDc`
    platform::TextTarget* TextDc;
    ShapeTextMode TextMode;
    std::int32_t TextOutline;  ///< pen width

    std::int32_t PointCount;
    const platform::VectorPoint* Points;
    std::int32_t PolygonWidth;
    ColorWord PolygonFill, PolygonOutline;  ///< may be kNoShapeColor

    std::int32_t GradientWidth, GradientHeight;
    ShapeGradientKind GradientKind;
    ColorWord GradientColor1;  ///< first or centre colour
    ColorWord GradientColor2;
    std::int32_t GradientAngle;     ///< degrees, linear only
    std::int32_t CentreX, CentreY;  ///< from the middle, in percent of half the size
};

/// `LineCap` that takes the caps from `LineStartCap` and `LineEndCap`.
inline constexpr std::uint32_t kOwnLineCaps = 0xFFFFFFFF;

/// Returns 0 when the operation failed, is unknown or makes no picture; 1 for Start, Stop
/// and text without a picture; otherwise the handle of a picture, which the caller owns.
/// Sizes that no bitmap has, a negative width of a pen, a text or points that are missing
/// are failures. Of the record only `Token` and the measured fields are written.
[[nodiscard]] std::int64_t RunShapeRequest(ShapeRequest* request);

}  // namespace tess
