// A real tilehost.exe, driven from outside as a user drives it: by menu commands,
// presses of buttons and text in edits. Waiting ends when a condition holds, and
// fails after a limit that only a fault reaches.
#pragma once

#include <windows.h>
#include <functional>
#include <string>

namespace tess::test {

/// Returns whether `condition` came to hold.
[[nodiscard]] bool WaitFor(const std::function<bool()>& condition);

/// The folder of this test program, where the build puts the others, too.
[[nodiscard]] std::string ProgramFolder();

struct ProgramEnd {
    DWORD status;
    std::string output;  ///< standard output and error, in this order of arrival
};
/// Runs `tilehost.exe ARGUMENTS` to its end.
[[nodiscard]] ProgramEnd RunTilehost(const std::string& arguments);

class DrivenHost {
public:
    /// Starts the program.
    DrivenHost();
    DrivenHost(const DrivenHost&) = delete;
    DrivenHost& operator=(const DrivenHost&) = delete;
    /// Ends the program if it is still there.
    ~DrivenHost();

    /// Its window, null while there is none.
    [[nodiscard]] HWND Window() const;
    /// A dialog of it with that title and a control of that id, null while there is none.
    [[nodiscard]] HWND Dialog(const std::string& title, int control) const;
    /// Waits until the window is there with its plug-in.
    [[nodiscard]] bool WaitForWindow() const;
    /// Waits for a dialog; null when none comes.
    [[nodiscard]] HWND WaitForDialog(const std::string& title, int control) const;
    [[nodiscard]] bool WaitForEnd() const;

    void Choose(int menu_command) const;
    /// The left part of the status line.
    [[nodiscard]] std::string Status() const;

private:
    PROCESS_INFORMATION process_ = {};
};

/// Selects an item of a drop-down list as the user does, and closes the list.
void Select(HWND dialog, int list, const char* item);
/// Presses a button of a dialog.
void Press(HWND dialog, int id);
[[nodiscard]] std::string TextOf(HWND window);

}  // namespace tess::test
