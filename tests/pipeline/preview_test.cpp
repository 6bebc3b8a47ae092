#include <filesystem>
#include <gtest/gtest.h>

#include "pipeline/palette.h"
#include "tests/pipeline/build_driver_fixture.h"

namespace tess::test {
namespace {

using Lines = std::vector<std::string>;

class Preview : public DriverTest {
protected:
    Preview() { Frames({RowOf({kRed, kBlue}), RowOf({kRed, kGreen})}); }
    int RunPreview() { return Run(BuildMode::Preview); }

    /// Runs, and expects exactly this message and nothing left behind.
    void ExpectFailure(const std::string& message) {
        const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
        EXPECT_EQ(RunPreview(), 0);
        EXPECT_EQ(Shell().messages, Lines{message});
        EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
    }
    /// The colours of one frame of the GIF, in reading order.
    static std::vector<ColorWord> Colors(const GifFile& gif, std::size_t frame) {
        std::vector<ColorWord> colors;
        for (const std::uint8_t index : gif.frames.at(frame).indexes) {
            const std::uint8_t* entry = gif.palette.data() + std::size_t{3} * index;
            colors.push_back(MakeColor(entry[0], entry[1], entry[2]));
        }
        return colors;
    }
};

TEST_F(Preview, HostSeesStagesAndNoTask) {
    settings.comment = true;
    ASSERT_EQ(RunPreview(), 1);
    EXPECT_EQ(Events(),
              (Lines{"BackgroundQuery 1 1", "BackgroundQuery 1 0", "Progress 0 0", "Title Building",
                     "Title Building", "Build 1", "Progress 0 0", "Progress 0 0", "Progress 0 0",
                     "Title Remapping", "Progress 0 2", "Progress 1 2", "Progress 0 0"}));
}

TEST_F(Preview, PageIsOpened) {
    ASSERT_EQ(RunPreview(), 1);
    EXPECT_EQ(std::filesystem::path(platform::LastOpenedPage()),
              std::filesystem::path(folder.File("preview.html")));
}

TEST_F(Preview, GifHoldsTheFramesOnThePalette) {
    settings.palette = 1;
    ASSERT_EQ(RunPreview(), 1);
    const auto gif = PreviewGif();
    ASSERT_TRUE(gif);
    EXPECT_EQ(gif->depth, 4);
    EXPECT_TRUE(gif->loops_for_ever);
    ASSERT_EQ(gif->frames.size(), 2U);
    EXPECT_EQ(Colors(*gif, 0), (std::vector<ColorWord>{kRed, kBlue}));
    EXPECT_EQ(Colors(*gif, 1), (std::vector<ColorWord>{kRed, kGreen}));
}

TEST_F(Preview, ScreenIsTheLargestFrame) {
    Frames({{2, 3, std::vector<ColorWord>(6, kRed)}, {5, 1, std::vector<ColorWord>(5, kRed)}});
    ASSERT_EQ(RunPreview(), 1);
    const auto gif = PreviewGif();
    ASSERT_TRUE(gif);
    EXPECT_EQ(gif->width, 5);
    EXPECT_EQ(gif->height, 3);
    EXPECT_EQ(gif->frames[0].width, 2);
    EXPECT_EQ(gif->frames[1].height, 1);
}

TEST_F(Preview, DelayIsInTheHostsUnit) {
    Frames({{1, 1, {kRed}, 40}});
    host.flags = HostDelayHundredths;
    ASSERT_EQ(RunPreview(), 1);
    EXPECT_EQ(PreviewGif()->frames[0].delay, 40);
    host.flags = HostTrueColor;
    ASSERT_EQ(RunPreview(), 1);
    EXPECT_EQ(PreviewGif()->frames[0].delay, 4);
}

TEST_F(Preview, TrueColorDitherAndSupercompressAreIgnored) {
    Frames({{8, 8, std::vector<ColorWord>(64, 0x646464)},
            {8, 8, std::vector<ColorWord>(64, 0x646464)}});
    settings.palette = 0;
    ASSERT_EQ(RunPreview(), 1);
    const auto plain = ReadFileBytes(folder.File("preview.gif"));
    settings.true_color = settings.dither = settings.supercompress = true;
    ASSERT_EQ(RunPreview(), 1);
    EXPECT_EQ(ReadFileBytes(folder.File("preview.gif")), plain);
    EXPECT_FALSE(Happened("Title Supercompressing"));
}

TEST_F(Preview, MaskBackgroundStaysInForce) {
    settings.custom_palette = settings.mask_background = settings.supercompress = true;
    Background(kBlue);
    ASSERT_EQ(RunPreview(), 1);
    const auto gif = PreviewGif();
    ASSERT_TRUE(gif);
    // Blue, red, green and blue's own slot.
    EXPECT_EQ(gif->frames[0].indexes, (std::vector<std::uint8_t>{1, 3}));
}

TEST_F(Preview, EveryPixelComesBackAtEveryDepth) {
    settings.custom_palette = true;
    for (int depth = 2; depth <= 8; ++depth) {
        ToyFrame frame{37, 23, {}, 4};
        // White makes the colours up to the full number.
        const int colors = std::min((1 << depth) - 1, 253);
        for (int i = 0; i < 37 * 23; ++i) {
            const int k = i * i % colors;
            frame.pixels.push_back(MakeColor(k, 255 - k, k / 2));
        }
        Frames({frame});
        ASSERT_EQ(RunPreview(), 1);
        const auto gif = PreviewGif();
        ASSERT_TRUE(gif);
        EXPECT_EQ(Colors(*gif, 0), frame.pixels) << depth;
    }
}

TEST_F(Preview, EveryPixelComesBackAtADepthOfOne) {
    settings.palette = 0;
    ToyFrame frame{37, 23, {}, 4};
    for (int i = 0; i < 37 * 23; ++i)
        frame.pixels.push_back(i * i % 7 < 3 ? kWhite : kBlack);
    Frames({frame});
    ASSERT_EQ(RunPreview(), 1);
    const auto gif = PreviewGif();
    ASSERT_TRUE(gif);
    EXPECT_EQ(gif->depth, 1);
    EXPECT_EQ(Colors(*gif, 0), frame.pixels);
}

TEST_F(Preview, MissingFolderIsAnErrorCreatingTheFile) {
    platform::SetPluginFolder(folder.File("missing"));
    ExpectFailure("Error creating file");
}

TEST_F(Preview, GifThatCannotBeCreatedIsAnErrorCreatingTheFile) {
    std::filesystem::create_directory(folder.File("preview.gif"));
    ExpectFailure("Error creating file");
}

TEST_F(Preview, FailedFrameLeavesAGifThatEndsWithItsTrailer) {
    ASSERT_EQ(RunPreview(), 1);
    const std::size_t allocations = platform::CurrentMemoryUse().allocations;
    ASSERT_EQ(RunPreview(), 1);
    // The last block of all is the second frame's.
    settings.failing_allocation =
        static_cast<unsigned>(platform::CurrentMemoryUse().allocations - allocations);
    ExpectFailure("Error writing file");
    const auto bytes = ReadFileBytes(folder.File("preview.gif"));
    EXPECT_EQ(bytes.back(), 0x3B);
    EXPECT_FALSE(ReadGif(bytes));
}

TEST_F(Preview, FullDiskWithinTheHeadIsAnErrorCreatingTheFile) {
    std::error_code error;
    if (std::filesystem::exists("/dev/full", error)) {
        std::filesystem::create_symlink("/dev/full", folder.File("preview.gif"), error);
    }
    if (!std::filesystem::exists(folder.File("preview.gif"))) {
        GTEST_SKIP() << "this system has no device that is always full";
    }
    ExpectFailure("Error creating file");
}

}  // namespace
}  // namespace tess::test
