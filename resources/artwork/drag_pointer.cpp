// Makes drag_pointer.cur, the pointer while an entry of a list is dragged: an arrow that
// carries a small strip of three fields. Black, white, or clear, as every display can
// show it.

#include "resources/artwork/drawn_files.h"

namespace {

constexpr std::uint32_t kSide = 32;

// From the top left, which is the place that the pointer points at: # black, o white,
// anything else clear.
constexpr const char* kRows[] = {
    "#",
    "##",
    "#o#",
    "#oo#",
    "#ooo#",
    "#oooo#",
    "#ooooo#",
    "#oooooo#",
    "#ooooooo#",
    "#oooooooo#",
    "#ooooo#####",
    "#oo#oo#",
    "#o# #oo#",
    "##  #oo#",
    "#    #oo#",
    "     #oo#  ###############",
    "      ##   #ooooooooooooo#",
    "           #o####ooo#o#oo#",
    "           #o####oo#o#ooo#",
    "           #o####ooo#o#oo#",
    "           #o####oo#o#ooo#",
    "           #o####ooo#o#oo#",
    "           #ooooooooooooo#",
    "           ###############",
};

char At(std::uint32_t x, std::uint32_t y) {
    if (y >= std::size(kRows)) return ' ';
    const std::string_view row = kRows[y];
    return x < row.size() ? row[x] : ' ';
}

/// One bit a pixel, the bottom row first: of the picture those that are white, of its mask
/// those that are clear.
void AddBits(std::string* file, bool is_mask) {
    for (std::uint32_t y = kSide; y-- > 0;) {
        for (std::uint32_t x = 0; x < kSide; x += 8) {
            int bits = 0;
            for (std::uint32_t i = 0; i < 8; ++i) {
                const char pixel = At(x + i, y);
                const bool is_set = is_mask ? pixel != '#' && pixel != 'o' : pixel == 'o';
                bits = bits * 2 + (is_set ? 1 : 0);
            }
            file->push_back(static_cast<char>(bits));
        }
    }
}

std::string CursorFile() {
    constexpr std::uint32_t kDirectory = 22, kHeader = 40, kTable = 8;
    constexpr std::uint32_t kBits = kSide / 8 * kSide;
    std::string file;
    artwork::AddNumber(&file, 0, 2);
    artwork::AddNumber(&file, 2, 2);  // a file of cursors
    artwork::AddNumber(&file, 1, 2);
    artwork::AddNumber(&file, kSide, 1);
    artwork::AddNumber(&file, kSide, 1);
    artwork::AddNumber(&file, 2, 2);  // colours, and a byte that is not used
    artwork::AddNumber(&file, 0, 4);  // the place that points
    artwork::AddNumber(&file, kHeader + kTable + 2 * kBits, 4);
    artwork::AddNumber(&file, kDirectory, 4);
    artwork::AddNumber(&file, kHeader, 4);
    artwork::AddNumber(&file, kSide, 4);
    artwork::AddNumber(&file, 2 * kSide, 4);  // the picture and its mask
    artwork::AddNumber(&file, 1, 2);
    artwork::AddNumber(&file, 1, 2);
    artwork::AddNumber(&file, 0, 4);
    artwork::AddNumber(&file, 2 * kBits, 4);
    for (int i = 0; i < 4; ++i)
        artwork::AddNumber(&file, 0, 4);
    artwork::AddNumber(&file, 0, 4);
    artwork::AddNumber(&file, 0xFFFFFF, 4);
    AddBits(&file, false);
    AddBits(&file, true);
    return file;
}

}  // namespace

int main(int count, char** arguments) {
    return artwork::Deliver({{"drag_pointer.cur", CursorFile()}}, count, arguments);
}
