// Colour buttons: flat buttons painted in their colour, which they carry as
// decimal text. The colour chooser is the host's.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"

struct tagDRAWITEMSTRUCT;  // the system's request to paint a control

namespace tess {

/// Lets the user choose a colour in the host's chooser, owned by `window`, which
/// gets the 256-colour orthogonal palette and starts from `color`. Returns 1 with
/// `color` changed, or 0 when the user cancelled.
int ChooseColor(platform::WindowHandle window, ColorWord* color);

/// How DrawColorButton paints, by bit. Of the three forms of text the first that is
/// set counts; without one the control's text is drawn as it is.
enum ColorButtonFlag : std::uint32_t {
    kButtonWithoutEdge = 1,
    kButtonWithoutText = 2,
    kButtonWithoutFocus = 4,
    kButtonPlain = 8,            ///< filled as a whole, without an outer rectangle
    kButtonTextChannels = 16,    ///< "219,227,234"
    kButtonTextHex = 32,         ///< "DBE3EA"
    kButtonTextHashHex = 64,     ///< "#DBE3EA"
    kButtonFont = 128,           ///< the control's own font
    kMainDialogColorButton = 16  ///< what the main dialog uses
};

/// The text to draw on a button that holds `text`. A form of text is made of the
/// number in `text`, and of `color` where that is empty.
[[nodiscard]] std::string ColorButtonText(std::string_view text, ColorWord color,
                                          std::uint32_t flags);
/// White on what is darker than 129, else black.
[[nodiscard]] ColorWord ColorButtonTextColor(ColorWord color);
/// A disabled button shows the face colour and hides its value.
[[nodiscard]] constexpr ColorWord ColorButtonFill(ColorWord color, ColorWord face,
                                                  bool is_disabled) {
    return is_disabled ? face : color;
}
[[nodiscard]] constexpr bool ColorButtonHasFocusFrame(bool has_focus, std::uint32_t flags) {
    return has_focus && (flags & kButtonWithoutFocus) == 0;
}
[[nodiscard]] constexpr bool ColorButtonHasText(bool is_disabled, std::uint32_t flags) {
    return !is_disabled && (flags & kButtonWithoutText) == 0;
}

/// Paints one owner-drawn button. Windows only.
void DrawColorButton(platform::WindowHandle control, const tagDRAWITEMSTRUCT* item, ColorWord color,
                     std::uint32_t flags);

}  // namespace tess
