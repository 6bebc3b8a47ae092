#include <windows.h>

#include "controls/dialog_view.h"
#include "platform/win32/views.h"
#include "shell/about_dialog.h"
#include "shell/logo.h"

namespace tess {

namespace {

bool ViewAbout(HWND window, UINT message, WPARAM w, LPARAM l, LRESULT*) {
    const platform::WindowHandle dialog = platform::HandleOf(window);
    StepLogo(dialog, kAboutLogo, w);
    switch (message) {
        case WM_INITDIALOG:
            StartLogo(dialog, kAboutLogo);
            return true;
        case WM_DRAWITEM:
            if (w != kAboutLogo) return false;
            PaintLogo(reinterpret_cast<const DRAWITEMSTRUCT*>(l));
            return true;
        case WM_DESTROY:
            StopLogo(dialog, kAboutLogo);
            break;
        default:
            break;
    }
    return false;
}

}  // namespace

void InstallAboutView() {
    platform::SetDialogView(kAboutTemplate, ViewAbout);
}

}  // namespace tess
