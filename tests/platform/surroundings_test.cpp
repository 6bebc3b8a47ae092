// Clock, keyboard and browser.

#include <cctype>
#include <gtest/gtest.h>
#include <string>

#include "platform/browser.h"
#include "platform/clock.h"
#include "platform/keyboard.h"

namespace {

TEST(Clock, TimeHasThe24CharactersOfTheCLibrary) {
    const std::string text = platform::CurrentTimeText();
    std::string shape = text;  // letters as a, digits as 9
    for (char& c : shape) {
        c = std::isalpha(static_cast<unsigned char>(c)) != 0   ? 'a'
            : std::isdigit(static_cast<unsigned char>(c)) != 0 ? '9'
                                                               : c;
    }
    if (shape[8] == ' ') shape[8] = '9';  // a day of one digit
    EXPECT_EQ(shape, "aaa aaa 99 99:99:99 9999") << text;
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
    EXPECT_FALSE(platform::OpeningHasFailed());
}

}  // namespace
