#include <windows.h>

#include "controls/dialog_view.h"
#include "fills/marker_position_dialog.h"
#include "platform/win32/views.h"

namespace tess {

namespace {

bool ViewMarkerPosition(HWND window, UINT message, WPARAM w, LPARAM l, LRESULT* result) {
    return AnswerWithBackground(platform::HandleOf(window), message, w, l, result);
}

}  // namespace

void InstallMarkerPositionView() {
    platform::SetDialogView(kMarkerPositionTemplate, ViewMarkerPosition);
}

}  // namespace tess
