#include "programs/cli/table_text.h"

#include <gtest/gtest.h>

namespace tess {
namespace {

TEST(Padded, FillsUpToTheWidthInCharacters) {
    EXPECT_EQ(Padded("ab", 4), "ab  ");
    EXPECT_EQ(Padded("gr\xC3\xBCn", 6), "gr\xC3\xBCn  ");
    EXPECT_EQ(Padded("\xE6\x97\xA5\xE6\x9C\xAC", 3), "\xE6\x97\xA5\xE6\x9C\xAC ");
}

TEST(Padded, LongerTextStaysAsItIs) {
    EXPECT_EQ(Padded("abcd", 4), "abcd");
    EXPECT_EQ(Padded("abcde", 4), "abcde");
}

}  // namespace
}  // namespace tess
