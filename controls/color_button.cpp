#include "controls/color_button.h"

#include <cstdio>
#include <cstdlib>

#include "controls/current_host.h"
#include "pipeline/palette.h"

namespace tess {

int ChooseColor(platform::WindowHandle window, ColorWord* color) {
    constexpr int kOrthogonal256 = 6;
    std::uint8_t palette[kPaletteBytes];
    BuildFixedPalette(palette, nullptr, kOrthogonal256);
    ColorDialogRecord record{};
    record.Size = sizeof record;
    record.Version = kHostVersion;
    record.Palette = palette;
    record.Depth = 24;
    record.Color = *color;
    record.Owner = window;
    if (CallHost(CurrentHost, nullptr, HostOp::ChooseColor, 0, &record) == 0) return 0;
    *color = record.Color;
    return 1;
}

std::string ColorButtonText(std::string_view text, ColorWord color, std::uint32_t flags) {
    std::string shown(text);
    const char* form = nullptr;
    if ((flags & kButtonTextChannels) != 0) {
        form = "%d,%d,%d";
    } else if ((flags & kButtonTextHex) != 0) {
        form = "%02X%02X%02X";
    } else if ((flags & kButtonTextHashHex) != 0) {
        form = "#%02X%02X%02X";
    } else {
        return shown;
    }
    if (!shown.empty()) color = static_cast<ColorWord>(std::strtoul(shown.c_str(), nullptr, 10));
    char formed[32];
    std::snprintf(formed, sizeof formed, form, RedOf(color), GreenOf(color), BlueOf(color));
    return formed;
}

ColorWord ColorButtonTextColor(ColorWord color) {
    constexpr int kDark = 129;
    return Luminance(RedOf(color), GreenOf(color), BlueOf(color)) < kDark ? MakeColor(255, 255, 255)
                                                                          : MakeColor(0, 0, 0);
}

}  // namespace tess
