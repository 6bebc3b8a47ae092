#include "pipeline/gif_writer.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "platform/files.h"
#include "shell/host_interface.h"
#include "tests/support/gif_reader.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

class GifWriter : public testing::Test {
protected:
    GifWriter() { platform::SetPluginFolder(folder.Path()); }
    ~GifWriter() override { platform::SetPluginFolder(""); }

    /// Opens both files and closes the GIF after its head.
    bool Open(int width, int height, int depth) {
        Bytes palette(kPaletteBytes);
        for (std::size_t i = 0; i < palette.size(); ++i)
            palette[i] = static_cast<std::uint8_t>(i);
        std::FILE* stream = GifOpen(&page_path, width, height, palette.data(), depth);
        if (stream == nullptr) return false;
        return std::fclose(stream) == 0;
    }
    /// The blocks of one frame of 2 x 1 pixels.
    static Bytes FrameBytes(std::uint32_t delay, std::int32_t transparent_index) {
        const platform::OwnedBlock picture(NewPackedDib(2, 1, nullptr, 8));
        const FrameRecord frame{picture.Get(), nullptr, delay, transparent_index};
        return BytesWritten([&](std::FILE* stream) { EXPECT_EQ(GifAddFrame(stream, &frame), 1); });
    }
    [[nodiscard]] Bytes Gif() const { return ReadFileBytes(folder.File("preview.gif")); }

    ScratchFolder folder;
    std::string page_path;
};

TEST_F(GifWriter, HeadIsWrittenByteByByte) {
    ASSERT_TRUE(Open(0x0102, 0x0304, 1));
    const Bytes expected{'G',  'I',  'F', '8', '9', 'a', 0x02, 0x01, 0x04, 0x03,
                         0x80, 0,    0,   0,   1,   2,   3,    4,    5,  //
                         0x21, 0xFF, 11,  'N', 'E', 'T', 'S',  'C',  'A',  'P',
                         'E',  '2',  '.', '0', 3,   1,   0,    0,    0};
    EXPECT_EQ(Gif(), expected);
}

TEST_F(GifWriter, HeadHoldsAsManyColorsAsTheDepthTells) {
    for (int depth = 1; depth <= 8; ++depth) {
        ASSERT_TRUE(Open(1, 1, depth));
        const Bytes gif = Gif();
        EXPECT_EQ(gif.size(), 13U + (3U << depth) + 19U);
        EXPECT_EQ(gif[10], 0x80 | (depth - 1));
    }
}

TEST_F(GifWriter, PageIsWrittenInTheSystemsLines) {
    ASSERT_TRUE(Open(1, 1, 1));
    std::FILE* page = platform::OpenFile(page_path, "r");
    ASSERT_NE(page, nullptr);
    char text[200] = {};
    const std::size_t size = std::fread(text, 1, sizeof text - 1, page);
    std::fclose(page);
    EXPECT_EQ(std::string(text, size),
              "<html>\n<head>\n<title>Preview</title>\n</head>\n"
              "<body background=\"preview.gif\">\n</body>\n</html>");
}

TEST_F(GifWriter, OlderFilesAreOverwritten) {
    ASSERT_TRUE(Open(1, 1, 8));
    ASSERT_TRUE(Open(1, 1, 1));
    EXPECT_EQ(Gif().size(), 13U + 6U + 19U);
}

TEST_F(GifWriter, MissingFolderGivesNull) {
    platform::SetPluginFolder(folder.File("missing"));
    EXPECT_FALSE(Open(1, 1, 1));
}

TEST_F(GifWriter, GifThatCannotBeCreatedGivesNullAndLeavesThePage) {
    std::filesystem::create_directory(folder.File("preview.gif"));
    EXPECT_FALSE(Open(1, 1, 1));
    EXPECT_TRUE(std::filesystem::exists(folder.File("preview.html")));
}

TEST_F(GifWriter, PageThatCannotBeCreatedGivesNullAndNoGif) {
    std::filesystem::create_directory(folder.File("preview.html"));
    EXPECT_FALSE(Open(1, 1, 1));
    EXPECT_FALSE(std::filesystem::exists(folder.File("preview.gif")));
}

TEST_F(GifWriter, DepthBeyondThePaletteGivesNull) {
    EXPECT_FALSE(Open(1, 1, 24));
    EXPECT_FALSE(Open(1, 1, 0));
}

TEST_F(GifWriter, FrameIsControlDescriptorAndDataByteByByte) {
    const Bytes expected{0x21, 0xF9, 4,    0,    0x34, 0x12, 255,  0,        //
                         0x2C, 0,    0,    0,    0,    2,    0,    1, 0, 7,  //
                         8,    5,    0x00, 0x01, 0x00, 0x08, 0x08, 0};
    // Codes of 9 bits: 256, 0, 0, 257.
    EXPECT_EQ(FrameBytes(0x1234, -1), expected);
}

TEST_F(GifWriter, PackedByteHoldsTheTransparentIndexItself) {
    const Bytes bytes = FrameBytes(4, 0x1C5);
    EXPECT_EQ(bytes[3], 0xC5);
    EXPECT_EQ(bytes[6], 0xC5);
}

TEST_F(GifWriter, WithoutTransparencyThePackedByteIsZeroAndTheIndex255) {
    const Bytes bytes = FrameBytes(4, -1);
    EXPECT_EQ(bytes[3], 0);
    EXPECT_EQ(bytes[6], 255);
}

TEST_F(GifWriter, DescriptorTellsThePicturesBitsPerPixel) {
    for (const int depth : {1, 4, 8}) {
        const platform::OwnedBlock picture(NewPackedDib(3, 2, nullptr, depth));
        const FrameRecord frame{picture.Get(), nullptr, 0, -1};
        const Bytes bytes =
            BytesWritten([&](std::FILE* stream) { EXPECT_EQ(GifAddFrame(stream, &frame), 1); });
        EXPECT_EQ(bytes[17], depth - 1);
    }
}

TEST_F(GifWriter, DelayInHundredthsStays) {
    EXPECT_EQ(GifDelay(4, HostDelayHundredths), 4U);
}

TEST_F(GifWriter, DelayOfATrueColorHostIsDividedByTenWithoutRemainder) {
    EXPECT_EQ(GifDelay(40, HostTrueColor), 4U);
    EXPECT_EQ(GifDelay(5, HostTrueColor), 0U);
    EXPECT_EQ(GifDelay(49, HostDelayHundredths | HostTrueColor), 4U);
}

TEST_F(GifWriter, FrameWithoutAPictureFails) {
    const FrameRecord frame{nullptr, nullptr, 0, -1};
    EXPECT_TRUE(BytesWritten([&](std::FILE* stream) {
                    EXPECT_EQ(GifAddFrame(stream, &frame), 0);
                }).empty());
}

TEST_F(GifWriter, FrameFailsWhenABlockCannotBeHad) {
    const platform::OwnedBlock picture(NewPackedDib(2, 1, nullptr, 8));
    const FrameRecord frame{picture.Get(), nullptr, 0, -1};
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    for (const unsigned failing : {1U, 2U}) {
        static_cast<void>(BytesWritten([&](std::FILE* stream) {
            platform::FailAllocation(failing);
            EXPECT_EQ(GifAddFrame(stream, &frame), 0);
            platform::FailAllocation(0);
        }));
    }
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

TEST_F(GifWriter, StreamThatCannotBeWrittenFails) {
    ASSERT_TRUE(Open(1, 1, 1));
    const platform::OwnedBlock picture(NewPackedDib(2, 1, nullptr, 8));
    const FrameRecord frame{picture.Get(), nullptr, 0, -1};
    std::FILE* stream = platform::OpenFile(folder.File("preview.gif"), "rb");
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(GifAddFrame(stream, &frame), 0);
    std::fclose(stream);
}

}  // namespace
}  // namespace tess::test
