#include "programs/cli/table_text.h"

#include <algorithm>

namespace tess {
namespace {

// Whether a byte begins a character: all but those of the form 10xxxxxx do.
bool BeginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

}  // namespace

std::string Padded(std::string_view text, std::size_t width) {
    const auto characters =
        static_cast<std::size_t>(std::count_if(text.begin(), text.end(), BeginsCharacter));
    return std::string(text).append(width - std::min(width, characters), ' ');
}

}  // namespace tess
