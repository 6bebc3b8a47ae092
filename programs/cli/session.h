// One run of the plug-in by a host and a user of the program's own: the host keeps
// what is handed over, the user sets values in the (headless) main dialog and
// presses a button. There is no other way to an animation here.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/collecting_host.h"
#include "platform/dialog.h"
#include "programs/cli/request.h"

namespace tess {

enum class Wish {
    Build,    ///< press Build; the host then holds the animation
    Sample,   ///< keep the sample picture
    Preview,  ///< press Preview
    Work,     ///< do the session's work, and cancel
};

struct Session {
    CollectingHost Host;
    platform::OwnedBlock Sample;
    std::vector<std::string> Messages;  ///< what the dialog told the user
    /// What to do in the dialog for Wish::Work. Returns the exit status, after telling
    /// the user.
    std::function<int(platform::WindowHandle)> Work;
    int WorkStatus = kFailed;
};

/// Starts the dialog with `style` (-1: its own choice) and the request's settings,
/// and carries `wish` out. Returns the exit status, after telling the user.
[[nodiscard]] int RunSession(const Request& request, Wish wish, int style, Session* session);

/// "tessellomatics: " and the text, as a line on standard error.
void TellUser(const std::string& text);

/// Makes the user's folders, as the first values are saved: a command line has no
/// installation that would. Returns kDone, or another exit status after telling the user.
[[nodiscard]] int PrepareUserFolders();

/// Answers every message box that is shown from now on, keeping its text.
void AnswerMessages(std::vector<std::string>* messages);
/// Ends that; returns kFailed after telling the user of what was kept, else kDone.
[[nodiscard]] int EndMessages();

}  // namespace tess
