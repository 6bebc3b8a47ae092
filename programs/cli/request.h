// What one call of the program asks for, as its command line says it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/animation.h"

namespace tess {

struct CommandRow;

/// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUse = 2;

enum class SettingKind { Value, Document, Configuration, FountainFile, Tile };

/// One `--set`, `--document`, `--config`, `--fountain` or `--tile`, in the order given.
struct Setting {
    std::string Key;    ///< of a value or a fountain's file; of a tile its group's path
    std::string Value;  ///< of a file its path
    SettingKind Kind = SettingKind::Value;
};

struct Request {
    const CommandRow* Command = nullptr;
    bool Help = false;
    bool Version = false;
    bool Quiet = false;
    bool Json = false;

    std::vector<std::string> Operands;
    std::string Output;
    std::string FramesFolder;
    std::string PreviewFolder;
    bool OpensBrowser = true;

    std::vector<Setting> Settings;
    bool Saves = false;       ///< the values to the user's configuration
    bool StartsAnew = false;  ///< from the values of a new installation
    DelayUnit HostUnit = DelayUnit::Hundredths;
    std::optional<bool> HostTrueColor;

    // Of `tiles` and `fountain`: pictures or fountains, in the order given.
    std::vector<std::string> AddedItems;

    // Of `texture`, `fountain` and `material`: the size of a picture, 0 for the command's own.
    int Width = 0;
    int Height = 0;

    // Of `encode`.
    int Colors = 0;    ///< wanted for the animation's own palette, 0 for as many as fit
    int Palette = -1;  ///< index of a fixed palette, -1 for the animation's own
    bool Dither = false;
    bool Supercompress = false;
    int Delay = 4;  ///< in the host's unit

    // Of `fountain`.
    std::string Library;  ///< path of a library, "" for the user's
    bool Removes = false;
};

}  // namespace tess
