// pages VERSION FOLDER: writes the manual page and the shells' completions, as they are
// installed beside the program. The build runs it.
#include <cstdio>
#include <string>

#include "programs/cli/completions.h"
#include "programs/cli/manual_page.h"

namespace {

bool Write(const std::string& path, const std::string& text) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) return false;
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && written;
}

}  // namespace

int main(int count, char** words) {
    if (count != 3) {
        std::fputs("usage: pages VERSION FOLDER\n", stderr);
        return 2;
    }
    const std::string folder = std::string(words[2]) + "/";
    const bool written = Write(folder + "tessellomatics.1", tess::ManualPage(words[1])) &&
                         Write(folder + "tessellomatics.bash", tess::BashCompletion()) &&
                         Write(folder + "_tessellomatics", tess::ZshCompletion()) &&
                         Write(folder + "tessellomatics.fish", tess::FishCompletion());
    return written ? 0 : 1;
}
