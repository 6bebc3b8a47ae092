// The reader that the writer's tests rely on is strict: what is cut short or has
// anything wrong in it is refused.
#include "tests/support/gif_reader.h"

#include <gtest/gtest.h>

#include "tests/pipeline/build_driver_fixture.h"

namespace tess::test {
namespace {

class GifReader : public DriverTest {
protected:
    GifReader() {
        ToyFrame frame{20, 9, {}, 4};
        for (int i = 0; i < 180; ++i)
            frame.pixels.push_back(i * i % 11 < 5 ? kWhite : kBlack);
        Frames({frame, frame});
        settings.palette = 0;
        Run(BuildMode::Preview);
        bytes = ReadFileBytes(folder.File("preview.gif"));
    }
    /// Why the bytes are refused once the one at `place` is `byte`; empty if not.
    std::string ErrorWith(std::size_t place, std::uint8_t byte) {
        std::vector<std::uint8_t> changed = bytes;
        changed.at(place) = byte;
        std::string error;
        static_cast<void>(ReadGif(changed, &error));
        return error;
    }

    static constexpr std::size_t kTable = 13;
    static constexpr std::size_t kLoop = kTable + 6;
    static constexpr std::size_t kControl = kLoop + 19;
    static constexpr std::size_t kDescriptor = kControl + 8;
    static constexpr std::size_t kData = kDescriptor + 10;
    std::vector<std::uint8_t> bytes;
};

TEST_F(GifReader, WholeFileIsTaken) {
    std::string error;
    EXPECT_TRUE(ReadGif(bytes, &error)) << error;
}

TEST_F(GifReader, FileCutShortAtAnyByteIsRefused) {
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(ReadGif({bytes.data(), size})) << size;
    }
}

TEST_F(GifReader, ByteBehindTheTrailerIsRefused) {
    bytes.push_back(0);
    std::string error;
    EXPECT_FALSE(ReadGif(bytes, &error));
    EXPECT_EQ(error, "something follows the trailer");
}

TEST_F(GifReader, WrongBlocksAreRefused) {
    EXPECT_EQ(ErrorWith(4, '7'), "no GIF89a header");
    EXPECT_EQ(ErrorWith(10, 0x00), "no Global Color Table");
    EXPECT_EQ(ErrorWith(11, 2), "the background is no entry of the table");
    EXPECT_EQ(ErrorWith(12, 1), "a pixel aspect ratio");
    EXPECT_EQ(ErrorWith(kLoop + 3, 'n'), "an unknown application");
    EXPECT_EQ(ErrorWith(kLoop + 18, 1), "no terminator of the loop extension");
    EXPECT_EQ(ErrorWith(kControl, 0x20), "an unknown block");
    EXPECT_EQ(ErrorWith(kControl + 1, 0x01), "an unknown extension");
    EXPECT_EQ(ErrorWith(kControl + 2, 3), "a wrong size of a Graphic Control Extension");
    EXPECT_EQ(ErrorWith(kDescriptor + 1, 1), "an image away from the top left");
    EXPECT_EQ(ErrorWith(kDescriptor + 5, 21), "an image beyond the screen");
    EXPECT_EQ(ErrorWith(kDescriptor + 9, 0x40), "an interlaced image or a sorted table");
    EXPECT_EQ(ErrorWith(kData, 1), "a minimum code size that there is not");
}

TEST_F(GifReader, ImageOfAnotherSizeThanItsDataIsRefused) {
    EXPECT_EQ(ErrorWith(kDescriptor + 5, 19), "there are more pixels than the image has");
    EXPECT_EQ(ErrorWith(kDescriptor + 7, 8), "there are more pixels than the image has");
}

// Codes of 3 bits, the least significant first, for pixels of 2 bits.

TEST(DecodeImageData, DataMustBeginWithTheClearCode) {
    GifFrame frame;
    EXPECT_EQ(DecodeImageData(std::vector<std::uint8_t>{2, 1, 0x00, 0}, 1, &frame),
              "the first code is not the clear code");
}

TEST(DecodeImageData, EndCodeBeforeTheLastPixelIsRefused) {
    GifFrame frame;  // 4, 5
    EXPECT_EQ(DecodeImageData(std::vector<std::uint8_t>{2, 1, 0x2C, 0}, 1, &frame),
              "the end code comes before the last pixel");
}

TEST(DecodeImageData, CodeBeforeItsTimeIsRefused) {
    GifFrame frame;  // 4, 7
    EXPECT_EQ(DecodeImageData(std::vector<std::uint8_t>{2, 1, 0x3C, 0}, 1, &frame),
              "a code is used before its time");
}

TEST(DecodeImageData, BitsBehindTheEndCodeAreRefused) {
    GifFrame frame;  // 4, 1, 5 and a set bit
    EXPECT_EQ(DecodeImageData(std::vector<std::uint8_t>{2, 2, 0x4C, 0x81, 0}, 1, &frame),
              "something follows the end code");
}

}  // namespace
}  // namespace tess::test
