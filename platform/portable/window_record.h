// A dialog or control of the native build: a record in place of a window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialog.h"
#include "platform/resources.h"

namespace platform {

enum class WindowKind { Dialog, Button, Edit, Static, ComboBox, ListBox, UpDown, Slider, Other };

struct ListItem {
    std::string text;
    void* data = nullptr;
};

struct Window {
    WindowKind kind = WindowKind::Other;
    int id = 0;
    std::uint32_t style = 0;
    std::string text;
    bool visible = false;
    bool enabled = true;
    void* user_data = nullptr;
    std::map<int, int> timers;  // intervals by id

    // Of a control.
    Window* parent = nullptr;
    const char* tag = "";
    ControlProcedure control_procedure = nullptr;
    bool checked = false;
    std::vector<ListItem> items;
    int selection = -1;
    int item_height = 13;            // a list box's, in the measure of the dialogs' font
    int minimum = 100, maximum = 0;  // an up-down's range before one is set
    int position = 0;                // a slider's
    std::size_t text_limit = 30000;  // an edit's, the system's at first
    PixelSize size = {};
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
