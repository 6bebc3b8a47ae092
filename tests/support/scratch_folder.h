// Files of a test.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace tess::test {

/// A fresh folder that goes at the end of its scope, with all that is in it. Tests of what
/// stands below this library have it from here alone.
class ScratchFolder {
public:
    ScratchFolder() {
        std::random_device device;
        std::filesystem::path path;
        do {
            path = std::filesystem::temp_directory_path() /
                   ("tessellomatics_" + std::to_string(device()) + std::to_string(device()));
        } while (!std::filesystem::create_directory(path));
        path_ = path.string();
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::string& Path() const { return path_; }
    [[nodiscard]] std::string File(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

/// What `write` writes to the stream that it is given.
[[nodiscard]] std::vector<std::uint8_t> BytesWritten(const std::function<void(std::FILE*)>& write);

}  // namespace tess::test
