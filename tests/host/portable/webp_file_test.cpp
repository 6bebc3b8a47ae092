#include "host/webp_file.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <webp/demux.h>

#include "tests/host/sample_animations.h"
#include "tests/support/gif_reader.h"
#include "tests/support/scratch_folder.h"

namespace tess {
namespace {

using test::AddFrame;
using test::StartAnimation;
using Bytes = std::vector<std::uint8_t>;

struct ShownFrame {
    int end;       ///< in milliseconds from the start
    Bytes pixels;  ///< red, green, blue, alpha
};

std::vector<ShownFrame> ReadWebp(const std::string& path, WebPAnimInfo* info) {
    const Bytes bytes = test::ReadFileBytes(path);
    const WebPData data{bytes.data(), bytes.size()};
    const std::unique_ptr<WebPAnimDecoder, void (*)(WebPAnimDecoder*)> decoder(
        WebPAnimDecoderNew(&data, nullptr), WebPAnimDecoderDelete);
    std::vector<ShownFrame> frames;
    if (!decoder || WebPAnimDecoderGetInfo(decoder.get(), info) == 0) return frames;
    while (WebPAnimDecoderHasMoreFrames(decoder.get()) != 0) {
        std::uint8_t* pixels;
        int end;
        if (WebPAnimDecoderGetNext(decoder.get(), &pixels, &end) == 0) break;
        const std::size_t size = std::size_t{4} * info->canvas_width * info->canvas_height;
        frames.push_back({end, Bytes(pixels, pixels + size)});
    }
    return frames;
}

class WebpFileTest : public ::testing::Test {
protected:
    std::vector<ShownFrame> Written() {
        EXPECT_EQ(WriteWebp(animation_, path_), FileResult::Written);
        return ReadWebp(path_, &info_);
    }

    test::ScratchFolder folder_;
    std::string path_ = folder_.File("animation.webp");
    Animation animation_;
    WebPAnimInfo info_{};
};

TEST_F(WebpFileTest, IndexedFramesReadBackAsTheyAreSeen) {
    StartAnimation(animation_, 2, 1, 3);
    AddFrame(animation_, 4, -1, {1, 2});
    AddFrame(animation_, 6, 5, {5, 7});
    const auto frames = Written();
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(frames[0].pixels, (Bytes{10, 20, 30, 255, 20, 40, 60, 255}));
    EXPECT_EQ(frames[1].pixels, (Bytes{10, 20, 30, 255, 70, 140, 210, 255}));
}

TEST_F(WebpFileTest, TrueColorFramesLoseNothing) {
    StartAnimation(animation_, 2, 2, 24);
    AddFrame(animation_, 4, -1, {0x030201, 0x060504, 0xFEFDFC, 0x000001});
    AddFrame(animation_, 4, -1, {0x030202, 0x060504, 0xFEFDFC, 0x000001});
    const auto frames = Written();
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(frames[0].pixels,
              (Bytes{1, 2, 3, 255, 4, 5, 6, 255, 0xFC, 0xFD, 0xFE, 255, 1, 0, 0, 255}));
    EXPECT_EQ(frames[1].pixels[0], 2);
}

TEST_F(WebpFileTest, DelaysAreMilliseconds) {
    StartAnimation(animation_, 1, 1, 3);
    AddFrame(animation_, 4, -1, {1});
    AddFrame(animation_, 25, -1, {2});
    const auto frames = Written();
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(frames[0].end, 40);
    EXPECT_EQ(frames[1].end, 290);
}

TEST_F(WebpFileTest, AnimationLoopsForEver) {
    StartAnimation(animation_, 1, 1, 3);
    AddFrame(animation_, 4, -1, {1});
    AddFrame(animation_, 4, -1, {2});
    Written();
    EXPECT_EQ(info_.loop_count, 0u);
}

TEST_F(WebpFileTest, EqualNeighborsBecomeOneLongerFrame) {
    StartAnimation(animation_, 1, 1, 3);
    AddFrame(animation_, 4, -1, {1});
    AddFrame(animation_, 4, -1, {1});
    AddFrame(animation_, 4, -1, {2});
    const auto frames = Written();
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(frames[0].end, 80);
}

TEST_F(WebpFileTest, TooLargePictureIsRefused) {
    StartAnimation(animation_, 16384, 1, 1);
    AddFrame(animation_, 4, -1, {1});
    EXPECT_EQ(WriteWebp(animation_, path_), FileResult::TooLarge);
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

}  // namespace
}  // namespace tess
