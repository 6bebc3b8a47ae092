// The commands that list what there is: styles, params.
#include <cstdio>
#include <string>
#include <string_view>

#include "controls/spinner.h"
#include "host/json_writer.h"
#include "platform/resources.h"
#include "programs/cli/commands.h"
#include "programs/cli/control_values.h"
#include "programs/cli/session.h"
#include "programs/cli/style_names.h"
#include "programs/cli/values.h"

namespace tess {
namespace {

using platform::DialogTemplate;
using platform::TemplateControl;

const TemplateControl* FindTemplateControl(const DialogTemplate* panel, int id) {
    if (panel == nullptr) return nullptr;
    for (const TemplateControl& control : panel->controls) {
        if (control.id == id) return &control;
    }
    return nullptr;
}

// What a control is called on its panel: a check box by its own text, any other by
// the static text before it.
std::string LabelOf(const DialogTemplate* panel, const StyleParameter& parameter) {
    if (panel == nullptr) return "";
    std::string_view last_static;
    for (const TemplateControl& control : panel->controls) {
        if (control.id == parameter.ControlId) {
            const bool is_check_box = parameter.Kind == ParameterKind::CheckBox;
            return std::string(is_check_box ? control.text : last_static);
        }
        if (control.window_class == "STATIC") last_static = control.text;
    }
    return "";
}

SpinnerRange RangeOf(const DialogTemplate* panel, const StyleParameter& parameter) {
    SpinnerRange range{0, 100, 0};
    const TemplateControl* companion =
        FindTemplateControl(panel, parameter.ControlId + kCompanionOffset);
    if (companion != nullptr) ReadSpinnerRange(companion->text, &range);
    return range;
}

// Calls `take` with each of the choices of a list.
template <class Take>
void ForEachChoice(const StyleParameter& parameter, Take take) {
    std::string_view rest = parameter.Detail != nullptr ? parameter.Detail : "";
    while (!rest.empty()) {
        const std::size_t end = rest.find(';');
        const std::string_view choice = rest.substr(0, end);
        if (!choice.empty()) take(choice);
        rest = end == std::string_view::npos ? "" : rest.substr(end + 1);
    }
}

// The text of the choice that a list starts with.
std::string StartChoice(const StyleParameter& parameter) {
    std::uint32_t index = 0;
    std::string text;
    ForEachChoice(parameter, [&](std::string_view choice) {
        if (index++ == parameter.Start) text = choice;
    });
    return text;
}

void WriteRange(JsonWriter& json, std::int64_t minimum, std::int64_t maximum) {
    json.Key("minimum");
    json.Number(minimum);
    json.Key("maximum");
    json.Number(maximum);
}

void WriteParameter(JsonWriter& json, const StyleEntry& style, const DialogTemplate* panel,
                    const StyleParameter& parameter) {
    json.BeginObject();
    json.Key("name");
    json.Text(ParameterName(style, parameter));
    json.Key("key");
    if (parameter.Key != nullptr) {
        json.Text(parameter.Key);
    } else {
        json.Null();
    }
    json.Key("control");
    json.Number(parameter.ControlId);
    json.Key("kind");
    json.Text(KindName(parameter.Kind));
    json.Key("label");
    json.Text(LabelOf(panel, parameter));
    if (parameter.Kind == ParameterKind::Spinner) {
        const SpinnerRange range = RangeOf(panel, parameter);
        WriteRange(json, range.minimum, range.maximum);
    } else if (const int cells = PickerCells(parameter.Kind); cells > 0) {
        WriteRange(json, 0, cells - 1);
    }
    json.Key("start");
    json.Number(parameter.Start);
    if (parameter.Kind == ParameterKind::ColorButton) {
        json.Key("start_color");
        json.Text(ColorText(parameter.Start));
    }
    if (parameter.Kind == ParameterKind::ChoiceList) {
        json.Key("start_text");
        json.Text(StartChoice(parameter));
        json.Key("choices");
        json.BeginArray();
        ForEachChoice(parameter, [&](std::string_view choice) { json.Text(choice); });
        json.EndArray();
    }
    json.EndObject();
}

std::string TakesText(const DialogTemplate* panel, const StyleParameter& parameter) {
    switch (parameter.Kind) {
        case ParameterKind::Spinner: {
            const SpinnerRange range = RangeOf(panel, parameter);
            return std::to_string(range.minimum) + " to " + std::to_string(range.maximum);
        }
        case ParameterKind::ColorButton:
            return "#RRGGBB";
        case ParameterKind::CheckBox:
            return "yes, no";
        case ParameterKind::ChoiceList: {
            std::string choices;
            ForEachChoice(parameter, [&](std::string_view choice) {
                choices += (choices.empty() ? "" : ", ") + std::string(choice);
            });
            return choices;
        }
        case ParameterKind::Fountain:
            return "colors";
        case ParameterKind::Matrix:
            return "a tile's index";
        default:
            return "0 to " + std::to_string(PickerCells(parameter.Kind) - 1);
    }
}

std::string StartText(const StyleParameter& parameter) {
    switch (parameter.Kind) {
        case ParameterKind::ColorButton:
            return ColorText(parameter.Start);
        case ParameterKind::CheckBox:
            return parameter.Start != 0 ? "yes" : "no";
        case ParameterKind::ChoiceList:
            return StartChoice(parameter);
        case ParameterKind::Fountain:
            return "";
        default:
            return std::to_string(parameter.Start);
    }
}

void WriteStylesJson() {
    JsonWriter json(stdout);
    json.BeginArray();
    for (int i = 0; i < kStyleCount; ++i) {
        json.BeginObject();
        json.Key("index");
        json.Number(i);
        json.Key("name");
        json.Text(StyleTable[i]->Name);
        json.Key("short_name");
        json.Text(StyleName(*StyleTable[i]));
        json.Key("configuration_name");
        json.Text(StyleTable[i]->ConfigurationName);
        json.EndObject();
    }
    json.EndArray();
}

void WriteParamsJson(int index) {
    const StyleEntry& style = *StyleTable[index];
    const DialogTemplate* panel = platform::FindDialogTemplate(style.PanelTemplate);
    JsonWriter json(stdout);
    json.BeginObject();
    json.Key("index");
    json.Number(index);
    json.Key("name");
    json.Text(style.Name);
    json.Key("parameters");
    json.BeginArray();
    for (const StyleParameter& parameter : style.Parameters) {
        WriteParameter(json, style, panel, parameter);
    }
    json.EndArray();
    json.EndObject();
}

}  // namespace

int RunStyles(const Request& request) {
    if (request.Json) {
        WriteStylesJson();
        return kDone;
    }
    for (int i = 0; i < kStyleCount; ++i) {
        std::printf("%2d  %-16s  %s\n", i, StyleName(*StyleTable[i]).c_str(), StyleTable[i]->Name);
    }
    return kDone;
}

int RunParams(const Request& request) {
    const int index = FindStyle(request.Operands.front());
    if (index < 0) {
        TellUser(UnknownStyleText(request.Operands.front()));
        return kWrongUse;
    }
    if (request.Json) {
        WriteParamsJson(index);
        return kDone;
    }
    const StyleEntry& style = *StyleTable[index];
    const DialogTemplate* panel = platform::FindDialogTemplate(style.PanelTemplate);
    std::printf("%d  %s\n\n", index, style.Name);
    std::printf("%-18s %-24s %-7s %-16s %-20s %-12s %s\n", "NAME", "KEY", "CONTROL", "LABEL",
                "TAKES", "START", "KIND");
    for (const StyleParameter& parameter : style.Parameters) {
        std::printf("%-18s %-24s %-7d %-16s %-20s %-12s %s\n",
                    ParameterName(style, parameter).c_str(),
                    parameter.Key != nullptr ? parameter.Key : "-", parameter.ControlId,
                    LabelOf(panel, parameter).c_str(), TakesText(panel, parameter).c_str(),
                    StartText(parameter).c_str(), KindName(parameter.Kind));
    }
    return kDone;
}

}  // namespace tess
