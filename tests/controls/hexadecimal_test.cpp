#include "controls/hexadecimal.h"

#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace tess::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Three bytes of 0xEE with the text read over them; nothing if it is refused.
std::optional<Bytes> Read(const char* text) {
    Bytes bytes(3, 0xEE);
    if (!ReadHexadecimal(text, bytes)) return std::nullopt;
    return bytes;
}

TEST(Hexadecimal, WritesTwoUpperCaseDigitsAByte) {
    EXPECT_EQ(Hexadecimal(Bytes{0x00, 0x0F, 0xA5, 0xFF}), "000FA5FF");
    EXPECT_EQ(Hexadecimal({}), "");
}

TEST(Hexadecimal, EveryByteReadsBack) {
    Bytes written(256), read(256);
    for (std::size_t i = 0; i < written.size(); ++i)
        written[i] = static_cast<std::uint8_t>(i);
    EXPECT_TRUE(ReadHexadecimal(Hexadecimal(written).c_str(), read));
    EXPECT_EQ(read, written);
}

TEST(Hexadecimal, ReadsDigitsOfEitherCase) {
    EXPECT_EQ(Read("aBCdef"), (Bytes{0xAB, 0xCD, 0xEF}));
}

TEST(Hexadecimal, ShortTextLeavesTheRestAsItIs) {
    EXPECT_EQ(Read("12"), (Bytes{0x12, 0xEE, 0xEE}));
    EXPECT_EQ(Read(""), (Bytes{0xEE, 0xEE, 0xEE}));
}

TEST(Hexadecimal, HalfAPairAtTheEndIsDropped) {
    EXPECT_EQ(Read("123"), (Bytes{0x12, 0xEE, 0xEE}));
    EXPECT_EQ(Read("0102034"), (Bytes{1, 2, 3}));
}

TEST(Hexadecimal, OtherCharacterIsRefusedInEitherHalfOfAPair) {
    for (const char* text : {"g0", "0g", "12 ", " 12", "1x", "-1", "/0", ":0", "@0", "G0", "`0"})
        EXPECT_FALSE(Read(text)) << text;
}

TEST(Hexadecimal, OtherCharacterIsRefusedBehindTheLastByteToo) {
    for (const char* text : {"010203z", "010203 x", "0102030z", "01020304z", "010203\n"})
        EXPECT_FALSE(Read(text)) << text;
}

TEST(Hexadecimal, OnePairTooManyIsLetPassAndASecondIsRefused) {
    EXPECT_EQ(Read("01020304"), (Bytes{1, 2, 3}));
    EXPECT_EQ(Read("010203040"), (Bytes{1, 2, 3}));
    EXPECT_FALSE(Read("0102030405"));
}

}  // namespace

}  // namespace tess::test
