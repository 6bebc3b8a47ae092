// Panels: cloning one style's controls into the main dialog and binding each to
// its parameter.
#include <vector>

#include "fills/fountain_control.h"
#include "platform/dialog.h"
#include "platform/resources.h"
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
        case ParameterKind::Scroll4:
        case ParameterKind::Scroll2:
        case ParameterKind::ScrollHv:
            return platform::SetControlNumber(dialog, parameter.ControlId, parameter.Value, false);
        case ParameterKind::Matrix:
            return;
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
