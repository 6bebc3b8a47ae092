#include "fills/marker_position_dialog.h"

#include "controls/skinned_button.h"
#include "controls/spinner.h"

namespace tess {

namespace {

using platform::WindowHandle;

constexpr int kDoneButton = 1, kCloseBox = 2;
constexpr int kPositionEdit = 100;
constexpr int kDigits = 3;

int* edited_position = nullptr;  // of the dialog that is open

void Open(WindowHandle dialog) {
    constexpr int kUpDown = kPositionEdit + kCompanionOffset;
    SkinButton(dialog, kDoneButton);
    SpinnerRange range{1, 255, 64};
    ReadSpinnerRange(platform::ControlText(dialog, kUpDown), &range);
    platform::SetUpDownRange(dialog, kUpDown, range.minimum, range.maximum);
    platform::LimitText(dialog, kPositionEdit, kDigits);
    platform::SetControlNumber(dialog, kPositionEdit, static_cast<std::uint32_t>(*edited_position),
                               false);
    platform::SelectText(dialog, kPositionEdit);
    platform::FocusControl(dialog, kPositionEdit);
    platform::CenterOnScreen(dialog);
}

std::intptr_t MarkerPositionProcedure(WindowHandle dialog, std::uint32_t message, std::uintptr_t w,
                                      std::intptr_t) {
    if (message == platform::kMessageOpen) {
        Open(dialog);
        return 1;
    }
    if (message != platform::kMessageCommand) return 0;
    switch (platform::CommandId(w)) {
        case kDoneButton:
            *edited_position = GetSpinnerValue(dialog, kPositionEdit);
            platform::EndDialog(dialog, 1);
            return 1;
        case kCloseBox:  // and the Escape key
            platform::EndDialog(dialog, 0);
            return 1;
        default:
            return 0;
    }
}

}  // namespace

void RunMarkerPositionDialog(WindowHandle owner, int* position) {
    edited_position = position;
    platform::RunDialog(kMarkerPositionTemplate, owner, MarkerPositionProcedure, nullptr);
    edited_position = nullptr;
}

}  // namespace tess
