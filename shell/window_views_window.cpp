#include "controls/direction_picker.h"
#include "controls/skinned_button.h"
#include "shell/window_views.h"

namespace tess {

void InstallWindowViews() {
    InstallDirectionPickerView();
    InstallSkinnedButtonView();
}

}  // namespace tess
