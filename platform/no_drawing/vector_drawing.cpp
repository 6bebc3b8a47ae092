// For programs that draw no shapes: there is no font and no drawing. What only a font
// or a drawing could be asked is never called.
#include "platform/vector_drawing.h"

namespace platform {

struct TextFont::State {};
struct VectorDrawing::State {};

TextFont::TextFont(TextTarget*, const LogFont*) {}
TextFont::~TextFont() = default;
TextSize TextFont::Measure(std::string_view) const {
    return {0, 0};
}
void TextFont::DrawOnTarget(std::string_view, int, int, Argb, TextHint) const {}

VectorDrawing::VectorDrawing(int, int) {}
VectorDrawing::~VectorDrawing() = default;
void VectorDrawing::SetSmoothing(Smoothing) {}
void VectorDrawing::SetInterpolation(Interpolation) {}
void VectorDrawing::Clear(Argb) {}
void VectorDrawing::DrawLine(const VectorPen&, VectorPoint, VectorPoint) {}
void VectorDrawing::DrawEllipse(const VectorPen&, const VectorBox&) {}
void VectorDrawing::FillEllipse(Argb, const VectorBox&) {}
void VectorDrawing::DrawRectangle(const VectorPen&, const VectorBox&) {}
void VectorDrawing::FillRectangle(Argb, const VectorBox&) {}
void VectorDrawing::DrawPolygon(const VectorPen&, const VectorPoint*, int) {}
void VectorDrawing::FillPolygon(Argb, const VectorPoint*, int) {}
void VectorDrawing::DrawString(const TextFont&, std::string_view, Argb, TextHint) {}
void VectorDrawing::AddQuarterArc(const VectorBox&, int) {}
void VectorDrawing::AddEllipse(const VectorBox&) {}
void VectorDrawing::AddRectangle(const VectorBox&) {}
void VectorDrawing::CloseFigure() {}
int VectorDrawing::AddString(const char*, int, float, std::string_view) {
    return 0;
}
void VectorDrawing::DrawPath(const VectorPen&) {}
void VectorDrawing::FillPath(Argb) {}
void VectorDrawing::FillPathGradient(Argb, Argb, VectorPoint) {}
void VectorDrawing::FillRectangleGradient(Argb, Argb, int, const VectorBox&) {}
int VectorDrawing::Finish() {
    return 0;
}
int VectorDrawing::CopyRows(std::uint8_t*) const {
    return 0;
}

}  // namespace platform
