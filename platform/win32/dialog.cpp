// Dialogs as real windows, made modal by a loop of our own: the system's has no
// place at which a stand-in for the user could be asked.

#include "platform/dialog.h"

#include <windows.h>
#include <commctrl.h>

#include "platform/control_kinds.h"
#include "platform/headless_user.h"
#include "platform/resources.h"
#include "platform/win32/control_lookup.h"
#include "platform/win32/dialog_run.h"
#include "platform/win32/module.h"
#include "platform/win32/view_table.h"

namespace platform {

namespace {

constexpr char kRunProperty[] = "TessellomaticsRun";

/// Where a window notes that a timer of its own runs.
std::string TimerProperty(int timer) {
    return "TessellomaticsTimer" + std::to_string(timer);
}

/// The messages that a dialog's procedure gets in both builds.
bool IsForProcedure(UINT message) {
    constexpr UINT kFirstOwn = WM_USER + 3;  // the first three are the dialog manager's
    constexpr UINT kLastOwn = 0xBFFF;
    return message == WM_INITDIALOG || message == WM_COMMAND || message == WM_DESTROY ||
           message == WM_TIMER || message == WM_HSCROLL ||
           (message >= kFirstOwn && message <= kLastOwn);
}

/// Answers a message in the way that the dialog manager expects: some results are
/// returned, the rest is left with the window.
INT_PTR Answer(HWND dialog, UINT message, LRESULT result) {
    const bool is_returned = message == WM_COMPAREITEM || message == WM_VKEYTOITEM ||
                             message == WM_CHARTOITEM || message == WM_QUERYDRAGICON ||
                             (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC);
    if (is_returned) return result;
    SetWindowLongPtrA(dialog, DWLP_MSGRESULT, result);
    return TRUE;
}

INT_PTR CALLBACK HandleDialogMessage(HWND dialog, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_INITDIALOG) SetPropA(dialog, kRunProperty, reinterpret_cast<HANDLE>(l));
    DialogRun* run = RunOf(dialog);
    if (run == nullptr) return FALSE;  // messages of the time before WM_INITDIALOG
    std::intptr_t result = 0;
    if (IsForProcedure(message)) {
        if (message == WM_INITDIALOG) l = reinterpret_cast<LPARAM>(run->parameter);
        result = run->procedure(HandleOf(dialog), message, w, l);
    }
    const ViewProcedure views[] = {FindDialogView(run->template_name), CommonDialogView()};
    LRESULT view_result = 0;
    if (message == WM_INITDIALOG || message == WM_DESTROY) {
        for (const ViewProcedure view : views) {
            if (view != nullptr) view(dialog, message, w, l, &view_result);
        }
        if (message == WM_DESTROY) RemovePropA(dialog, kRunProperty);
        return message == WM_INITDIALOG && !run->has_chosen_focus ? TRUE : FALSE;
    }
    if (result != 0) return Answer(dialog, message, result);
    for (const ViewProcedure view : views) {
        if (view != nullptr && view(dialog, message, w, l, &view_result))
            return Answer(dialog, message, view_result);
    }
    return FALSE;
}

void RunLoop(HWND dialog, DialogRun* run) {
    while (!run->ended) {
        MSG message;
        if (!PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (AskHeadlessUser(HandleOf(dialog)) == 0) WaitMessage();
        } else if (message.message == WM_QUIT) {
            // The host is going: its own loop must see this, too.
            PostQuitMessage(static_cast<int>(message.wParam));
            EndDialog(HandleOf(dialog), -1);
        } else if (!IsDialogMessageA(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

std::intptr_t RunTemplate(const DialogTemplate* dialog_template, const char* resource,
                          WindowHandle owner, DialogRun run) {
    if (dialog_template == nullptr) return -1;
    run.template_name = dialog_template->name.empty() ? std::to_string(dialog_template->id)
                                                      : std::string(dialog_template->name);
    RegisterCommonControls();
    HWND owner_window = owner == nullptr ? nullptr : GetAncestor(WindowOf(owner), GA_ROOT);
    const bool owner_was_enabled = owner_window != nullptr && IsWindowEnabled(owner_window);
    if (owner_window != nullptr) EnableWindow(owner_window, FALSE);
    HWND dialog = CreateDialogParamA(Module(), resource, owner_window, HandleDialogMessage,
                                     reinterpret_cast<LPARAM>(&run));
    if (dialog != nullptr) {
        if (!run.ended) ShowWindow(dialog, SW_SHOW);
        RunLoop(dialog, &run);
    }
    // Before the dialog goes: a disabled owner could not become the active window.
    if (owner_was_enabled) EnableWindow(owner_window, TRUE);
    if (dialog == nullptr) return -1;
    ShowWindow(dialog, SW_HIDE);
    DestroyWindow(dialog);
    ForgetControls(dialog);
    return run.result;
}

/// Copies one child of a panel into `dialog`, hidden. Returns 0 on failure.
int ClonePanelControl(HWND control, HWND panel, HWND dialog) {
    constexpr int kDroppedListHeight = 200;  // pixels, added to a combo box
    char window_class[256] = "";
    GetClassNameA(control, window_class, sizeof window_class);
    const std::string text = Title(HandleOf(control));
    RECT box;
    GetWindowRect(control, &box);
    MapWindowPoints(nullptr, panel, reinterpret_cast<POINT*>(&box), 2);
    if (lstrcmpiA(window_class, "COMBOBOX") == 0) box.bottom += kDroppedListHeight;
    const auto style = static_cast<DWORD>(GetWindowLongPtrA(control, GWL_STYLE));
    const INT_PTR id = GetDlgCtrlID(control);
    HWND copy = CreateWindowExA(static_cast<DWORD>(GetWindowLongPtrA(control, GWL_EXSTYLE)),
                                window_class, text.c_str(), style & ~static_cast<DWORD>(WS_VISIBLE),
                                box.left, box.top, box.right - box.left, box.bottom - box.top,
                                dialog, reinterpret_cast<HMENU>(id), Module(), nullptr);
    if (copy == nullptr) return 0;
    SendMessageA(copy, WM_SETFONT, static_cast<WPARAM>(SendMessageA(dialog, WM_GETFONT, 0, 0)),
                 FALSE);
    return 1;
}

struct Cloning {
    HWND dialog;
    int is_done;
};

INT_PTR CALLBACK HandlePanelMessage(HWND panel, UINT message, WPARAM, LPARAM l) {
    if (message != WM_INITDIALOG) return FALSE;
    auto* cloning = reinterpret_cast<Cloning*>(l);
    cloning->is_done = 1;
    for (HWND control = GetWindow(panel, GW_CHILD); control != nullptr && cloning->is_done != 0;
         control = GetWindow(control, GW_HWNDNEXT)) {
        cloning->is_done = ClonePanelControl(control, panel, cloning->dialog);
    }
    return FALSE;
}

}  // namespace

DialogRun* RunOf(HWND dialog) {
    return static_cast<DialogRun*>(GetPropA(dialog, kRunProperty));
}

void RegisterCommonControls() {
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_UPDOWN_CLASS | ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
}

std::intptr_t RunDialog(int dialog_template, WindowHandle owner, DialogProcedure procedure,
                        void* parameter) {
    return RunTemplate(FindDialogTemplate(dialog_template), MAKEINTRESOURCEA(dialog_template),
                       owner, {procedure, parameter, ""});
}

std::intptr_t RunDialog(const char* dialog_template, WindowHandle owner, DialogProcedure procedure,
                        void* parameter) {
    return RunTemplate(FindDialogTemplate(dialog_template), dialog_template, owner,
                       {procedure, parameter, ""});
}

void EndDialog(WindowHandle dialog, std::intptr_t result) {
    DialogRun* run = RunOf(WindowOf(dialog));
    if (run == nullptr) return;
    run->ended = true;
    run->result = result;
    PostMessageA(WindowOf(dialog), WM_NULL, 0, 0);  // wakes the loop
}

int ClonePanel(int dialog_template, WindowHandle dialog) {
    RegisterCommonControls();
    Cloning cloning = {WindowOf(dialog), 0};
    HWND panel = CreateDialogParamA(Module(), MAKEINTRESOURCEA(dialog_template), nullptr,
                                    HandlePanelMessage, reinterpret_cast<LPARAM>(&cloning));
    if (panel == nullptr) return 0;
    DestroyWindow(panel);
    return cloning.is_done;
}

void SetTitle(WindowHandle dialog, const char* text) {
    SetWindowTextA(WindowOf(dialog), text);
}

std::string Title(WindowHandle dialog) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(WindowOf(dialog))) + 1, '\0');
    const int length = GetWindowTextA(WindowOf(dialog), text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

bool IsWindowVisible(WindowHandle window) {
    return ::IsWindowVisible(WindowOf(window)) != FALSE;
}

void CenterOnScreen(WindowHandle dialog) {
    RECT box;
    if (!GetWindowRect(WindowOf(dialog), &box)) return;
    const int x = (GetSystemMetrics(SM_CXSCREEN) - (box.right - box.left)) / 2;
    const int y = (GetSystemMetrics(SM_CYSCREEN) - (box.bottom - box.top)) / 2;
    SetWindowPos(WindowOf(dialog), nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void UpdateWindow(WindowHandle window) {
    ::UpdateWindow(WindowOf(window));
}

void PostCommand(WindowHandle dialog, int id) {
    PostToWindow(dialog, kMessageCommand, static_cast<std::uintptr_t>(id) & 0xFFFF, 0);
}

void PostToWindow(WindowHandle window, std::uint32_t message, std::uintptr_t w, std::intptr_t l) {
    // Without a window the message would go to the thread, and be lost.
    if (window != nullptr) PostMessageA(WindowOf(window), message, w, l);
}

std::intptr_t SendToWindow(WindowHandle window, std::uint32_t message, std::uintptr_t w,
                           std::intptr_t l) {
    return SendMessageA(WindowOf(window), message, w, l);
}

WindowHandle Control(WindowHandle dialog, int id) {
    return HandleOf(FindControl(WindowOf(dialog), id));
}

std::vector<WindowHandle> Children(WindowHandle dialog) {
    std::vector<WindowHandle> children;
    for (HWND child = GetWindow(WindowOf(dialog), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        children.push_back(HandleOf(child));
    }
    return children;
}

int ControlId(WindowHandle control) {
    return GetDlgCtrlID(WindowOf(control));
}

std::string ControlClass(WindowHandle control) {
    char name[256] = "";
    GetClassNameA(WindowOf(control), name, sizeof name);
    CharUpperA(name);
    return name;
}

WindowHandle ParentDialog(WindowHandle control) {
    const bool is_child = (GetWindowLongPtrA(WindowOf(control), GWL_STYLE) & WS_CHILD) != 0;
    return is_child ? HandleOf(GetParent(WindowOf(control))) : nullptr;
}

std::string_view TemplateOf(WindowHandle dialog) {
    const DialogRun* run = RunOf(WindowOf(dialog));
    return run == nullptr ? std::string_view() : run->template_name;
}

void CaptureMouse(WindowHandle control) {
    SetCapture(WindowOf(control));
}

void ReleaseMouse() {
    ReleaseCapture();
}

bool HasMouse(WindowHandle control) {
    return control != nullptr && GetCapture() == WindowOf(control);
}

void StartTimer(WindowHandle window, int timer, int milliseconds) {
    if (window == nullptr) return;
    const auto id = static_cast<UINT_PTR>(timer);
    if (SetTimer(WindowOf(window), id, static_cast<UINT>(milliseconds), nullptr) == 0) return;
    SetPropA(WindowOf(window), TimerProperty(timer).c_str(),
             reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(milliseconds)));
}

void StopTimer(WindowHandle window, int timer) {
    if (RemovePropA(WindowOf(window), TimerProperty(timer).c_str()) == nullptr) return;
    KillTimer(WindowOf(window), static_cast<UINT_PTR>(timer));
}

int DoubleClickTime() {
    return static_cast<int>(GetDoubleClickTime());
}

int TimerInterval(WindowHandle window, int timer) {
    return static_cast<int>(
        reinterpret_cast<std::intptr_t>(GetPropA(WindowOf(window), TimerProperty(timer).c_str())));
}

WaitCursor::WaitCursor() : previous_(SetCursor(LoadCursorA(nullptr, IDC_WAIT))) {}
WaitCursor::~WaitCursor() {
    SetCursor(static_cast<HCURSOR>(previous_));
}

}  // namespace platform
