// How a program ends when a signal asks it to: without leaving behind what it has begun
// (platform/unfinished_path.h), and with the signal as its exit status.
#pragma once

#include <sys/types.h>

namespace platform {

/// From now on SIGINT, SIGTERM and SIGHUP remove what is unfinished before they end the
/// program. One that is ignored, as under nohup, stays ignored.
void RemoveUnfinishedOnSignals();

/// As fork(). The signal that ends this process goes to the child, too, and the child's
/// end is waited for.
[[nodiscard]] pid_t ForkHelper();
/// As wait(), for the children of ForkHelper.
[[nodiscard]] pid_t WaitForHelper(int* status);

}  // namespace platform
