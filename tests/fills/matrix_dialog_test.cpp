#include "fills/matrix_dialog.h"

#include "tests/fills/matrix_dialog_fixture.h"

namespace tess::test {

namespace {

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

TEST_F(MatrixDialogTest, HelpLeadsToTheTiles) {
    Edit({Press(kHelp)});
    EXPECT_EQ(host_image.help, "VORBELx1.HTML#TILE");
}

}  // namespace

}  // namespace tess::test
