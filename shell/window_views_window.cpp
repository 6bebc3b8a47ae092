#include "controls/dialog_view.h"
#include "controls/direction_picker.h"
#include "controls/number_edit.h"
#include "controls/skinned_button.h"
#include "fills/curve_graph.h"
#include "fills/fountain_control.h"
#include "fills/fountain_library_dialog.h"
#include "fills/gradient_dialog.h"
#include "fills/material_control.h"
#include "fills/matrix_control.h"
#include "fills/matrix_dialog.h"
#include "fills/texture_dialog.h"
#include "shell/about_dialog.h"
#include "shell/main_dialog.h"
#include "shell/value_controls.h"
#include "shell/window_views.h"

namespace tess {

void InstallWindowViews() {
    InstallDialogBackground();
    InstallDirectionPickerView();
    InstallNumberEditView();
    InstallSkinnedButtonView();
    InstallGradientDialogView();
    InstallMaterialButtonView();
    InstallMatrixControlView();
    InstallMatrixDialogView();
    InstallFountainButtonView();
    InstallFountainLibraryView();
    InstallMainDialogView();
    InstallAboutView();
    InstallFontBoxView();
    InstallTextureDialogView();
    InstallCurveGraphView();
}

}  // namespace tess
