#include "controls/number_edit.h"
#include "platform/win32/views.h"

namespace tess {

namespace {

bool HandleNumberEdit(HWND edit, UINT message, WPARAM w, LPARAM, LRESULT*) {
    if (message != WM_CHAR) return false;
    switch (JudgeTypedCharacter(static_cast<std::uint32_t>(w))) {
        case TypedCharacter::Passed:
            return false;
        case TypedCharacter::SelectsAll:
            SendMessageA(edit, EM_SETSEL, 0, -1);
            return true;
        case TypedCharacter::Refused:
            MessageBeep(MB_OK);
            return true;
    }
    return false;
}

}  // namespace

void InstallNumberEditView() {
    platform::SetControlView(NumberEditProcedure, HandleNumberEdit);
}

}  // namespace tess
