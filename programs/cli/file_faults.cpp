// The reason is found by trying once more: most files are read and written by parts of
// the plug-in, which tell no more than that it failed.
#include "programs/cli/file_faults.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/files.h"

namespace tess {
namespace {

std::string WithReason(const std::string& text, int reason) {
    return reason == 0 ? text : text + ": " + std::strerror(reason);
}

// The system's number for why a file cannot be read, 0 when it can be.
int ReasonAgainstReading(const std::string& path) {
    errno = 0;
    std::FILE* stream = platform::OpenFile(path, "rb");
    if (stream == nullptr) return errno;
    // A folder can be opened, and only reading it fails.
    static_cast<void>(std::fgetc(stream));
    const int reason = std::ferror(stream) != 0 ? errno : 0;
    std::fclose(stream);
    return reason;
}

}  // namespace

bool IsReadable(const std::string& path) {
    return ReasonAgainstReading(path) == 0;
}

std::string UnreadableText(const std::string& path) {
    return WithReason("cannot be read", ReasonAgainstReading(path));
}

std::string ReadFault(const std::string& path) {
    return path + ": " + UnreadableText(path);
}

std::string WriteFault(const std::string& path) {
    errno = 0;
    const platform::NewFile probe(path, platform::FileMode::Binary);
    return probe ? path + ": cannot be written" : WithReason(path + ": cannot be created", errno);
}

}  // namespace tess
