// The opener may start the browser and end, or be the browser as long as that runs. So it is
// left alone, behind a process of this program's that waits for it. Two pipes tell what becomes
// of it: one is closed when the opener has begun, and gets a byte when there is none; the other
// gets a byte when it has ended well. Whoever ends within a moment has failed or not; whoever
// does not is taken to show the page.

#include "platform/portable/page_opener.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/page_opener.h"

namespace platform {

namespace {

constexpr int kMoment = 2000;  // milliseconds

/// Two pipes to a process that asks, by their ends in those that answer.
struct Answers {
    int not_begun;
    int ended_well;
};

void Answer(int pipe) {
    // Whoever has asked may be gone, which is no matter.
    static_cast<void>(!write(pipe, "y", 1));
}

/// Runs in a process of its own; does not return. The pipes end with it or as the opener
/// begins.
[[noreturn]] void RunOpener(const char* path, const Answers& answers) {
    execlp("xdg-open", "xdg-open", path, nullptr);
    Answer(answers.not_begun);
    _exit(1);
}

/// Runs in a process of its own; does not return.
[[noreturn]] void RunWatcher(const char* path, const Answers& answers) {
    setsid();
    // A pipe that this program writes to ends with it and not with the browser.
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    dup2(nowhere, STDIN_FILENO);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    const pid_t opener = fork();
    if (opener == 0) RunOpener(path, answers);
    if (opener < 0) Answer(answers.not_begun);
    close(answers.not_begun);
    int status = 1;
    const bool has_ended = opener > 0 && waitpid(opener, &status, 0) == opener;
    if (has_ended && WIFEXITED(status) && WEXITSTATUS(status) == 0) Answer(answers.ended_well);
    _exit(0);
}

/// Waits for an answer, or for it to be clear that there will be none. Returns whether there
/// is one.
bool IsAnswered(int pipe) {
    char byte;
    ssize_t count;
    do {
        count = read(pipe, &byte, 1);
    } while (count < 0 && errno == EINTR);
    return count == 1;
}

/// Waits so long, or for ever if negative. Returns whether IsAnswered has to wait no more.
bool IsReady(int pipe, int milliseconds) {
    pollfd waited{pipe, POLLIN, 0};
    int ready;
    do {
        ready = poll(&waited, 1, milliseconds);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

/// A pipe that no program but this one's processes has a hand on.
class Pipe {
public:
    Pipe() {
        if (pipe2(ends_, O_CLOEXEC) != 0) ends_[0] = ends_[1] = -1;
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        CloseWriting();
        Close(ends_[0]);
    }

    explicit operator bool() const { return ends_[0] >= 0; }
    [[nodiscard]] int Reading() const { return ends_[0]; }
    [[nodiscard]] int Writing() const { return ends_[1]; }
    void CloseReading() { Close(ends_[0]); }
    void CloseWriting() { Close(ends_[1]); }

private:
    static void Close(int& end) {
        if (end >= 0) close(end);
        end = -1;
    }
    int ends_[2];
};

}  // namespace

bool ShowPageWithin(const char* path, int milliseconds) {
    // The opener would take a name that begins with a dash for an option.
    const std::string shown = path[0] == '-' ? std::string("./") + path : path;
    Pipe not_begun, ended_well;
    if (!not_begun || !ended_well) return false;
    // The watcher is a grandchild, which the system and not this program waits for.
    const pid_t child = fork();
    if (child == 0) {
        not_begun.CloseReading();
        ended_well.CloseReading();
        if (fork() == 0) RunWatcher(shown.c_str(), {not_begun.Writing(), ended_well.Writing()});
        _exit(0);
    }
    not_begun.CloseWriting();
    ended_well.CloseWriting();
    if (child < 0) return false;
    waitpid(child, nullptr, 0);
    if (IsAnswered(not_begun.Reading())) return false;
    return !IsReady(ended_well.Reading(), milliseconds) || IsAnswered(ended_well.Reading());
}

bool ShowPage(const char* path) {
    return ShowPageWithin(path, kMoment);
}

}  // namespace platform
