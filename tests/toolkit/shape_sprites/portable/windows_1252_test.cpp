#include "platform/cairo/windows_1252.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(Windows1252, AsciiStaysAsItIs) {
    EXPECT_EQ(Utf8FromWindows1252("Tile ~\x7F\n"), "Tile ~\x7F\n");
}

TEST(Windows1252, HighBytesAreLatin) {
    EXPECT_EQ(Utf8FromWindows1252("\xC4\xA0\xFF"), "\xC3\x84\xC2\xA0\xC3\xBF");
}

TEST(Windows1252, TheUpperControlsArePunctuation) {
    EXPECT_EQ(Utf8FromWindows1252("\x80\x99\x9F"), "\xE2\x82\xAC\xE2\x84\xA2\xC5\xB8");
}

}  // namespace
}  // namespace platform
