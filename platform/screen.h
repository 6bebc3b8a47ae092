// The screen that windows are laid out on.
#pragma once

namespace platform {

struct PixelSize {
    int Width, Height;
    bool operator==(const PixelSize&) const = default;
};

/// The size of the main screen. Natively there is none, and a common size stands
/// for it.
[[nodiscard]] PixelSize ScreenSize();

/// The width of a vertical scroll bar. Natively a common one stands for it.
[[nodiscard]] int ScrollBarWidth();

/// `size` held within the screen, each side by itself.
[[nodiscard]] constexpr PixelSize ClampToScreen(PixelSize size, PixelSize screen) {
    return {size.Width < screen.Width ? size.Width : screen.Width,
            size.Height < screen.Height ? size.Height : screen.Height};
}

}  // namespace platform
