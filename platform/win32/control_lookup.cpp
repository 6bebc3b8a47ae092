#include "platform/win32/control_lookup.h"

#include <map>
#include <unordered_map>

namespace platform {

namespace {

std::map<HWND, std::unordered_map<int, HWND>> known_controls;

/// A window may have gone since, and its handle be another's.
bool IsStillThere(HWND control, HWND dialog, int id) {
    return IsWindow(control) && GetDlgCtrlID(control) == id &&
           GetAncestor(control, GA_PARENT) == dialog;
}

}  // namespace

HWND FindControl(HWND dialog, int id) {
    if (dialog == nullptr) return nullptr;
    auto& controls = known_controls[dialog];
    const auto known = controls.find(id);
    if (known != controls.end() && IsStillThere(known->second, dialog, id)) return known->second;
    HWND control = GetDlgItem(dialog, id);
    if (control != nullptr) controls[id] = control;
    return control;
}

void ForgetControls(HWND dialog) {
    known_controls.erase(dialog);
}

}  // namespace platform
