#include "fills/texture_group_file.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

#include "tests/support/random_textures.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

namespace {

struct Entry {
    std::string name;
    TextureItem item;
};

std::string Lines(std::initializer_list<const char*> lines, const char* end = "\n") {
    std::string text;
    for (const char* line : lines)
        text += std::string(line) + end;
    return text;
}

class TextureGroupFileTest : public ::testing::Test {
protected:
    void WriteFile(std::string_view bytes) const {
        std::FILE* stream = platform::OpenFile(Path(), "wb");
        ASSERT_NE(stream, nullptr);
        std::fwrite(bytes.data(), 1, bytes.size(), stream);
        std::fclose(stream);
    }
    static std::string FileText(const std::string& path) {
        std::string text;
        std::FILE* stream = platform::OpenFile(path, "rb");
        if (stream == nullptr) return "missing";
        for (int c = std::getc(stream); c != EOF; c = std::getc(stream)) {
            if (c != '\r') text += static_cast<char>(c);
        }
        std::fclose(stream);
        return text;
    }
    /// The items of the file; nothing for one that is no group.
    std::vector<Entry> Read() const {
        TextureGroupReader reader(Path());
        std::vector<Entry> entries;
        Entry entry;
        while (reader.Next(&entry.name, &entry.item))
            entries.push_back(entry);
        return entries;
    }
    /// The one item of a file with these lines in its block.
    TextureItem ReadItem(std::initializer_list<const char*> lines) const {
        WriteFile(Lines({kTextureGroupBanner, ":BEGINITEM"}) + Lines(lines) + ":ENDITEM\n");
        const std::vector<Entry> entries = Read();
        EXPECT_EQ(entries.size(), 1u);
        return entries.empty() ? TextureItem{} : entries[0].item;
    }
    float PowerReadFrom(const std::string& value) const {
        return ReadItem({("Power1=" + value).c_str()}).Power[0];
    }
    void Write(const std::vector<Entry>& entries) const {
        TextureGroupWriter writer(Path(), static_cast<int>(entries.size()));
        ASSERT_TRUE(writer);
        for (const Entry& entry : entries)
            writer.Add(entry.name, entry.item);
        ASSERT_NE(writer.Commit(), 0);
    }
    [[nodiscard]] std::string Path() const { return folder_.File("group.fft"); }
    [[nodiscard]] std::string Backup() const { return Path() + ".bak"; }

private:
    ScratchFolder folder_;
};

TEST_F(TextureGroupFileTest, IsWrittenLineForLine) {
    Write({{"Clouds", DefaultTexture(0, 0, 0)}});
    std::string text = FileText(Path());
    const std::size_t date = text.find("UpdateTimeDate=");
    ASSERT_NE(date, std::string::npos);
    text.replace(date + 15, 24, "DATE");
    EXPECT_EQ(text, Lines({"QUORVENSTADTHOLME L-GRAIN TEXTURE FILE",
                           ";This is a machine-generated text file. If you edit it by hand, you",
                           ";run the very real and tangible risk of causing all time and space to",
                           ";implode upon itself and bring about the extinction of reality as we",
                           ";know it. Think carefully...",
                           "Version=16.0a",
                           "Itemcount=1",
                           "Writeable=1",
                           "UpdateTimeDate=DATE",
                           ";Items begin",
                           ":BEGINITEM",
                           "TextureName=Clouds",
                           "Power1=0.750000",
                           "Power2=0.750000",
                           "Power3=0.750000",
                           "Power4=0.750000",
                           "Power5=0.750000",
                           "SeedValue1=10000",
                           "SeedValue2=10001",
                           "SeedValue3=10002",
                           "SeedValue4=10003",
                           "SeedValue5=10004",
                           "Dimension1=2.150000",
                           "Dimension2=2.150000",
                           "Dimension3=2.150000",
                           "Dimension4=2.150000",
                           "Dimension5=2.150000",
                           "MatrixSize=64",
                           "TextureType=0",
                           "ForeColour1=16777215",
                           "ForeColour2=16769248",
                           "ForeColour3=16752800",
                           "ForeColour4=16744576",
                           "ForeColour5=16736352",
                           "BackColour=16711680",
                           "CreaterCount=5000",
                           "CreaterDepth=1.500000",
                           "ColorRed0=0.000000",
                           "ColorRed1=0.330000",
                           "ColorRed2=0.670000",
                           "ColorRed3=1.000000",
                           "ColorGreen0=0.000000",
                           "ColorGreen1=0.330000",
                           "ColorGreen2=0.670000",
                           "ColorGreen3=1.000000",
                           "ColorBlue0=0.000000",
                           "ColorBlue1=0.330000",
                           "ColorBlue2=0.670000",
                           "ColorBlue3=1.000000",
                           "BubbleCount=64",
                           "BubbleSize=4",
                           "BubblePower=0.250000",
                           "BubbleShape=0",
                           "PerturbationPower=1.000000",
                           ":ENDITEM",
                           ";Items end -- beyond this point be dragons."}));
}

TEST_F(TextureGroupFileTest, ItemsOfTheDialogComeBackAsTheyWere) {
    TextureDraws draws(3);
    std::vector<Entry> written;
    for (int i = 0; i < 50; ++i)
        written.push_back({"Item " + std::to_string(i), RandomTexture(draws, i % 6, 0, 0, 1024)});
    Write(written);
    const std::vector<Entry> read = Read();
    ASSERT_EQ(read.size(), written.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        EXPECT_EQ(read[i].name, written[i].name);
        EXPECT_EQ(std::memcmp(&read[i].item, &written[i].item, sizeof(TextureItem)), 0) << i;
    }
}

TEST_F(TextureGroupFileTest, GroupOfNoItemsIsAnEmptyFileAndThatIsNoGroup) {
    Write({});
    EXPECT_EQ(FileText(Path()), "");
    EXPECT_FALSE(TextureGroupReader(Path()));
}

TEST_F(TextureGroupFileTest, BackupKeepsTheFileBefore) {
    WriteFile("first");
    Write({{"Second", DefaultTexture(0, 0, 0)}});
    EXPECT_EQ(FileText(Backup()), "first");
    const std::string second = FileText(Path());
    Write({{"Third", DefaultTexture(0, 0, 0)}});
    EXPECT_EQ(FileText(Backup()), second);
}

TEST_F(TextureGroupFileTest, NewGroupHasNoBackup) {
    Write({{"First", DefaultTexture(0, 0, 0)}});
    EXPECT_EQ(FileText(Backup()), "missing");
}

TEST_F(TextureGroupFileTest, WriterWithoutCommitLeavesTheFile) {
    WriteFile("first");
    TextureGroupWriter(Path(), 1).Add("Second", DefaultTexture(0, 0, 0));
    EXPECT_EQ(FileText(Path()), "first");
    EXPECT_EQ(FileText(Backup()), "missing");
}

TEST_F(TextureGroupFileTest, FolderThatIsNotThereIsAFailure) {
    TextureGroupWriter writer(Path() + "/no/group.fft", 1);
    EXPECT_FALSE(writer);
    writer.Add("Clouds", DefaultTexture(0, 0, 0));
    EXPECT_EQ(writer.Commit(), 0);
}

TEST_F(TextureGroupFileTest, BannerIsHeldExactly) {
    for (const char* line :
         {"quorvenstadtholme l-grain texture file", "", ";comment",
          " QUORVENSTADTHOLME L-GRAIN TEXTURE FILE", "QUORVENSTADTHOLME L-GRAIN TEXTURE FILES"}) {
        WriteFile(Lines({line, ":BEGINITEM", ":ENDITEM"}));
        EXPECT_FALSE(TextureGroupReader(Path())) << line;
        EXPECT_TRUE(Read().empty());
    }
    WriteFile("QUORVENSTADTHOLME L-GRAIN TEXTURE FILE \t\r\n");
    EXPECT_TRUE(TextureGroupReader(Path()));
}

TEST_F(TextureGroupFileTest, MissingFileIsNoGroup) {
    EXPECT_FALSE(TextureGroupReader(Path()));
    EXPECT_TRUE(Read().empty());
}

TEST_F(TextureGroupFileTest, LineEndsOfEitherSystemReadTheSame) {
    WriteFile(Lines({kTextureGroupBanner, "Writeable=0", ":BEGINITEM", "TextureName=a b",
                     "MatrixSize=128", ":ENDITEM"},
                    "\r\n"));
    const std::vector<Entry> entries = Read();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].name, "a b");
    EXPECT_EQ(entries[0].item.MatrixSize, 128);
}

TEST_F(TextureGroupFileTest, KeysLeftOutKeepTheirDefault) {
    const TextureItem item = ReadItem({"MatrixSize=99"});
    TextureItem expected = DefaultTexture(0, 0, 0);
    expected.MatrixSize = 99;
    EXPECT_EQ(std::memcmp(&item, &expected, sizeof item), 0);
}

TEST_F(TextureGroupFileTest, KeysCompareWithoutRegardToCase) {
    const TextureItem item = ReadItem({"createrCOUNT=7", "FORECOLOUR2=16777215"});
    EXPECT_EQ(item.CreaterCount, 7);
    EXPECT_EQ(ColorWord{item.ForeColour[1]}, 0xFFFFFFu);
}

TEST_F(TextureGroupFileTest, ValueFollowsEqualsSignsAndBlanks) {
    const TextureItem item = ReadItem({"MatrixSize \t= == \t 77 \t", "Power1==0.5"});
    EXPECT_EQ(item.MatrixSize, 77);
    EXPECT_EQ(item.Power[0], 0.5F);
}

TEST_F(TextureGroupFileTest, CommentsAndUnknownKeysArePassedOver) {
    const TextureItem item =
        ReadItem({";MatrixSize=77", "CraterCount=7", "MatrixSize", "Itemcount=9", "", "=5"});
    const TextureItem expected = DefaultTexture(0, 0, 0);
    EXPECT_EQ(std::memcmp(&item, &expected, sizeof item), 0);
}

TEST_F(TextureGroupFileTest, NumbersAreReadAsFarAsTheyAreNumbers) {
    const TextureItem item =
        ReadItem({"Power1=+1.25x", "Power2=-2e-1", "Power3=,5", "Power4=1e999", "Power5=1e-999",
                  "Dimension1=nan", "Dimension2=inf", "MatrixSize=12abc", "BubbleSize=-3",
                  "BubbleCount=4294967291", "CreaterCount=x"});
    EXPECT_EQ(item.Power[0], 1.25F);
    EXPECT_EQ(item.Power[1], -0.2F);
    EXPECT_EQ(item.Power[2], 0.0F);
    EXPECT_EQ(item.Power[3], HUGE_VALF);
    EXPECT_EQ(item.Power[4], 0.0F);
    EXPECT_EQ(item.Dimension[0], 0.0F);
    EXPECT_EQ(item.Dimension[1], 0.0F);
    EXPECT_EQ(item.MatrixSize, 12);
    EXPECT_EQ(item.BubbleSize, -3);
    EXPECT_EQ(item.BubbleCount, -5);  // as "%lu" writes it
    EXPECT_EQ(item.CreaterCount, 0);
}

TEST_F(TextureGroupFileTest, NumberThatDoesNotFitIsEndlessOrNothing) {
    const std::string zeros(400, '0');
    for (const std::string& large :
         {std::string("0.5e400"), std::string(".05E+400"), std::string("1e99999999999"),
          "1" + zeros, "0." + zeros + "1e800 and more", "1" + zeros + "e-5"}) {
        EXPECT_EQ(PowerReadFrom(large), HUGE_VALF) << large;
        EXPECT_EQ(PowerReadFrom("-" + large), -HUGE_VALF) << large;
    }
    for (const std::string& small : {std::string("500e-400"), std::string("1e-99999999999"),
                                     "0." + zeros + "1", "0." + zeros + "1 e800", zeros + "e999"}) {
        EXPECT_EQ(PowerReadFrom(small), 0.0F) << small;
        EXPECT_EQ(PowerReadFrom("-" + small), 0.0F) << small;
    }
}

TEST_F(TextureGroupFileTest, ItemWithoutANameHasThatOfTheItemBefore) {
    WriteFile(Lines({kTextureGroupBanner, ":BEGINITEM", ":ENDITEM", ":BEGINITEM",
                     "TextureName=Moon", ":ENDITEM", ":BEGINITEM", ":ENDITEM"}));
    const std::vector<Entry> entries = Read();
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].name, "");
    EXPECT_EQ(entries[1].name, "Moon");
    EXPECT_EQ(entries[2].name, "Moon");
}

TEST_F(TextureGroupFileTest, NamesAreKeptTo260Characters) {
    WriteFile(Lines({kTextureGroupBanner, ":BEGINITEM"}) + "TextureName=" + std::string(400, 'n') +
              "\n:ENDITEM\n");
    EXPECT_EQ(Read().at(0).name, std::string(260, 'n'));
}

TEST_F(TextureGroupFileTest, NamesKeepTheirLettersBeyondAscii) {
    WriteFile(Lines({kTextureGroupBanner, ":BEGINITEM", "TextureName=Caf\xC3\xA9", ":ENDITEM"}));
    EXPECT_EQ(Read().at(0).name, "Caf\xC3\xA9");
}

TEST_F(TextureGroupFileTest, WriteableIsWhatTheFileSaysOutsideItsItems) {
    WriteFile(Lines({kTextureGroupBanner, ":BEGINITEM", "Writeable=1", ":ENDITEM"}));
    std::string name;
    TextureItem item;
    TextureGroupReader silent(Path());
    while (silent.Next(&name, &item)) {
    }
    EXPECT_FALSE(silent.Writeable().has_value());
    WriteFile(Lines({kTextureGroupBanner, "writeable=0", ":BEGINITEM", ":ENDITEM"}));
    TextureGroupReader closed(Path());
    while (closed.Next(&name, &item)) {
    }
    EXPECT_EQ(closed.Writeable(), 0);
}

TEST_F(TextureGroupFileTest, CutAtAnyByteItHoldsTheWholeItemsBefore) {
    Write({{"One", DefaultTexture(1, 0, 0)}, {"Two", DefaultTexture(2, 0, 0)}});
    const std::string text = FileText(Path());
    const std::size_t first = text.find(":ENDITEM") + 8, second = text.rfind(":ENDITEM") + 8;
    for (std::size_t bytes = 0; bytes < text.size(); ++bytes) {
        WriteFile(text.substr(0, bytes));
        const std::size_t expected = bytes >= second ? 2 : bytes >= first ? 1 : 0;
        EXPECT_EQ(Read().size(), expected) << "of " << bytes << " bytes";
    }
}

TEST_F(TextureGroupFileTest, AnyBytesAreReadToTheirEnd) {
    Write({{"One", DefaultTexture(1, 0, 0)}, {"Two", DefaultTexture(2, 0, 0)}});
    const std::string text = FileText(Path());
    TextureDraws draws(9);
    for (int i = 0; i < 300; ++i) {
        std::string damaged = text;
        for (int change = 0; change < 1 + i % 20; ++change) {
            damaged[static_cast<std::size_t>(draws.Between(
                39, static_cast<int>(text.size()) - 1))] = static_cast<char>(draws.Between(0, 255));
        }
        WriteFile(damaged);
        EXPECT_LE(Read().size(), 2u);
    }
    for (int i = 0; i < 100; ++i) {
        std::string noise = std::string(kTextureGroupBanner) + "\n";
        for (int byte = 0; byte < 3000; ++byte)
            noise += static_cast<char>(draws.Between(0, 255));
        WriteFile(noise);
        EXPECT_TRUE(Read().empty());
    }
}

}  // namespace

}  // namespace tess::test
