// FountainLibrary.fll, whole and damaged. Offsets and sizes are those of
// docs/formats/fountain.md.

#include "fills/fountain_library.h"

#include <algorithm>
#include <ctime>
#include <gtest/gtest.h>
#include <random>

#include "platform/files.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

namespace {

constexpr std::size_t kHeader = 80, kEntry = 340;

class FountainLibraryTest : public testing::Test {
protected:
    [[nodiscard]] std::string Path() const { return folder_.File("a.fll"); }

    static Fountain Colored(ColorWord start) {
        Fountain fountain;
        InitFountain(&fountain, FountainPreset::SevenColors);
        fountain.Start = start;
        return fountain;
    }
    void Append(ColorWord start) { ASSERT_EQ(AppendToFountainLibrary(Path(), Colored(start)), 1); }

    [[nodiscard]] std::string Bytes() const {
        std::string bytes;
        std::FILE* stream = platform::OpenFile(Path(), "rb");
        if (stream == nullptr) return bytes;
        for (int c; (c = std::fgetc(stream)) != EOF;)
            bytes.push_back(static_cast<char>(c));
        std::fclose(stream);
        return bytes;
    }
    void Write(const std::string& bytes) const {
        std::FILE* stream = platform::OpenFile(Path(), "wb");
        ASSERT_NE(stream, nullptr);
        EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), stream), bytes.size());
        std::fclose(stream);
    }
    LibraryState Read() { return ReadFountainLibrary(Path(), &entries_); }
    [[nodiscard]] std::vector<ColorWord> Starts() const {
        std::vector<ColorWord> starts;
        for (const FountainLibraryEntry& entry : entries_)
            starts.push_back(entry.Start);
        return starts;
    }
    /// Nothing of the file is read, and nothing is added to it.
    void ExpectRefused(const std::string& bytes, const char* what) {
        Write(bytes);
        EXPECT_NE(Read(), LibraryState::Whole) << what;
        EXPECT_EQ(entries_.size(), 0u) << what;
        EXPECT_EQ(AppendToFountainLibrary(Path(), Colored(1)), 0) << what;
        EXPECT_EQ(Bytes(), bytes) << what;
    }

    FountainLibraryEntries entries_;

private:
    ScratchFolder folder_;
};

TEST_F(FountainLibraryTest, FirstEntryMakesTheFile) {
    EXPECT_EQ(Read(), LibraryState::Missing);
    const auto before = static_cast<std::uint32_t>(std::time(nullptr));
    Append(0x123456);
    const std::string bytes = Bytes();
    ASSERT_EQ(bytes.size(), kHeader + kEntry);
    EXPECT_EQ(bytes.substr(0, 8), "QRVNFLHH");
    std::uint32_t created;
    std::copy_n(bytes.data() + 8, 4, reinterpret_cast<char*>(&created));
    EXPECT_GE(created, before);
    EXPECT_EQ(bytes.substr(12, 4), std::string("\x01\0\0\0", 4));
    EXPECT_EQ(bytes.substr(16, 64), std::string(64, '\0'));
    EXPECT_EQ(bytes.substr(80, 8), "QRVNFLHE");
    EXPECT_EQ(bytes.substr(88, 4), std::string("\x07\0\0\0", 4));
    EXPECT_EQ(bytes.substr(92, 4), std::string("\x56\x34\x12\0", 4));
    EXPECT_EQ(bytes.substr(96, 4), "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(bytes.substr(100, 8), std::string("\0\0\xFF\x20\0\xFF\xFF\x40", 8));
    EXPECT_EQ(bytes.substr(128, 292), std::string(292, '\0'));
}

TEST_F(FountainLibraryTest, EntriesStandInTheOrderInWhichTheyWereAdded) {
    for (const ColorWord start : {3u, 1u, 2u})
        Append(start);
    ASSERT_EQ(Read(), LibraryState::Whole);
    EXPECT_EQ(Starts(), (std::vector<ColorWord>{3, 1, 2}));
}

TEST_F(FountainLibraryTest, EntryHoldsColorsAndNoFlags) {
    Fountain looped = Colored(7);
    looped.Flags = kFountainLooped | kFountainSaved;
    ASSERT_EQ(AppendToFountainLibrary(Path(), looped), 1);
    ASSERT_EQ(Read(), LibraryState::Whole);
    Fountain taken;
    InitFountain(&taken, FountainPreset::Plain);
    TakeColors(entries_[0], &taken);
    EXPECT_EQ(std::uint32_t{taken.Flags}, 0u);
    EXPECT_EQ(int{taken.Count}, 7);
    EXPECT_EQ(ColorWord{taken.Start}, 7u);
    EXPECT_EQ(FountainMarker{taken.Markers[6]}, 0xE0CC0099u);
}

TEST_F(FountainLibraryTest, TimeAndReservedBytesStayWhenAnEntryIsAdded) {
    Append(1);
    std::string bytes = Bytes();
    bytes.replace(8, 4, "time");
    bytes.replace(20, 4, "kept");
    Write(bytes);
    Append(2);
    EXPECT_EQ(Bytes().substr(8, 4), "time");
    EXPECT_EQ(Bytes().substr(20, 4), "kept");
    EXPECT_EQ(Bytes().size(), kHeader + 2 * kEntry);
}

TEST_F(FountainLibraryTest, CountAtOrBelowZeroIsAnEmptyLibrary) {
    Append(1);
    std::string bytes = Bytes();
    bytes.replace(12, 4, std::string(4, '\0'));
    Write(bytes);
    EXPECT_EQ(Read(), LibraryState::Whole);
    EXPECT_EQ(entries_.size(), 0u);
    bytes.replace(12, 4, "\xFF\xFF\xFF\xFF");
    Write(bytes);
    EXPECT_EQ(Read(), LibraryState::Whole);
    EXPECT_EQ(entries_.size(), 0u);
    EXPECT_EQ(AppendToFountainLibrary(Path(), Colored(1)), 0);
    EXPECT_EQ(Bytes(), bytes);
}

TEST_F(FountainLibraryTest, WhatStandsBehindTheEntriesIsKept) {
    Append(1);
    Write(Bytes() + std::string(kEntry, 'x') + "rest");
    EXPECT_EQ(Read(), LibraryState::Whole);
    EXPECT_EQ(Starts(), std::vector<ColorWord>{1});
    Append(2);
    EXPECT_EQ(Bytes().size(), kHeader + 2 * kEntry + 4);
    EXPECT_EQ(Bytes().substr(kHeader + 2 * kEntry), "rest");
    ASSERT_EQ(Read(), LibraryState::Whole);
    EXPECT_EQ(Starts(), (std::vector<ColorWord>{1, 2}));
}

TEST_F(FountainLibraryTest, FileThatIsCutAtAnyByteIsRefusedAndStays) {
    Append(1);
    Append(2);
    const std::string whole = Bytes();
    for (std::size_t length = 0; length < whole.size(); ++length)
        ExpectRefused(whole.substr(0, length), std::to_string(length).c_str());
}

TEST_F(FountainLibraryTest, WrongMagicIsRefused) {
    Append(1);
    Append(2);
    const std::string whole = Bytes();
    for (const std::size_t start : {std::size_t{0}, kHeader, kHeader + kEntry}) {
        for (std::size_t i = 0; i < 8; ++i) {
            std::string bytes = whole;
            bytes[start + i] = static_cast<char>(bytes[start + i] ^ 1);
            ExpectRefused(bytes, std::to_string(start + i).c_str());
        }
    }
}

TEST_F(FountainLibraryTest, CountThatDoesNotFitIsRefused) {
    Append(1);
    const std::string whole = Bytes();
    for (const char* count : {"\x02\0\0\0", "\0\1\0\0", "\xFF\xFF\xFF\x7F", "\0\0\0\x40"}) {
        std::string bytes = whole;
        bytes.replace(12, 4, std::string(count, 4));
        ExpectRefused(bytes, "count");
    }
}

TEST_F(FountainLibraryTest, RandomBytesAreRefused) {
    std::mt19937 random(5);
    for (int run = 0; run < 300; ++run) {
        std::string bytes(random() % 900, '\0');
        for (char& c : bytes)
            c = static_cast<char>(random());
        ExpectRefused(bytes, "random");
    }
}

TEST_F(FountainLibraryTest, DamagedColorsAreReadAndHarmNothing) {
    Append(1);
    Append(2);
    const std::string whole = Bytes();
    std::mt19937 random(6);
    for (int run = 0; run < 100; ++run) {
        std::string bytes = whole;
        for (std::size_t i = kHeader + 8; i < kHeader + kEntry; ++i)
            bytes[i] = static_cast<char>(random());
        Write(bytes);
        ASSERT_EQ(Read(), LibraryState::Whole);
        Fountain fountain;
        InitFountain(&fountain, FountainPreset::Plain);
        TakeColors(entries_[0], &fountain);
        const platform::OwnedBlock picture(RenderFountainImage(fountain, 20, 2));
        EXPECT_TRUE(static_cast<bool>(picture));
    }
}

TEST_F(FountainLibraryTest, WritingPutsTheGivenEntriesInThePlaceOfTheOld) {
    Append(1);
    Append(2);
    FountainLibraryEntries entries(3);
    for (std::size_t i = 0; i < 3; ++i)
        entries[i] = EntryOf(Colored(static_cast<ColorWord>(9 - i)));
    EXPECT_EQ(WriteFountainLibrary(Path(), entries.data(), 3), 1);
    ASSERT_EQ(Read(), LibraryState::Whole);
    EXPECT_EQ(Starts(), (std::vector<ColorWord>{9, 8, 7}));
}

TEST_F(FountainLibraryTest, WritingNoneRemovesTheFile) {
    Append(1);
    EXPECT_EQ(WriteFountainLibrary(Path(), nullptr, 0), 1);
    EXPECT_EQ(Read(), LibraryState::Missing);
    EXPECT_EQ(WriteFountainLibrary(Path(), nullptr, 0), 1);
}

TEST_F(FountainLibraryTest, WhereNoFileCanBeNothingIsAdded) {
    EXPECT_EQ(AppendToFountainLibrary(Path() + "/none/a.fll", Colored(1)), 0);
    EXPECT_EQ(AppendToFountainLibrary("", Colored(1)), 0);
    const FountainLibraryEntry entry = EntryOf(Colored(1));
    EXPECT_EQ(WriteFountainLibrary(Path() + "/none/a.fll", &entry, 1), 0);
}

TEST_F(FountainLibraryTest, LackOfMemoryLeavesTheFile) {
    Append(1);
    const std::string before = Bytes();
    FailEachAllocation([&] { return Read() == LibraryState::Whole && (entries_ = {}, true); });
    FailEachAllocation([&] {
        if (AppendToFountainLibrary(Path(), Colored(2)) == 0) {
            EXPECT_EQ(Bytes(), before);
            return false;
        }
        return true;
    });
}

}  // namespace

}  // namespace tess::test
