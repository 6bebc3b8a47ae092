// A run of the real library by a host of the test's own: the dialog runs in a thread,
// and the test works in it from outside, through its windows alone. Windows only.
#pragma once

#include <windows.h>
#include <functional>
#include <future>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "shell/host_interface.h"

namespace tess::test {

/// The library, loaded from the program's own folder.
struct Plugin {
    Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;
    ~Plugin();

    HMODULE module;
    int (*get_params)(PluginParams*);
    int (*do_build)(platform::WindowHandle, const HostServices*);
};

/// Waits until `condition` holds, at most a minute. Returns whether it did.
[[nodiscard]] bool WaitUntil(const std::function<bool()>& condition);

/// A folder of the system's temporary ones that stands for the user's folder for
/// application data, with the plug-in's two folders in it; it goes at the end.
class UserFolder {
public:
    UserFolder();
    UserFolder(const UserFolder&) = delete;
    UserFolder& operator=(const UserFolder&) = delete;
    ~UserFolder();

    [[nodiscard]] std::string PathOf(const std::string& name) const;
    /// In the folder of the plug-in.
    [[nodiscard]] std::string PluginPathOf(const std::string& name) const;
    /// Puts the default group of tiles there, as an installation does.
    void InstallTiles() const;

private:
    std::string path_;
    HKEY user_key_ = nullptr, classes_key_ = nullptr;
};

/// What the host answers and writes down.
struct HostRecord {
    std::uint32_t version = kHostVersion;
    std::uint32_t skin_buttons = 0;
    std::uint32_t flags = HostDelayHundredths | HostTrueColor;
    std::int64_t chooser_color = -1;  ///< -1: the user cancels
    int image_side = 0;               ///< of the square image that is chosen, 0: none is
    std::uint32_t image_color = 0;
};

class PluginRun {
public:
    explicit PluginRun(const Plugin& plugin, const HostRecord& host = {});
    PluginRun(const PluginRun&) = delete;
    PluginRun& operator=(const PluginRun&) = delete;
    /// Cancels what is still open.
    ~PluginRun();

    /// Waits for a dialog of the run with this title. Null when none comes.
    [[nodiscard]] HWND WaitForDialog(const std::string& title) const;
    /// Waits for a message whose text begins so; its title, the program's name, is the main
    /// dialog's as well. Null when none comes.
    [[nodiscard]] HWND WaitForMessage(const std::string& beginning) const;
    /// Waits for a popup menu of the run's own. Null when none comes.
    [[nodiscard]] HWND WaitForMenu() const;
    /// Waits for the main dialog, open and shown with its style.
    [[nodiscard]] HWND WaitForMainDialog() const;
    /// Waits for the end. Returns what the library returned, -1 when it does not end.
    [[nodiscard]] int WaitForEnd();

    /// How often the host was asked for `op` so far.
    [[nodiscard]] int Calls(HostOp op) const;
    [[nodiscard]] std::vector<std::int64_t> AllCalls() const;
    /// The text that came with the last op 9.
    [[nodiscard]] std::string HelpTarget() const;

private:
    std::thread thread_;
    std::future<int> result_;
    HostServices services_{};
    int returned_ = -1;
};

/// The thread of a window sees Shift held for a scope.
class HeldShift {
public:
    explicit HeldShift(HWND window);
    HeldShift(const HeldShift&) = delete;
    HeldShift& operator=(const HeldShift&) = delete;
    ~HeldShift();

private:
    DWORD thread_;
};

/// The text of a message.
constexpr int kMessageText = 101;

// What a user does to a control of a dialog.

void Click(HWND dialog, int id);
/// Clicks a button that ends a dialog and waits until the dialog is gone: its owner is enabled
/// before, while the caller of the dialog has its answer still to come. Returns whether it went.
[[nodiscard]] bool EndWith(HWND dialog, int id);
void Type(HWND dialog, int id, const std::string& text);
void Choose(HWND dialog, int id, int index);
void PressKey(HWND dialog, int id, WPARAM key);
void PostCommandTo(HWND dialog, int id);
[[nodiscard]] std::string TextOf(HWND dialog, int id);
/// Ids of all children that are shown, sorted.
[[nodiscard]] std::vector<int> ShownControls(HWND dialog);
[[nodiscard]] std::vector<int> AllControls(HWND dialog);

}  // namespace tess::test
