#include "controls/color_button.h"

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

}  // namespace tess
