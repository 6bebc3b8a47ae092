// The animated logo of the main dialog and of About: a bitmap file of 32 bits with
// alpha whose 36 pictures stand below one another.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"

struct tagDRAWITEMSTRUCT;  // the system's request to paint a control

namespace tess {

inline constexpr int kLogoResource = 9001;
inline constexpr int kLogoSide = 50;  ///< pixels, of one picture
inline constexpr int kLogoFrames = 36;
inline constexpr int kLogoControlSide = kLogoSide + 2;
inline constexpr int kLogoTimer = 99;
inline constexpr int kLogoInterval = 60;  ///< milliseconds

/// A logo that is shown.
struct Logo {
    ImageHandle Frames;  ///< 24 bits, owned
    int Next;            ///< the picture to draw next
};

/// Blends the stored pictures onto `face`, the colour of the system's buttons.
/// Returns 1, or 0 with nothing to close.
[[nodiscard]] int OpenLogo(ColorWord face, Logo* logo);
void CloseLogo(Logo* logo);

/// Returns the picture to draw now, counted from 0, and goes on to the next, from the
/// last to the first.
[[nodiscard]] int TakeLogoFrame(Logo* logo);

/// The left and top at which the whole strip of pictures has to be drawn so that
/// picture `frame` stands within the control's one pixel of frame.
struct LogoPlace {
    int Left, Top;
};
[[nodiscard]] constexpr LogoPlace PlaceLogo(int frame) {
    return {1, 1 - frame * kLogoSide};
}

/// Repaints the logo in control `id` when `w` is the number of its timer, in whatever
/// message: a repaint too many does no harm. The dialog's procedure asks it, and its view
/// for the messages that the procedure is not sent.
void StepLogo(platform::WindowHandle dialog, int id, std::uintptr_t w);

// Windows only: the logo in control `id` of a dialog, from its opening to its end.

/// Sizes the control and starts the timer.
void StartLogo(platform::WindowHandle dialog, int id);
void StopLogo(platform::WindowHandle dialog, int id);
/// Draws the next picture.
void PaintLogo(const tagDRAWITEMSTRUCT* item);

}  // namespace tess
