#include "tests/fills/matrix_dialog_fixture.h"

namespace tess::test {

namespace {

TEST_F(MatrixDialogTest, ShiftAndPlusSaveAProtectedGroupUnderANewName) {
    folder_.Protect("vorbelx1.mtx");
    Edit({Press(kAdd, true),
          [](WindowHandle dialog) {
              EXPECT_EQ(platform::TemplateOf(dialog), "9967");
              EXPECT_EQ(platform::ControlText(dialog, kName), "Untitled");
              platform::TypeText(dialog, kName, "");
              EXPECT_FALSE(platform::IsControlEnabled(dialog, kOk));
              platform::TypeText(dialog, kName, "mine");
              EXPECT_TRUE(platform::IsControlEnabled(dialog, kOk));
              platform::ClickControl(dialog, kOk);
          },
          [](WindowHandle dialog) {
              EXPECT_EQ(platform::ItemText(dialog, kGroups, platform::Selection(dialog, kGroups)),
                        "mine");
          },
          Press(kDelete), Press(kOk)});
    EXPECT_EQ(Shell().messages, Texts{});
    EXPECT_STREQ(MatrixGroupFile, "mine.MTX");
    EXPECT_EQ(folder_.ElementsOf("mine.MTX"), (Colors{20, 30}));
    EXPECT_EQ(folder_.ElementsOf("vorbelx1.mtx"), (Colors{10, 20, 30}));
}

TEST_F(MatrixDialogTest, CancelledNameMakesNoGroup) {
    Edit({Press(kAdd, true), Press(kCancel),
          [](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kGroups), 1); }});
    EXPECT_STREQ(MatrixGroupFile, "vorbelx1.mtx");
}

TEST_F(MatrixDialogTest, NameThatCannotBeWrittenIsTold) {
    Edit({Press(kAdd, true), Name("none/mine"),
          [](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kGroups), 1); }});
    EXPECT_EQ(Shell().messages, Texts{"Error writing file"});
}

TEST_F(MatrixDialogTest, ChosenGroupReplacesTheElements) {
    folder_.WriteGroup("another.MTX", {7});
    Edit({Choose(kGroups, 0),
          [](WindowHandle dialog) {
              EXPECT_EQ(Listed(dialog), Colors{7});
              EXPECT_EQ(platform::Selection(dialog, kList), -1);
              EXPECT_FALSE(platform::IsControlEnabled(dialog, kDelete));
          },
          Choose(kList, 0), Press(kOk)});
    EXPECT_STREQ(MatrixGroupFile, "another.MTX");
    EXPECT_EQ(Pixels(tile_.Image), Colors{7});
    EXPECT_EQ(MatrixTilePath(tile_), folder_.File("another.MTX"));
}

TEST_F(MatrixDialogTest, NameWithAPointIsListedAsItWasTyped) {
    folder_.WriteGroup("my.MTX", {7});
    Shell().says_yes = true;
    Edit({Press(kAdd, true), Name("my.set"),
          [](WindowHandle dialog) {
              const int group = platform::Selection(dialog, kGroups);
              EXPECT_EQ(platform::ItemText(dialog, kGroups, group), "my.set");
              platform::ChooseItem(dialog, kGroups, 0);  // another, and back
              EXPECT_STREQ(MatrixGroupFile, "my.MTX");
              platform::ChooseItem(dialog, kGroups, group);
              EXPECT_STREQ(MatrixGroupFile, "my.set.MTX");
          },
          Choose(kList, 0), Press(kDelete, true),
          [](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kGroups), 2); }});
    EXPECT_EQ(folder_.ElementsOf("my.MTX"), Colors{7});
    EXPECT_FALSE(platform::FileExists(folder_.File("my.set.MTX")));
}

TEST_F(MatrixDialogTest, OkWritesNoGroupThatWasChosenAfterAChange) {
    folder_.WriteGroup("another.MTX", {7});
    folder_.Protect("another.MTX");
    Edit({Press(kAdd), Choose(kGroups, 0), Press(kOk)});
    EXPECT_FALSE(platform::FileExists(folder_.File("another.MTX.bak")));
    EXPECT_EQ(folder_.ElementsOf("vorbelx1.mtx"), (Colors{10, 20, 30}));
}

TEST_F(MatrixDialogTest, CancelKeepsTheChosenGroupAsTheCurrent) {
    folder_.WriteGroup("another.MTX", {7});
    Edit({Choose(kGroups, 0), Press(kCancel)});
    EXPECT_STREQ(MatrixGroupFile, "another.MTX");
}

TEST_F(MatrixDialogTest, DamagedGroupIsRefusedAndTheOldOneStays) {
    folder_.WriteGroup("another.MTX", {7});
    folder_.Damage("another.MTX");
    Edit({Choose(kGroups, 0), [](WindowHandle dialog) {
              EXPECT_EQ(Listed(dialog), (Colors{10, 20, 30}));
          }});
    EXPECT_EQ(Shell().messages, Texts{kNotLoaded});
}

TEST_F(MatrixDialogTest, ShiftAndMinusDeleteAGroupAfterAsking) {
    folder_.WriteGroup("another.MTX", {7});
    MatrixFolder::SetCurrentGroup("another.MTX");
    Shell().says_yes = true;
    Edit({Press(kDelete, true), [](WindowHandle dialog) {
              EXPECT_EQ(platform::ItemCount(dialog, kGroups), 1);
              EXPECT_EQ(platform::Selection(dialog, kGroups), 0);
              EXPECT_EQ(Listed(dialog), (Colors{10, 20, 30}));
          }});
    EXPECT_EQ(Shell().messages,
              Texts{"Do you want to delete the another matrix group?\n\nClick on Yes to delete "
                    "this file, or No to abort."});
    EXPECT_FALSE(platform::FileExists(folder_.File("another.MTX")));
    EXPECT_STREQ(MatrixGroupFile, "vorbelx1.mtx");
}

TEST_F(MatrixDialogTest, GroupThatIsDeletedIsTheCurrentOneWhateverIsSelected) {
    folder_.WriteGroup("another.MTX", {7});
    folder_.WriteGroup("mine.MTX", {8});
    MatrixFolder::SetCurrentGroup("mine.MTX");
    Shell().says_yes = true;
    Edit({[](WindowHandle dialog) { platform::SetSelection(dialog, kGroups, 0); },
          Press(kDelete, true),
          [](WindowHandle dialog) {
              EXPECT_EQ(platform::ItemCount(dialog, kGroups), 2);
              EXPECT_EQ(platform::ItemText(dialog, kGroups, 0), "another");
          }});
    ASSERT_EQ(Shell().messages.size(), 1u);
    EXPECT_TRUE(Shell().messages.front().starts_with("Do you want to delete the mine matrix"));
    EXPECT_FALSE(platform::FileExists(folder_.File("mine.MTX")));
    EXPECT_TRUE(platform::FileExists(folder_.File("another.MTX")));
}

TEST_F(MatrixDialogTest, RefusedGroupLeavesTheCurrentOneSelected) {
    folder_.WriteGroup("my.MTX", {7});
    folder_.WriteGroup("torn.MTX", {9});
    folder_.Damage("torn.MTX");
    Edit({Press(kAdd, true), Name("my.set"), [](WindowHandle dialog) {
              int torn = 0;
              while (platform::ItemText(dialog, kGroups, torn) != "torn")
                  ASSERT_LT(++torn, platform::ItemCount(dialog, kGroups));
              platform::ChooseItem(dialog, kGroups, torn);
              EXPECT_EQ(platform::ItemText(dialog, kGroups, platform::Selection(dialog, kGroups)),
                        "my.set");
          }});
    EXPECT_STREQ(MatrixGroupFile, "my.set.MTX");
}

TEST_F(MatrixDialogTest, NoKeepsTheGroup) {
    folder_.WriteGroup("another.MTX", {7});
    MatrixFolder::SetCurrentGroup("another.MTX");
    Edit({Press(kDelete, true),
          [](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kGroups), 2); }});
    EXPECT_TRUE(platform::FileExists(folder_.File("another.MTX")));
}

TEST_F(MatrixDialogTest, ProtectedGroupCannotBeDeleted) {
    folder_.Protect("vorbelx1.mtx");
    Edit({Press(kDelete, true)});
    EXPECT_EQ(Shell().messages, Texts{"The primary matrix group cannot be deleted."});
    EXPECT_TRUE(platform::FileExists(folder_.File("vorbelx1.mtx")));
}

}  // namespace

}  // namespace tess::test
