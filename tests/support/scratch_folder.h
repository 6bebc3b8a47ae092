// Files of a test.
#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace tess::test {

/// A fresh folder that goes at the end of its scope, with all that is in it.
class ScratchFolder {
public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    [[nodiscard]] const std::string& Path() const { return path_; }
    [[nodiscard]] std::string File(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

/// What `write` writes to the stream that it is given.
[[nodiscard]] std::vector<std::uint8_t> BytesWritten(const std::function<void(std::FILE*)>& write);

}  // namespace tess::test
