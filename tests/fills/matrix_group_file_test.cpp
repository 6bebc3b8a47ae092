#include "fills/matrix_group_file.h"

#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "fills/matrix_group_format.h"
#include "platform/files.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"
#include "tests/support/random_pictures.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

namespace {

using platform::OwnedBlock;

class MatrixGroupFileTest : public ::testing::Test {
protected:
    [[nodiscard]] std::string Path() const { return folder_.File("some.mtx"); }

    void WriteBytes(const std::string& bytes) const {
        std::ofstream(Path(), std::ios::binary) << bytes;
    }
    [[nodiscard]] static std::string ReadBytes(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Writes a group of one-coloured pictures of a pixel.
    [[nodiscard]] int WriteGroup(const std::vector<ColorWord>& colors) const {
        std::vector<OwnedBlock> owners;
        std::vector<ImageHandle> elements;
        for (const ColorWord color : colors) {
            owners.emplace_back(ImageOf(1, {color}));
            elements.push_back(owners.back().Get());
        }
        return WriteMatrixGroup(Path(), elements);
    }

    /// The one pixel of an element, kNoPixel where there is none.
    [[nodiscard]] std::uint32_t PixelOfElement(int index) const {
        const OwnedBlock element(LoadMatrixElement(Path(), index));
        const std::vector<std::uint32_t> pixels = Pixels(element.Get());
        return pixels.empty() ? kNoPixel : pixels.front();
    }

    [[nodiscard]] GroupReading Read() const {
        MatrixGroup group;
        return ReadMatrixGroup(Path(), &group);
    }

    /// The bytes of a group of one element, made by hand from the layout.
    [[nodiscard]] static std::string HandMade(const std::string& magic, int count,
                                              const std::string& element_magic,
                                              std::uint32_t size) {
        const std::vector<std::uint8_t> block = TakeImageBytes(ImageOf(1, {0x123456}));
        std::string bytes = magic + std::string(1082 - 8, '\0');
        std::memcpy(bytes.data() + 818, &count, 4);
        bytes += element_magic + std::string(68, '\0');
        std::memcpy(bytes.data() + 1082 + 4, &size, 4);
        return bytes.append(block.begin(), block.end());
    }
    static constexpr std::uint32_t kPixelBlock = 44;  ///< of a picture of one pixel

    ScratchFolder folder_;
};

TEST_F(MatrixGroupFileTest, LaysTheHeadOutAsDocumented) {
    ASSERT_NE(WriteGroup({0x0000FF, 0xFF0000}), 0);
    const std::string bytes = ReadBytes(Path());
    ASSERT_GE(bytes.size(), 1082u);
    EXPECT_EQ(bytes.substr(0, 8), "QRVNMTXf");
    EXPECT_EQ(bytes.substr(12, 790), std::string(790, '\0'));
    EXPECT_EQ(bytes.substr(802, 12), std::string("\x10\0\0\0\0\0\0\0a\0\0\0", 12));
    EXPECT_EQ(bytes.substr(814, 12), std::string("\0\0\0\0\2\0\0\0\1\0\0\0", 12));
    EXPECT_EQ(bytes.substr(826, 256), std::string(256, '\0'));
}

TEST_F(MatrixGroupFileTest, LaysAnElementOutAsDocumented) {
    ASSERT_NE(WriteGroup({0x123456}), 0);
    const std::string bytes = ReadBytes(Path());
    ASSERT_GE(bytes.size(), 1082u + 72 + kPixelBlock);
    EXPECT_EQ(bytes.substr(1082, 4), "MTXi");
    std::uint32_t size = 0;
    std::memcpy(&size, bytes.data() + 1086, sizeof size);
    EXPECT_EQ(bytes.size(), 1082 + 72 + size);
    EXPECT_EQ(bytes.substr(1090, 64), std::string(64, '\0'));
    EXPECT_EQ(bytes.substr(1154, 4), std::string("\x28\0\0\0", 4));
    EXPECT_EQ(bytes.substr(1154 + 40, 3), "\x12\x34\x56");
}

TEST_F(MatrixGroupFileTest, ElementsReadBackInOrder) {
    ASSERT_NE(WriteGroup({1, 2, 3}), 0);
    EXPECT_EQ(PixelOfElement(0), 1u);
    EXPECT_EQ(PixelOfElement(1), 2u);
    EXPECT_EQ(PixelOfElement(2), 3u);
    EXPECT_EQ(PixelOfElement(3), kNoPixel);
    EXPECT_EQ(PixelOfElement(-1), kNoPixel);
}

TEST_F(MatrixGroupFileTest, PicturesOfAllDepthsReadBackWhole) {
    std::vector<OwnedBlock> owners;
    std::vector<ImageHandle> elements;
    for (const int bits : {1, 4, 8, 24, 32}) {
        owners.emplace_back(RandomPicture(13, 7, bits, 3));
        elements.push_back(owners.back().Get());
    }
    ASSERT_NE(WriteMatrixGroup(Path(), elements), 0);
    MatrixGroup group;
    ASSERT_EQ(ReadMatrixGroup(Path(), &group), GroupReading::Whole);
    ASSERT_EQ(group.Count(), 5);
    EXPECT_TRUE(group.IsWriteable);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(ImageBytes(group.Element(i)), ImageBytes(elements[static_cast<std::size_t>(i)]));
}

TEST_F(MatrixGroupFileTest, EmptyGroupReadsBackEmpty) {
    ASSERT_NE(WriteGroup({}), 0);
    EXPECT_EQ(Read(), GroupReading::Whole);
    EXPECT_EQ(PixelOfElement(0), kNoPixel);
}

TEST_F(MatrixGroupFileTest, NullElementsAreLeftOut) {
    const OwnedBlock picture(ImageOf(1, {9}));
    const ImageHandle elements[] = {nullptr, picture.Get(), nullptr};
    ASSERT_NE(WriteMatrixGroup(Path(), elements), 0);
    EXPECT_EQ(PixelOfElement(0), 9u);
    EXPECT_EQ(PixelOfElement(1), kNoPixel);
}

TEST_F(MatrixGroupFileTest, OldFileStaysAsItsBackup) {
    ASSERT_NE(WriteGroup({1}), 0);
    const std::string first = ReadBytes(Path());
    EXPECT_FALSE(platform::FileExists(Path() + ".bak"));
    ASSERT_NE(WriteGroup({2}), 0);
    EXPECT_EQ(ReadBytes(Path() + ".bak"), first);
    EXPECT_EQ(PixelOfElement(0), 2u);
    ASSERT_NE(WriteGroup({3}), 0);
    const OwnedBlock kept(LoadMatrixElement(Path() + ".bak", 0));
    EXPECT_EQ(Pixels(kept.Get()), std::vector<std::uint32_t>{2});
}

TEST_F(MatrixGroupFileTest, FolderThatIsNotThereFails) {
    const OwnedBlock picture(ImageOf(1, {9}));
    const ImageHandle elements[] = {picture.Get()};
    EXPECT_EQ(WriteMatrixGroup(folder_.File("none/some.mtx"), elements), 0);
}

TEST_F(MatrixGroupFileTest, MissingFileIsToldFromADamagedOne) {
    EXPECT_EQ(Read(), GroupReading::Missing);
    EXPECT_EQ(PixelOfElement(0), kNoPixel);
    WriteBytes("");
    EXPECT_EQ(Read(), GroupReading::Damaged);
}

TEST_F(MatrixGroupFileTest, HandMadeFileReads) {
    WriteBytes(HandMade("QRVNMTXf", 1, "MTXi", kPixelBlock));
    EXPECT_EQ(Read(), GroupReading::Whole);
    EXPECT_EQ(PixelOfElement(0), 0x123456u);
}

TEST_F(MatrixGroupFileTest, ZeroAtOffset822IsNotWriteable) {
    WriteBytes(HandMade("QRVNMTXf", 1, "MTXi", kPixelBlock));
    MatrixGroup group;
    ASSERT_EQ(ReadMatrixGroup(Path(), &group), GroupReading::Whole);
    EXPECT_FALSE(group.IsWriteable);
}

TEST_F(MatrixGroupFileTest, WrongMagicIsDamaged) {
    WriteBytes(HandMade("QRVNMTXg", 1, "MTXi", kPixelBlock));
    EXPECT_EQ(Read(), GroupReading::Damaged);
    EXPECT_EQ(PixelOfElement(0), kNoPixel);
}

TEST_F(MatrixGroupFileTest, CountBelowOneHasNoElements) {
    for (const int count : {0, -1, -2147483647}) {
        WriteBytes(HandMade("QRVNMTXf", count, "MTXi", kPixelBlock));
        EXPECT_EQ(Read(), GroupReading::Whole);
        EXPECT_EQ(PixelOfElement(0), kNoPixel);
    }
}

TEST_F(MatrixGroupFileTest, CountThatLiesIsDamaged) {
    WriteBytes(HandMade("QRVNMTXf", 0x7FFFFFFF, "MTXi", kPixelBlock));
    EXPECT_EQ(Read(), GroupReading::Damaged);
    EXPECT_EQ(PixelOfElement(0), 0x123456u);
    EXPECT_EQ(PixelOfElement(5), kNoPixel);
}

TEST_F(MatrixGroupFileTest, HeadOfAnotherKindIsPassedOverAndCounts) {
    const std::string other = HandMade("QRVNMTXf", 2, "ABCD", kPixelBlock);
    WriteBytes(other + HandMade("QRVNMTXf", 1, "MTXi", kPixelBlock).substr(1082));
    MatrixGroup group;
    ASSERT_EQ(ReadMatrixGroup(Path(), &group), GroupReading::Whole);
    EXPECT_EQ(group.Count(), 1);
    EXPECT_EQ(PixelOfElement(0), kNoPixel);
    EXPECT_EQ(PixelOfElement(1), 0x123456u);
}

TEST_F(MatrixGroupFileTest, BlockSizesThatLieAreDamagedAndTakeNoMemory) {
    for (const std::uint32_t size : {0u, 39u, 43u, 45u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        WriteBytes(HandMade("QRVNMTXf", 1, "MTXi", size));
        platform::ResetPeakMemory();
        const std::size_t before = platform::CurrentMemoryUse().live_bytes;
        EXPECT_EQ(Read(), GroupReading::Damaged) << size;
        EXPECT_EQ(PixelOfElement(0), kNoPixel) << size;
        EXPECT_LT(platform::CurrentMemoryUse().peak_bytes - before, 1000u) << size;
    }
}

TEST_F(MatrixGroupFileTest, SkippedSizesThatLieAreDamaged) {
    WriteBytes(HandMade("QRVNMTXf", 2, "ABCD", 0xFFFFFFFFu));
    EXPECT_EQ(Read(), GroupReading::Damaged);
    EXPECT_EQ(PixelOfElement(1), kNoPixel);
}

TEST_F(MatrixGroupFileTest, CutAtEveryByteIsDamaged) {
    ASSERT_NE(WriteGroup({1, 2}), 0);
    const std::string bytes = ReadBytes(Path());
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        WriteBytes(bytes.substr(0, size));
        ASSERT_EQ(Read(), GroupReading::Damaged) << size;
        ASSERT_EQ(PixelOfElement(1), kNoPixel) << size;
    }
}

TEST_F(MatrixGroupFileTest, ChangedBytesGiveWholePicturesOrNone) {
    std::vector<OwnedBlock> owners;
    std::vector<ImageHandle> elements;
    for (const int bits : {8, 24}) {
        owners.emplace_back(RandomPicture(5, 4, bits, 3));
        elements.push_back(owners.back().Get());
    }
    ASSERT_NE(WriteMatrixGroup(Path(), elements), 0);
    const std::string bytes = ReadBytes(Path());
    std::mt19937 random(11);
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    for (int i = 0; i < 2000; ++i) {
        std::string changed = bytes;
        // Where the heads of the file, the elements and the pictures are, for the most part.
        const std::size_t starts[] = {0, 802, 1082, 1154, random() % bytes.size()};
        for (int change = 0; change < 3; ++change) {
            const std::size_t place = starts[random() % 5] + random() % 40;
            if (place < changed.size()) changed[place] = static_cast<char>(random());
        }
        WriteBytes(changed);
        MatrixGroup group;
        static_cast<void>(ReadMatrixGroup(Path(), &group));
        for (int element = 0; element < group.Count(); ++element)
            Pixels(group.Element(element));  // reads every pixel that the head tells of
        const OwnedBlock one(LoadMatrixElement(Path(), 1));
        Pixels(one.Get());
    }
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

TEST_F(MatrixGroupFileTest, RandomBytesBehindTheMagicAreNoGroup) {
    std::mt19937 random(5);
    for (int i = 0; i < 300; ++i) {
        std::string bytes = "QRVNMTXf";
        const std::size_t size = random() % 3000;
        while (bytes.size() < size)
            bytes += static_cast<char>(random());
        WriteBytes(bytes);
        MatrixGroup group;
        static_cast<void>(ReadMatrixGroup(Path(), &group));
        EXPECT_EQ(group.Count(), 0);
    }
}

TEST_F(MatrixGroupFileTest, LackOfMemoryFailsCleanly) {
    ASSERT_NE(WriteGroup({1, 2, 3}), 0);
    EXPECT_GE(FailEachAllocation([this] { return Read() == GroupReading::Whole; }), 4u);
    EXPECT_EQ(FailEachAllocation([this] { return PixelOfElement(2) == 3; }), 1u);
}

}  // namespace

}  // namespace tess::test
