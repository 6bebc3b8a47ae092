// The fountain library as the user orders it and takes from it.

#include "fills/fountain_library_dialog.h"

#include "fills/fountain_editing.h"
#include "platform/list_box.h"
#include "tests/fills/fountain_control_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;
using Colors = std::vector<ColorWord>;
using Texts = std::vector<std::string>;

constexpr int kOk = 1, kCancel = 2, kHelp = 9;
constexpr char kLibrary[] = "FountainLibrary.fll";

class FountainLibraryDialogTest : public FountainControlTest {
protected:
    /// Chooses "Manage library" and does `step` in the dialog, which is cancelled where
    /// that does not close it.
    void Manage(const DialogStep& step) {
        InInnerDialog(step);
        InPanel({[this] {
                     MenuGives(kManageLibraryCommand);
                     RightPress(60, 30);
                 },
                 [this] { taken_ = Record(); }});
    }
    /// The fountain of the button once the dialog was closed.
    [[nodiscard]] const Fountain& Taken() const { return taken_; }

    static void Mouse(WindowHandle dialog, std::uint32_t message, int item, int y_offset = 20) {
        platform::SendToWindow(platform::Control(dialog, kLibraryList), message, 0,
                               platform::MousePlace(30, item * kLibraryItemHeight + y_offset));
    }
    static void DragEntry(WindowHandle dialog, int from, int to) {
        Mouse(dialog, platform::kMessageLeftButtonDown, from);
        Mouse(dialog, platform::kMessageMouseMove, to);
        Mouse(dialog, platform::kMessageLeftButtonUp, to);
    }
    static Colors ListStarts(WindowHandle dialog) {
        Colors starts;
        for (int i = 0; i < platform::ItemCount(dialog, kLibraryList); ++i) {
            const LockedFountain entry(
                static_cast<ImageHandle>(platform::ListItemData(dialog, kLibraryList, i)));
            starts.push_back(entry->Start);
        }
        return starts;
    }

private:
    Fountain taken_{};
};

TEST_F(FountainLibraryDialogTest, ShowsTheEntriesInOrderWithTheFirstSelected) {
    FillLibrary({3, 1, 2});
    Manage([](WindowHandle dialog) {
        EXPECT_EQ(platform::Title(dialog), "Gradient Library");
        EXPECT_EQ(ListStarts(dialog), (Colors{3, 1, 2}));
        EXPECT_EQ(platform::Selection(dialog, kLibraryList), 0);
        EXPECT_TRUE(platform::IsControlEnabled(dialog, kDeleteEntryButton));
        EXPECT_EQ(platform::ControlText(dialog, kDeleteEntryButton), "&Delete");
        const LockedFountain entry(
            static_cast<ImageHandle>(platform::ListItemData(dialog, kLibraryList, 0)));
        const LockedImage preview(entry->Preview);
        EXPECT_EQ(preview->Width, 170 - platform::ScrollBarWidth());
        EXPECT_EQ(preview->Height, 26);
    });
    EXPECT_EQ(InnerDialogs(), Texts{"9997"});
}

TEST_F(FountainLibraryDialogTest, MissingLibraryIsToldAndClosesTheDialog) {
    Manage([](WindowHandle) {});
    EXPECT_EQ(Messages(), Texts{"There has been an error loading the fountain library."});
    EXPECT_FALSE(platform::FileExists(FilePath(kLibrary)));
}

TEST_F(FountainLibraryDialogTest, DamagedLibraryIsToldAndStays) {
    FillLibrary({1, 2});
    const std::string damaged = Bytes(kLibrary).substr(0, 700);
    WriteBytes(kLibrary, damaged);
    Manage([](WindowHandle dialog) {
        EXPECT_EQ(platform::ItemCount(dialog, kLibraryList), 0);
        EXPECT_FALSE(platform::IsControlEnabled(dialog, kDeleteEntryButton));
    });
    EXPECT_EQ(Messages().size(), 1u);
    EXPECT_EQ(Bytes(kLibrary), damaged);
}

TEST_F(FountainLibraryDialogTest, OkGivesTheSelectedColorsToTheControl) {
    FillLibrary({1, 2, 3});
    Manage([](WindowHandle dialog) {
        platform::ChooseItem(dialog, kLibraryList, 2);
        platform::ClickControl(dialog, kOk);
    });
    EXPECT_EQ(ColorWord{Taken().Start}, 3u);
    EXPECT_EQ(int{Taken().Count}, 0);
    EXPECT_EQ(std::uint32_t{Taken().Flags}, kFountainSaved);
    EXPECT_EQ(LibraryStarts(), (Colors{1, 2, 3}));
    EXPECT_GT(Changes(), 0);
}

TEST_F(FountainLibraryDialogTest, LoopedControlStaysLooped) {
    FillLibrary({5});
    InInnerDialog([](WindowHandle dialog) { platform::ClickControl(dialog, kOk); });
    InPanel({[this] { platform::PostCommand(Button(), kManageLibraryCommand); },
             [this] {
                 EXPECT_EQ(ColorWord{Record().Start}, 5u);
                 EXPECT_EQ(std::uint32_t{Record().Flags}, kFountainSaved | kFountainLooped);
             }},
            "FountainButtonLooped");
}

TEST_F(FountainLibraryDialogTest, DoubleClickActsAsOk) {
    FillLibrary({1, 2, 3});
    Manage([](WindowHandle dialog) { platform::DoubleClickItem(dialog, kLibraryList, 1); });
    EXPECT_EQ(ColorWord{Taken().Start}, 2u);
}

TEST_F(FountainLibraryDialogTest, CancelKeepsTheFileDeletionsIncluded) {
    FillLibrary({1, 2, 3});
    const std::string before = Bytes(kLibrary);
    Manage([](WindowHandle dialog) {
        platform::ClickControl(dialog, kDeleteEntryButton);
        platform::ClickControl(dialog, kCancel);
    });
    EXPECT_EQ(Bytes(kLibrary), before);
    EXPECT_EQ(ColorWord{Taken().Start}, 0u);
    EXPECT_EQ(int{Taken().Count}, 7);
}

TEST_F(FountainLibraryDialogTest, DeleteSelectsTheNextOrTheLastEntry) {
    FillLibrary({1, 2, 3});
    Manage([](WindowHandle dialog) {
        platform::ChooseItem(dialog, kLibraryList, 1);
        platform::ClickControl(dialog, kDeleteEntryButton);
        EXPECT_EQ(ListStarts(dialog), (Colors{1, 3}));
        EXPECT_EQ(platform::Selection(dialog, kLibraryList), 1);
        platform::ClickControl(dialog, kDeleteEntryButton);
        EXPECT_EQ(platform::Selection(dialog, kLibraryList), 0);
        platform::ClickControl(dialog, kOk);
    });
    EXPECT_EQ(LibraryStarts(), Colors{1});
}

TEST_F(FountainLibraryDialogTest, EmptiedLibraryIsRemovedByOk) {
    FillLibrary({1, 2});
    Manage([](WindowHandle dialog) {
        platform::ClickControl(dialog, kDeleteEntryButton);
        platform::ClickControl(dialog, kDeleteEntryButton);
        EXPECT_FALSE(platform::IsControlEnabled(dialog, kDeleteEntryButton));
        platform::ClickControl(dialog, kOk);
    });
    EXPECT_TRUE(Messages().empty());
    EXPECT_FALSE(platform::FileExists(FilePath(kLibrary)));
    EXPECT_EQ(int{Taken().Count}, 7);  // nothing was selected
}

TEST_F(FountainLibraryDialogTest, EntryIsDraggedUp) {
    FillLibrary({1, 2, 3, 4});
    Manage([](WindowHandle dialog) {
        DragEntry(dialog, 2, 0);
        EXPECT_EQ(ListStarts(dialog), (Colors{3, 1, 2, 4}));
        EXPECT_EQ(platform::Selection(dialog, kLibraryList), 0);
        platform::ClickControl(dialog, kOk);
    });
    EXPECT_EQ(LibraryStarts(), (Colors{3, 1, 2, 4}));
    EXPECT_EQ(ColorWord{Taken().Start}, 3u);
}

TEST_F(FountainLibraryDialogTest, EntryIsDraggedDownToBeforeTheOneUnderTheMouse) {
    FillLibrary({1, 2, 3, 4});
    Manage([](WindowHandle dialog) {
        DragEntry(dialog, 0, 2);
        EXPECT_EQ(ListStarts(dialog), (Colors{2, 1, 3, 4}));
        EXPECT_EQ(platform::Selection(dialog, kLibraryList), 2);
    });
}

TEST_F(FountainLibraryDialogTest, EntryLetGoOnItselfOrBesideTheEntriesStays) {
    FillLibrary({1, 2});
    Manage([](WindowHandle dialog) {
        DragEntry(dialog, 1, 1);
        DragEntry(dialog, 0, 5);
        DragEntry(dialog, 0, -3);
        DragEntry(dialog, 5, 0);
        EXPECT_EQ(ListStarts(dialog), (Colors{1, 2}));
        EXPECT_FALSE(platform::HasMouse(platform::Control(dialog, kLibraryList)));
    });
}

TEST_F(FountainLibraryDialogTest, ReleaseWithoutAPressMovesNothing) {
    FillLibrary({1, 2});
    Manage([](WindowHandle dialog) {
        Mouse(dialog, platform::kMessageMouseMove, 1);
        Mouse(dialog, platform::kMessageLeftButtonUp, 1);
        EXPECT_EQ(ListStarts(dialog), (Colors{1, 2}));
    });
}

TEST_F(FountainLibraryDialogTest, FailureToWriteIsToldAndLeavesTheFile) {
    FillLibrary({1, 2});
    Manage([this](WindowHandle dialog) {
        platform::SetPluginFolder(FilePath("no such folder"));
        platform::ClickControl(dialog, kOk);
    });
    platform::SetPluginFolder("");
    EXPECT_EQ(Messages(), Texts{"There has been an error updating the fountain library."});
    EXPECT_EQ(LibraryStarts(), (Colors{1, 2}));
    EXPECT_EQ(ColorWord{Taken().Start}, 1u);  // the colours are taken all the same
}

TEST_F(FountainLibraryDialogTest, HelpIsThatOfFountains) {
    FillLibrary({1});
    Manage([](WindowHandle dialog) {
        platform::ClickControl(dialog, kHelp);
        EXPECT_EQ(ListStarts(dialog), Colors{1});
    });
    EXPECT_EQ(HelpTarget(), "VORBELx1.HTML#FOUNTAIN");
}

TEST_F(FountainLibraryDialogTest, AddToLibraryKeepsTheControlsColors) {
    InPanel({[this] {
                 MenuGives(kAddToLibraryCommand);
                 Change([](Fountain& fountain) { fountain.Start = 0x445566; });
                 RightPress(60, 30);
             },
             [this] {
                 EXPECT_EQ(LibraryStarts(), Colors{0x445566});
                 EXPECT_TRUE(Messages().empty());
             }});
}

TEST_F(FountainLibraryDialogTest, FailureToAddIsTold) {
    WriteBytes(kLibrary, "no library");
    InPanel({[this] {
                 MenuGives(kAddToLibraryCommand);
                 RightPress(60, 30);
             },
             [this] {
                 EXPECT_EQ(Messages(), Texts{"There has been an error adding this library entry."});
                 EXPECT_EQ(Bytes(kLibrary), "no library");
             }});
}

TEST_F(FountainLibraryDialogTest, NoBlockIsLeftOfTheEntries) {
    FillLibrary({1, 2, 3});
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    Manage([](WindowHandle dialog) {
        DragEntry(dialog, 2, 0);
        platform::ClickControl(dialog, kDeleteEntryButton);
        platform::ClickControl(dialog, kOk);
    });
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

}  // namespace

}  // namespace tess::test
