#include "pipeline/image_buffers.h"

#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"

namespace tess {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::size_t LiveBlocks() {
    return platform::CurrentMemoryUse().live_blocks;
}

/// A picture that is locked for the time of a test.
struct Picture {
    Picture(int width, int height, int depth, const std::uint8_t* palette = nullptr)
        : block(NewPackedDib(width, height, palette, depth)), image(block.Get()) {}
    PackedDib* operator->() const { return image.Get(); }
    operator PackedDib*() const { return image.Get(); }

    platform::OwnedBlock block;
    LockedImage image;
};

TEST(NewPackedDib, FillsTheHeaderByteForByte) {
    const Picture picture(5, 3, 24);
    const Bytes head = {40, 0, 0,  0, 5, 0, 0, 0, 3,      0, 0, 0,
                        1,  0, 24, 0, 0, 0, 0, 0, 3 * 16, 0, 0, 0};
    Bytes expected = head;
    expected.resize(40 + 3 * 16);
    EXPECT_EQ(ImageBytes(picture.block.Get()), expected);
}

struct Layout {
    int depth;
    int bits;
    std::uint32_t colors;
};

TEST(NewPackedDib, DepthChoosesTheLayout) {
    for (const Layout& layout : {Layout{0, 32, 0},
                                 {1, 1, 2},
                                 {2, 4, 16},
                                 {3, 4, 16},
                                 {4, 4, 16},
                                 {5, 8, 256},
                                 {6, 8, 256},
                                 {7, 8, 256},
                                 {8, 8, 256},
                                 {9, 24, 0},
                                 {24, 24, 0},
                                 {25, 32, 0},
                                 {32, 32, 0}}) {
        const Picture picture(1, 1, layout.depth);
        EXPECT_EQ(picture->BitCount, layout.bits) << layout.depth;
        EXPECT_EQ(picture->ColorsUsed, layout.colors) << layout.depth;
        EXPECT_EQ(picture->ColorsImportant, layout.colors) << layout.depth;
    }
}

TEST(NewPackedDib, RowsAreWholeWords) {
    EXPECT_EQ(Picture(33, 2, 1)->ImageSize, 2 * 8U);
    EXPECT_EQ(Picture(9, 2, 4)->ImageSize, 2 * 8U);
    EXPECT_EQ(Picture(5, 2, 8)->ImageSize, 2 * 8U);
    EXPECT_EQ(Picture(3, 2, 24)->ImageSize, 2 * 12U);
    EXPECT_EQ(Picture(3, 2, 32)->ImageSize, 2 * 12U);
}

TEST(NewPackedDib, TableIsBlueGreenRedZero) {
    const std::uint8_t palette[] = {1, 2, 3, 4, 5, 6};
    const Picture picture(1, 1, 1, palette);
    EXPECT_EQ(Bytes(DibColorTable(picture), DibColorTable(picture) + 8),
              (Bytes{3, 2, 1, 0, 6, 5, 4, 0}));
}

TEST(NewPackedDib, DepthOfSixHasAllTableEntriesFilled) {
    std::array<std::uint8_t, kPaletteBytes> palette;
    palette.fill(9);
    const Picture picture(1, 1, 6, palette.data());
    std::array<std::uint8_t, kPaletteBytes> read{};
    ReadColorTable(picture, read.data());
    EXPECT_EQ(read, palette);
    EXPECT_EQ(picture->ColorsUsed, 256U);
}

TEST(NewPackedDib, ImpossibleSizesAreNull) {
    EXPECT_EQ(NewPackedDib(-1, 4, nullptr, 24), nullptr);
    EXPECT_EQ(NewPackedDib(4, -1, nullptr, 24), nullptr);
    EXPECT_EQ(NewPackedDib(1 << 20, 1 << 20, nullptr, 24), nullptr);
    EXPECT_EQ(NewPackedDib(2147483647, 2147483647, nullptr, 32), nullptr);
}

TEST(NewPackedDib, MissingMemoryIsNull) {
    EXPECT_EQ(
        FailEachAllocation([] { return !TakeImageBytes(NewPackedDib(4, 4, nullptr, 8)).empty(); }),
        1U);
}

TEST(ReadColorTable, ClearsWhatTheTableDoesNotHold) {
    const std::uint8_t two[] = {1, 2, 3, 4, 5, 6};
    const Picture picture(1, 1, 1, two);
    std::array<std::uint8_t, kPaletteBytes> read;
    read.fill(7);
    ReadColorTable(picture, read.data());
    EXPECT_EQ(Bytes(read.begin(), read.begin() + 8), (Bytes{1, 2, 3, 4, 5, 6, 0, 0}));
    EXPECT_EQ(read[767], 0);
}

TEST(DuplicateImage, CopiesAnyBlock) {
    const platform::OwnedBlock block(platform::AllocateBlock(5));
    std::memcpy(platform::LockedBlock<char>(block.Get()).Get(), "tile", 5);
    const platform::OwnedBlock copy(DuplicateImage(block.Get()));
    EXPECT_NE(copy.Get(), block.Get());
    EXPECT_EQ(platform::BlockSize(copy.Get()), platform::BlockSize(block.Get()));
    EXPECT_STREQ(platform::LockedBlock<char>(copy.Get()).Get(), "tile");
}

TEST(DuplicateImage, NothingToCopyIsNull) {
    EXPECT_EQ(DuplicateImage(nullptr), nullptr);
    const platform::OwnedBlock empty(platform::AllocateBlock(0));
    const platform::OwnedBlock copy(DuplicateImage(empty.Get()));
    EXPECT_EQ(copy.Get() == nullptr, platform::BlockSize(empty.Get()) < 1);
}

TEST(DuplicateImage, MissingMemoryIsNull) {
    const Picture picture(4, 4, 24);
    const auto duplicate = [&] {
        return !TakeImageBytes(DuplicateImage(picture.block.Get())).empty();
    };
    EXPECT_EQ(FailEachAllocation(duplicate), 1U);
}

class EveryDepth : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Pixels, EveryDepth, testing::Values(0, 1, 4, 8, 24));

TEST_P(EveryDepth, PlacesOutsideAnswerMinusOne) {
    const Picture picture(3, 2, GetParam());
    for (const auto& [x, y] :
         {std::array{0, 2}, {0, -1}, {3, 0}, {-1, 0}, {-2147483647, 2147483647}}) {
        EXPECT_EQ(GetDibPixel(picture, x, y), 0xFFFFFFFFU) << x << ", " << y;
    }
}

TEST_P(EveryDepth, StoresOutsideChangeNothing) {
    const Picture picture(3, 2, GetParam());
    const Bytes before = ImageBytes(picture.block.Get());
    for (const auto& [x, y] :
         {std::array{0, 2}, {0, -1}, {3, 0}, {-1, 0}, {-2147483647, 2147483647}}) {
        SetDibPixel(picture, x, y, 0xFFFFFFFF);
    }
    EXPECT_EQ(ImageBytes(picture.block.Get()), before);
}

TEST_P(EveryDepth, PixelsAreReadBackAsTheyWereStored) {
    const Picture picture(11, 3, GetParam());
    const int bits = picture->BitCount;
    const std::uint32_t kept = bits == 32 ? 0xFFFFFFFF : (1U << bits) - 1;
    const auto value = [kept](int x, int y) {
        return (static_cast<std::uint32_t>(x * 3 + y + 1) * 2654435761U >> 3) & kept;
    };
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 11; ++x)
            SetDibPixel(picture, x, y, value(x, y));
    }
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 11; ++x)
            EXPECT_EQ(GetDibPixel(picture, x, y), value(x, y));
    }
}

TEST_P(EveryDepth, TopRowIsTheLastInMemory) {
    const Picture picture(1, 2, GetParam());
    SetDibPixel(picture, 0, 0, 0xFFFFFFFF);
    const Bytes bytes = ImageBytes(picture.block.Get());
    EXPECT_EQ(bytes[bytes.size() - 8], 0);
    EXPECT_NE(bytes[bytes.size() - 4], 0);
    EXPECT_EQ(DibRow(picture, 0) - DibRow(picture, 1), 4);
}

TEST(DibPixel, TrueColorIsBlueGreenRedInMemory) {
    const Picture picture(1, 1, 24);
    SetDibPixel(picture, 0, 0, 0xAA332211);
    const std::uint8_t* row = DibRow(picture, 0);
    EXPECT_EQ(Bytes(row, row + 4), (Bytes{0x33, 0x22, 0x11, 0}));
    EXPECT_EQ(GetDibPixel(picture, 0, 0), 0x332211U);
}

TEST(DibPixel, AlphaIsTheFourthByte) {
    const Picture picture(1, 1, 32);
    SetDibPixel(picture, 0, 0, 0xAA332211);
    const std::uint8_t* row = DibRow(picture, 0);
    EXPECT_EQ(Bytes(row, row + 4), (Bytes{0x33, 0x22, 0x11, 0xAA}));
    EXPECT_EQ(GetDibPixel(picture, 0, 0), 0xAA332211U);
}

TEST(DibPixel, LeftmostOfOneBitIsTheHighestBit) {
    const Picture picture(10, 1, 1);
    SetDibPixel(picture, 0, 0, 3);
    SetDibPixel(picture, 9, 0, 1);
    EXPECT_EQ(DibRow(picture, 0)[0], 0x80);
    EXPECT_EQ(DibRow(picture, 0)[1], 0x40);
    SetDibPixel(picture, 0, 0, 2);  // only bit 0 counts
    EXPECT_EQ(DibRow(picture, 0)[0], 0);
}

TEST(DibPixel, EvenPlacesOfFourBitsAreHighNibbles) {
    const Picture picture(2, 1, 4);
    SetDibPixel(picture, 0, 0, 0x1A);
    SetDibPixel(picture, 1, 0, 0xFB);
    EXPECT_EQ(DibRow(picture, 0)[0], 0xAB);
    SetDibPixel(picture, 0, 0, 5);
    EXPECT_EQ(DibRow(picture, 0)[0], 0x5B);
}

TEST(DibPixel, EightBitsKeepTheLowByte) {
    const Picture picture(1, 1, 8);
    SetDibPixel(picture, 0, 0, 0x1234);
    EXPECT_EQ(GetDibPixel(picture, 0, 0), 0x34U);
}

TEST(DibPixel, UnknownBitCountsAreIgnored) {
    const Picture picture(1, 1, 24);
    picture->BitCount = 16;
    SetDibPixel(picture, 0, 0, 0xFFFF);
    EXPECT_EQ(GetDibPixel(picture, 0, 0), kNoPixel);
    picture->BitCount = 24;
    EXPECT_EQ(GetDibPixel(picture, 0, 0), 0U);
}

TEST(DibCanvas, OpensBlackWithItsBounds) {
    DibCanvas canvas;
    ASSERT_EQ(DibCanvasOpen(3, 2, &canvas), 1);
    EXPECT_EQ(canvas.Bounds.right, 3);
    EXPECT_EQ(canvas.Bounds.bottom, 2);
    EXPECT_EQ(canvas.MemoryDC.surface.bits, canvas.Bits);
    EXPECT_EQ(canvas.MemoryDC.surface.stride, 12);
    EXPECT_EQ(canvas.Header->BitCount, 24);
    EXPECT_EQ(Bytes(canvas.Bits, canvas.Bits + 24), Bytes(24));
    DibCanvasClose(&canvas, CanvasClose::Discard);
}

TEST(DibCanvas, DrawingReachesTheBlockOnClose) {
    DibCanvas canvas;
    ASSERT_EQ(DibCanvasOpen(1, 1, &canvas), 1);
    canvas.Bits[2] = 0x11;
    EXPECT_EQ(GetDibPixel(canvas.Header, 0, 0), 0U);
    const platform::OwnedBlock picture(DibCanvasClose(&canvas, CanvasClose::Keep));
    EXPECT_EQ(canvas.Block, picture.Get());
    EXPECT_EQ(Pixels(picture.Get()), (std::vector<std::uint32_t>{0x11}));
}

TEST(DibCanvas, DiscardLeavesNothing) {
    const std::size_t blocks = LiveBlocks();
    DibCanvas canvas;
    ASSERT_EQ(DibCanvasOpen(4, 4, &canvas), 1);
    EXPECT_EQ(DibCanvasClose(&canvas, CanvasClose::Discard), nullptr);
    EXPECT_EQ(canvas.Block, nullptr);
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST(DibCanvas, FailedDrawingGivesNoPicture) {
    const std::size_t blocks = LiveBlocks();
    DibCanvas canvas;
    ASSERT_EQ(DibCanvasOpen(4, 4, &canvas), 1);
    canvas.MemoryDC.failed = true;
    EXPECT_EQ(DibCanvasClose(&canvas, CanvasClose::Keep), nullptr);
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST(DibCanvas, EachFailureOfOpenIsUndone) {
    const auto open = [] {
        DibCanvas canvas;
        const int opened = DibCanvasOpen(4, 4, &canvas);
        EXPECT_EQ(canvas.Block != nullptr, opened != 0);
        DibCanvasClose(&canvas, CanvasClose::Discard);  // harmless after a failure
        return opened != 0;
    };
    EXPECT_EQ(FailEachAllocation(open), 2U);
}

TEST(DibCanvas, ClosingAgainKeepsThePicture) {
    DibCanvas canvas;
    ASSERT_EQ(DibCanvasOpen(1, 1, &canvas), 1);
    const platform::OwnedBlock picture(DibCanvasClose(&canvas, CanvasClose::Keep));
    EXPECT_EQ(DibCanvasClose(&canvas, CanvasClose::Keep), picture.Get());
    EXPECT_EQ(Pixels(picture.Get()).size(), 1U);
}

TEST(DibCanvas, ImpossibleSizeFails) {
    DibCanvas canvas;
    EXPECT_EQ(DibCanvasOpen(-1, 1, &canvas), 0);
    EXPECT_EQ(canvas.Block, nullptr);
}

/// Paints on a canvas of 2 x 2 and returns its pixels.
std::vector<std::uint32_t> Painted(int x, int y, ImageHandle image) {
    DibCanvas canvas;
    if (DibCanvasOpen(2, 2, &canvas) == 0) return {};
    PaintDib(canvas.MemoryDC, x, y, image);
    const platform::OwnedBlock picture(DibCanvasClose(&canvas, CanvasClose::Keep));
    return Pixels(picture.Get());
}

TEST(PaintDib, DrawsAtItsOwnSize) {
    const platform::OwnedBlock image(ImageOf(2, {1, 2, 3, 4}));
    EXPECT_EQ(Painted(0, 0, image.Get()), (std::vector<std::uint32_t>{1, 2, 3, 4}));
}

TEST(PaintDib, IsClippedOnEverySide) {
    const platform::OwnedBlock image(ImageOf(2, {1, 2, 3, 4}));
    EXPECT_EQ(Painted(1, 1, image.Get()), (std::vector<std::uint32_t>{0, 0, 0, 1}));
    EXPECT_EQ(Painted(-1, -1, image.Get()), (std::vector<std::uint32_t>{4, 0, 0, 0}));
    EXPECT_EQ(Painted(-1, 1, image.Get()), (std::vector<std::uint32_t>{0, 0, 2, 0}));
    EXPECT_EQ(Painted(2, 0, image.Get()), (std::vector<std::uint32_t>(4)));
    EXPECT_EQ(Painted(-2147483647, 2147483647, image.Get()), (std::vector<std::uint32_t>(4)));
}

TEST(PaintDib, TakesIndexesThroughTheTable) {
    const std::uint8_t palette[48] = {0, 0, 0, 1, 2, 3, 4, 5, 6};
    const platform::OwnedBlock image(ImageOf(2, {0, 1, 2, 1}, 4, palette));
    EXPECT_EQ(Painted(0, 0, image.Get()),
              (std::vector<std::uint32_t>{0, 0x030201, 0x060504, 0x030201}));
}

TEST(PaintDib, NullPaintsNothing) {
    EXPECT_EQ(Painted(0, 0, nullptr), (std::vector<std::uint32_t>(4)));
}

FrameRecord RecordWithBlocks(std::uint32_t delay) {
    return {NewPackedDib(1, 1, nullptr, 24), NewPackedDib(1, 1, nullptr, 1), delay, -1};
}

TEST(FrameList, KeepsWholeRecordsInOrder) {
    FrameList list{};
    FrameRecord records[3];
    for (std::uint32_t i = 0; i < 3; ++i) {
        records[i] = RecordWithBlocks(i + 5);
        EXPECT_EQ(FrameListAdd(&list, &records[i]), 1);
    }
    EXPECT_EQ(list.Count, 3);
    {
        const platform::LockedBlock<FrameRecord> kept(list.Records);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(kept.Get()[i].Image, records[i].Image);
            EXPECT_EQ(kept.Get()[i].Mask, records[i].Mask);
            EXPECT_EQ(kept.Get()[i].Delay, i + 5);
            EXPECT_EQ(kept.Get()[i].TransparentIndex, -1);
        }
    }
    FrameListFree(&list);
}

TEST(FrameList, FreeTakesPicturesAndMasks) {
    const std::size_t blocks = LiveBlocks();
    FrameList list{};
    for (std::uint32_t i = 0; i < 3; ++i) {
        FrameRecord record = RecordWithBlocks(i);
        if (i == 1) platform::FreeBlock(std::exchange(record.Mask, nullptr));
        ASSERT_EQ(FrameListAdd(&list, &record), 1);
    }
    EXPECT_EQ(FrameListFree(&list), 1);
    EXPECT_EQ(list.Records, nullptr);
    EXPECT_EQ(list.Count, 0);
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST(FrameList, FreeOfAnEmptyListIsHarmless) {
    FrameList list{};
    EXPECT_EQ(FrameListFree(&list), 1);
}

TEST(FrameList, FailedAddLeavesListAndRecord) {
    FrameList list{};
    FrameRecord record = RecordWithBlocks(1);
    platform::FailAllocation(1);
    EXPECT_EQ(FrameListAdd(&list, &record), 0);
    EXPECT_EQ(list.Records, nullptr);
    ASSERT_EQ(FrameListAdd(&list, &record), 1);
    const platform::MemoryHandle before = list.Records;
    FrameRecord second = RecordWithBlocks(2);
    platform::FailAllocation(1);
    EXPECT_EQ(FrameListAdd(&list, &second), 0);
    EXPECT_EQ(list.Records, before);
    EXPECT_EQ(list.Count, 1);
    EXPECT_EQ(Pixels(second.Image).size(), 1U);
    platform::FreeBlock(second.Image);
    platform::FreeBlock(second.Mask);
    FrameListFree(&list);
}

}  // namespace
}  // namespace tess
