// DIALOG 9995: one gradient, with a live preview.
#pragma once

#include <cstdint>

#include "fills/gradient.h"
#include "platform/dialog.h"

namespace tess {

inline constexpr int kGradientTemplate = 9995;

/// Controls of the dialog. A spinner's up-down is its id + 10000.
enum GradientControl : int {
    kLinearButton = 101,
    kEllipticalButton = 102,
    kRectangularButton = 103,
    kConicalButton = 104,
    kGradientPreview = 105,
    kEndColorButton = 106,
    kStartColorButton = 107,
    kMidpointSlider = 108,
    kMidpointLabel = 109,
    kMidpointEdit = 110,
    kRotationEdit = 111,
    kEdgePadEdit = 112,
    kCenterXEdit = 113,
    kCenterYEdit = 114,
    kCenterXLabel = 116,
    kCenterYLabel = 117,
    kTwoColorRadio = 118,
    kMultiColorRadio = 119,
    kGradientFountain = 120,
};

/// The message that tells the dialog a new midpoint, its second argument.
inline constexpr std::uint32_t ChangeMidpoint = 1224;
/// A timer of the dialog: the preview follows a midpoint once it has stood still.
inline constexpr int kMidpointTimer = 10;
inline constexpr int kMidpointDelay = 200;  // milliseconds
/// A timer of the slider: runs while a second press would be a double click.
inline constexpr int kDoubleClickTimer = 11;

/// Lets the user edit a gradient. Returns 1 when it was ended by OK. The dialog works
/// on the record itself, so one that must outlive Cancel is given as a copy.
int EditGradient(platform::WindowHandle owner, Gradient* gradient);

/// The record that the dialog works on, null while there is none.
[[nodiscard]] const Gradient* EditedGradient();

/// The type that a sample button stands for.
[[nodiscard]] GradientType SampleType(int button);

/// What a sample button shows of `gradient`: its centre's x, and otherwise a plain
/// gradient of the type from `light` to `dark`.
[[nodiscard]] Gradient SampleGradient(const Gradient& gradient, GradientType type, ColorWord light,
                                      ColorWord dark);

/// Adds painting to the dialog. Windows only.
void InstallGradientDialogView();

}  // namespace tess
