// What a control of a real dialog shows and carries. A control's procedure stands
// before its window procedure, as a record by its window.

#include <windows.h>
#include <algorithm>
#include <commctrl.h>
#include <map>

#include "platform/control_kinds.h"
#include "platform/control_number.h"
#include "platform/headless_user.h"
#include "platform/list_box.h"
#include "platform/win32/control_lookup.h"
#include "platform/win32/dialog_run.h"
#include "platform/win32/view_table.h"

namespace platform {

namespace {

constexpr char kRepaintsProperty[] = "TessellomaticsRepaints";

struct Installed {
    const char* tag = "";
    ControlProcedure procedure = nullptr;
    WNDPROC original = nullptr;
};
std::map<HWND, Installed> installed_controls;

HWND Find(WindowHandle dialog, int id) {
    return FindControl(WindowOf(dialog), id);
}

bool IsOfClass(HWND control, const char* window_class) {
    char name[32] = "";
    return GetClassNameA(control, name, sizeof name) != 0 && lstrcmpiA(name, window_class) == 0;
}

/// The messages of the two kinds of list, which do the same by other numbers.
struct ListMessages {
    UINT get_selection, set_selection, clear, add, count, text_length, text;
    UINT insert, erase, get_data, set_data;
};
constexpr ListMessages kComboBoxMessages = {
    CB_GETCURSEL, CB_SETCURSEL,    CB_RESETCONTENT, CB_ADDSTRING,   CB_GETCOUNT,   CB_GETLBTEXTLEN,
    CB_GETLBTEXT, CB_INSERTSTRING, CB_DELETESTRING, CB_GETITEMDATA, CB_SETITEMDATA};
constexpr ListMessages kListBoxMessages = {
    LB_GETCURSEL, LB_SETCURSEL,    LB_RESETCONTENT, LB_ADDSTRING,   LB_GETCOUNT,   LB_GETTEXTLEN,
    LB_GETTEXT,   LB_INSERTSTRING, LB_DELETESTRING, LB_GETITEMDATA, LB_SETITEMDATA};

/// Null for a control that is no list.
const ListMessages* MessagesOf(HWND control) {
    if (IsOfClass(control, "COMBOBOX")) return &kComboBoxMessages;
    if (IsOfClass(control, "LISTBOX")) return &kListBoxMessages;
    return nullptr;
}

/// Puts an item into a list by one of its messages, with its data.
int PutItem(HWND control, const ListMessages& messages, UINT message, int index,
            std::string_view text, void* data) {
    const std::string item(text);
    const LRESULT place = SendMessageA(control, message, static_cast<WPARAM>(index),
                                       reinterpret_cast<LPARAM>(item.c_str()));
    if (place < 0) return -1;
    SendMessageA(control, messages.set_data, static_cast<WPARAM>(place),
                 reinterpret_cast<LPARAM>(data));
    return static_cast<int>(place);
}

bool IsButton(HWND control, LONG_PTR kind) {
    return IsOfClass(control, "BUTTON") &&
           (GetWindowLongPtrA(control, GWL_STYLE) & BS_TYPEMASK) == kind;
}

LRESULT CALLBACK HandleControlMessage(HWND control, UINT message, WPARAM w, LPARAM l) {
    const auto found = installed_controls.find(control);
    if (found == installed_controls.end()) return DefWindowProcA(control, message, w, l);
    if (message == WM_NCDESTROY) {
        const WNDPROC original = found->second.original;
        installed_controls.erase(found);
        return CallWindowProcA(original, control, message, w, l);
    }
    const ControlProcedure procedure = found->second.procedure;
    return procedure == nullptr ? CallOriginal(HandleOf(control), message, w, l)
                                : procedure(HandleOf(control), message, w, l);
}

}  // namespace

std::string ControlText(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    return control == nullptr ? "" : Title(HandleOf(control));
}

void SetControlText(WindowHandle dialog, int id, std::string_view text) {
    HWND control = Find(dialog, id);
    if (control != nullptr) SetWindowTextA(control, std::string(text).c_str());
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
    HWND control = Find(dialog, id);
    return IsOfClass(control, "BUTTON") && SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void SetChecked(WindowHandle dialog, int id, bool checked) {
    HWND control = Find(dialog, id);
    if (!IsOfClass(control, "BUTTON")) return;
    SendMessageA(control, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

int Selection(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    if (control == nullptr) return 0;
    const ListMessages* messages = MessagesOf(control);
    return messages == nullptr
               ? -1
               : static_cast<int>(SendMessageA(control, messages->get_selection, 0, 0));
}

void SetSelection(WindowHandle dialog, int id, int index) {
    HWND control = Find(dialog, id);
    const ListMessages* messages = MessagesOf(control);
    if (messages == nullptr) return;
    const int held = index >= 0 && index < ItemCount(dialog, id) ? index : -1;
    SendMessageA(control, messages->set_selection, static_cast<WPARAM>(held), 0);
}

void ClearItems(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    const ListMessages* messages = MessagesOf(control);
    if (messages != nullptr) SendMessageA(control, messages->clear, 0, 0);
}

void AddItem(WindowHandle dialog, int id, std::string_view text) {
    AddListItem(dialog, id, text, nullptr);
}

int AddListItem(WindowHandle dialog, int id, std::string_view text, void* data) {
    HWND control = Find(dialog, id);
    const ListMessages* messages = MessagesOf(control);
    return messages == nullptr ? -1 : PutItem(control, *messages, messages->add, 0, text, data);
}

int InsertListItem(WindowHandle dialog, int id, int index, std::string_view text, void* data) {
    HWND control = Find(dialog, id);
    const ListMessages* messages = MessagesOf(control);
    if (messages == nullptr || index < 0 || index > ItemCount(dialog, id)) return -1;
    return PutItem(control, *messages, messages->insert, index, text, data);
}

void DeleteListItem(WindowHandle dialog, int id, int index) {
    HWND control = Find(dialog, id);
    const ListMessages* messages = MessagesOf(control);
    if (messages == nullptr || index < 0 || index >= ItemCount(dialog, id)) return;
    SendMessageA(control, messages->erase, static_cast<WPARAM>(index), 0);
}

void* ListItemData(WindowHandle dialog, int id, int index) {
    HWND control = Find(dialog, id);
    const ListMessages* messages = MessagesOf(control);
    if (messages == nullptr || index < 0 || index >= ItemCount(dialog, id)) return nullptr;
    return reinterpret_cast<void*>(
        SendMessageA(control, messages->get_data, static_cast<WPARAM>(index), 0));
}

int ListItemAt(WindowHandle dialog, int id, int x, int y) {
    HWND control = Find(dialog, id);
    RECT box;
    if (!IsOfClass(control, "LISTBOX") || !GetClientRect(control, &box)) return -1;
    if (PtInRect(&box, {x, y}) == FALSE) return -1;
    const LRESULT item = SendMessageA(control, LB_ITEMFROMPOINT, 0, MAKELPARAM(x, y));
    const int index = LOWORD(item);
    // The message tells the nearest item for a place below the last one, too.
    RECT place;
    if (index >= ItemCount(dialog, id) ||
        SendMessageA(control, LB_GETITEMRECT, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&place)) == LB_ERR) {
        return -1;
    }
    return PtInRect(&place, {x, y}) != FALSE ? index : -1;
}

void SetListItemSize(WindowHandle dialog, int id, PixelSize size) {
    HWND control = Find(dialog, id);
    if (!IsOfClass(control, "LISTBOX")) return;
    SendMessageA(control, LB_SETITEMHEIGHT, 0, size.Height);
    SendMessageA(control, LB_SETCOLUMNWIDTH, static_cast<WPARAM>(size.Width), 0);
}

int ItemCount(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    const ListMessages* messages = MessagesOf(control);
    return messages == nullptr ? 0 : static_cast<int>(SendMessageA(control, messages->count, 0, 0));
}

std::string ItemText(WindowHandle dialog, int id, int index) {
    HWND control = Find(dialog, id);
    const ListMessages* messages = MessagesOf(control);
    if (messages == nullptr || index < 0 || index >= ItemCount(dialog, id)) return "";
    const auto item = static_cast<WPARAM>(index);
    const LRESULT length = SendMessageA(control, messages->text_length, item, 0);
    if (length < 0) return "";
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    SendMessageA(control, messages->text, item, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void SetUpDownRange(WindowHandle dialog, int id, int minimum, int maximum) {
    HWND control = Find(dialog, id);
    if (!IsOfClass(control, UPDOWN_CLASSA)) return;
    SendMessageA(control, UDM_SETRANGE32, static_cast<WPARAM>(minimum), maximum);
}

void SetUpDownPosition(WindowHandle dialog, int id, int position) {
    HWND control = Find(dialog, id);
    if (IsOfClass(control, UPDOWN_CLASSA)) SendMessageA(control, UDM_SETPOS32, 0, position);
}

void SetSliderRange(WindowHandle dialog, int id, int minimum, int maximum, int tick) {
    HWND control = Find(dialog, id);
    if (!IsOfClass(control, TRACKBAR_CLASSA) || minimum > maximum) return;
    SendMessageA(control, TBM_SETRANGEMIN, FALSE, minimum);
    SendMessageA(control, TBM_SETRANGEMAX, TRUE, maximum);
    SendMessageA(control, TBM_SETTICFREQ, static_cast<WPARAM>(tick), 0);
}

void SetSliderPosition(WindowHandle dialog, int id, int position) {
    HWND control = Find(dialog, id);
    if (IsOfClass(control, TRACKBAR_CLASSA)) SendMessageA(control, TBM_SETPOS, TRUE, position);
}

int SliderPosition(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    if (!IsOfClass(control, TRACKBAR_CLASSA)) return 0;
    return static_cast<int>(SendMessageA(control, TBM_GETPOS, 0, 0));
}

void LimitText(WindowHandle dialog, int id, int characters) {
    HWND control = Find(dialog, id);
    if (!IsOfClass(control, "EDIT")) return;
    SendMessageA(control, EM_LIMITTEXT, static_cast<WPARAM>(characters), 0);
}

std::size_t TextLimit(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    return IsOfClass(control, "EDIT")
               ? static_cast<std::size_t>(SendMessageA(control, EM_GETLIMITTEXT, 0, 0))
               : 0;
}

void SelectText(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    if (IsOfClass(control, "EDIT")) SendMessageA(control, EM_SETSEL, 0, -1);
}

void EnableControl(WindowHandle dialog, int id, bool enabled) {
    HWND control = Find(dialog, id);
    if (control != nullptr) EnableWindow(control, enabled ? TRUE : FALSE);
}

bool IsControlEnabled(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    return control != nullptr && IsWindowEnabled(control);
}

void ShowControl(WindowHandle dialog, int id, bool visible) {
    HWND control = Find(dialog, id);
    if (control != nullptr) ShowWindow(control, visible ? SW_SHOWNA : SW_HIDE);
}

bool IsControlVisible(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    return control != nullptr && (GetWindowLongPtrA(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

void FocusControl(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    if (control == nullptr) return;
    if (DialogRun* run = RunOf(WindowOf(dialog))) run->has_chosen_focus = true;
    SendMessageA(WindowOf(dialog), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

void SetControlSize(WindowHandle dialog, int id, int width, int height) {
    HWND control = Find(dialog, id);
    if (control == nullptr) return;
    SetWindowPos(control, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

PixelSize ClientSize(WindowHandle control) {
    RECT box = {};
    GetClientRect(WindowOf(control), &box);
    return {box.right, box.bottom};
}

void RepaintControl(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    if (control == nullptr) return;
    const std::intptr_t count = RepaintCount(dialog, id) + 1;
    SetPropA(control, kRepaintsProperty, reinterpret_cast<HANDLE>(count));
    InvalidateRect(control, nullptr, TRUE);
}

int RepaintCount(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    if (control == nullptr) return 0;
    return static_cast<int>(reinterpret_cast<std::intptr_t>(GetPropA(control, kRepaintsProperty)));
}

bool IsAutoCheckBox(WindowHandle dialog, int id) {
    return IsButton(Find(dialog, id), BS_AUTOCHECKBOX);
}

bool IsComboBox(WindowHandle dialog, int id) {
    return IsOfClass(Find(dialog, id), "COMBOBOX");
}

void InstallControl(WindowHandle dialog, int id, const char* tag, ControlProcedure procedure) {
    HWND control = Find(dialog, id);
    if (control == nullptr) return;
    Installed& installed = installed_controls[control];
    installed.tag = tag;
    installed.procedure = procedure;
    if (installed.original != nullptr) return;
    installed.original = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(control, GWLP_WNDPROC));
    SetWindowLongPtrA(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&HandleControlMessage));
}

void MakeOwnerDrawn(WindowHandle dialog, int id) {
    HWND control = Find(dialog, id);
    if (!IsOfClass(control, "BUTTON")) return;
    SetWindowLongPtrA(control, GWL_STYLE, GetWindowLongPtrA(control, GWL_STYLE) | BS_OWNERDRAW);
}

std::intptr_t CallOriginal(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                           std::intptr_t l) {
    const auto found = installed_controls.find(WindowOf(control));
    if (found == installed_controls.end()) return SendMessageA(WindowOf(control), message, w, l);
    const ViewProcedure view = FindControlView(found->second.tag, found->second.procedure);
    const WNDPROC original = found->second.original;
    LRESULT result = 0;
    if (view != nullptr && view(WindowOf(control), message, w, l, &result)) return result;
    return CallWindowProcA(original, WindowOf(control), message, w, l);
}

const char* ControlTag(WindowHandle control) {
    const auto found = installed_controls.find(WindowOf(control));
    return found == installed_controls.end() ? "" : found->second.tag;
}

void SetUserData(WindowHandle control, void* data) {
    SetWindowLongPtrA(WindowOf(control), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(data));
}

void* UserData(WindowHandle control) {
    return reinterpret_cast<void*>(GetWindowLongPtrA(WindowOf(control), GWLP_USERDATA));
}

}  // namespace platform
