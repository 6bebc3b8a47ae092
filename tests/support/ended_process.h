// Processes of a test that signals end. Natively alone.
#pragma once

#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace tess::test {

/// Has SIGINT, SIGTERM and SIGHUP end this process, which whoever has started the tests may
/// have ignored or blocked: nohup does, and a shell of what it starts behind itself.
inline void TakeSignalsAsUsual() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(signal, SIG_DFL);
        sigaddset(&signals, signal);
    }
    sigprocmask(SIG_UNBLOCK, &signals, nullptr);
}

/// Starts a process that takes signals as usual and does `act`; its exit status is 0 then.
[[nodiscard]] inline pid_t StartProcess(const std::function<void()>& act) {
    const pid_t process = fork();
    if (process != 0) return process;
    TakeSignalsAsUsual();
    act();
    _exit(0);
}

/// Waits for the end of a process. Returns its status, as waitpid has it.
[[nodiscard]] inline int StatusOf(pid_t process) {
    int status = -1;
    return process > 0 && waitpid(process, &status, 0) == process ? status : -1;
}

}  // namespace tess::test
