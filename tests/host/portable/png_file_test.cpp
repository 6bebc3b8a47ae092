#include "host/png_file.h"

#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <png.h>
#include <zlib.h>

#include "tests/host/sample_animations.h"
#include "tests/support/gif_reader.h"
#include "tests/support/random_pictures.h"
#include "tests/support/scratch_folder.h"

namespace tess {
namespace {

using test::AddFrame;
using test::StartAnimation;
using Bytes = std::vector<std::uint8_t>;

std::uint32_t NumberAt(const Bytes& bytes, std::size_t place) {
    return std::uint32_t{bytes[place]} << 24 | std::uint32_t{bytes[place + 1]} << 16 |
           std::uint32_t{bytes[place + 2]} << 8 | bytes[place + 3];
}

struct Chunk {
    std::string type;
    Bytes data;
};

// All chunks of a file, each with a check that its sum is right.
std::vector<Chunk> ReadChunks(const std::string& path) {
    const Bytes bytes = test::ReadFileBytes(path);
    std::vector<Chunk> chunks;
    std::size_t place = 8;
    while (place + 12 <= bytes.size()) {
        const std::size_t size = NumberAt(bytes, place);
        const auto data = bytes.begin() + static_cast<std::ptrdiff_t>(place) + 8;
        Chunk chunk{std::string(data - 4, data),
                    Bytes(data, data + static_cast<std::ptrdiff_t>(size))};
        EXPECT_EQ(NumberAt(bytes, place + 8 + size),
                  crc32(0, bytes.data() + place + 4, static_cast<uInt>(size + 4)));
        chunks.push_back(std::move(chunk));
        place += 12 + size;
    }
    EXPECT_EQ(place, bytes.size());
    return chunks;
}

std::string Types(const std::vector<Chunk>& chunks) {
    std::string types;
    for (const Chunk& chunk : chunks)
        types += (types.empty() ? "" : " ") + chunk.type;
    return types;
}

// The rows of one frame's stream, each with its filter byte before it.
Bytes Inflate(const Chunk& chunk, std::size_t expected) {
    const std::size_t head = chunk.type == "fdAT" ? 4 : 0;
    Bytes rows(expected + 1);
    uLongf size = rows.size();
    EXPECT_EQ(uncompress(rows.data(), &size, chunk.data.data() + head, chunk.data.size() - head),
              Z_OK);
    rows.resize(size);
    return rows;
}

class PngFileTest : public ::testing::Test {
protected:
    std::vector<Chunk> Written() {
        EXPECT_EQ(WriteAnimatedPng(animation_, path_), FileResult::Written);
        return ReadChunks(path_);
    }

    test::ScratchFolder folder_;
    std::string path_ = folder_.File("animation.png");
    Animation animation_;
};

TEST_F(PngFileTest, IndexedFramesFollowTheAnimationChunks) {
    StartAnimation(animation_, 3, 1, 3);
    AddFrame(animation_, 4, -1, {1, 2, 3});
    AddFrame(animation_, 4, 5, {5, 4, 5});
    const auto chunks = Written();
    ASSERT_EQ(Types(chunks), "IHDR acTL PLTE fcTL IDAT fcTL fdAT IEND");
    EXPECT_EQ(chunks[0].data, (Bytes{0, 0, 0, 3, 0, 0, 0, 1, 4, 3, 0, 0, 0}));
    EXPECT_EQ(chunks[1].data, (Bytes{0, 0, 0, 2, 0, 0, 0, 0}));
    EXPECT_EQ(Inflate(chunks[4], 3), (Bytes{0, 0x12, 0x30}));
    EXPECT_EQ(Inflate(chunks[6], 3), (Bytes{0, 0x14, 0x30}));  // as it is seen
}

TEST_F(PngFileTest, SequenceNumbersRunThroughControlsAndData) {
    StartAnimation(animation_, 1, 1, 1);
    for (std::uint32_t i = 0; i < 3; ++i)
        AddFrame(animation_, 4, -1, {i & 1});
    std::uint32_t next = 0;
    for (const Chunk& chunk : Written()) {
        if (chunk.type == "fcTL" || chunk.type == "fdAT") {
            EXPECT_EQ(NumberAt(chunk.data, 0), next++);
        }
    }
    EXPECT_EQ(next, 5u);
}

TEST_F(PngFileTest, DelayIsAFractionOfTheHostsUnit) {
    StartAnimation(animation_, 1, 1, 1);
    animation_.Unit = DelayUnit::Milliseconds;
    AddFrame(animation_, 40, -1, {0});
    const Bytes control = Written()[3].data;
    EXPECT_EQ((control[20] << 8) + control[21], 40);
    EXPECT_EQ((control[22] << 8) + control[23], 1000);
}

TEST_F(PngFileTest, CommentEndsItsLinesWithLineFeeds) {
    StartAnimation(animation_, 1, 1, 1);
    AddFrame(animation_, 4, -1, {0});
    animation_.HasComment = true;
    animation_.Comment = "a\r\nb";
    const auto chunks = Written();
    ASSERT_EQ(Types(chunks), "IHDR acTL PLTE tEXt fcTL IDAT IEND");
    EXPECT_EQ(std::string(chunks[3].data.begin(), chunks[3].data.end()),
              std::string("Comment\0a\nb", 11));
}

TEST_F(PngFileTest, OneBitPixelsArePackedLeftmostHighest) {
    StartAnimation(animation_, 9, 1, 1);
    AddFrame(animation_, 4, -1, {1, 0, 1, 0, 0, 0, 0, 1, 1});
    EXPECT_EQ(Inflate(Written()[4], 3), (Bytes{0, 0xA1, 0x80}));
}

TEST_F(PngFileTest, FramesOfTwoTablesAreWrittenInTrueColor) {
    StartAnimation(animation_, 1, 1, 3);
    AddFrame(animation_, 4, -1, {1});
    AddFrame(animation_, 4, -1, {3});
    test::SetTableEntry(animation_, 1, 3, 200, 100, 50);
    const auto chunks = Written();
    ASSERT_EQ(Types(chunks), "IHDR acTL fcTL IDAT fcTL fdAT IEND");
    EXPECT_EQ(chunks[0].data[9], 2);
    const Bytes row = Inflate(chunks[5], 4);
    EXPECT_EQ(Bytes(row.begin() + 1, row.end()), (Bytes{200, 100, 50}));
}

// libpng reads back what our filters made, pixel by pixel.
TEST_F(PngFileTest, RandomTrueColorPictureReadsBackThroughLibpng) {
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        const int width = 1 + static_cast<int>(seed * 7 % 40), height = 17;
        const platform::OwnedBlock picture(test::RandomPicture(width, height, 24, seed));
        ASSERT_EQ(WritePng(picture.Get(), path_), FileResult::Written);
        png_image png{};
        png.version = PNG_IMAGE_VERSION;
        ASSERT_NE(png_image_begin_read_from_file(&png, path_.c_str()), 0);
        png.format = PNG_FORMAT_RGB;
        Bytes pixels(PNG_IMAGE_SIZE(png));
        ASSERT_NE(png_image_finish_read(&png, nullptr, pixels.data(), 0, nullptr), 0);
        const LockedImage image(picture.Get());
        std::size_t place = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x, place += 3) {
                ASSERT_EQ(MakeColor(pixels[place], pixels[place + 1], pixels[place + 2]),
                          GetDibPixel(image, x, y));
            }
        }
    }
}

TEST_F(PngFileTest, MemoryFailureLeavesNothing) {
    StartAnimation(animation_, 4, 4, 8);
    AddFrame(animation_, 4, -1, {1});
    for (std::size_t failing = 1; failing <= 4; ++failing) {
        platform::FailAllocation(failing);
        EXPECT_EQ(WriteAnimatedPng(animation_, path_), FileResult::OutOfMemory) << failing;
        platform::FailAllocation(0);
        EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
    }
}

}  // namespace
}  // namespace tess
