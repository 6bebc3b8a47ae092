#include "platform/page_opener.h"

#include <fcntl.h>
#include <initializer_list>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace {

/// Runs in a process of its own; does not return.
[[noreturn]] void RunOpener(const char* path) {
    setsid();
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDIN_FILENO);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    execlp("xdg-open", "xdg-open", path, nullptr);
    _exit(1);
}

}  // namespace

void ShowPage(const char* path) {
    // The opener is a grandchild, which the system and not this program waits for.
    const pid_t child = fork();
    if (child == 0) {
        if (fork() == 0) RunOpener(path);
        _exit(0);
    }
    if (child > 0) waitpid(child, nullptr, 0);
}

}  // namespace platform
