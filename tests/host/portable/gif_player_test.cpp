#include "host/gif_player.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <vector>

#include "platform/files.h"
#include "tests/support/ended_process.h"
#include "tests/support/scratch_folder.h"

namespace tess {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Rgb = std::array<int, 3>;

constexpr Rgb kBlack{0, 0, 0}, kRed{255, 0, 0}, kBlue{0, 0, 255}, kGreen{0, 255, 0};

class GifPlayerTest : public ::testing::Test {
protected:
    std::string Write(const Bytes& bytes) const {
        const std::string path = folder_.File("a.gif");
        std::FILE* file = platform::OpenFile(path, "wb");
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
        return path;
    }
    static Rgb Pixel(const GifPlayer& player, int place) {
        const std::uint8_t* pixel = player.Pixels() + 3 * place;
        return {pixel[0], pixel[1], pixel[2]};
    }

    test::ScratchFolder folder_;
};

constexpr std::ptrdiff_t kScreenBytes = 25;

/// A screen of 2 x 1 with the colours black, red, blue, green.
Bytes Screen() {
    return {'G', 'I', 'F', '8', '9', 'a', 2, 0, 1,   0, 0x91, 0, 0,
            0,   0,   0,   255, 0,   0,   0, 0, 255, 0, 255,  0};
}

/// Adds a frame of one pixel at column `left`: its colour's index, disposal, and the
/// transparent index, -1 for none.
void AddPixel(Bytes& gif, int left, int index, int disposal, int transparent, int delay) {
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    const Bytes control = {0x21,
                           0xF9,
                           4,
                           byte(disposal << 2 | (transparent >= 0 ? 1 : 0)),
                           byte(delay),
                           0,
                           byte(transparent < 0 ? 0 : transparent),
                           0};
    gif.insert(gif.end(), control.begin(), control.end());
    const Bytes image = {0x2C, byte(left), 0, 0, 0, 1, 0, 1, 0, 0};
    gif.insert(gif.end(), image.begin(), image.end());
    // Codes of 3 bits: clear (4), the index, end (5).
    const int codes = 4 | index << 3 | 5 << 6;
    const Bytes data = {2, 2, byte(codes), byte(codes >> 8), 0};
    gif.insert(gif.end(), data.begin(), data.end());
}

TEST_F(GifPlayerTest, FrameIsDrawnOverTheOneBefore) {
    Bytes gif = Screen();
    AddPixel(gif, 0, 1, 1, -1, 7);
    AddPixel(gif, 1, 2, 1, -1, 9);
    gif.push_back(0x3B);
    GifPlayer player(Write(gif));
    ASSERT_TRUE(player) << player.Problem();
    EXPECT_EQ(player.Width(), 2);
    EXPECT_EQ(player.Height(), 1);
    EXPECT_EQ(player.FrameCount(), 2);
    player.ShowFrame();
    EXPECT_EQ(Pixel(player, 0), kRed);
    EXPECT_EQ(Pixel(player, 1), kBlack);
    EXPECT_EQ(player.Delay(), 7);
    player.ShowFrame();
    EXPECT_EQ(Pixel(player, 0), kRed);
    EXPECT_EQ(Pixel(player, 1), kBlue);
    EXPECT_EQ(player.Delay(), 9);
}

TEST_F(GifPlayerTest, TransparentPixelLeavesWhatIsThere) {
    Bytes gif = Screen();
    AddPixel(gif, 0, 1, 1, -1, 1);
    AddPixel(gif, 0, 3, 1, 3, 1);
    gif.push_back(0x3B);
    GifPlayer player(Write(gif));
    player.ShowFrame();
    player.ShowFrame();
    EXPECT_EQ(Pixel(player, 0), kRed);
}

TEST_F(GifPlayerTest, DisposalClearsAFrameOrBringsBackWhatWasBefore) {
    Bytes gif = Screen();
    AddPixel(gif, 0, 1, 1, -1, 1);  // stays
    AddPixel(gif, 0, 2, 3, -1, 1);  // what was before comes back
    AddPixel(gif, 1, 3, 2, -1, 1);  // goes
    AddPixel(gif, 1, 3, 1, 3, 1);   // draws nothing
    gif.push_back(0x3B);
    GifPlayer player(Write(gif));
    player.ShowFrame();
    player.ShowFrame();
    EXPECT_EQ(Pixel(player, 0), kBlue);
    player.ShowFrame();
    EXPECT_EQ(Pixel(player, 0), kRed);
    EXPECT_EQ(Pixel(player, 1), kGreen);
    player.ShowFrame();
    EXPECT_EQ(Pixel(player, 1), kBlack);
}

TEST_F(GifPlayerTest, FileThatIsNoGifIsNamedSo) {
    EXPECT_EQ(GifPlayer(Write({'n', 'o'})).Problem(), "is no GIF");
    EXPECT_EQ(GifPlayer(Write({'t', 'h', 'i', 's', ' ', 'i', 's', ' ', 'n', 'o'})).Problem(),
              "is no GIF");
    EXPECT_EQ(GifPlayer(folder_.File("none")).Problem(),
              "cannot be read: No such file or directory");
}

TEST_F(GifPlayerTest, CutOffGifIsDamagedOrHoldsLess) {
    Bytes gif = Screen();
    AddPixel(gif, 0, 1, 1, -1, 7);
    gif.push_back(0x3B);
    for (std::size_t length = 0; length + 1 < gif.size(); ++length) {
        const GifPlayer player(
            Write(Bytes(gif.begin(), gif.begin() + static_cast<std::ptrdiff_t>(length))));
        EXPECT_FALSE(player) << length;
    }
}

TEST_F(GifPlayerTest, PictureThatNeedsTooMuchMemoryIsNotCalledDamaged) {
#ifdef SANITIZED
    GTEST_SKIP() << "the sanitizer's own memory counts, too";
#endif
    Bytes gif = Screen();
    AddPixel(gif, 0, 1, 1, -1, 7);
    // 40000 x 40000
    const auto image = std::find(gif.begin() + kScreenBytes, gif.end(), 0x2C);
    const Bytes size = {0x40, 0x9C, 0x40, 0x9C};
    std::copy(size.begin(), size.end(), image + 5);
    gif.push_back(0x3B);
    const std::string path = Write(gif);
    const int status = test::StatusOf(test::StartProcess([&] {
        constexpr rlim_t kMost = rlim_t{1} << 30;
        const rlimit limit{kMost, kMost};
        if (setrlimit(RLIMIT_AS, &limit) != 0) _exit(2);
        if (GifPlayer(path).Problem() != "needs more memory than there is") _exit(1);
    }));
    EXPECT_EQ(status, 0);
}

TEST_F(GifPlayerTest, GifWithoutAPictureIsRefused) {
    Bytes gif = Screen();
    gif.push_back(0x3B);
    const GifPlayer player(Write(gif));
    EXPECT_FALSE(player);
}

}  // namespace
}  // namespace tess
