// The substitute host: a table of services whose op codes keep what the plug-in
// hands over, and answer what it asks.
//
// HostCall carries no pointer of the host's, so there is one current host.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "host/animation.h"
#include "shell/host_interface.h"

namespace tess {

enum class TaskState {
    None,     ///< nothing has been opened
    Open,     ///< frames may come
    Kept,     ///< closed as done
    Dropped,  ///< closed as failed
};

/// What the host does with reports of how far a run is. All may be null.
struct HostReports {
    void (*Stage)(void* context, const char* title);
    void (*Progress)(void* context, std::int64_t done, std::int64_t total);
    void* Context;
    /// The frames of the last task are about to go.
    void (*TaskOpening)(void* context) = nullptr;
    /// The task is kept or dropped.
    void (*TaskClosed)(void* context) = nullptr;
};

/// The bytes of the path that op 6 asks for, its end included.
inline constexpr std::size_t kHostPathBytes = 260;

/// Asks a real user what the plug-in asks of its host, and returns whether there is
/// an answer. Where one is null, the host answers as CollectingHost's fields say.
struct HostQuestions {
    /// `path` has kHostPathBytes.
    bool (*ChooseImageFile)(void* context, platform::WindowHandle owner, char* path) = nullptr;
    bool (*ChooseColor)(void* context, ColorDialogRecord* record) = nullptr;
    bool (*ShowHelp)(void* context, const char* target) = nullptr;
    void* Context = nullptr;
};

struct CollectingHost {
    HostServices Services = {};

    // What was handed over.
    TaskState State = TaskState::None;
    HostOp OpenedBy = HostOp::OpenBuild;  ///< or OpenTest
    Animation Collected;                  ///< of the last task
    bool OutOfMemory = false;             ///< a frame could not be kept
    std::string HelpTarget;               ///< of the last question for help
    int ButtonsPressed = 0;

    // What the host answers.
    HostReports Reports = {};
    HostQuestions Questions = {};
    bool AnswersColor = false;  ///< the colour chooser ends with a choice
    ColorWord Color = 0;        ///< that choice
    std::string ImageFile;      ///< the chosen image, empty for none
    ImageHandle (*LoadImageFile)(const char* path) = nullptr;  ///< null: no image can be loaded
    std::int32_t FileDialogWidth = 0, FileDialogHeight = 0;
};

/// Fills `host`'s table, with the two flags of HostFlags, and makes it current.
/// Requires: `host` outlives its use, or CloseHost is called.
void OpenHost(CollectingHost* host, DelayUnit unit, bool true_color);
/// Ends the use of the current host.
void CloseHost();

}  // namespace tess
