#include "tests/windows/plugin_run.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

namespace tess::test {

namespace {

struct Windows {
    DWORD thread;
    std::vector<HWND> found;
};

std::mutex record_lock;
std::vector<std::int64_t> calls;
std::string help_target;
std::int64_t chooser_color = -1;
int image_side = 0;
std::uint32_t image_color = 0;
DWORD dialog_thread = 0;

/// A new picture of one colour at 24 bits in a block of the system's.
HGLOBAL MakeImage(int side, std::uint32_t color) {
    const std::size_t stride = (static_cast<std::size_t>(side) * 3 + 3) / 4 * 4;
    const std::size_t rows = static_cast<std::size_t>(side);
    HGLOBAL block = GlobalAlloc(GHND, sizeof(BITMAPINFOHEADER) + stride * rows);
    auto* head = static_cast<BITMAPINFOHEADER*>(GlobalLock(block));
    head->biSize = sizeof *head;
    head->biWidth = head->biHeight = side;
    head->biPlanes = 1;
    head->biBitCount = 24;
    auto* pixels = reinterpret_cast<BYTE*>(head + 1);
    for (std::size_t y = 0; y < rows; ++y) {
        for (std::size_t x = 0; x < rows; ++x) {
            BYTE* pixel = pixels + y * stride + 3 * x;
            pixel[0] = GetBValue(color);
            pixel[1] = GetGValue(color);
            pixel[2] = GetRValue(color);
        }
    }
    GlobalUnlock(block);
    return block;
}

std::int64_t Answer(TaskRecord*, std::int64_t op, std::int64_t, std::int64_t b) {
    const std::lock_guard guard(record_lock);
    calls.push_back(op);
    const auto address = static_cast<std::intptr_t>(b);
    switch (static_cast<HostOp>(op)) {
        case HostOp::ChooseColor:
            if (chooser_color < 0) return 0;
            reinterpret_cast<ColorDialogRecord*>(address)->Color =
                static_cast<ColorWord>(chooser_color);
            return 1;
        case HostOp::ChooseImageFile:
            lstrcpyA(reinterpret_cast<char*>(address), "chosen.png");
            return image_side > 0 ? 1 : 0;
        case HostOp::LoadImageFile:
            return reinterpret_cast<std::intptr_t>(MakeImage(image_side, image_color));
        case HostOp::ShowHelp:
            help_target = reinterpret_cast<const char*>(address);
            return 1;
        case HostOp::FileDialogSize:
            reinterpret_cast<std::int32_t*>(address)[0] = 800;
            reinterpret_cast<std::int32_t*>(address)[1] = 600;
            return 1;
        default:
            return 1;
    }
}

void SetShiftKey(BYTE state) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_SHIFT] = state;
    SetKeyboardState(keys);
}

std::string TitleOf(HWND window) {
    char title[256] = "";
    GetWindowTextA(window, title, sizeof title);
    return title;
}

std::string ClassOf(HWND window) {
    char name[256] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

/// The shown top windows of the thread that runs the dialog.
std::vector<HWND> TopWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(
        dialog_thread,
        [](HWND window, LPARAM found) -> BOOL {
            if (IsWindowVisible(window))
                reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HKEY CreateKey(HKEY parent, const std::string& path) {
    HKEY key = nullptr;
    RegCreateKeyExA(parent, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr,
                    &key, nullptr);
    return key;
}

std::string KeyName() {
    return "Software\\TessellomaticsTest" + std::to_string(GetCurrentProcessId());
}

}  // namespace

Plugin::Plugin() : module(LoadLibraryA("vorbelx1_x64.dll")) {
    const auto find = [this](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(module, name));
    };
    get_params = reinterpret_cast<decltype(get_params)>(find("PLUGIN16GetPluginParams"));
    do_build = reinterpret_cast<decltype(do_build)>(find("PLUGIN16DoBuild"));
}

Plugin::~Plugin() {
    if (module != nullptr) FreeLibrary(module);
}

bool WaitUntil(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        Sleep(1);
    }
    return true;
}

UserFolder::UserFolder() {
    char temporary[MAX_PATH] = "";
    GetTempPathA(sizeof temporary, temporary);
    path_ = std::string(temporary) + "tessellomatics-" + std::to_string(GetCurrentProcessId());
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_ + "\\Quorvenstadtholme\\Tessellomatics 1");
    // The registry of this process alone: its folder for application data, and no
    // program for web pages, so that none opens.
    user_key_ = CreateKey(HKEY_CURRENT_USER, KeyName() + "\\User");
    classes_key_ = CreateKey(HKEY_CURRENT_USER, KeyName() + "\\Classes");
    for (const char* kind : {"User Shell Folders", "Shell Folders"}) {
        HKEY folders = CreateKey(
            user_key_,
            std::string("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\") + kind);
        RegSetValueExA(folders, "AppData", 0, REG_SZ, reinterpret_cast<const BYTE*>(path_.c_str()),
                       static_cast<DWORD>(path_.size() + 1));
        RegCloseKey(folders);
    }
    RegOverridePredefKey(HKEY_CURRENT_USER, user_key_);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, classes_key_);
}

UserFolder::~UserFolder() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegCloseKey(user_key_);
    RegCloseKey(classes_key_);
    RegDeleteTreeA(HKEY_CURRENT_USER, KeyName().c_str());
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string UserFolder::PathOf(const std::string& name) const {
    return path_ + "\\" + name;
}

std::string UserFolder::PluginPathOf(const std::string& name) const {
    return PathOf("Quorvenstadtholme\\Tessellomatics 1\\" + name);
}

void UserFolder::InstallTiles() const {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::filesystem::path programs = std::filesystem::path(path).parent_path();
    std::filesystem::copy_file(
        programs.parent_path() / "share" / "tessellomatics" / "groups" / "vorbelx1.mtx",
        PluginPathOf("vorbelx1.mtx"));
}

PluginRun::PluginRun(const Plugin& plugin, const HostRecord& host) {
    {
        const std::lock_guard guard(record_lock);
        calls.clear();
        help_target.clear();
        chooser_color = host.chooser_color;
        image_side = host.image_side;
        image_color = host.image_color;
    }
    services_.Size = sizeof services_;
    services_.Version = host.version;
    services_.SkinButtons = host.skin_buttons;
    services_.HostCall = Answer;
    services_.HostFlags = host.flags;
    std::promise<DWORD> id;
    std::future<DWORD> started = id.get_future();
    std::packaged_task<int()> run([this, &plugin, id = std::move(id)]() mutable {
        id.set_value(GetCurrentThreadId());
        return plugin.do_build(nullptr, &services_);
    });
    result_ = run.get_future();
    thread_ = std::thread(std::move(run));
    dialog_thread = started.get();
}

PluginRun::~PluginRun() {
    // An inner dialog is in front of those that it was opened from.
    const bool has_ended = WaitUntil([this] {
        if (!result_.valid()) return true;
        if (result_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) return true;
        for (HWND window : TopWindows()) {
            if (!IsWindowEnabled(window)) continue;
            PostMessageA(window, WM_CANCELMODE, 0, 0);
            PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
        }
        return false;
    });
    if (!has_ended) ExitProcess(3);  // the thread cannot be ended
    thread_.join();
}

HWND PluginRun::WaitForDialog(const std::string& title) const {
    HWND dialog = nullptr;
    const bool came = WaitUntil([&] {
        for (HWND window : TopWindows()) {
            if (IsWindowEnabled(window) && TitleOf(window) == title) dialog = window;
        }
        return dialog != nullptr;
    });
    return came ? dialog : nullptr;
}

HWND PluginRun::WaitForMessage(const std::string& beginning) const {
    HWND message = nullptr;
    const bool came = WaitUntil([&] {
        for (HWND window : TopWindows()) {
            if (IsWindowEnabled(window) && TitleOf(window) == kProgramName &&
                TextOf(window, kMessageText).starts_with(beginning)) {
                message = window;
            }
        }
        return message != nullptr;
    });
    return came ? message : nullptr;
}

HWND PluginRun::WaitForMenu() const {
    HWND menu = nullptr;
    const bool came = WaitUntil([&] {
        for (HWND window : TopWindows()) {
            if (ClassOf(window) == "#32768") menu = window;
        }
        return menu != nullptr;
    });
    return came ? menu : nullptr;
}

HWND PluginRun::WaitForMainDialog() const {
    HWND dialog = WaitForDialog(kProgramName);
    if (dialog == nullptr) return nullptr;
    // The style's panel is shown by the last message of the opening.
    const bool is_whole = WaitUntil([dialog] {
        const std::vector<int> shown = ShownControls(dialog);
        return std::any_of(shown.begin(), shown.end(),
                           [](int id) { return id >= 100 && id < 1199; });
    });
    return is_whole ? dialog : nullptr;
}

int PluginRun::WaitForEnd() {
    if (!result_.valid()) return returned_;
    if (result_.wait_for(std::chrono::minutes(1)) != std::future_status::ready) return -1;
    returned_ = result_.get();
    return returned_;
}

int PluginRun::Calls(HostOp op) const {
    const std::lock_guard guard(record_lock);
    return static_cast<int>(std::count(calls.begin(), calls.end(), static_cast<std::int64_t>(op)));
}

std::vector<std::int64_t> PluginRun::AllCalls() const {
    const std::lock_guard guard(record_lock);
    return calls;
}

std::string PluginRun::HelpTarget() const {
    const std::lock_guard guard(record_lock);
    return help_target;
}

HeldShift::HeldShift(HWND window) : thread_(GetWindowThreadProcessId(window, nullptr)) {
    AttachThreadInput(GetCurrentThreadId(), thread_, TRUE);
    SetShiftKey(0x80);
}

HeldShift::~HeldShift() {
    SetShiftKey(0);
    AttachThreadInput(GetCurrentThreadId(), thread_, FALSE);
}

void Click(HWND dialog, int id) {
    SendMessageA(GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

bool EndWith(HWND dialog, int id) {
    Click(dialog, id);
    return WaitUntil([dialog] { return !IsWindow(dialog); });
}

void Type(HWND dialog, int id, const std::string& text) {
    SendMessageA(GetDlgItem(dialog, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void Choose(HWND dialog, int id, int index) {
    HWND list = GetDlgItem(dialog, id);
    SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    for (const int code : {CBN_SELCHANGE, CBN_CLOSEUP})
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(list));
}

void PressKey(HWND dialog, int id, WPARAM key) {
    SendMessageA(GetDlgItem(dialog, id), WM_KEYDOWN, key, 0);
    SendMessageA(GetDlgItem(dialog, id), WM_KEYUP, key, 0);
}

void PostCommandTo(HWND dialog, int id) {
    PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(id), 0);
}

std::string TextOf(HWND dialog, int id) {
    char text[512] = "";
    SendMessageA(GetDlgItem(dialog, id), WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

std::vector<int> AllControls(HWND dialog) {
    std::vector<int> ids;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        ids.push_back(GetDlgCtrlID(child));
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

std::vector<int> ShownControls(HWND dialog) {
    std::vector<int> ids;
    for (const int id : AllControls(dialog)) {
        if ((GetWindowLongPtrA(GetDlgItem(dialog, id), GWL_STYLE) & WS_VISIBLE) != 0) {
            ids.push_back(id);
        }
    }
    return ids;
}

}  // namespace tess::test
