// Owners of Cairo's and Pango's objects.
#pragma once

#include <cairo.h>
#include <memory>
#include <pango/pangocairo.h>
#include <string_view>

#include "platform/vector_drawing.h"

namespace platform {

template <auto Free>
struct FreeWith {
    template <class T>
    void operator()(T* object) const {
        Free(object);
    }
};
template <class T, auto Free>
using CairoObject = std::unique_ptr<T, FreeWith<Free>>;

using CairoSurface = CairoObject<cairo_surface_t, cairo_surface_destroy>;
using CairoContext = CairoObject<cairo_t, cairo_destroy>;
using CairoPath = CairoObject<cairo_path_t, cairo_path_destroy>;
using CairoFontOptions = CairoObject<cairo_font_options_t, cairo_font_options_destroy>;
using PangoText = CairoObject<PangoLayout, g_object_unref>;
using PangoFontContext = CairoObject<PangoContext, g_object_unref>;
using PangoDescription = CairoObject<PangoFontDescription, pango_font_description_free>;
using PangoFontFace = CairoObject<PangoFont, g_object_unref>;
using PangoFontNumbers = CairoObject<PangoFontMetrics, pango_font_metrics_unref>;
using PangoAttributes = CairoObject<PangoAttrList, pango_attr_list_unref>;

void SetColor(cairo_t* context, Argb color);

/// Lays out UTF-8 text from the ANSI text, on one unlimited line.
PangoText LayOutText(const PangoFontDescription* font, bool underlined, TextHint hint,
                     std::string_view text);

struct TextFont::State {
    PangoDescription description;
    bool is_underlined = false;
    double em = 0;
    TextTarget* target = nullptr;
};

/// How far inside the box of a measured text its first letter starts: a sixth of the em,
/// as GDI+ has it on both sides.
constexpr double TextMargin(double em) {
    return em / 6;
}

/// Draws `text` with the box's top left at (x, y).
void DrawWithFont(cairo_t* context, const TextFont::State& font, std::string_view text, int x,
                  int y, Argb color, TextHint hint);

/// Appends the outlines of `text` to the path of `context`, with the box's top left at
/// (0, 0). Returns 0 when there is no such family.
[[nodiscard]] int AppendTextOutlines(cairo_t* context, const char* family, int style, float em,
                                     std::string_view text);

}  // namespace platform
