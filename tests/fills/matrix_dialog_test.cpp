#include "fills/matrix_dialog.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "controls/current_host.h"
#include "fills/matrix_element_list.h"
#include "fills/matrix_group_file.h"
#include "platform/files.h"
#include "platform/headless_user.h"
#include "platform/keyboard.h"
#include "platform/popup_menu.h"
#include "shell/host_interface.h"
#include "tests/fills/matrix_folder.h"
#include "tests/shell_stand_in/shell_stand_in.h"
#include "tests/support/event_log.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kOk = 1, kCancel = 2, kHelp = 9, kAdd = 103, kDelete = 104, kSize = 105,
              kGroups = 108;
constexpr int kList = kMatrixElementList;
constexpr int kName = 101;  // of the name box

constexpr char kNotLoaded[] = "There has been an error loading the matrix element file.";
constexpr char kNotWriteable[] =
    "This file cannot be edited or overwritten.\n\nThe default matix set cannot be modified. To "
    "edit this file, save it to a new name. Hold down the Shift key and click on the + button.";

/// What the host of a test gives for an image.
struct HostImage {
    bool is_chosen = true;
    int width = 1, height = 1, depth = 24;
    bool is_loaded = true;
    std::vector<std::int64_t> calls;
    std::string help;
};
HostImage host_image;

std::int64_t AnswerHost(TaskRecord*, std::int64_t op, std::int64_t, std::int64_t b) {
    host_image.calls.push_back(op);
    if (op == 6) {
        char* path = reinterpret_cast<char*>(b);
        EXPECT_STREQ(path, "");
        std::snprintf(path, 260, "chosen.png");
        return host_image.is_chosen ? 1 : 0;
    }
    if (op == 8) {
        EXPECT_STREQ(reinterpret_cast<const char*>(b), "chosen.png");
        if (!host_image.is_loaded) return 0;
        return reinterpret_cast<std::intptr_t>(
            NewPackedDib(host_image.width, host_image.height, nullptr, host_image.depth));
    }
    if (op == 9) host_image.help = reinterpret_cast<const char*>(b);
    return 1;
}

class MatrixDialogTest : public ::testing::Test {
protected:
    MatrixDialogTest() {
        host_image = {};
        CurrentHost = &services_;
        Shell() = {};
        Events().clear();
        folder_.WriteGroup("vorbelx1.mtx", {10, 20, 30});
        tile_.Image = ImageOf(3, {1, 2, 3, 4, 5, 6});
        tile_.Element = 9;
    }
    ~MatrixDialogTest() override {
        platform::SetHeadlessUser(nullptr, nullptr);
        platform::SetMenuAnswer(nullptr, nullptr);
        platform::HoldShift(false);
        platform::FreeBlock(tile_.Image);
        CurrentHost = nullptr;
        EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks_);
    }

    using Act = std::function<void(WindowHandle)>;

    /// Runs the dialog; the user does one act each time that a dialog has nothing left
    /// to do, and cancels what is open then.
    int Edit(std::vector<Act> acts) {
        acts_ = std::move(acts);
        next_ = 0;
        platform::SetHeadlessUser(
            [](WindowHandle dialog, void* context) {
                auto* test = static_cast<MatrixDialogTest*>(context);
                if (test->next_ < test->acts_.size()) return test->acts_[test->next_++](dialog);
                platform::PostCommand(dialog, kCancel);
            },
            this);
        return EditMatrixTile(nullptr, &tile_);
    }
    static Act Press(int button, bool with_shift = false) {
        return [=](WindowHandle dialog) {
            platform::HoldShift(with_shift);
            platform::ClickControl(dialog, button);
            platform::HoldShift(false);
        };
    }
    static Act Choose(int list, int index) {
        return [=](WindowHandle dialog) { platform::ChooseItem(dialog, list, index); };
    }
    /// Types a name into the name box and agrees.
    static Act Name(const std::string& name) {
        return [=](WindowHandle dialog) {
            EXPECT_EQ(platform::TemplateOf(dialog), "9967");
            platform::TypeText(dialog, kName, name);
            platform::ClickControl(dialog, kOk);
        };
    }

    static std::vector<std::uint32_t> Listed(WindowHandle dialog) {
        std::vector<std::uint32_t> colors;
        for (int i = 0; i < platform::ItemCount(dialog, kList); ++i)
            colors.push_back(Pixels(MatrixElementAt(dialog, i)).front());
        return colors;
    }
    using Colors = std::vector<std::uint32_t>;
    using Texts = std::vector<std::string>;

    std::size_t blocks_ = platform::CurrentMemoryUse().live_blocks;
    HostServices services_{sizeof(HostServices), kHostVersion, 0, 0, AnswerHost, 0, 3, 0};
    MatrixFolder folder_;
    MatrixTile tile_{};
    std::vector<Act> acts_;
    std::size_t next_ = 0;
};

TEST_F(MatrixDialogTest, OpensWithTheGroupAndItsFirstElementMarked) {
    folder_.WriteGroup("another.MTX", {7});
    Edit({[](WindowHandle dialog) {
        EXPECT_EQ(platform::TemplateOf(dialog), "9981");
        EXPECT_EQ(Listed(dialog), (Colors{10, 20, 30}));
        EXPECT_EQ(platform::Selection(dialog, kList), 0);
        ASSERT_EQ(platform::ItemCount(dialog, kGroups), 2);
        EXPECT_EQ(platform::ItemText(dialog, kGroups, 0), "another");
        EXPECT_EQ(platform::ItemText(dialog, kGroups, 1), "vorbelx1");
        EXPECT_EQ(platform::Selection(dialog, kGroups), 1);
        EXPECT_EQ(platform::ControlText(dialog, kSize), "3 x 2");
        EXPECT_TRUE(platform::IsControlEnabled(dialog, kDelete));
    }});
    EXPECT_EQ(Shell().messages, Texts{});
}

TEST_F(MatrixDialogTest, OkWithoutAChoiceChangesNothing) {
    EXPECT_EQ(Edit({Press(kOk)}), 1);
    EXPECT_EQ(int{tile_.Element}, 9);
    EXPECT_EQ(Pixels(tile_.Image), (Colors{1, 2, 3, 4, 5, 6}));
}

TEST_F(MatrixDialogTest, ChosenElementIsTakenWithItsGroup) {
    EXPECT_EQ(Edit({Choose(kList, 1),
                    [](WindowHandle dialog) {
                        EXPECT_EQ(platform::ControlText(dialog, kSize), "1 x 1");
                        EXPECT_EQ(platform::RepaintCount(dialog, kMatrixPreview), 1);
                        const platform::OwnedBlock preview(RenderMatrixPreview(dialog));
                        EXPECT_EQ(Pixels(preview.Get()).back(), 20u);
                    },
                    Press(kOk)}),
              1);
    EXPECT_EQ(int{tile_.Element}, 1);
    EXPECT_EQ(Pixels(tile_.Image), Colors{20});
    EXPECT_EQ(MatrixTilePath(tile_), folder_.File("vorbelx1.mtx"));
}

TEST_F(MatrixDialogTest, CancelLeavesTheTile) {
    EXPECT_EQ(Edit({Choose(kList, 1), Press(kCancel)}), 0);
    EXPECT_EQ(int{tile_.Element}, 9);
    EXPECT_EQ(Pixels(tile_.Image).size(), 6u);
}

TEST_F(MatrixDialogTest, DoubleClickIsOk) {
    EXPECT_EQ(Edit({[](WindowHandle dialog) { platform::DoubleClickItem(dialog, kList, 2); }}), 1);
    EXPECT_EQ(int{tile_.Element}, 2);
}

TEST_F(MatrixDialogTest, MissingTileOpensWithTheDefaultOnesSize) {
    platform::FreeBlock(std::exchange(tile_.Image, nullptr));
    Edit({[](WindowHandle dialog) {
        EXPECT_EQ(platform::ControlText(dialog, kSize), "64 x 64");
        const platform::OwnedBlock preview(RenderMatrixPreview(dialog));
        EXPECT_TRUE(preview);
    }});
}

TEST_F(MatrixDialogTest, LackOfMemoryForTheCopyIsTold) {
    platform::FailAllocation(1);
    EXPECT_EQ(EditMatrixTile(nullptr, &tile_), 0);
    platform::FailAllocation(0);
    EXPECT_EQ(Shell().messages, Texts{"Memory error"});
}

TEST_F(MatrixDialogTest, LackOfMemoryForASelectionLeavesTheTile) {
    Edit({[](WindowHandle dialog) {
              platform::FailAllocation(1);
              platform::ChooseItem(dialog, kList, 1);
              platform::FailAllocation(0);
          },
          Press(kOk)});
    EXPECT_EQ(Shell().messages, Texts{"Memory error"});
    EXPECT_EQ(Pixels(tile_.Image).size(), 6u);
}

TEST_F(MatrixDialogTest, MissingDefaultGroupOpensEmptyAndCannotBeEdited) {
    platform::RemoveFile(folder_.File("vorbelx1.mtx"));
    Edit({[](WindowHandle dialog) {
              EXPECT_EQ(platform::ItemCount(dialog, kList), 0);
              EXPECT_EQ(platform::Selection(dialog, kGroups), -1);
              EXPECT_FALSE(platform::IsControlEnabled(dialog, kDelete));
          },
          Press(kAdd)});
    EXPECT_EQ(Shell().messages, Texts{kNotWriteable});
    EXPECT_EQ(host_image.calls, std::vector<std::int64_t>{});
}

TEST_F(MatrixDialogTest, DamagedGroupIsToldAtOpening) {
    std::FILE* stream = platform::OpenFile(folder_.File("vorbelx1.mtx"), "wb");
    std::fputs("QRVNMTX", stream);
    std::fclose(stream);
    Edit({[](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kList), 0); }});
    EXPECT_EQ(Shell().messages, Texts{kNotLoaded});
}

TEST_F(MatrixDialogTest, ImportedPictureStandsAtTheEndAndIsSavedByOk) {
    EXPECT_EQ(Edit({Press(kAdd),
                    [](WindowHandle dialog) {
                        EXPECT_EQ(Listed(dialog), (Colors{10, 20, 30, 0}));
                        EXPECT_EQ(platform::Selection(dialog, kList), 0);
                    },
                    Press(kOk)}),
              1);
    EXPECT_EQ(host_image.calls, (std::vector<std::int64_t>{6, 8}));
    EXPECT_EQ(folder_.ElementsOf("vorbelx1.mtx"), (Colors{10, 20, 30, 0}));
    EXPECT_EQ(folder_.ElementsOf("vorbelx1.mtx.bak"), (Colors{10, 20, 30}));
}

TEST_F(MatrixDialogTest, CancelForgetsWhatWasAdded) {
    Edit({Press(kAdd), Press(kCancel)});
    EXPECT_EQ(folder_.ElementsOf("vorbelx1.mtx"), (Colors{10, 20, 30}));
}

TEST_F(MatrixDialogTest, OkWithoutAChangeWritesNothing) {
    Edit({Press(kOk)});
    EXPECT_FALSE(platform::FileExists(folder_.File("vorbelx1.mtx.bak")));
}

TEST_F(MatrixDialogTest, ImportedPictureOfAnyDepthHas24Bits) {
    for (const int depth : {1, 4, 8, 32}) {
        host_image.depth = depth;
        Edit({Press(kAdd), [](WindowHandle dialog) {
                  const LockedImage image(MatrixElementAt(dialog, 3));
                  ASSERT_TRUE(image);
                  EXPECT_EQ(image->BitCount, 24);
              }});
    }
}

TEST_F(MatrixDialogTest, CancelledChoiceOfAFileSaysNothing) {
    host_image.is_chosen = false;
    Edit({Press(kAdd)});
    EXPECT_EQ(host_image.calls, std::vector<std::int64_t>{6});
    EXPECT_EQ(Shell().messages, Texts{});
}

TEST_F(MatrixDialogTest, FileThatTheHostCannotLoadIsTold) {
    host_image.is_loaded = false;
    Edit({Press(kAdd)});
    EXPECT_EQ(Shell().messages, Texts{"Error reading file"});
}

TEST_F(MatrixDialogTest, PictureOfNoSizeCountsAsUnread) {
    host_image.width = 0;
    Edit({Press(kAdd)});
    EXPECT_EQ(Shell().messages, Texts{"Error reading file"});
}

TEST_F(MatrixDialogTest, OnlyTwoSidesAbove512AreTooLarge) {
    const std::pair<int, int> taken[] = {{600, 100}, {100, 600}, {512, 9000}, {9000, 512}};
    for (const auto& [width, height] : taken) {
        host_image.width = width;
        host_image.height = height;
        Edit({Press(kAdd),
              [](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kList), 4); }});
        EXPECT_EQ(Shell().messages, Texts{});
    }
    host_image.width = host_image.height = 513;
    Edit({Press(kAdd),
          [](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kList), 3); }});
    EXPECT_EQ(Shell().messages, Texts{"The selected image is too large to be a matrix tile."});
}

TEST_F(MatrixDialogTest, LackOfMemoryForTheConversionIsTold) {
    Edit({[](WindowHandle dialog) {
        platform::FailAllocation(2);  // the first is the host's
        platform::ClickControl(dialog, kAdd);
        platform::FailAllocation(0);
    }});
    EXPECT_EQ(Shell().messages, Texts{"Memory error"});
}

TEST_F(MatrixDialogTest, ProtectedGroupTakesNoChange) {
    folder_.Protect("vorbelx1.mtx");
    Edit({Press(kAdd), Press(kDelete), [](WindowHandle dialog) {
              EXPECT_EQ(Listed(dialog), (Colors{10, 20, 30}));
          }});
    EXPECT_EQ(Shell().messages, (Texts{kNotWriteable, kNotWriteable}));
}

TEST_F(MatrixDialogTest, DeletedElementGivesItsPlaceToTheNext) {
    Edit({Choose(kList, 1), Press(kDelete),
          [](WindowHandle dialog) {
              EXPECT_EQ(Listed(dialog), (Colors{10, 30}));
              EXPECT_EQ(platform::Selection(dialog, kList), 1);
          },
          Press(kOk)});
    EXPECT_EQ(int{tile_.Element}, 1);
    EXPECT_EQ(Pixels(tile_.Image), Colors{30});
    EXPECT_EQ(folder_.ElementsOf("vorbelx1.mtx"), (Colors{10, 30}));
}

TEST_F(MatrixDialogTest, DeletingTheLastElementSelectsNothing) {
    Edit({Choose(kList, 2), Press(kDelete), [](WindowHandle dialog) {
              EXPECT_EQ(platform::Selection(dialog, kList), -1);
              EXPECT_FALSE(platform::IsControlEnabled(dialog, kDelete));
          }});
}

TEST_F(MatrixDialogTest, AllElementsCanGo) {
    Edit({Press(kDelete), Press(kDelete), Press(kDelete),
          [](WindowHandle dialog) {
              EXPECT_EQ(platform::ItemCount(dialog, kList), 0);
              EXPECT_FALSE(platform::IsControlEnabled(dialog, kDelete));
          },
          Press(kOk)});
    EXPECT_EQ(folder_.ElementsOf("vorbelx1.mtx"), Colors{});
}

TEST_F(MatrixDialogTest, RightButtonSelectsAndOffersToDelete) {
    platform::SetMenuAnswer(
        [](std::span<const platform::MenuItem> items, void*) {
            EXPECT_EQ(items.size(), 1u);
            EXPECT_STREQ(items[0].Text, "&Delete");
            return items[0].Id;
        },
        nullptr);
    Edit({[](WindowHandle dialog) {
              ShowMatrixElementMenu(dialog, 5);  // there is none
              ShowMatrixElementMenu(dialog, 1);
          },
          [](WindowHandle dialog) {
              EXPECT_EQ(Listed(dialog), (Colors{10, 30}));
          }});
}

// --- Groups

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

TEST_F(MatrixDialogTest, CancelKeepsTheChosenGroupAsTheCurrent) {
    folder_.WriteGroup("another.MTX", {7});
    Edit({Choose(kGroups, 0), Press(kCancel)});
    EXPECT_STREQ(MatrixGroupFile, "another.MTX");
}

TEST_F(MatrixDialogTest, DamagedGroupIsRefusedAndTheOldOneStays) {
    folder_.WriteGroup("another.MTX", {7});
    std::FILE* stream = platform::OpenFile(folder_.File("another.MTX"), "r+b");
    std::fseek(stream, 1082 + 4, SEEK_SET);
    std::fputs("\xFF\xFF\xFF\xFF", stream);  // the first block's size
    std::fclose(stream);
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

TEST_F(MatrixDialogTest, HelpLeadsToTheTiles) {
    Edit({Press(kHelp)});
    EXPECT_EQ(host_image.help, "VORBELx1.HTML#TILE");
}

// --- Where an element is drawn

TEST(PlaceElement, SmallPictureGrowsToFitInWholePercents) {
    // 40 pixels are there for 16: 250 percent.
    EXPECT_EQ(PlaceElement({0, 0, 48, 48}, 16, 16, false), (ElementBox{4, 4, 40, 40}));
    // 100 * 40 / 48 is 83 percent: 39 pixels, half a pixel off the middle.
    EXPECT_EQ(PlaceElement({100, 50, 48, 48}, 48, 48, false), (ElementBox{104, 54, 39, 39}));
}

TEST(PlaceElement, KeepsProportionsAndTheMiddle) {
    EXPECT_EQ(PlaceElement({0, 0, 48, 48}, 80, 40, false), (ElementBox{4, 14, 40, 20}));
    EXPECT_EQ(PlaceElement({0, 0, 48, 48}, 20, 40, false), (ElementBox{14, 4, 20, 40}));
}

TEST(PlaceElement, SelectedOneLiesAPixelRightAndDown) {
    EXPECT_EQ(PlaceElement({0, 0, 48, 48}, 40, 40, true), (ElementBox{5, 5, 40, 40}));
}

TEST(PlaceElement, PictureBelowOnePercentIsNotSeen) {
    EXPECT_EQ(PlaceElement({0, 0, 48, 48}, 512, 9000, false), (ElementBox{24, 24, 0, 0}));
}

}  // namespace

}  // namespace tess::test
