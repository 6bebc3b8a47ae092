#include "programs/cli/picture_file.h"

#include <gtest/gtest.h>

#include "host/bmp_file.h"
#include "host/png_file.h"
#include "tests/programs/program_run.h"
#include "tests/support/random_pictures.h"

namespace tess {
namespace {

class PictureFileTest : public ::testing::Test {
protected:
    platform::OwnedBlock Read(const std::string& name) {
        return platform::OwnedBlock(ReadPicture(folder_.File(name), &error_));
    }
    // The picture in a text PPM.
    platform::OwnedBlock ReadText(const std::string& text) {
        folder_.Write("a.ppm", text);
        return Read("a.ppm");
    }

    test::ProgramFolder folder_;
    std::string error_;
};

TEST_F(PictureFileTest, PngReadsBackAsItWasWritten) {
    const platform::OwnedBlock picture(test::RandomPicture(13, 7, 24, 1));
    ASSERT_EQ(WritePng(picture.Get(), folder_.File("a.png")), FileResult::Written);
    EXPECT_EQ(test::Difference(Read("a.png").Get(), picture.Get()), "") << error_;
}

TEST_F(PictureFileTest, TrueColorBmpReadsBackAsItWasWritten) {
    const platform::OwnedBlock picture(test::RandomPicture(13, 7, 24, 2));
    ASSERT_EQ(WriteBmpFile(picture.Get(), folder_.File("a.bmp")), FileResult::Written);
    EXPECT_EQ(test::Difference(Read("a.bmp").Get(), picture.Get()), "") << error_;
}

TEST_F(PictureFileTest, IndexedBmpReadsAsTheColorsOfItsTable) {
    for (const int bits : {1, 4, 8}) {
        const platform::OwnedBlock picture(test::RandomPicture(11, 5, bits, 3));
        ASSERT_EQ(WriteBmpFile(picture.Get(), folder_.File("a.bmp")), FileResult::Written);
        const platform::OwnedBlock read = Read("a.bmp");
        const LockedImage indexed(picture.Get()), image(read.Get());
        ASSERT_TRUE(image) << error_;
        std::uint8_t table[kPaletteBytes];
        ReadColorTable(indexed, table);
        for (int x = 0; x < 11; ++x) {
            const std::uint8_t* color = table + 3 * GetDibPixel(indexed, x, 2);
            EXPECT_EQ(GetDibPixel(image, x, 2), MakeColor(color[0], color[1], color[2]));
        }
    }
}

TEST_F(PictureFileTest, PpmOfBothFormsHasRedFirst) {
    const platform::OwnedBlock text = ReadText("P3 # two pixels\n2 1\n255\n1 2 3  4 5 6\n");
    EXPECT_EQ(GetDibPixel(LockedImage(text.Get()), 1, 0), MakeColor(4, 5, 6));
    const platform::OwnedBlock binary = ReadText("P6 2 1 255\nabcdef");
    EXPECT_EQ(GetDibPixel(LockedImage(binary.Get()), 0, 0), MakeColor('a', 'b', 'c'));
}

TEST_F(PictureFileTest, PpmSamplesAreScaledToEightBits) {
    const platform::OwnedBlock picture = ReadText("P3 1 1 15 15 7 0");
    EXPECT_EQ(GetDibPixel(LockedImage(picture.Get()), 0, 0), MakeColor(255, 119, 0));
}

TEST_F(PictureFileTest, EveryTruncationIsRefusedWithAReason) {
    const platform::OwnedBlock picture(test::RandomPicture(3, 3, 8, 4));
    ASSERT_EQ(WriteBmpFile(picture.Get(), folder_.File("a.bmp")), FileResult::Written);
    const auto bytes = folder_.Bytes("a.bmp");
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        folder_.Write("cut", std::string(bytes.begin(), bytes.begin() + static_cast<long>(size)));
        EXPECT_FALSE(Read("cut")) << size;
        EXPECT_FALSE(error_.empty()) << size;
    }
}

TEST_F(PictureFileTest, TruncatedPngIsRefused) {
    const platform::OwnedBlock picture(test::RandomPicture(9, 9, 24, 5));
    ASSERT_EQ(WritePng(picture.Get(), folder_.File("a.png")), FileResult::Written);
    const auto bytes = folder_.Bytes("a.png");
    for (const std::size_t size : {std::size_t{8}, std::size_t{40}, bytes.size() / 2}) {
        folder_.Write("cut", std::string(bytes.begin(), bytes.begin() + static_cast<long>(size)));
        EXPECT_FALSE(Read("cut")) << size;
    }
}

TEST_F(PictureFileTest, BmpOfAnotherKindIsToldAsSuch) {
    const platform::OwnedBlock picture(test::RandomPicture(3, 3, 24, 4));
    ASSERT_EQ(WriteBmpFile(picture.Get(), folder_.File("a.bmp")), FileResult::Written);
    const std::string whole = folder_.Text("a.bmp");
    constexpr std::size_t kHeaderSize = 14, kBits = 28, kCompression = 30;
    for (const auto& [place, value] : {std::pair{kHeaderSize, 12}, std::pair{kHeaderSize, 16},
                                       std::pair{kBits, 16}, std::pair{kCompression, 1}}) {
        std::string other = whole;
        other[place] = static_cast<char>(value);
        folder_.Write("a.bmp", other);
        EXPECT_FALSE(Read("a.bmp"));
        EXPECT_NE(error_.find("of a kind that is not supported"), std::string::npos) << error_;
    }
}

TEST_F(PictureFileTest, WhatCannotBeReadIsToldWithTheReason) {
    EXPECT_FALSE(Read("none.png"));
    EXPECT_EQ(error_, "cannot be read: No such file or directory");
    EXPECT_FALSE(Read("."));
    EXPECT_EQ(error_, "cannot be read: Is a directory");
}

TEST_F(PictureFileTest, DamagedHeadsAreRefused) {
    for (const char* text :
         {"P6", "P3 0 1 255", "P3 1 1 0 0 0 0", "P3 1 1 255 1 2 256", "P3 99999999999 1 255",
          "P6 65536 65536 255\n", "GIF89a", "P6 1 1 255\n"}) {
        EXPECT_FALSE(ReadText(text)) << text;
        EXPECT_FALSE(error_.empty()) << text;
    }
}

TEST_F(PictureFileTest, PipeIsToldAndNotTakenFrom) {
    folder_.Write("a.ppm", "P3 1 1 255  255 0 0");
    const test::ProgramRun run =
        folder_.Run("encode /dev/stdin -o a.gif; cat >rest; }", "cat a.ppm | {");
    EXPECT_EQ(run.errors,
              "tessellomatics: /dev/stdin: cannot be read: it is a pipe, and a file is needed\n");
    EXPECT_EQ(folder_.Text("rest"), folder_.Text("a.ppm"));
}

}  // namespace
}  // namespace tess
