// Panels: cloning one style's controls into the main dialog and binding each to
// its parameter.
#include <vector>

#include "controls/direction_picker.h"
#include "fills/fountain_control.h"
#include "fills/matrix_control.h"
#include "platform/dialog.h"
#include "platform/resources.h"
#include "shell/control_contract.h"
#include "shell/style_table.h"
#include "shell/value_controls.h"

namespace tess {

namespace {

void BindParameter(platform::WindowHandle dialog, StyleParameter& parameter) {
    switch (parameter.Kind) {
        case ParameterKind::Spinner:
            return BindSpinner(dialog, parameter.ControlId, &parameter.Value);
        case ParameterKind::ColorButton:
            return BindColorButton(dialog, parameter.ControlId, &parameter.Value);
        case ParameterKind::CheckBox:
            return BindCheckBox(dialog, parameter.ControlId, &parameter.Value);
        case ParameterKind::ChoiceList:
            return BindChoiceList(dialog, parameter.ControlId, parameter.Detail, &parameter.Value);
        case ParameterKind::ShadowDirection:
            return BindDirectionPicker(dialog, parameter.ControlId, kShadowDirectionTag,
                                       &parameter.Value);
        case ParameterKind::Scroll4:
            return BindDirectionPicker(dialog, parameter.ControlId, kScroll4Tag, &parameter.Value);
        case ParameterKind::Scroll2:
            return BindDirectionPicker(dialog, parameter.ControlId, kScroll2Tag, &parameter.Value);
        case ParameterKind::ScrollHv:
            return BindDirectionPicker(dialog, parameter.ControlId, kScrollHvTag, &parameter.Value);
        case ParameterKind::Matrix:
            return BindMatrixControl(dialog, parameter.ControlId, parameter.Value);
        case ParameterKind::Fountain:
            return BindFountainButton(dialog, parameter.ControlId, parameter.Detail);
    }
}

}  // namespace

int PanelInit(const StyleEntry& style, StyleContext* context) {
    if (platform::ClonePanel(style.PanelTemplate, context->Dialog) == 0) return 0;
    for (StyleParameter& parameter : style.Parameters) {
        BindParameter(context->Dialog, parameter);
    }
    return 1;
}

ColorWord BackgroundQuery(const StyleEntry& style, platform::WindowHandle dialog,
                          std::uint32_t mode) {
    if (mode != 0 || style.BackgroundControl == 0) return kNoBackground;
    return platform::ControlNumber(dialog, style.BackgroundControl, false);
}

std::vector<int> ControlList(const StyleEntry& style) {
    std::vector<int> ids;
    if (const platform::DialogTemplate* panel = platform::FindDialogTemplate(style.PanelTemplate)) {
        for (const platform::TemplateControl& control : panel->controls) {
            ids.push_back(control.id);
        }
    }
    return ids;
}

}  // namespace tess
