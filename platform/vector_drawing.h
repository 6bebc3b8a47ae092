// The system's drawing of anti-aliased shapes, text and gradients on a bitmap of its
// own. On Windows it is GDI+; natively it is Cairo and Pango, in a library of its own
// (platform/cairo/) that a program asks for. One that does not gets
// platform/no_drawing/ instead, where every drawing is false.
//
// Numbers in this file are those of GDI+. The middle of a pixel has whole coordinates,
// so a box that is filled with smoothing covers half of the pixels at its edge.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace platform {

/// 0xAARRGGBB.
using Argb = std::uint32_t;

enum class Smoothing { HighQuality = 2, None = 3, AntiAliased = 4 };
enum class Interpolation { Low = 1, HighBicubic = 7 };
enum class TextHint { SingleBit = 2, AntiAliased = 4 };
enum class LineJoin { Mitered = 0, Round = 2 };

/// What a line ends in. The anchors are twice as wide as the line or wider. Any other
/// number is flat.
enum class LineCap : std::uint32_t {
    Flat = 0,
    Square = 1,
    Round = 2,
    Triangle = 3,
    SquareAnchor = 0x11,
    RoundAnchor = 0x12,
    DiamondAnchor = 0x13,
    ArrowAnchor = 0x14,
};

/// A width of 0 draws one pixel. Requires: the width is not negative.
struct VectorPen {
    Argb Color;
    std::int32_t Width;
    LineJoin Join = LineJoin::Mitered;
    LineCap StartCap = LineCap::Flat;
    LineCap EndCap = LineCap::Flat;
};

struct VectorPoint {
    std::int32_t X, Y;
};
struct VectorBox {
    std::int32_t X, Y, Width, Height;
};

/// The bits of a font's style.
enum FontStyle : int { kBold = 1, kItalic = 2, kUnderline = 4 };

/// A font as the system describes one: the layout of LOGFONTA.
struct LogFont {
    std::int32_t Height;  ///< below 0 the em size, above 0 the line's height, in pixels
    std::int32_t Width, Escapement, Orientation, Weight;
    std::uint8_t Italic, Underline, StrikeOut, CharSet;
    std::uint8_t OutPrecision, ClipPrecision, Quality, PitchAndFamily;
    char FaceName[32];  ///< in the ANSI code page, natively Windows-1252
};
static_assert(sizeof(LogFont) == 60);

/// What text is measured for and drawn on. On Windows a handle of the system's, an
/// HDC; natively a `TextSurface` (platform/cairo/text_surface.h).
struct TextTarget;

struct TextSize {
    float Width, Height;
};

/// A font of a text target, ready to measure and draw.
class TextFont {
public:
    /// The font that `font` describes, or where that is null the target's own.
    TextFont(TextTarget* target, const LogFont* font);
    TextFont(const TextFont&) = delete;
    TextFont& operator=(const TextFont&) = delete;
    ~TextFont();
    /// False when the font could not be had.
    explicit operator bool() const { return state_ != nullptr; }

    /// The box of `text` (in the ANSI code page) on one unlimited line.
    [[nodiscard]] TextSize Measure(std::string_view text) const;
    /// Draws straight on the target, with the box's top left at (x, y).
    void DrawOnTarget(std::string_view text, int x, int y, Argb color, TextHint hint) const;

    struct State;  ///< the port's own

private:
    friend class VectorDrawing;
    std::unique_ptr<State> state_;
};

/// A bitmap and a path. Coordinates far beyond the bitmap may be cut to nearer ones.
class VectorDrawing {
public:
    VectorDrawing(int width, int height);
    VectorDrawing(const VectorDrawing&) = delete;
    VectorDrawing& operator=(const VectorDrawing&) = delete;
    ~VectorDrawing();
    /// False when there is no service or no bitmap of that size.
    explicit operator bool() const { return state_ != nullptr; }

    void SetSmoothing(Smoothing smoothing);
    void SetInterpolation(Interpolation interpolation);
    void Clear(Argb color);

    void DrawLine(const VectorPen& pen, VectorPoint from, VectorPoint to);
    void DrawEllipse(const VectorPen& pen, const VectorBox& box);
    void FillEllipse(Argb color, const VectorBox& box);
    void DrawRectangle(const VectorPen& pen, const VectorBox& box);
    void FillRectangle(Argb color, const VectorBox& box);
    void DrawPolygon(const VectorPen& pen, const VectorPoint* points, int count);
    /// Fills what an odd number of edges encloses.
    void FillPolygon(Argb color, const VectorPoint* points, int count);
    /// Draws with the top left of the text's box at (0, 0).
    void DrawString(const TextFont& font, std::string_view text, Argb color, TextHint hint);

    /// Appends a quarter of the ellipse in `box`, joined to what came before. `start` is in
    /// degrees, clockwise from the right, as the quarter runs.
    void AddQuarterArc(const VectorBox& box, int start);
    void AddEllipse(const VectorBox& box);
    void AddRectangle(const VectorBox& box);
    void CloseFigure();
    /// Appends the outlines of a text with its box's top left at (0, 0). `style` is of
    /// FontStyle. Returns 0 when there is no family of that name.
    [[nodiscard]] int AddString(const char* family, int style, float em, std::string_view text);
    void DrawPath(const VectorPen& pen);
    void FillPath(Argb color);
    /// Fills the path, which is one ellipse or one rectangle, from one colour at
    /// `center` to another all along its edge.
    void FillPathGradient(Argb center_color, Argb edge_color, VectorPoint center);
    /// Fills `box` from one colour to another, repeated outside. The angle is that of a
    /// unit square that is stretched to the box.
    void FillRectangleGradient(Argb first, Argb second, int degrees, const VectorBox& box);

    /// Ends the drawing. Returns 1, or 0 when there is no whole picture.
    [[nodiscard]] int Finish();
    /// Copies the finished picture: 24-bit rows (blue, green, red), bottom row first, each
    /// filled up to 4 bytes. Returns 1, or 0.
    [[nodiscard]] int CopyRows(std::uint8_t* rows) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace platform
