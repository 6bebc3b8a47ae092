#include "controls/dialog_view.h"
#include "controls/direction_picker.h"
#include "controls/number_edit.h"
#include "controls/skinned_button.h"
#include "fills/curve_graph.h"
#include "fills/texture_dialog.h"
#include "shell/about_dialog.h"
#include "shell/main_dialog.h"
#include "shell/window_views.h"

namespace tess {

void InstallWindowViews() {
    InstallDirectionPickerView();
    InstallNumberEditView();
    InstallSkinnedButtonView();
    InstallDialogBackground();
    InstallMainDialogView();
    InstallAboutView();
    InstallTextureDialogView();
    InstallCurveGraphView();
}

}  // namespace tess
