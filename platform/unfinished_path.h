// What a program has begun and not yet put in its place. Natively a program that is ended
// by a signal removes it first, if it has asked for that (platform/portable/ending_signals.h).
// On Windows nothing is kept of it: the plug-in leaves its host's ending to its host.
#pragma once

#include <string_view>

namespace platform {

/// Notes the path of a file or folder of the program's own making while this lives. A path
/// that is too long, or one too many, is not noted.
class UnfinishedPath {
public:
    explicit UnfinishedPath(std::string_view path);
    UnfinishedPath(const UnfinishedPath&) = delete;
    UnfinishedPath& operator=(const UnfinishedPath&) = delete;
    /// It is finished, or gone.
    ~UnfinishedPath();

private:
    int place_ = -1;
};

/// While one lives, a signal that would end the program waits, so that steps that belong
/// together are not parted. Requires: all are made by one thread.
class EndingHeld {
public:
    EndingHeld();
    EndingHeld(const EndingHeld&) = delete;
    EndingHeld& operator=(const EndingHeld&) = delete;
    ~EndingHeld();
};

}  // namespace platform
