#include "controls/skinned_button.h"

namespace tess {

namespace {

using platform::WindowHandle;

constexpr std::uintptr_t kPressed = 1;

void SetPressed(WindowHandle control, bool is_pressed) {
    const auto bits = reinterpret_cast<std::uintptr_t>(platform::UserData(control));
    platform::SetUserData(control,
                          reinterpret_cast<void*>(is_pressed ? bits | kPressed : bits & ~kPressed));
    platform::RepaintControl(platform::ParentDialog(control), platform::ControlId(control));
}

}  // namespace

std::uint32_t SkinButtons = 0;

std::intptr_t SkinnedButtonProcedure(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                                     std::intptr_t l) {
    if (message == platform::kMessageLeftButtonDown) SetPressed(control, true);
    if (message == platform::kMessageLeftButtonUp) SetPressed(control, false);
    return platform::CallOriginal(control, message, w, l);
}

int SkinButton(WindowHandle dialog, int id) {
    if (SkinButtons == 0 || platform::Control(dialog, id) == nullptr) return 0;
    platform::MakeOwnerDrawn(dialog, id);
    platform::InstallControl(dialog, id, "", SkinnedButtonProcedure);
    return 1;
}

bool IsSkinPressed(WindowHandle control) {
    return (reinterpret_cast<std::uintptr_t>(platform::UserData(control)) & kPressed) != 0;
}

ButtonLook LookOf(std::uint32_t skin_buttons) {
    if (skin_buttons == 2) return ButtonLook::Bevelled;
    return skin_buttons == 3 ? ButtonLook::Gradient : ButtonLook::Rounded;
}

ButtonBox SkinTextBox(const ButtonBox& button, bool is_pressed) {
    const int shift = is_pressed ? 2 : 0;
    return {button.Left + shift, button.Top + shift, button.Right + shift,
            button.Bottom - 1 + shift};
}

GradientBoxes GradientLookBoxes(const ButtonBox& button, bool is_pressed) {
    const int shift = is_pressed ? 2 : 0;
    const int top = button.Top + shift, bottom = button.Bottom + shift;
    const int middle = top + (bottom - top) * 55 / 100;
    const int left = button.Left + shift, right = button.Right + shift;
    return {{left, top, right, middle}, {left, middle, right, bottom}};
}

ColorWord MidwayToWhite(ColorWord color) {
    return MakeColor(RedOf(color) / 2 + 127, GreenOf(color) / 2 + 127, BlueOf(color) / 2 + 127);
}

GradientLines::GradientLines(ColorWord from, ColorWord to, int lines)
    : channels_{static_cast<double>(RedOf(from)), static_cast<double>(GreenOf(from)),
                static_cast<double>(BlueOf(from))} {
    // A gradient without lines is never asked for a colour.
    const double count = lines > 0 ? lines : 1;
    steps_[0] = (RedOf(to) - RedOf(from)) / count;
    steps_[1] = (GreenOf(to) - GreenOf(from)) / count;
    steps_[2] = (BlueOf(to) - BlueOf(from)) / count;
}

ColorWord GradientLines::Color() const {
    return MakeColor(static_cast<int>(channels_[0]), static_cast<int>(channels_[1]),
                     static_cast<int>(channels_[2]));
}

void GradientLines::Advance() {
    for (int i = 0; i < 3; ++i)
        channels_[i] += steps_[i];
}

}  // namespace tess
