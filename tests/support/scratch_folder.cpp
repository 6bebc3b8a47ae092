#include "tests/support/scratch_folder.h"

#include "platform/files.h"
#include "tests/support/gif_reader.h"

namespace tess::test {

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
