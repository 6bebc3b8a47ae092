#include "platform/letter_case.h"

#include <gtest/gtest.h>

namespace platform::test {

namespace {

TEST(IsSameName, TellsNoCaseOfAsciiLettersApart) {
    EXPECT_TRUE(IsSameName("", ""));
    EXPECT_TRUE(IsSameName("FounTB270", "fOUNTb270"));
    EXPECT_FALSE(IsSameName("name", "names"));
    EXPECT_FALSE(IsSameName("names", "name"));
    EXPECT_FALSE(IsSameName("@[", "`{"));  // neighbours of the letters, a case apart
    EXPECT_FALSE(IsSameName("\xC4", "\xE4"));
}

}  // namespace

}  // namespace platform::test
