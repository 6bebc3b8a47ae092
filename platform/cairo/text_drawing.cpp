// The text of platform/vector_drawing.h, through Pango.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/block_guards.h"
#include "platform/cairo/cairo_objects.h"
#include "platform/cairo/pixel_rows.h"
#include "platform/cairo/text_surface.h"
#include "platform/cairo/windows_1252.h"

namespace platform {
namespace {

constexpr double kLargestEm = 16384;  // Pango counts 1024ths of a pixel in 32 bits
constexpr double kDefaultEm = 12;

/// The same text lies the same on every bitmap: no place and no advance is rounded.
CairoFontOptions UnroundedOptions(TextHint hint) {
    CairoFontOptions options(cairo_font_options_create());
    cairo_font_options_set_antialias(
        options.get(), hint == TextHint::AntiAliased ? CAIRO_ANTIALIAS_GRAY : CAIRO_ANTIALIAS_NONE);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    return options;
}

PangoFontContext NewContext(TextHint hint) {
    PangoFontContext context(pango_font_map_create_context(pango_cairo_font_map_get_default()));
    pango_cairo_context_set_font_options(context.get(), UnroundedOptions(hint).get());
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    return context;
}

PangoDescription Describe(const std::string& family, double em, int weight, bool italic) {
    PangoDescription description(pango_font_description_new());
    pango_font_description_set_family(description.get(), family.c_str());
    pango_font_description_set_absolute_size(description.get(), em * PANGO_SCALE);
    pango_font_description_set_weight(description.get(),
                                      static_cast<PangoWeight>(std::clamp(weight, 100, 1000)));
    pango_font_description_set_style(description.get(),
                                     italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return description;
}

/// How many ems a line of the font is high.
double LineHeightInEms(const PangoFontDescription* description) {
    const PangoFontContext context = NewContext(TextHint::AntiAliased);
    const PangoFontFace font(pango_context_load_font(context.get(), description));
    if (!font) return 0;
    const PangoFontNumbers numbers(pango_font_get_metrics(font.get(), nullptr));
    const int height = pango_font_metrics_get_ascent(numbers.get()) +
                       pango_font_metrics_get_descent(numbers.get());
    return height / static_cast<double>(pango_font_description_get_size(description));
}

bool HasFamily(const std::string& name) {
    PangoFontFamily** families = nullptr;
    int count = 0;
    pango_font_map_list_families(pango_cairo_font_map_get_default(), &families, &count);
    const std::unique_ptr<PangoFontFamily*, FreeWith<g_free>> owned(families);
    return std::any_of(families, families + count, [&](PangoFontFamily* family) {
        return g_ascii_strcasecmp(pango_font_family_get_name(family), name.c_str()) == 0;
    });
}

void CopyFromTarget(const TextSurface& target, std::uint32_t* pixels) {
    const std::size_t stride = (static_cast<std::size_t>(target.Width) * 3 + 3) / 4 * 4;
    for (int y = target.Height; y-- > 0;) {
        const std::uint8_t* row =
            target.Bits + stride * static_cast<std::size_t>(target.Height - 1 - y);
        std::uint32_t* out =
            pixels + static_cast<std::size_t>(y) * static_cast<std::size_t>(target.Width);
        for (int x = 0; x < target.Width; ++x, row += 3) {
            *out++ = 0xFF000000U | static_cast<std::uint32_t>(row[0] | row[1] << 8 | row[2] << 16);
        }
    }
}

}  // namespace

PangoText LayOutText(const PangoFontDescription* font, bool underlined, TextHint hint,
                     std::string_view text) {
    const PangoFontContext context = NewContext(hint);
    PangoText layout(pango_layout_new(context.get()));
    pango_layout_set_font_description(layout.get(), font);
    const std::string utf8 = Utf8FromWindows1252(text);
    pango_layout_set_text(layout.get(), utf8.c_str(), static_cast<int>(utf8.size()));
    if (underlined) {
        const PangoAttributes attributes(pango_attr_list_new());
        pango_attr_list_insert(attributes.get(), pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
        pango_layout_set_attributes(layout.get(), attributes.get());
    }
    return layout;
}

TextFont::TextFont(TextTarget* target, const LogFont* font) {
    if (target == nullptr) return;
    const LogFont& log = font != nullptr ? *font : reinterpret_cast<TextSurface*>(target)->Font;
    const std::string face =
        Utf8FromWindows1252({log.FaceName, strnlen(log.FaceName, sizeof log.FaceName)});
    const int weight = log.Weight == 0 ? PANGO_WEIGHT_NORMAL : log.Weight;
    double em = log.Height == 0 ? kDefaultEm : std::fabs(static_cast<double>(log.Height));
    if (log.Height > 0) {
        const double line = LineHeightInEms(
            Describe(face, std::min(em, kLargestEm), weight, log.Italic != 0).get());
        if (line <= 0) return;
        em /= line;
    }
    em = std::min(em, kLargestEm);
    state_ = std::make_unique<State>();
    state_->description = Describe(face, em, weight, log.Italic != 0);
    state_->is_underlined = log.Underline != 0;
    state_->em = em;
    state_->target = target;
}

TextFont::~TextFont() = default;

TextSize TextFont::Measure(std::string_view text) const {
    if (text.empty()) return {0, 0};
    const PangoText layout =
        LayOutText(state_->description.get(), state_->is_underlined, TextHint::AntiAliased, text);
    PangoRectangle box;
    pango_layout_get_extents(layout.get(), nullptr, &box);
    const double width = box.width / static_cast<double>(PANGO_SCALE) + 2 * TextMargin(state_->em);
    return {static_cast<float>(width), static_cast<float>(box.height) / PANGO_SCALE};
}

void DrawWithFont(cairo_t* context, const TextFont::State& font, std::string_view text, int x,
                  int y, Argb color, TextHint hint) {
    const PangoText layout = LayOutText(font.description.get(), font.is_underlined, hint, text);
    SetColor(context, color);
    cairo_move_to(context, x + TextMargin(font.em), y);
    pango_cairo_show_layout(context, layout.get());
    cairo_new_path(context);
}

void TextFont::DrawOnTarget(std::string_view text, int x, int y, Argb color, TextHint hint) const {
    const TextSurface& target = *reinterpret_cast<const TextSurface*>(state_->target);
    if (target.Bits == nullptr || target.Width < 1 || target.Height < 1) return;
    const auto count =
        static_cast<std::size_t>(target.Width) * static_cast<std::size_t>(target.Height);
    WorkArray<std::uint32_t> pixels(count);
    if (!pixels) return;
    CopyFromTarget(target, pixels.data());
    {
        const CairoSurface surface(cairo_image_surface_create_for_data(
            reinterpret_cast<unsigned char*>(pixels.data()), CAIRO_FORMAT_RGB24, target.Width,
            target.Height, target.Width * 4));
        const CairoContext context(cairo_create(surface.get()));
        DrawWithFont(context.get(), *state_, text, x, y, color, hint);
        cairo_surface_flush(surface.get());
    }
    CopyBottomUp(pixels.data(), target.Width, target.Height, target.Bits);
}

int AppendTextOutlines(cairo_t* context, const char* family, int style, float em,
                       std::string_view text) {
    const std::string name = Utf8FromWindows1252(std::string_view(family).substr(0, 260));
    if (!HasFamily(name)) return 0;
    if (!(em > 0)) return 1;
    const double size = std::min(static_cast<double>(em), kLargestEm);
    const PangoDescription font =
        Describe(name, size, (style & kBold) != 0 ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL,
                 (style & kItalic) != 0);
    const PangoText layout =
        LayOutText(font.get(), (style & kUnderline) != 0, TextHint::AntiAliased, text);
    cairo_move_to(context, TextMargin(size), 0);
    pango_cairo_layout_path(context, layout.get());
    return 1;
}

}  // namespace platform
