// Lets each operation on files fail in turn: what a full disk, a broken one or another
// program's lock do.
//
// Streams that fail at their n-th reading or writing are made with `fopencookie`, which
// the Windows C library has not; what stands above platform/ is the same code in both
// builds, so it is tried natively alone.
#pragma once

#include <array>
#include <cstddef>

namespace tess::test {

enum class FileOperation { Open, Read, Write, Seek, Close, Rename, Remove, List };
inline constexpr std::size_t kFileOperations = 8;

/// What was asked of the system since WatchFiles, failed or not.
struct FileUse {
    std::array<std::size_t, kFileOperations> counts{};
    std::size_t open_streams = 0;
    bool failed_to_remove = false;  ///< since FailFileOperation

    [[nodiscard]] std::size_t Total() const;
};

/// Stands between the core and the system's files for a scope. Buffers of streams are
/// small, so that a file of some hundred bytes takes several writes. A write that fails
/// leaves half of its bytes in the file, as on a disk that is full.
class WatchedFiles {
public:
    WatchedFiles();
    WatchedFiles(const WatchedFiles&) = delete;
    WatchedFiles& operator=(const WatchedFiles&) = delete;
    ~WatchedFiles();
};

[[nodiscard]] const FileUse& CurrentFileUse();

/// Lets the operation with number `countdown` from now on fail (1 is the next), and with
/// `and_all_later` every one after it. 0 ends it.
void FailFileOperation(std::size_t countdown, bool and_all_later = false);

}  // namespace tess::test
