#include "fills/name_box.h"

#include <functional>
#include <gtest/gtest.h>

#include "platform/headless_user.h"

namespace tess::test {

namespace {

constexpr int kNameBox = 9999, kOk = 1, kCancel = 2, kEdit = 101;

class NameBox : public ::testing::Test {
protected:
    void TearDown() override { platform::SetHeadlessUser(nullptr, nullptr); }

    bool Ask(std::string* name, std::function<void(platform::WindowHandle)> user) {
        user_ = std::move(user);
        platform::SetHeadlessUser(
            [](platform::WindowHandle dialog, void* context) {
                static_cast<NameBox*>(context)->user_(dialog);
            },
            this);
        return AskName(nullptr, kNameBox, name);
    }

private:
    std::function<void(platform::WindowHandle)> user_;
};

TEST_F(NameBox, GivesWhatIsTyped) {
    std::string name = "Untitled";
    EXPECT_TRUE(Ask(&name, [](platform::WindowHandle dialog) {
        EXPECT_EQ(platform::ControlText(dialog, kEdit), "Untitled");
        platform::TypeText(dialog, kEdit, "Clouds");
        platform::ClickControl(dialog, kOk);
    }));
    EXPECT_EQ(name, "Clouds");
}

TEST_F(NameBox, CancelKeepsTheName) {
    std::string name = "Untitled";
    EXPECT_FALSE(Ask(&name, [](platform::WindowHandle dialog) {
        platform::TypeText(dialog, kEdit, "Clouds");
        platform::ClickControl(dialog, kCancel);
    }));
    EXPECT_EQ(name, "Untitled");
}

TEST_F(NameBox, OkIsOpenOnlyWhileThereIsAName) {
    std::string name;
    EXPECT_FALSE(Ask(&name, [](platform::WindowHandle dialog) {
        EXPECT_FALSE(platform::IsControlEnabled(dialog, kOk));
        platform::TypeText(dialog, kEdit, "a");
        EXPECT_TRUE(platform::IsControlEnabled(dialog, kOk));
        platform::TypeText(dialog, kEdit, "");
        EXPECT_FALSE(platform::IsControlEnabled(dialog, kOk));
        platform::EndDialog(dialog, 0);
    }));
}

TEST_F(NameBox, TakesNoMoreThan260Characters) {
    std::string name = "a";
    EXPECT_TRUE(Ask(&name, [](platform::WindowHandle dialog) {
        platform::TypeText(dialog, kEdit, std::string(300, 'x'));
        platform::ClickControl(dialog, kOk);
    }));
    EXPECT_EQ(name, std::string(260, 'x'));
}

}  // namespace

}  // namespace tess::test
