// The opener may start the browser and end, or be the browser as long as that runs. So it is
// left alone, behind a process of this program's that waits for it; that one tells through a
// pipe how the opener has ended. Whoever ends within a moment has failed or not; whoever does
// not is taken to show the page.

#include "platform/page_opener.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr int kMoment = 2000;  // milliseconds

/// Runs in a process of its own; does not return.
[[noreturn]] void RunOpener(const char* path) {
    execlp("xdg-open", "xdg-open", path, nullptr);
    _exit(1);
}

/// Runs in a process of its own; does not return. Writes a byte to `answer` when the opener
/// has ended well.
[[noreturn]] void RunWatcher(const char* path, int answer) {
    setsid();
    // A pipe that this program writes to ends with it and not with the browser.
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    dup2(nowhere, STDIN_FILENO);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    const pid_t opener = fork();
    if (opener == 0) RunOpener(path);
    int status = 1;
    const bool has_ended = opener > 0 && waitpid(opener, &status, 0) == opener;
    if (has_ended && WIFEXITED(status) && WEXITSTATUS(status) == 0) {
        // Whoever has asked may be gone, which is no matter.
        static_cast<void>(!write(answer, "y", 1));
    }
    _exit(0);
}

/// Waits for the watcher's answer. Returns false when the opener has failed.
bool IsShown(int answer) {
    pollfd waited{answer, POLLIN, 0};
    int ready;
    do {
        ready = poll(&waited, 1, kMoment);
    } while (ready < 0 && errno == EINTR);
    if (ready <= 0) return true;
    char byte;
    return read(answer, &byte, 1) == 1;
}

}  // namespace

bool ShowPage(const char* path) {
    // The opener would take a name that begins with a dash for an option.
    const std::string shown = path[0] == '-' ? std::string("./") + path : path;
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    // The watcher is a grandchild, which the system and not this program waits for.
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        if (fork() == 0) RunWatcher(shown.c_str(), ends[1]);
        _exit(0);
    }
    close(ends[1]);
    if (child > 0) waitpid(child, nullptr, 0);
    const bool is_shown = child > 0 && IsShown(ends[0]);
    close(ends[0]);
    return is_shown;
}

}  // namespace platform
