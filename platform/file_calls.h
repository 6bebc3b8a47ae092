// The calls by which platform/files.h reaches the system. Tests put others in their place,
// to see what becomes of a full disk; nothing else does.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Functions of platform/file_system.h, with the contracts that they have there.
struct FileCalls {
    /// Reading, writing and closing are the matter of the stream that it returns.
    std::FILE* (*Open)(const char* path, const char* mode);
    int (*Rename)(const char* from, const char* to);
    int (*Remove)(const char* path);
    std::vector<std::string> (*List)(const std::string& folder, std::string_view extension);
};

/// The system's own.
extern const FileCalls kSystemFileCalls;

/// What is called now.
[[nodiscard]] const FileCalls& CurrentFileCalls();
/// For tests: has `calls` called from now on, which must outlive their use; null ends it.
void SetFileCalls(const FileCalls* calls);

}  // namespace platform
