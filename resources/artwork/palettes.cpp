// Makes palette216.dat and palette256g.dat, two palettes in a format of 853 bytes:
//
//   offset 0    "QRVNRSRC"
//   offset 8    "256 colour palette", filled up with NULs
//   offset 75   "CMAP"
//   offset 83   16 bits, little-endian: 768, the bytes that follow
//   offset 85   256 entries of red, green, blue; entries not in use are 0

#include "resources/artwork/drawn_files.h"

namespace {

std::string PaletteFile(std::string colors) {
    constexpr std::size_t kTagOffset = 75, kLengthOffset = 83;
    constexpr std::uint32_t kPaletteBytes = 768;
    std::string file = "QRVNRSRC256 colour palette";
    file.resize(kTagOffset);
    file += "CMAP";
    file.resize(kLengthOffset);
    artwork::AddNumber(&file, kPaletteBytes, 2);
    colors.resize(kPaletteBytes);
    return file + colors;
}

void AddColor(std::string* colors, int red, int green, int blue) {
    for (const int channel : {red, green, blue})
        colors->push_back(static_cast<char>(channel));
}

/// Six levels of each channel; green varies slowest, blue fastest.
std::string SafeColors() {
    std::string colors;
    for (int i = 0; i < 216; ++i)
        AddColor(&colors, i / 6 % 6 * 51, i / 36 * 51, i % 6 * 51);
    return colors;
}

/// A grid of 7 reds, 8 greens and 4 blues, with 32 grays in its middle.
std::string ColorsWithGray() {
    constexpr int kRed[] = {0, 43, 85, 128, 170, 213, 255};
    constexpr int kGreen[] = {0, 36, 73, 109, 146, 182, 219, 255};
    constexpr int kBlue[] = {0, 85, 170, 255};
    std::string colors;
    for (int i = 0; i < 224; ++i) {
        if (i == 112) {
            for (int k = 0; k < 32; ++k) {
                // The ends differ from pure black and white.
                const int gray = k == 0 ? 1 : k == 31 ? 254 : k * 255 / 31;
                AddColor(&colors, gray, gray, gray);
            }
        }
        AddColor(&colors, kRed[i / 32], kGreen[i / 4 % 8], kBlue[i % 4]);
    }
    return colors;
}

}  // namespace

int main(int count, char** arguments) {
    return artwork::Deliver({{"palette216.dat", PaletteFile(SafeColors())},
                             {"palette256g.dat", PaletteFile(ColorsWithGray())}},
                            count, arguments);
}
