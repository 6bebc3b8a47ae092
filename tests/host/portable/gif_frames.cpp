// gif_frames FILE: writes what giflib reads of a GIF to standard output, for tests that
// compare it: for each frame its delay, four bytes with the lowest first, then the
// picture that a viewer sees, rows from the top, red, green, blue.
#include <cstdio>

#include "host/gif_player.h"

namespace {

bool WriteFrames(tess::GifPlayer& player) {
    const auto bytes = std::size_t{3} * static_cast<std::size_t>(player.Width()) *
                       static_cast<std::size_t>(player.Height());
    for (int frame = 0; frame < player.FrameCount(); ++frame) {
        player.ShowFrame();
        const auto delay = static_cast<unsigned>(player.Delay());
        for (unsigned shift = 0; shift < 32; shift += 8)
            std::putchar(static_cast<int>(delay >> shift & 255));
        if (std::fwrite(player.Pixels(), 1, bytes, stdout) != bytes) return false;
    }
    return std::fflush(stdout) == 0;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    tess::GifPlayer player(arguments[1]);
    if (!player) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], player.Problem().c_str());
        return 1;
    }
    return WriteFrames(player) ? 0 : 1;
}
