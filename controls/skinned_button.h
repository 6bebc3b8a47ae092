// Skinned buttons: push buttons that are painted by the program in the look that the
// host asks for. This header has what is reckoned of a look; controls/
// skinned_button_window.cpp paints it.
//
// A skinned button keeps in its user-data slot, in bit 0, whether the mouse is down
// on it.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"

namespace tess {

/// The host's number of the look: 0 leaves the buttons the system's. Kept from
/// HostServices as the main dialog opens.
extern std::uint32_t SkinButtons;

/// Gives push button `id` of `dialog` the look of SkinButtons. Returns 1, or 0 when
/// there is no look or no such control.
int SkinButton(platform::WindowHandle dialog, int id);

/// What SkinButton installs. The mouse passes through it, so that the button still
/// sends its command.
std::intptr_t SkinnedButtonProcedure(platform::WindowHandle control, std::uint32_t message,
                                     std::uintptr_t w, std::intptr_t l);

/// Whether the mouse is down on a skinned button.
[[nodiscard]] bool IsSkinPressed(platform::WindowHandle control);

enum class ButtonLook { Rounded, Bevelled, Gradient };
/// Requires: `skin_buttons` is not 0.
[[nodiscard]] ButtonLook LookOf(std::uint32_t skin_buttons);

/// A box in pixels, without its right column and bottom row.
struct ButtonBox {
    int Left, Top, Right, Bottom;
    bool operator==(const ButtonBox&) const = default;
};

/// Where a button's text is centred.
[[nodiscard]] ButtonBox SkinTextBox(const ButtonBox& button, bool is_pressed);

/// The two vertical gradients of the gradient look, moved when pressed.
struct GradientBoxes {
    ButtonBox Upper, Lower;
};
[[nodiscard]] GradientBoxes GradientLookBoxes(const ButtonBox& button, bool is_pressed);

/// The colour between a dark one and white: each channel halved, plus 127.
[[nodiscard]] ColorWord MidwayToWhite(ColorWord color);

/// The colours of a gradient over `lines` lines, the first of them `from`; the last
/// is one step short of `to`.
class GradientLines {
public:
    GradientLines(ColorWord from, ColorWord to, int lines);
    /// The present line's colour, each channel truncated.
    [[nodiscard]] ColorWord Color() const;
    void Advance();

private:
    double channels_[3];
    double steps_[3];
};

/// Adds painting to all skinned buttons. Windows only.
void InstallSkinnedButtonView();

}  // namespace tess
