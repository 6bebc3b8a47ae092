// A dialog or control of the native build: a record in place of a window.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialog.h"
#include "platform/resources.h"

namespace platform {

enum class WindowKind { Dialog, Button, Edit, Static, ComboBox, ListBox, UpDown, Other };

struct Window {
    WindowKind kind = WindowKind::Other;
    int id = 0;
    std::uint32_t style = 0;
    std::string text;
    bool visible = false;
    bool enabled = true;
    void* user_data = nullptr;

    // Of a control.
    Window* parent = nullptr;
    const char* tag = "";
    ControlProcedure control_procedure = nullptr;
    bool checked = false;
    std::vector<std::string> items;
    int selection = -1;
    int minimum = 100, maximum = 0;  // an up-down's range before one is set
    int repaints = 0;

    // Of a dialog.
    std::string template_name;
    DialogProcedure dialog_procedure = nullptr;
    std::vector<std::unique_ptr<Window>> children;
    bool ended = false;
    std::intptr_t result = 0;
};

/// Makes a control of `dialog`, its last child.
Window* AddControl(Window* dialog, const TemplateControl& control, bool visible);

}  // namespace platform
