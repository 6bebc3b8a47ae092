// Any bytes as a GIF to be checked: its first frames are shown.
#include <algorithm>

#include "host/gif_player.h"
#include "tests/fuzz/fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    using namespace tess;
    constexpr int kMostShown = 8;
    constexpr std::size_t kSmallScreen = std::size_t{1} << 20;  // each frame copies all of it
    const std::string& path = fuzz::FileOf(bytes, count);
    platform::SetMemoryLimit(kSmallScreen);
    {
        GifPlayer player(path);
        if (!player) return 0;
        const auto last = static_cast<std::size_t>(3) * static_cast<std::size_t>(player.Width()) *
                              static_cast<std::size_t>(player.Height()) -
                          1;
        for (int frame = 0; frame < std::min(player.FrameCount(), kMostShown); ++frame) {
            player.ShowFrame();
            fuzz::Keep(player.Pixels()[last]);
        }
    }
    fuzz::ExpectNoBlocks();
    return 0;
}
