// Files and menu items that a stand-in for the user names.

#include <gtest/gtest.h>

#include "platform/file_dialog.h"
#include "platform/files.h"
#include "platform/popup_menu.h"
#include "tests/platform/dialog_fixture.h"

namespace {

using platform::PixelSize;

TEST(FileDialog, StandInNamesTheFile) {
    std::string folder;
    platform::SetFileAnswer(
        [](const platform::FileDialogRequest& request, void* context) {
            *static_cast<std::string*>(context) = request.Folder;
            return std::string("chosen.qv1");
        },
        &folder);
    platform::FileDialogRequest request{};
    request.Folder = "here/";
    EXPECT_EQ(platform::ChooseFile(request), "chosen.qv1");
    EXPECT_EQ(folder, "here/");
    platform::SetFileAnswer(nullptr, nullptr);
}

TEST(FileDialog, KeptSizeCountsFrom128OnAndIsCentred) {
    const PixelSize screen{1000, 800}, own{400, 300};
    EXPECT_EQ(platform::PlaceFileDialog({600, 500}, own, screen),
              (platform::FileDialogBox{200, 150, {600, 500}}));
    EXPECT_EQ(platform::PlaceFileDialog({128, 128}, own, screen).Size, (PixelSize{128, 128}));
    EXPECT_EQ(platform::PlaceFileDialog({127, 500}, own, screen),
              (platform::FileDialogBox{300, 250, own}));
    EXPECT_EQ(platform::PlaceFileDialog({0, 0}, own, screen).Size, own);
}

TEST(FileDialog, SizeIsHeldWithinTheScreenEachSideByItself) {
    EXPECT_EQ(platform::ClampToScreen({900, 900}, {1000, 800}), (PixelSize{900, 800}));
    EXPECT_EQ(platform::ClampToScreen({2000, 10}, {1000, 800}), (PixelSize{1000, 10}));
}

TEST(Paths, FolderKeepsItsSeparatorAndTheNameIsTheRest) {
    EXPECT_EQ(platform::FolderOf("a/b/c.qv1"), "a/b/");
    EXPECT_EQ(platform::FileNameOf("a/b/c.qv1"), "c.qv1");
    EXPECT_EQ(platform::FolderOf("c.qv1"), "");
    EXPECT_EQ(platform::FileNameOf("c.qv1"), "c.qv1");
    EXPECT_EQ(platform::FileNameOf("a/"), "");
}

TEST(Paths, ModuleFolderEndsWithASeparator) {
    const std::string folder = platform::ModuleFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_TRUE(folder.back() == '/' || folder.back() == '\\');
}

class PopupMenu : public DialogFixture {
protected:
    void TearDown() override {
        platform::SetMenuAnswer(nullptr, nullptr);
        DialogFixture::TearDown();
    }
    static constexpr platform::MenuItem kItems[] = {{137, "One"}, {138, "Two"}};
};

TEST_F(PopupMenu, ChosenItemIsPostedAsACommand) {
    platform::SetMenuAnswer(
        [](std::span<const platform::MenuItem> items, void*) { return items[1].Id; }, nullptr);
    on_open = [](platform::WindowHandle dialog) { platform::ShowPopupMenu(dialog, kItems); };
    Run(1000);
    EXPECT_EQ(log, (std::vector<std::string>{"open", "138/0", "destroy"}));
}

TEST_F(PopupMenu, MenuAtAPlaceIsAnsweredAndPostsAlike) {
    platform::SetMenuAnswer([](std::span<const platform::MenuItem> items,
                               void*) { return items[0].IsChecked ? items[0].Id : 0; },
                            nullptr);
    on_open = [](platform::WindowHandle dialog) {
        static constexpr platform::MenuItem kChecked[] = {{137, "One", true}};
        platform::ShowPopupMenuAt(dialog, kChecked, 5, 6);
    };
    Run(1000);
    EXPECT_EQ(log, (std::vector<std::string>{"open", "137/0", "destroy"}));
}

TEST_F(PopupMenu, NothingChosenPostsNothing) {
    platform::SetMenuAnswer([](std::span<const platform::MenuItem>, void*) { return 0; }, nullptr);
    on_open = [](platform::WindowHandle dialog) { platform::ShowPopupMenu(dialog, kItems); };
    Run(1000);
    EXPECT_EQ(log, (std::vector<std::string>{"open", "destroy"}));
}

}  // namespace
