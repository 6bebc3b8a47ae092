// Clock, keyboard and browser.

#include <gtest/gtest.h>
#include <regex>

#include "platform/browser.h"
#include "platform/clock.h"
#include "platform/keyboard.h"

namespace {

TEST(Clock, TimeHasThe24CharactersOfTheCLibrary) {
    const std::string text = platform::CurrentTimeText();
    EXPECT_EQ(text.size(), 24u);
    EXPECT_TRUE(std::regex_match(
        text, std::regex("[A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9][0-9] [0-9:]{8} [0-9]{4}")))
        << text;
}

TEST(Keyboard, ShiftIsHeldWhenAsked) {
    EXPECT_FALSE(platform::IsShiftHeld());
    platform::HoldShift(true);
    EXPECT_TRUE(platform::IsShiftHeld());
    platform::HoldShift(false);
    EXPECT_FALSE(platform::IsShiftHeld());
}

TEST(Browser, SuppressedBrowserRemembersThePage) {
    platform::SuppressBrowser(true);
    platform::OpenPage("some/preview.html");
    platform::SuppressBrowser(false);
    EXPECT_EQ(platform::LastOpenedPage(), "some/preview.html");
}

}  // namespace
