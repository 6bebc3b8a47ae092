// The menu of the substitute host's window: what it offers, and what of it can be
// chosen and is ticked at a time.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "host/animation.h"

namespace tess {

enum HostCommand : int {
    kSeparator = 0,
    kLoadPlugin = 101,
    kRunPlugin = 102,
    kSaveGif = 103,
    kExit = 104,
    kPlay = 201,
    kTiled = 202,
    kHundredths = 301,
    kTrueColor = 302,
    kSystemButtons = 310,  ///< the looks of push buttons, each its number further
    kRoundedButtons = 311,
    kBevelledButtons = 312,
    kGradientButtons = 313,
    kHelp = 401,
    kAbout = 402,
};

struct HostMenuItem {
    const char* Menu;  ///< the menu that it stands in
    const char* Text;
    HostCommand Command;
};
/// All items, menu by menu.
[[nodiscard]] std::span<const HostMenuItem> HostMenu();

/// What the menu depends on.
struct HostStatus {
    bool HasPlugin = false;
    bool IsRunning = false;     ///< the plug-in's dialog is open
    bool HasAnimation = false;  ///< a task was kept
    int Depth = 0;              ///< its bits per pixel
    bool IsPlaying = true;
    bool IsTiled = true;
    DelayUnit Unit = DelayUnit::Hundredths;
    bool TakesTrueColor = false;
    std::uint32_t SkinButtons = 0;
};

struct ItemState {
    bool IsEnabled, IsTicked;
};
[[nodiscard]] ItemState StateOf(HostCommand command, const HostStatus& status);

/// Changes what a tickable command changes in `status`. Returns false for a command
/// that does something else.
bool ApplyCommand(HostCommand command, HostStatus* status);

/// What the status line says while frame `frame` (from 0) of an animation is shown, or
/// while there is none.
[[nodiscard]] std::string DescribeAnimation(const Animation& animation, int frame,
                                            const HostStatus& status);

}  // namespace tess
