#include <windows.h>

#include "controls/dialog_background.h"
#include "pipeline/image_painting.h"
#include "platform/win32/views.h"
#include "shell/logo.h"

namespace tess {

namespace {

/// The block that a logo's control keeps in its user-data slot.
platform::MemoryHandle LogoBlock(HWND control) {
    return static_cast<platform::MemoryHandle>(platform::UserData(platform::HandleOf(control)));
}

}  // namespace

void StartLogo(platform::WindowHandle dialog, int id) {
    HWND control = platform::WindowOf(platform::Control(dialog, id));
    if (control == nullptr || LogoBlock(control) != nullptr) return;
    platform::OwnedBlock block(platform::AllocateBlock(sizeof(Logo)));
    {
        const platform::LockedBlock<Logo> logo(block.Get());
        if (!logo || OpenLogo(GetSysColor(COLOR_BTNFACE), logo) == 0) return;
    }
    platform::SetUserData(platform::HandleOf(control), block.Release());
    SetWindowPos(control, nullptr, 0, 0, kLogoControlSide, kLogoControlSide,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    platform::StartTimer(dialog, kLogoTimer, kLogoInterval);
}

void StopLogo(platform::WindowHandle dialog, int id) {
    platform::StopTimer(dialog, kLogoTimer);
    HWND control = platform::WindowOf(platform::Control(dialog, id));
    if (control == nullptr) return;
    const platform::OwnedBlock block(LogoBlock(control));
    platform::SetUserData(platform::HandleOf(control), nullptr);
    const platform::LockedBlock<Logo> logo(block.Get());
    if (logo) CloseLogo(logo);
}

void PaintLogo(const tagDRAWITEMSTRUCT* item) {
    const platform::LockedBlock<Logo> logo(LogoBlock(item->hwndItem));
    if (!logo) return;
    const int saved = SaveDC(item->hDC);
    const LogoPlace place = PlaceLogo(TakeLogoFrame(logo));
    IntersectClipRect(item->hDC, 1, 1, 1 + kLogoSide, 1 + kLogoSide);
    PaintDib(item->hDC, place.Left, place.Top, logo->Frames);
    RestoreDC(item->hDC, saved);
    FrameRect(item->hDC, &item->rcItem,
              GetSysColorBrush(SolidBackground != 0 ? COLOR_BTNFACE : COLOR_BTNSHADOW));
}

}  // namespace tess
