#include "tests/support/scratch_folder.h"

#include <filesystem>
#include <random>

#include "platform/files.h"
#include "tests/support/gif_reader.h"

namespace tess::test {

ScratchFolder::ScratchFolder() {
    std::random_device device;
    std::filesystem::path path;
    do {
        path = std::filesystem::temp_directory_path() /
               ("tessellomatics_" + std::to_string(device()) + std::to_string(device()));
    } while (!std::filesystem::create_directory(path));
    path_ = path.string();
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::vector<std::uint8_t> BytesWritten(const std::function<void(std::FILE*)>& write) {
    const ScratchFolder folder;
    const std::string path = folder.File("written");
    std::FILE* stream = platform::OpenFile(path, "wb");
    if (stream == nullptr) return {};
    write(stream);
    std::fclose(stream);
    return ReadFileBytes(path);
}

}  // namespace tess::test
