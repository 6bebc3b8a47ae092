// A style's panel in an open dialog. A test names its controls as the style's own
// table of parameters does: by their keys, without the prefix that the style's keys
// share.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "controls/direction_picker.h"
#include "controls/spinner.h"
#include "platform/dialog.h"
#include "shell/control_contract.h"
#include "shell/style_table.h"

namespace tess::test {

/// "FillColor" and 3 as "FillColor3".
inline std::string Numbered(std::string_view stem, int number) {
    return std::string(stem) + std::to_string(number);
}

/// The style's parameter with exactly this key. A key that it has not fails the test,
/// and gives null.
inline const StyleParameter* FindParameter(const StyleEntry& style, std::string_view key) {
    const std::string whole = style.ConfigurationName + std::string(key);
    for (const StyleParameter& parameter : style.Parameters) {
        if (parameter.Key != nullptr && parameter.Key == whole) return &parameter;
    }
    ADD_FAILURE() << style.Name << " has no parameter \"" << key << "\"";
    return nullptr;
}

/// The id of the style's fountain button, which has no key. Fails the test, and gives
/// 0, where the style has none.
inline int FountainButtonOf(const StyleEntry& style) {
    for (const StyleParameter& parameter : style.Parameters) {
        if (parameter.Kind == ParameterKind::Fountain) return parameter.ControlId;
    }
    ADD_FAILURE() << style.Name << " has no fountain button";
    return 0;
}

class StylePanel {
public:
    /// Requires: the style's panel is set up in the dialog.
    StylePanel(const StyleEntry& style, platform::WindowHandle dialog)
        : style_(style), dialog_(dialog) {}

    /// Does to the parameter's control what a user would: checks a box (0 is off),
    /// selects an item (-1 is none), types a number or turns a picker.
    void Set(std::string_view key, int value) const {
        using enum ParameterKind;
        const StyleParameter* parameter = FindParameter(style_, key);
        if (parameter == nullptr) return;
        const int id = parameter->ControlId;
        switch (parameter->Kind) {
            case CheckBox:
                return platform::SetChecked(dialog_, id, value != 0);
            case ChoiceList:
                return platform::SetSelection(dialog_, id, value);
            case Spinner:
            case ColorButton:
                return platform::SetControlText(dialog_, id, std::to_string(value));
            case ShadowDirection:
            case Scroll4:
            case Scroll2:
            case ScrollHv:
                platform::SetControlText(dialog_, id, std::to_string(value));
                platform::SendToWindow(platform::Control(dialog_, id), ReadControlText, 0, 0);
                return;
            case Fountain:
            case Matrix:
                ADD_FAILURE() << key << " is no number";
        }
    }

    /// Selects the item with this text in a parameter's list.
    void Set(std::string_view key, std::string_view item) const {
        const StyleParameter* parameter = FindParameter(style_, key);
        if (parameter == nullptr) return;
        const int id = parameter->ControlId;
        for (int i = 0; i < platform::ItemCount(dialog_, id); ++i) {
            if (platform::ItemText(dialog_, id, i) == item)
                return platform::SetSelection(dialog_, id, i);
        }
        ADD_FAILURE() << parameter->Key << " has no item \"" << item << "\"";
    }

    /// What Set sets; of a list the number of the item.
    [[nodiscard]] int Get(std::string_view key) const {
        using enum ParameterKind;
        const StyleParameter* parameter = FindParameter(style_, key);
        if (parameter == nullptr) return 0;
        const int id = parameter->ControlId;
        switch (parameter->Kind) {
            case CheckBox:
                return platform::IsChecked(dialog_, id) ? 1 : 0;
            case ChoiceList:
                return platform::Selection(dialog_, id);
            case Spinner:
                return GetSpinnerValue(dialog_, id);
            case ColorButton:
                return static_cast<int>(platform::ControlNumber(dialog_, id, false));
            case ShadowDirection:
            case Scroll4:
            case Scroll2:
            case ScrollHv:
                return static_cast<int>(SelectedDirection(dialog_, id));
            case Fountain:
            case Matrix:
                ADD_FAILURE() << key << " is no number";
        }
        return 0;
    }

    [[nodiscard]] ColorWord Color(std::string_view key) const {
        return static_cast<ColorWord>(Get(key));
    }
    [[nodiscard]] bool IsChecked(std::string_view key) const { return Get(key) != 0; }

    /// The fill colours that take part: the first, and those whose box is on.
    [[nodiscard]] std::vector<ColorWord> FillColors() const {
        std::vector<ColorWord> colors;
        for (int i = 1; i <= 5; ++i) {
            if (i == 1 || IsChecked(Numbered("FillEnable", i)))
                colors.push_back(Color(Numbered("FillColor", i)));
        }
        return colors;
    }

private:
    const StyleEntry& style_;
    platform::WindowHandle dialog_;
};

}  // namespace tess::test
