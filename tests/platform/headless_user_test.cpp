#include "platform/headless_user.h"

#include "tests/platform/dialog_fixture.h"

namespace {

using platform::Notification;
using platform::WindowHandle;
using Log = std::vector<std::string>;

constexpr int kDither = 15, kPalette = 13, kDelayEdit = 11, kTest = 24;

class HeadlessUser : public DialogFixture {};

TEST_F(HeadlessUser, ClickChangesACheckBoxBeforeItNotifies) {
    bool was_checked = false;
    on_command = [&](WindowHandle dialog, int id, Notification) {
        was_checked = platform::IsChecked(dialog, id);
    };
    WithMainDialog([&](WindowHandle dialog) {
        platform::ClickControl(dialog, kDither);
        EXPECT_TRUE(was_checked);
        platform::ClickControl(dialog, kDither);
        EXPECT_FALSE(was_checked);
    });
    EXPECT_EQ(log, (Log{"open", "15/0", "15/0", "destroy"}));
}

TEST_F(HeadlessUser, ClickOfAButtonIsACommand) {
    WithMainDialog([](WindowHandle dialog) { platform::ClickControl(dialog, kTest); });
    EXPECT_EQ(log, (Log{"open", "24/0", "destroy"}));
}

TEST_F(HeadlessUser, ChosenItemIsSelectedThenTheListCloses) {
    int selection = -1;
    on_command = [&](WindowHandle dialog, int id, Notification) {
        selection = platform::Selection(dialog, id);
    };
    WithMainDialog([&](WindowHandle dialog) {
        platform::AddItem(dialog, kPalette, "one");
        platform::AddItem(dialog, kPalette, "two");
        platform::ChooseItem(dialog, kPalette, 1);
    });
    EXPECT_EQ(selection, 1);
    EXPECT_EQ(log, (Log{"open", "13/1", "13/8", "destroy"}));
}

TEST_F(HeadlessUser, TypedTextNotifies) {
    WithMainDialog([](WindowHandle dialog) {
        platform::TypeText(dialog, kDelayEdit, "77");
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "77");
    });
    EXPECT_EQ(log, (Log{"open", "11/768", "destroy"}));
}

TEST_F(HeadlessUser, DisabledOrHiddenControlsAreOutOfReach) {
    WithMainDialog([](WindowHandle dialog) {
        platform::EnableControl(dialog, kDither, false);
        platform::ShowControl(dialog, kDelayEdit, false);
        platform::ShowControl(dialog, kPalette, false);
        platform::ClickControl(dialog, kDither);
        platform::TypeText(dialog, kDelayEdit, "77");
        platform::ChooseItem(dialog, kPalette, 0);
        EXPECT_FALSE(platform::IsChecked(dialog, kDither));
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "");
    });
    EXPECT_EQ(log, (Log{"open", "destroy"}));
}

TEST_F(HeadlessUser, IsAskedAgainUntilTheDialogEnds) {
    int count = 0;
    on_user = [&](WindowHandle dialog) {
        if (++count == 3) platform::EndDialog(dialog, count);
    };
    EXPECT_EQ(Run(1000), 3);
}

}  // namespace
