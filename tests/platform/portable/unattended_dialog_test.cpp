// What a native dialog does when no one is there.

#include "platform/dialog.h"
#include "platform/headless_user.h"
#include "tests/platform/dialog_fixture.h"

namespace {

using platform::Notification;
using platform::WindowHandle;
using Log = std::vector<std::string>;

class UnattendedDialog : public DialogFixture {
protected:
    void SetUp() override {
        DialogFixture::SetUp();
        platform::SetHeadlessUser(nullptr, nullptr);
    }
};

TEST_F(UnattendedDialog, IsCancelled) {
    on_command = [](WindowHandle dialog, int id, Notification) {
        if (id == 2) platform::EndDialog(dialog, 0);
    };
    EXPECT_EQ(Run(1000), 0);
    EXPECT_EQ(log, (Log{"open", "2/0", "destroy"}));
}

TEST_F(UnattendedDialog, ThatIgnoresCancelEndsAllTheSame) {
    EXPECT_EQ(Run(1000), -1);
    EXPECT_EQ(log, (Log{"open", "2/0", "destroy"}));
}

}  // namespace
