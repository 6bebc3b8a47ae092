// A handler may call little, so all that it needs stands in tables of fixed size: paths that
// are whole before they are marked as such, and numbers of processes. A folder is read with
// the system's own call, since those of the C library allocate.

#include "platform/portable/ending_signals.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/unfinished_path.h"

namespace platform {

namespace {

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr std::size_t kLongestPath = 4096;  // with its zero, as the system takes them
constexpr int kMostPaths = 16;
constexpr int kMostHelpers = 256;
constexpr int kDeepestFolder = 2;  // one of frames, in one that is put aside

enum class Use { Free, Taken, Noted };
struct Place {
    std::atomic<Use> use;
    char path[kLongestPath];
};
Place places[kMostPaths];
std::atomic<pid_t> helpers[kMostHelpers];  // 0 for none
static_assert(std::atomic<Use>::is_always_lock_free && std::atomic<pid_t>::is_always_lock_free);

sigset_t held_before;
int held = 0;

sigset_t EndingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : kEndingSignals)
        sigaddset(&signals, signal);
    return signals;
}

bool RemoveTree(int folder, const char* name, int depth);

/// Removes what is in an open folder. Returns whether anything was.
bool RemoveEntries(int folder, int depth) {
    alignas(dirent64) char entries[2048];
    bool removed = false;
    ssize_t length;
    while ((length = getdents64(folder, entries, sizeof entries)) > 0) {
        for (ssize_t at = 0; at < length;) {
            const auto* entry = reinterpret_cast<const dirent64*>(entries + at);
            at += entry->d_reclen;
            if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0) {
                continue;
            }
            removed |= RemoveTree(folder, entry->d_name, depth);
        }
    }
    return removed;
}

/// Removes a file, or a folder with what is in it. Returns whether it was there and is gone.
bool RemoveTree(int folder, const char* name, int depth) {
    if (unlinkat(folder, name, 0) == 0) return true;
    if (depth == 0 || errno == ENOENT) return false;
    const int inner = openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (inner < 0) return false;
    // A folder from which entries go while it is read may pass over some.
    while (RemoveEntries(inner, depth - 1)) {
        if (lseek(inner, 0, SEEK_SET) != 0) break;
    }
    close(inner);
    return unlinkat(folder, name, AT_REMOVEDIR) == 0;
}

void RemoveUnfinished() {
    for (Place& place : places) {
        if (place.use.load(std::memory_order_acquire) == Use::Noted) {
            RemoveTree(AT_FDCWD, place.path, kDeepestFolder);
        }
    }
}

void EndHelpers(int signal) {
    for (const auto& helper : helpers) {
        if (const pid_t process = helper.load(); process > 0) kill(process, signal);
    }
    for (const auto& helper : helpers) {
        if (const pid_t process = helper.load(); process > 0) waitpid(process, nullptr, 0);
    }
}

/// The signal is sent once more, and ends the program as soon as this returns.
void End(int signal) {
    EndHelpers(signal);
    RemoveUnfinished();
    struct sigaction usual = {};
    usual.sa_handler = SIG_DFL;
    sigaction(signal, &usual, nullptr);
    raise(signal);
}

}  // namespace

UnfinishedPath::UnfinishedPath(std::string_view path) {
    if (path.empty() || path.size() >= kLongestPath) return;
    for (int i = 0; i < kMostPaths && place_ < 0; ++i) {
        Use free = Use::Free;
        if (!places[i].use.compare_exchange_strong(free, Use::Taken)) continue;
        std::memcpy(places[i].path, path.data(), path.size());
        places[i].path[path.size()] = '\0';
        places[i].use.store(Use::Noted, std::memory_order_release);
        place_ = i;
    }
}

UnfinishedPath::~UnfinishedPath() {
    if (place_ >= 0) places[place_].use.store(Use::Free, std::memory_order_release);
}

EndingHeld::EndingHeld() {
    if (held++ > 0) return;
    const sigset_t signals = EndingSignals();
    pthread_sigmask(SIG_BLOCK, &signals, &held_before);
}

EndingHeld::~EndingHeld() {
    if (--held == 0) pthread_sigmask(SIG_SETMASK, &held_before, nullptr);
}

void RemoveUnfinishedOnSignals() {
    struct sigaction action = {};
    action.sa_handler = End;
    action.sa_mask = EndingSignals();
    for (const int signal : kEndingSignals) {
        struct sigaction before = {};
        sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
    }
}

pid_t ForkHelper() {
    const EndingHeld held_here;  // or a signal could find the child in no table, or its own
    const pid_t process = fork();
    if (process == 0) {
        // What the parent has begun, and its other children, are the parent's to end.
        for (auto& helper : helpers)
            helper.store(0);
        for (Place& place : places)
            place.use.store(Use::Free);
    }
    if (process <= 0) return process;
    for (auto& helper : helpers) {
        pid_t none = 0;
        if (helper.compare_exchange_strong(none, process)) break;
    }
    return process;
}

pid_t WaitForHelper(int* status) {
    // Its number is forgotten while it still is its own.
    siginfo_t ended = {};
    while (waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT) != 0) {
        if (errno != EINTR) return -1;
    }
    for (auto& helper : helpers) {
        pid_t process = ended.si_pid;
        helper.compare_exchange_strong(process, 0);
    }
    return waitpid(ended.si_pid, status, 0);
}

}  // namespace platform
