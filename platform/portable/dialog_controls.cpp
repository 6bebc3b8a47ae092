// What a control of the native build shows and carries.

#include <algorithm>
#include <strings.h>

#include "platform/control_kinds.h"
#include "platform/control_number.h"
#include "platform/dialog.h"
#include "platform/headless_user.h"
#include "platform/list_box.h"
#include "platform/portable/window_record.h"

namespace platform {

namespace {

constexpr std::uint32_t kStyleSetBuddyNumber = 0x0002;  // UDS_SETBUDDYINT
constexpr std::uint32_t kStyleAutoBuddy = 0x0010;       // UDS_AUTOBUDDY
constexpr std::uint32_t kCheckBox = 2, kAutoCheckBox = 3, kAutoRadioButton = 9;

bool IsList(const Window* window) {
    return window != nullptr &&
           (window->kind == WindowKind::ComboBox || window->kind == WindowKind::ListBox);
}

bool IsIndex(const Window* window, int index) {
    return IsList(window) && index >= 0 && index < static_cast<int>(window->items.size());
}

void SetText(Window* control, std::string_view text) {
    // A combo box with a fixed list shows what is selected and nothing else.
    if (control->kind == WindowKind::ComboBox) return;
    control->text = text;
    if (control->kind != WindowKind::Edit) return;
    const auto code = static_cast<std::uintptr_t>(Notification::EditChanged);
    SendToWindow(control->parent, kMessageCommand,
                 (static_cast<std::uintptr_t>(control->id) & 0xFFFF) | code << 16,
                 reinterpret_cast<std::intptr_t>(control));
}

void InsertIntoList(Window* control, int index, ListItem item) {
    control->items.insert(control->items.begin() + index, std::move(item));
    if (control->selection >= index) ++control->selection;
}

bool IsSorted(const Window* control) {
    constexpr std::uint32_t kSortedListBox = 0x0002, kSortedComboBox = 0x0100;
    return (control->style &
            (control->kind == WindowKind::ListBox ? kSortedListBox : kSortedComboBox)) != 0;
}

/// Adds an item at the list's end, or at its place in a sorted one, behind its equals.
int AddToList(Window* control, ListItem item) {
    auto place = control->items.end();
    if (IsSorted(control)) {
        place = std::upper_bound(control->items.begin(), control->items.end(), item,
                                 [](const ListItem& a, const ListItem& b) {
                                     return strcasecmp(a.text.c_str(), b.text.c_str()) < 0;
                                 });
    }
    const auto index = static_cast<int>(place - control->items.begin());
    InsertIntoList(control, index, std::move(item));
    return index;
}

/// The kind of a button, as its style tells it.
bool IsButton(const Window* control, std::uint32_t kind) {
    constexpr std::uint32_t kKindBits = 0x0F;
    return control != nullptr && control->kind == WindowKind::Button &&
           (control->style & kKindBits) == kind;
}

/// The control that an up-down counts in: the one made just before it.
Window* BuddyOf(const Window* up_down) {
    const auto& siblings = up_down->parent->children;
    for (std::size_t i = 1; i < siblings.size(); ++i) {
        if (siblings[i].get() == up_down) return siblings[i - 1].get();
    }
    return nullptr;
}

}  // namespace

std::string ControlText(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    if (control == nullptr) return "";
    return IsIndex(control, control->selection) && control->kind == WindowKind::ComboBox
               ? control->items[static_cast<std::size_t>(control->selection)].text
               : control->text;
}

void SetControlText(WindowHandle dialog, int id, std::string_view text) {
    if (Window* control = Control(dialog, id)) SetText(control, text);
}

std::uint32_t ControlNumber(WindowHandle dialog, int id, bool is_signed) {
    return NumberFromText(ControlText(dialog, id), is_signed);
}

void SetControlNumber(WindowHandle dialog, int id, std::uint32_t value, bool is_signed) {
    SetControlText(
        dialog, id,
        is_signed ? std::to_string(static_cast<std::int32_t>(value)) : std::to_string(value));
}

bool IsChecked(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    return control != nullptr && control->checked;
}

void SetChecked(WindowHandle dialog, int id, bool checked) {
    Window* control = Control(dialog, id);
    if (IsButton(control, kCheckBox) || IsButton(control, kAutoCheckBox) ||
        IsButton(control, kAutoRadioButton)) {
        control->checked = checked;
    }
}

int Selection(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    if (control == nullptr) return 0;
    return IsIndex(control, control->selection) ? control->selection : -1;
}

void SetSelection(WindowHandle dialog, int id, int index) {
    if (Window* control = Control(dialog, id)) {
        control->selection = IsIndex(control, index) ? index : -1;
    }
}

void ClearItems(WindowHandle dialog, int id) {
    Window* control = Control(dialog, id);
    if (!IsList(control)) return;
    control->items.clear();
    control->selection = -1;
}

void AddItem(WindowHandle dialog, int id, std::string_view text) {
    if (Window* control = Control(dialog, id); IsList(control))
        AddToList(control, {std::string(text)});
}

int AddListItem(WindowHandle dialog, int id, std::string_view text, void* data) {
    Window* control = Control(dialog, id);
    return IsList(control) ? AddToList(control, {std::string(text), data}) : -1;
}

int InsertListItem(WindowHandle dialog, int id, int index, std::string_view text, void* data) {
    Window* control = Control(dialog, id);
    if (!IsList(control) || index < 0 || index > ItemCount(dialog, id)) return -1;
    InsertIntoList(control, index, {std::string(text), data});
    return index;
}

void DeleteListItem(WindowHandle dialog, int id, int index) {
    Window* control = Control(dialog, id);
    if (!IsIndex(control, index)) return;
    control->items.erase(control->items.begin() + index);
    if (control->selection == index) {
        control->selection = -1;
    } else if (control->selection > index) {
        --control->selection;
    }
}

void* ListItemData(WindowHandle dialog, int id, int index) {
    const Window* control = Control(dialog, id);
    return IsIndex(control, index) ? control->items[static_cast<std::size_t>(index)].data : nullptr;
}

int ListItemAt(WindowHandle dialog, int id, int x, int y) {
    const Window* control = Control(dialog, id);
    if (!IsList(control) || x < 0 || x >= control->size.Width || y < 0) return -1;
    const int index = y / control->item_height;
    return y < control->size.Height && IsIndex(control, index) ? index : -1;
}

void SetListItemSize(WindowHandle dialog, int id, PixelSize size) {
    Window* control = Control(dialog, id);
    if (control != nullptr && size.Height > 0) control->item_height = size.Height;
}

int ItemCount(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    return IsList(control) ? static_cast<int>(control->items.size()) : 0;
}

std::string ItemText(WindowHandle dialog, int id, int index) {
    const Window* control = Control(dialog, id);
    return IsIndex(control, index) ? control->items[static_cast<std::size_t>(index)].text : "";
}

void SetUpDownRange(WindowHandle dialog, int id, int minimum, int maximum) {
    Window* control = Control(dialog, id);
    if (control == nullptr || control->kind != WindowKind::UpDown) return;
    control->minimum = minimum;
    control->maximum = maximum;
}

void SetUpDownPosition(WindowHandle dialog, int id, int position) {
    const Window* control = Control(dialog, id);
    if (control == nullptr || control->kind != WindowKind::UpDown) return;
    const auto [low, high] = std::minmax(control->minimum, control->maximum);
    const std::string text = std::to_string(std::clamp(position, low, high));
    constexpr std::uint32_t kShowsNumber = kStyleSetBuddyNumber | kStyleAutoBuddy;
    Window* buddy = (control->style & kShowsNumber) == kShowsNumber ? BuddyOf(control) : nullptr;
    if (buddy != nullptr && buddy->text != text) SetText(buddy, text);
}

void SetSliderRange(WindowHandle dialog, int id, int minimum, int maximum, int) {
    Window* control = Control(dialog, id);
    if (control == nullptr || control->kind != WindowKind::Slider || minimum > maximum) return;
    control->minimum = minimum;
    control->maximum = maximum;
    SetSliderPosition(dialog, id, control->position);
}

void SetSliderPosition(WindowHandle dialog, int id, int position) {
    Window* control = Control(dialog, id);
    if (control == nullptr || control->kind != WindowKind::Slider) return;
    control->position = control->minimum > control->maximum
                            ? position
                            : std::clamp(position, control->minimum, control->maximum);
}

int SliderPosition(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    return control != nullptr && control->kind == WindowKind::Slider ? control->position : 0;
}

void LimitText(WindowHandle dialog, int id, int characters) {
    Window* control = Control(dialog, id);
    if (control == nullptr || control->kind != WindowKind::Edit) return;
    control->text_limit = static_cast<std::size_t>(characters);
}

std::size_t TextLimit(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    return control == nullptr ? 0 : control->text_limit;
}

void SelectText(WindowHandle, int) {}

void EnableControl(WindowHandle dialog, int id, bool enabled) {
    if (Window* control = Control(dialog, id)) control->enabled = enabled;
}

bool IsControlEnabled(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    return control != nullptr && control->enabled;
}

void ShowControl(WindowHandle dialog, int id, bool visible) {
    if (Window* control = Control(dialog, id)) control->visible = visible;
}

bool IsControlVisible(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    return control != nullptr && control->visible;
}

void FocusControl(WindowHandle, int) {}

void SetControlSize(WindowHandle dialog, int id, int width, int height) {
    if (Window* control = Control(dialog, id)) control->size = {width, height};
}

PixelSize ClientSize(WindowHandle control) {
    return control == nullptr ? PixelSize{} : control->size;
}

void RepaintControl(WindowHandle dialog, int id) {
    if (Window* control = Control(dialog, id)) ++control->repaints;
}

int RepaintCount(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    return control == nullptr ? 0 : control->repaints;
}

bool IsAutoCheckBox(WindowHandle dialog, int id) {
    return IsButton(Control(dialog, id), kAutoCheckBox);
}

bool IsComboBox(WindowHandle dialog, int id) {
    const Window* control = Control(dialog, id);
    return control != nullptr && control->kind == WindowKind::ComboBox;
}

void InstallControl(WindowHandle dialog, int id, const char* tag, ControlProcedure procedure) {
    Window* control = Control(dialog, id);
    if (control == nullptr) return;
    control->tag = tag;
    control->control_procedure = procedure;
}

void MakeOwnerDrawn(WindowHandle dialog, int id) {
    constexpr std::uint32_t kOwnerDrawn = 0x0B;  // BS_OWNERDRAW
    Window* control = Control(dialog, id);
    if (control != nullptr && control->kind == WindowKind::Button) control->style |= kOwnerDrawn;
}

std::intptr_t CallOriginal(WindowHandle, std::uint32_t, std::uintptr_t, std::intptr_t) {
    return 0;
}

const char* ControlTag(WindowHandle control) {
    return control == nullptr ? "" : control->tag;
}

void SetUserData(WindowHandle control, void* data) {
    if (control != nullptr) control->user_data = data;
}

void* UserData(WindowHandle control) {
    return control == nullptr ? nullptr : control->user_data;
}

}  // namespace platform
