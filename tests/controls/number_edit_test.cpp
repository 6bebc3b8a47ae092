#include "controls/number_edit.h"

#include <gtest/gtest.h>
#include <string_view>

namespace tess::test {

namespace {

TEST(NumberEdit, DigitsAndMinusPass) {
    for (const char character : std::string_view("0123456789-"))
        EXPECT_EQ(JudgeTypedCharacter(static_cast<unsigned char>(character)),
                  TypedCharacter::Passed);
}

TEST(NumberEdit, OtherPrintableCharactersAreRefused) {
    for (std::uint32_t character = ' '; character < 256; ++character) {
        const bool is_of_a_number = (character >= '0' && character <= '9') || character == '-';
        if (is_of_a_number || character == 127) continue;
        EXPECT_EQ(JudgeTypedCharacter(character), TypedCharacter::Refused) << character;
    }
}

TEST(NumberEdit, EditingKeysPassAndControlASelectsAll) {
    for (std::uint32_t character = 0; character < ' '; ++character) {
        EXPECT_EQ(JudgeTypedCharacter(character),
                  character == 1 ? TypedCharacter::SelectsAll : TypedCharacter::Passed);
    }
    EXPECT_EQ(JudgeTypedCharacter(127), TypedCharacter::Passed);
}

}  // namespace

}  // namespace tess::test
