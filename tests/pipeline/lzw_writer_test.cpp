#include "pipeline/lzw_writer.h"

#include <gtest/gtest.h>
#include <memory>
#include <random>

#include "platform/block_guards.h"
#include "tests/reference/plain_lzw_writer.h"
#include "tests/support/gif_reader.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// A state with its two blocks.
struct State : LzwState {
    platform::WorkArray<std::uint32_t> codes{kLzwSlots};
    platform::WorkArray<std::uint8_t> buffer{kLzwBufferBytes};
    State() : LzwState{} {
        Codes = codes.data();
        Buffer = buffer.data();
    }
};

/// An indexed picture and its descriptor.
struct Picture {
    platform::OwnedBlock block;
    LockedImage image;
    GifImageDescriptor descriptor{};

    Picture(int width, int height, int depth)
        : block(NewPackedDib(width, height, nullptr, depth)), image(block.Get()) {
        descriptor.Width = static_cast<std::uint16_t>(width);
        descriptor.Height = static_cast<std::uint16_t>(height);
        descriptor.Packed = static_cast<std::uint8_t>(image->BitCount - 1);
    }
    /// Sets the pixels in reading order.
    template <class Index>
    void Fill(Index index) {
        int i = 0;
        for (int y = 0; y < image->Height; ++y) {
            for (int x = 0; x < image->Width; ++x) {
                SetDibPixel(image, x, y, static_cast<std::uint32_t>(index(i++)));
            }
        }
    }
    [[nodiscard]] std::size_t Pixels() const {
        return static_cast<std::size_t>(image->Width) * static_cast<std::size_t>(image->Height);
    }
};

Bytes Write(const Picture& picture) {
    State state;
    int result = 0;
    Bytes bytes = BytesWritten([&](std::FILE* stream) {
        result = LzwWriteImage(stream, picture.image, &picture.descriptor, &state);
    });
    EXPECT_EQ(result, 1);
    return bytes;
}

/// The codes' bytes, without the minimum code size and the sub-blocks' lengths.
Bytes Joined(const Bytes& data) {
    Bytes joined;
    for (std::size_t at = 1; at < data.size() && data[at] != 0; at += std::size_t{1} + data[at]) {
        joined.insert(joined.end(), data.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                      data.begin() + static_cast<std::ptrdiff_t>(at) + 1 + data[at]);
    }
    return joined;
}

int CodeAt(const Bytes& bytes, int position, int bits) {
    int code = 0;
    for (int i = 0; i < bits; ++i) {
        const int place = position + i;
        code |= ((bytes[static_cast<std::size_t>(place / 8)] >> (place % 8)) & 1) << i;
    }
    return code;
}

/// Pixels in which no pair stands twice, so that every one of them costs a code.
std::vector<int> PairsThatNeverRepeat() {
    std::vector<int> pixels;
    for (int a = 0; a < 256; ++a) {
        pixels.push_back(a);
        for (int b = a + 2; b < 256; ++b) {
            pixels.push_back(b);
            pixels.push_back(a);
        }
    }
    return pixels;
}

TEST(LzwWriter, OnePixelIsClearCodeThePixelAndEndCode) {
    Picture picture(1, 1, 1);
    picture.Fill([](int) { return 1; });
    // Codes of 3 bits from the low end: 4, 1, 5.
    EXPECT_EQ(Write(picture), (Bytes{2, 2, 0x4C, 0x01, 0}));
}

TEST(LzwWriter, OneBitPictureHasMinimumCodeSizeTwo) {
    const Picture picture(5, 3, 1);
    EXPECT_EQ(Write(picture)[0], 2);
}

TEST(LzwWriter, RepeatedPixelsGrowTheStringByOneEachTime) {
    Picture picture(6, 1, 4);
    // 7, then 7 7 as string 18, then 7 7 7 as string 19; codes of 5 bits: 16 7 18 19 17.
    picture.Fill([](int) { return 7; });
    const Bytes data = Write(picture);
    EXPECT_EQ(data[0], 4);
    const Bytes codes = Joined(data);
    EXPECT_EQ(CodeAt(codes, 0, 5), 16);
    EXPECT_EQ(CodeAt(codes, 5, 5), 7);
    EXPECT_EQ(CodeAt(codes, 10, 5), 18);
    EXPECT_EQ(CodeAt(codes, 15, 5), 19);
    EXPECT_EQ(CodeAt(codes, 20, 5), 17);
}

TEST(LzwWriter, PictureWithoutPixelsIsTheTwoCodes) {
    const Picture picture(0, 3, 8);
    // 256 and 257 in 9 bits each.
    EXPECT_EQ(Write(picture), (Bytes{8, 3, 0x00, 0x03, 0x02, 0}));
}

TEST(LzwWriter, At4096CodesTheClearCodeGoesOutIn12BitsAndTheDictionaryRestarts) {
    const std::vector<int> pixels = PairsThatNeverRepeat();
    Picture picture(static_cast<int>(pixels.size()), 1, 8);
    picture.Fill([&](int i) { return pixels[static_cast<std::size_t>(i)]; });
    const Bytes codes = Joined(Write(picture));
    // One code a pixel: 255 of 9 bits, 512 of 10, 1024 of 11, 2048 of 12.
    const int clear = 9 + 255 * 9 + 512 * 10 + 1024 * 11 + 2048 * 12;
    EXPECT_EQ(CodeAt(codes, 0, 9), 256);
    EXPECT_EQ(CodeAt(codes, clear - 12, 12), pixels[255 + 512 + 1024 + 2048 - 1]);
    EXPECT_EQ(CodeAt(codes, clear, 12), 256);
    EXPECT_EQ(CodeAt(codes, clear + 12, 9), pixels[255 + 512 + 1024 + 2048]);
}

TEST(LzwWriter, AllSubBlocksButTheLastHold251Or252Bytes) {
    const std::vector<int> pixels = PairsThatNeverRepeat();
    Picture picture(static_cast<int>(pixels.size()), 1, 8);
    picture.Fill([&](int i) { return pixels[static_cast<std::size_t>(i)]; });
    GifFrame frame;
    ASSERT_EQ(DecodeImageData(Write(picture), picture.Pixels(), &frame), "");
    ASSERT_GT(frame.sub_block_sizes.size(), 100U);
    frame.sub_block_sizes.pop_back();
    for (const int size : frame.sub_block_sizes) {
        EXPECT_TRUE(size == 251 || size == 252) << size;
    }
}

TEST(LzwWriter, CodeAtBitZeroReplacesWhatAnEarlierBlockLeft) {
    State state;
    state.CodeBits = 8;
    state.Buffer[0] = 0xFF;
    EXPECT_EQ(LzwPutCode(nullptr, 0x12, &state), 1);
    EXPECT_EQ(state.Buffer[0], 0x12);
}

TEST(LzwWriter, CodeInsideAByteKeepsTheBitsBelowIt) {
    State state;
    state.CodeBits = 9;
    state.BitPosition = 3;
    state.Buffer[0] = 0x05;
    EXPECT_EQ(LzwPutCode(nullptr, 0x1FF, &state), 1);
    EXPECT_EQ(state.Buffer[0], 0xFD);
    EXPECT_EQ(state.Buffer[1], 0x0F);
    EXPECT_EQ(state.BitPosition, 12);
}

TEST(LzwWriter, FullBufferIsWrittenBeforeTheCodeAndItsPartialByteMovesToTheFront) {
    State state;
    state.CodeBits = 12;
    state.BitPosition = 251 * 8 + 4;
    state.Buffer[251] = 0x0A;
    const Bytes written =
        BytesWritten([&](std::FILE* stream) { EXPECT_EQ(LzwPutCode(stream, 0xBCD, &state), 1); });
    EXPECT_EQ(written.size(), 252U);
    EXPECT_EQ(written[0], 251);
    EXPECT_EQ(state.Buffer[0], 0xDA);
    EXPECT_EQ(state.Buffer[1], 0xBC);
    EXPECT_EQ(state.BitPosition, 16);
}

TEST(LzwWriter, ValuesAreMaskedToTheDescriptorsBits) {
    Picture wide(4, 1, 8);
    wide.Fill([](int i) { return 0x30 + i; });
    wide.descriptor.Packed = 4;  // 5 bits
    GifFrame frame;
    ASSERT_EQ(DecodeImageData(Write(wide), 4, &frame), "");
    EXPECT_EQ(frame.indexes, (Bytes{0x10, 0x11, 0x12, 0x13}));
}

TEST(LzwWriter, InterlacedRowsGoInFourPasses) {
    Picture picture(1, 9, 8);
    picture.Fill([](int y) { return y; });
    picture.descriptor.Packed |= kGifInterlaced;
    GifFrame frame;
    ASSERT_EQ(DecodeImageData(Write(picture), 9, &frame), "");
    EXPECT_EQ(frame.indexes, (Bytes{0, 8, 4, 2, 6, 1, 3, 5, 7}));
}

TEST(LzwWriter, StreamThatCannotBeWrittenFails) {
    const ScratchFolder folder;
    const std::string path = folder.File("read_only");
    std::fclose(std::fopen(path.c_str(), "wb"));
    std::FILE* stream = std::fopen(path.c_str(), "rb");
    State state;
    const Picture picture(4, 4, 8);
    EXPECT_EQ(LzwWriteImage(stream, picture.image, &picture.descriptor, &state), 0);
    std::fclose(stream);
}

/// Pictures of all depths, from flat to noise.
class LzwWriterRandom : public testing::TestWithParam<int> {
protected:
    std::mt19937 random{static_cast<unsigned>(GetParam())};
    int Draw(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }

    std::unique_ptr<Picture> NewPicture() {
        constexpr int kDepths[] = {1, 4, 8};
        auto picture = std::make_unique<Picture>(1 + Draw(200), 1 + Draw(200), kDepths[Draw(3)]);
        const int change = 1 + Draw(30);
        const int colors = 1 + Draw(256);
        int color = 0;
        picture->Fill([&](int) {
            if (Draw(change) == 0) color = Draw(colors);
            return color;
        });
        return picture;
    }
};

TEST_P(LzwWriterRandom, BytesAreThoseOfThePlainWriter) {
    for (int i = 0; i < 40; ++i) {
        const auto picture = NewPicture();
        if (Draw(8) == 0) picture->descriptor.Packed |= kGifInterlaced;
        ASSERT_EQ(Write(*picture), PlainLzwWriteImage(picture->image, picture->descriptor));
    }
}

TEST_P(LzwWriterRandom, EveryPixelComesBack) {
    for (int i = 0; i < 40; ++i) {
        const auto picture = NewPicture();
        GifFrame frame;
        ASSERT_EQ(DecodeImageData(Write(*picture), picture->Pixels(), &frame), "");
        std::size_t at = 0;
        for (int y = 0; y < picture->image->Height; ++y) {
            for (int x = 0; x < picture->image->Width; ++x) {
                ASSERT_EQ(frame.indexes[at++], GetDibPixel(picture->image, x, y));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, LzwWriterRandom, testing::Range(1, 6));

}  // namespace
}  // namespace tess::test
