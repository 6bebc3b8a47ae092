#include "fills/gradient_dialog.h"

#include <algorithm>

#include "controls/color_button.h"
#include "controls/help.h"
#include "controls/number_edit.h"
#include "controls/skinned_button.h"
#include "controls/spinner.h"
#include "fills/fountain_control.h"
#include "fills/gradient_preview.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::Notification;
using platform::WindowHandle;

constexpr int kLeastMidpoint = 1, kMiddle = 50, kLargestMidpoint = 99;
constexpr int kLargestRotation = 360, kLargestOffset = 50;
constexpr int kSampleButtons[] = {kLinearButton, kEllipticalButton, kRectangularButton,
                                  kConicalButton};

/// The record that the open dialog works on.
Gradient* edited = nullptr;

int HoldMidpoint(int midpoint) {
    return std::clamp(midpoint, kLeastMidpoint, kLargestMidpoint);
}

int SignedNumber(WindowHandle dialog, int id) {
    return static_cast<std::int32_t>(platform::ControlNumber(dialog, id, true));
}

void SetNumber(WindowHandle dialog, int id, int value) {
    platform::SetControlNumber(dialog, id, static_cast<std::uint32_t>(value), true);
}

void RepaintPreview(WindowHandle dialog) {
    platform::RepaintControl(dialog, kGradientPreview);
    platform::UpdateWindow(platform::Control(dialog, kGradientPreview));
}

void OpenSpinner(WindowHandle dialog, int id, int value) {
    SpinnerRange range{};
    if (ReadSpinnerRange(platform::ControlText(dialog, id + kCompanionOffset), &range) >= 2) {
        platform::SetUpDownRange(dialog, id + kCompanionOffset, range.minimum, range.maximum);
    }
    SetNumber(dialog, id, value);
}

std::intptr_t MidpointSlider(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                             std::intptr_t l);

void ShowMidpoint(WindowHandle dialog, int midpoint) {
    // Writing a text that says the same would take the user's place in it away.
    const int shown = HoldMidpoint(midpoint);
    if (SignedNumber(dialog, kMidpointEdit) != shown) SetNumber(dialog, kMidpointEdit, shown);
}

void OpenMidpoint(WindowHandle dialog) {
    constexpr int kTick = 10;
    platform::SetSliderRange(dialog, kMidpointSlider, kLeastMidpoint, kLargestMidpoint, kTick);
    platform::SetSliderPosition(dialog, kMidpointSlider, edited->Midpoint);
    platform::InstallControl(dialog, kMidpointSlider, "", MidpointSlider);
    ShowMidpoint(dialog, edited->Midpoint);
}

void EnableBoth(WindowHandle dialog, int spinner, bool enabled) {
    platform::EnableControl(dialog, spinner, enabled);
    platform::EnableControl(dialog, spinner + kCompanionOffset, enabled);
}

void EnableControls(WindowHandle dialog) {
    const bool has_rotation = DragSetsRotation(edited->Type);
    const bool has_center = !has_rotation || edited->Type == GradientType::Conical;
    EnableBoth(dialog, kRotationEdit, has_rotation);
    EnableBoth(dialog, kCenterXEdit, has_center);
    EnableBoth(dialog, kCenterYEdit, has_center);
    for (const int label : {kCenterXLabel, kCenterYLabel})
        platform::EnableControl(dialog, label, has_center);
    const bool is_two_color = platform::IsChecked(dialog, kTwoColorRadio);
    for (const int id :
         {kEndColorButton, kStartColorButton, kMidpointSlider, kMidpointLabel, kMidpointEdit}) {
        platform::EnableControl(dialog, id, is_two_color);
    }
    platform::EnableControl(dialog, kGradientFountain, !is_two_color);
}

void CheckRadio(WindowHandle dialog) {
    platform::SetChecked(dialog, kTwoColorRadio, edited->TwoColor != 0);
    platform::SetChecked(dialog, kMultiColorRadio, edited->TwoColor == 0);
}

void Open(WindowHandle dialog, Gradient* gradient) {
    edited = gradient;
    for (const int button : {kOkButton, kCancelButton, kHelpButton})
        SkinButton(dialog, button);
    for (const int edit : {kCenterXEdit, kCenterYEdit}) {
        platform::SetControlText(dialog, edit + kCompanionOffset, "-50,50,0");
        MakeNumberEdit(dialog, edit);
    }
    OpenSpinner(dialog, kRotationEdit, gradient->Rotation);
    OpenSpinner(dialog, kEdgePadEdit, gradient->EdgePad);
    OpenSpinner(dialog, kCenterXEdit, gradient->CenterX);
    OpenSpinner(dialog, kCenterYEdit, gradient->CenterY);
    OpenMidpoint(dialog);
    platform::InstallControl(dialog, kGradientPreview, "", GradientPreview);
    CheckRadio(dialog);
    InstallFountainButton(dialog, kGradientFountain);  // starts from its own colours: that is meant
    EnableControls(dialog);
    platform::CenterOnScreen(dialog);
}

void ChangeType(WindowHandle dialog, int button) {
    edited->Type = SampleType(button);
    for (const int sample : kSampleButtons)
        platform::RepaintControl(dialog, sample);
    RepaintPreview(dialog);
    EnableControls(dialog);
}

void ChangeColor(WindowHandle dialog, int button) {
    const bool is_end = button == kEndColorButton;
    ColorWord color = is_end ? edited->EndColor : edited->StartColor;
    if (ChooseColor(dialog, &color) == 0) return;
    (is_end ? edited->EndColor : edited->StartColor) = color;
    platform::RepaintControl(dialog, button);
    RepaintPreview(dialog);
}

void ChangeTwoColor(WindowHandle dialog, bool is_two_color) {
    edited->TwoColor = is_two_color ? 1 : 0;
    CheckRadio(dialog);
    EnableControls(dialog);
    RepaintPreview(dialog);
}

void ChangeFountain(WindowHandle dialog) {
    Fountain fountain;
    if (ReadFountainButton(platform::Control(dialog, kGradientFountain), &fountain) != 0) {
        fountain.Preview = nullptr;  // the control's own
        edited->Ramp = fountain;
    }
    RepaintPreview(dialog);
}

/// Keeps the midpoint; the preview follows once no other has come for a while.
void StoreMidpoint(WindowHandle dialog, int midpoint) {
    edited->Midpoint = midpoint;
    platform::SetSliderPosition(dialog, kMidpointSlider, midpoint);
    platform::StopTimer(dialog, kMidpointTimer);
    platform::StartTimer(dialog, kMidpointTimer, kMidpointDelay);
    ShowMidpoint(dialog, midpoint);
}

void TellMidpoint(WindowHandle dialog, int midpoint) {
    platform::SendToWindow(dialog, ChangeMidpoint, 0, midpoint);
}

void ChangeEdit(WindowHandle dialog, int edit) {
    const int value = SignedNumber(dialog, edit);
    switch (edit) {
        case kMidpointEdit: {
            const int midpoint = static_cast<int>(std::min<std::uint32_t>(
                platform::ControlNumber(dialog, edit, false), kLargestMidpoint));
            if (HoldMidpoint(midpoint) != edited->Midpoint) {
                TellMidpoint(dialog, HoldMidpoint(midpoint));
            }
            return;
        }
        case kRotationEdit:
            edited->Rotation = std::clamp(value, -kLargestRotation, kLargestRotation);
            break;
        case kEdgePadEdit:
            edited->EdgePad = GetSpinnerValue(dialog, edit);
            break;
        case kCenterXEdit:
            edited->CenterX = std::clamp(value, -kLargestOffset, kLargestOffset);
            break;
        case kCenterYEdit:
            edited->CenterY = std::clamp(value, -kLargestOffset, kLargestOffset);
            break;
        default:
            return;
    }
    RepaintPreview(dialog);
}

void OnClick(WindowHandle dialog, int id) {
    switch (id) {
        case kOkButton:
            return platform::EndDialog(dialog, 1);
        case kCancelButton:
            return platform::EndDialog(dialog, 0);
        case kHelpButton:
            return ShowHelp(dialog, "GRADIENT");
        case kLinearButton:
        case kEllipticalButton:
        case kRectangularButton:
        case kConicalButton:
            return ChangeType(dialog, id);
        case kEndColorButton:
        case kStartColorButton:
            return ChangeColor(dialog, id);
        case kTwoColorRadio:
        case kMultiColorRadio:
            return ChangeTwoColor(dialog, id == kTwoColorRadio);
        case kGradientFountain:
            return ChangeFountain(dialog);
        default:
            return;
    }
}

void OnCommand(WindowHandle dialog, int id, Notification notification) {
    if (notification == Notification::Clicked) OnClick(dialog, id);
    if (notification == Notification::EditChanged) ChangeEdit(dialog, id);
}

std::intptr_t GradientBoxProc(WindowHandle dialog, std::uint32_t message, std::uintptr_t w,
                              std::intptr_t l) {
    if (message == platform::kMessageOpen) {
        Open(dialog, reinterpret_cast<Gradient*>(l));
        return 1;
    }
    if (edited == nullptr) return 0;
    switch (message) {
        case platform::kMessageCommand:
            OnCommand(dialog, platform::CommandId(w), platform::CommandNotification(w));
            return 1;
        case platform::kMessageSlider:
            if ((w & 0xFFFF) == platform::kSliderReleased) {
                TellMidpoint(dialog, platform::SliderPosition(dialog, kMidpointSlider));
            }
            return 1;
        case ChangeMidpoint:
            StoreMidpoint(dialog, static_cast<int>(l));
            return 1;
        case platform::kMessageTimer:
            if (w != kMidpointTimer) return 0;
            platform::StopTimer(dialog, kMidpointTimer);
            RepaintPreview(dialog);
            return 1;
        case platform::kMessageDestroy:
            platform::StopTimer(dialog, kMidpointTimer);
            edited = nullptr;
            return 1;
        default:
            return 0;
    }
}

constexpr std::uintptr_t kPressedLately = 1;  // a bit of the slider's user data

void SetPressedLately(WindowHandle slider, bool pressed) {
    platform::SetUserData(slider, reinterpret_cast<void*>(pressed ? kPressedLately : 0));
}

/// Takes the second of two quick presses, which sets the middle, away from the slider,
/// for the slider sends no double clicks.
std::intptr_t MidpointSlider(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                             std::intptr_t l) {
    switch (message) {
        case platform::kMessageLeftButtonDown:
        case platform::kMessageLeftDoubleClick:
            if (platform::UserData(control) != nullptr) {
                platform::PostToWindow(platform::ParentDialog(control), ChangeMidpoint, 0, kMiddle);
                return 0;
            }
            SetPressedLately(control, true);
            platform::StartTimer(control, kDoubleClickTimer, platform::DoubleClickTime());
            break;
        case platform::kMessageTimer:
            if (w != kDoubleClickTimer) break;
            platform::StopTimer(control, kDoubleClickTimer);
            SetPressedLately(control, false);
            return 0;
        case platform::kMessageDestroy:
            platform::StopTimer(control, kDoubleClickTimer);
            break;
        default:
            break;
    }
    return platform::CallOriginal(control, message, w, l);
}

}  // namespace

int EditGradient(WindowHandle owner, Gradient* gradient) {
    return platform::RunDialog(kGradientTemplate, owner, GradientBoxProc, gradient) == 1 ? 1 : 0;
}

const Gradient* EditedGradient() {
    return edited;
}

GradientType SampleType(int button) {
    switch (button) {
        case kEllipticalButton:
            return GradientType::Elliptical;
        case kRectangularButton:
            return GradientType::Rectangular;
        case kConicalButton:
            return GradientType::Conical;
        default:
            return GradientType::Linear;
    }
}

Gradient SampleGradient(const Gradient& gradient, GradientType type, ColorWord light,
                        ColorWord dark) {
    Gradient sample = gradient;
    sample.Type = type;
    sample.StartColor = light;
    sample.EndColor = dark;
    sample.EdgePad = 0;
    sample.CenterY = 0;  // the x is the record's own
    sample.Midpoint = kMiddle;
    sample.Rotation = 0;
    sample.TwoColor = 1;
    return sample;
}

}  // namespace tess
