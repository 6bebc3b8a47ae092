#include "tests/faults/file_failures.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <numeric>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "platform/file_calls.h"

namespace tess::test {

namespace {

constexpr std::size_t kStreamBuffer = 256;

FileUse use;
std::size_t failure_countdown = 0;
bool fail_all_later = false;

bool IsToFail(FileOperation operation) {
    ++use.counts[static_cast<std::size_t>(operation)];
    if (failure_countdown == 0) return false;
    if (failure_countdown > 1) {
        --failure_countdown;
        return false;
    }
    if (!fail_all_later) failure_countdown = 0;
    if (operation == FileOperation::Remove) use.failed_to_remove = true;
    errno = operation == FileOperation::Write ? ENOSPC : EIO;
    return true;
}

struct WatchedStream {
    int descriptor;
    char buffer[kStreamBuffer];
};

ssize_t ReadStream(void* cookie, char* bytes, std::size_t count) {
    if (IsToFail(FileOperation::Read)) return -1;
    return read(static_cast<WatchedStream*>(cookie)->descriptor, bytes, count);
}

ssize_t WriteStream(void* cookie, const char* bytes, std::size_t count) {
    const int descriptor = static_cast<WatchedStream*>(cookie)->descriptor;
    const bool fails = IsToFail(FileOperation::Write);
    const ssize_t written = write(descriptor, bytes, fails ? count / 2 : count);
    return written < 0 ? 0 : written;
}

int SeekStream(void* cookie, off64_t* offset, int whence) {
    if (IsToFail(FileOperation::Seek)) return -1;
    const off_t place = lseek(static_cast<WatchedStream*>(cookie)->descriptor, *offset, whence);
    if (place < 0) return -1;
    *offset = place;
    return 0;
}

int CloseStream(void* cookie) {
    auto* stream = static_cast<WatchedStream*>(cookie);
    const bool fails = IsToFail(FileOperation::Close);
    close(stream->descriptor);
    delete stream;
    --use.open_streams;
    return fails ? EOF : 0;
}

int FlagsOf(std::string_view mode) {
    const bool updates = mode.find('+') != std::string_view::npos;
    if (mode.starts_with('r')) return updates ? O_RDWR : O_RDONLY;
    return (updates ? O_RDWR : O_WRONLY) | O_CREAT | O_TRUNC;
}

std::FILE* Open(const char* path, const char* mode) {
    if (IsToFail(FileOperation::Open)) return nullptr;
    const int descriptor = open(path, FlagsOf(mode) | O_CLOEXEC, 0666);
    if (descriptor < 0) return nullptr;
    auto* stream = new WatchedStream{descriptor, {}};
    std::FILE* file = fopencookie(stream, mode, {ReadStream, WriteStream, SeekStream, CloseStream});
    if (file == nullptr) {
        close(descriptor);
        delete stream;
        return nullptr;
    }
    std::setvbuf(file, stream->buffer, _IOFBF, kStreamBuffer);
    ++use.open_streams;
    return file;
}

int Rename(const char* from, const char* to) {
    return IsToFail(FileOperation::Rename) ? 0 : platform::kSystemFileCalls.Rename(from, to);
}

int Remove(const char* path) {
    return IsToFail(FileOperation::Remove) ? 0 : platform::kSystemFileCalls.Remove(path);
}

std::vector<std::string> List(const std::string& folder, std::string_view extension) {
    if (IsToFail(FileOperation::List)) return {};
    return platform::kSystemFileCalls.List(folder, extension);
}

constexpr platform::FileCalls kWatchedCalls{Open, Rename, Remove, List};

}  // namespace

std::size_t FileUse::Total() const {
    return std::accumulate(counts.begin(), counts.end(), std::size_t{0});
}

WatchedFiles::WatchedFiles() {
    use = {};
    platform::SetFileCalls(&kWatchedCalls);
}

WatchedFiles::~WatchedFiles() {
    FailFileOperation(0);
    platform::SetFileCalls(nullptr);
}

const FileUse& CurrentFileUse() {
    return use;
}

void FailFileOperation(std::size_t countdown, bool and_all_later) {
    failure_countdown = countdown;
    fail_all_later = and_all_later;
    if (countdown != 0) use.failed_to_remove = false;
}

}  // namespace tess::test
