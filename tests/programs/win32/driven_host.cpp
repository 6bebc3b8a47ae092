#include "tests/programs/win32/driven_host.h"

#include <commctrl.h>
#include <cstring>
#include <utility>

namespace tess::test {

namespace {

constexpr char kHostClass[] = "TessellomaticsTileHost";
constexpr char kDialogClass[] = "#32770";
constexpr DWORD kWaitStep = 20, kWaitLimit = 120000;

struct Search {
    DWORD process;
    std::function<bool(HWND)> is_wanted;
    HWND found;
};

BOOL CALLBACK TakeIfWanted(HWND window, LPARAM l) {
    auto& search = *reinterpret_cast<Search*>(l);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process || !IsWindowVisible(window) || !search.is_wanted(window)) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

HWND Find(DWORD process, std::function<bool(HWND)> is_wanted) {
    Search search = {process, std::move(is_wanted), nullptr};
    EnumWindows(TakeIfWanted, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool IsOfClass(HWND window, const char* name) {
    char window_class[64] = "";
    GetClassNameA(window, window_class, sizeof window_class);
    return std::strcmp(window_class, name) == 0;
}

/// A title is known without asking the program, which may be at work.
std::string TitleOf(HWND window) {
    char title[256] = "";
    GetWindowTextA(window, title, sizeof title);
    return title;
}

std::string Command(const std::string& arguments) {
    std::string command = "\"";
    command.append(ProgramFolder()).append("tilehost.exe\" ").append(arguments);
    return command;
}

std::string ReadAll(HANDLE pipe) {
    std::string text;
    char part[512];
    DWORD count = 0;
    while (ReadFile(pipe, part, sizeof part, &count, nullptr) && count > 0)
        text.append(part, count);
    return text;
}

}  // namespace

bool WaitFor(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + kWaitLimit;
    while (!condition()) {
        if (GetTickCount64() > end) return false;
        Sleep(kWaitStep);
    }
    return true;
}

std::string ProgramFolder() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string own = path;
    return own.substr(0, own.find_last_of('\\') + 1);
}

ProgramEnd RunTilehost(const std::string& arguments) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE from = nullptr;
    HANDLE to = nullptr;
    if (!CreatePipe(&from, &to, &inherited, 0)) return {~0u, ""};
    SetHandleInformation(from, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = to;
    PROCESS_INFORMATION process = {};
    std::string command = Command(arguments);
    const BOOL started = CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        nullptr, &start, &process);
    CloseHandle(to);
    ProgramEnd end = {~0u, started ? ReadAll(from) : std::string()};
    CloseHandle(from);
    if (!started) return end;
    WaitForSingleObject(process.hProcess, kWaitLimit);
    GetExitCodeProcess(process.hProcess, &end.status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return end;
}

DrivenHost::DrivenHost() {
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    std::string command = Command("");
    CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                   &process_);
}

DrivenHost::~DrivenHost() {
    if (process_.hProcess == nullptr) return;
    if (WaitForSingleObject(process_.hProcess, 0) != WAIT_OBJECT_0) {
        TerminateProcess(process_.hProcess, 1);
        WaitForSingleObject(process_.hProcess, kWaitLimit);
    }
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

HWND DrivenHost::Window() const {
    return Find(process_.dwProcessId, [](HWND window) { return IsOfClass(window, kHostClass); });
}

HWND DrivenHost::Dialog(const std::string& title, int control) const {
    return Find(process_.dwProcessId, [&](HWND window) {
        return IsOfClass(window, kDialogClass) && TitleOf(window) == title &&
               GetDlgItem(window, control) != nullptr;
    });
}

bool DrivenHost::WaitForWindow() const {
    return WaitFor([this] { return Status().starts_with("Run the plug-in"); });
}

HWND DrivenHost::WaitForDialog(const std::string& title, int control) const {
    HWND dialog = nullptr;
    return WaitFor([&] { return (dialog = Dialog(title, control)) != nullptr; }) ? dialog : nullptr;
}

bool DrivenHost::WaitForEnd() const {
    return WaitForSingleObject(process_.hProcess, kWaitLimit) == WAIT_OBJECT_0;
}

void DrivenHost::Choose(int menu_command) const {
    PostMessageA(Window(), WM_COMMAND, static_cast<WPARAM>(menu_command), 0);
}

std::string DrivenHost::Status() const {
    return TextOf(FindWindowExA(Window(), nullptr, STATUSCLASSNAMEA, nullptr));
}

void Select(HWND dialog, int list, const char* item) {
    HWND box = GetDlgItem(dialog, list);
    SendMessageA(box, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(item));
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(list, CBN_CLOSEUP), reinterpret_cast<LPARAM>(box));
}

void Press(HWND dialog, int id) {
    PostMessageA(GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

std::string TextOf(HWND window) {
    char text[512] = "";
    DWORD_PTR length = 0;
    SendMessageTimeoutA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text),
                        SMTO_NORMAL, kWaitLimit, &length);
    return text;
}

}  // namespace tess::test
