// The text of platform/vector_drawing.h, through GDI+.
#include "platform/vector_drawing.h"
#include "platform/win32/gdiplus_objects.h"

namespace platform {

TextFont::TextFont(TextTarget* target, const LogFont* font) : state_(std::make_unique<State>()) {
    HDC device = reinterpret_cast<HDC>(target);
    if (font != nullptr) {
        static_assert(sizeof(LogFont) == sizeof(LOGFONTA));
        flat::GdipCreateFontFromLogfontA(device, reinterpret_cast<const LOGFONTA*>(font),
                                         state_->font.Out());
    } else {
        flat::GdipCreateFontFromDC(device, state_->font.Out());
    }
    flat::GdipCreateFromHDC(device, state_->graphics.Out());
    flat::GdipCreateStringFormat(0, LANG_NEUTRAL, state_->format.Out());
    if (!state_->font || !state_->graphics || !state_->format) state_.reset();
}

TextFont::~TextFont() = default;

TextSize TextFont::Measure(std::string_view text) const {
    const WideText wide(text);
    const Gdiplus::RectF unlimited(0, 0, 0, 0);
    Gdiplus::RectF box(0, 0, 0, 0);
    const auto status = flat::GdipMeasureString(state_->graphics.Get(), wide.Get(), wide.Length(),
                                                state_->font.Get(), &unlimited,
                                                state_->format.Get(), &box, nullptr, nullptr);
    if (status != Gdiplus::Ok) return {0, 0};
    return {box.Width, box.Height};
}

void DrawWithFont(Gdiplus::GpGraphics* graphics, const TextFont::State& font, std::string_view text,
                  int x, int y, Argb color, TextHint hint) {
    GdiplusBrush<Gdiplus::GpSolidFill> brush;
    flat::GdipCreateSolidFill(color, brush.Out());
    flat::GdipSetTextRenderingHint(graphics, static_cast<Gdiplus::TextRenderingHint>(hint));
    const WideText wide(text);
    const Gdiplus::RectF unlimited(static_cast<float>(x), static_cast<float>(y), 0, 0);
    flat::GdipDrawString(graphics, wide.Get(), wide.Length(), font.font.Get(), &unlimited,
                         font.format.Get(), brush.Get());
}

void TextFont::DrawOnTarget(std::string_view text, int x, int y, Argb color, TextHint hint) const {
    DrawWithFont(state_->graphics.Get(), *state_, text, x, y, color, hint);
    flat::GdipFlush(state_->graphics.Get(), Gdiplus::FlushIntentionSync);
}

}  // namespace platform
