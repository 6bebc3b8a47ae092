#include "fills/texture_dialog.h"

#include <cstring>

#include "platform/memory.h"
#include "tests/fills/texture_dialog_fixture.h"
#include "tests/shell_stand_in/shell_stand_in.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr char kNotLoaded[] =
    "There has been an error importing the selected texture file. The file may be damaged.";
constexpr char kNotWriteable[] =
    "This file cannot be edited or overwritten.\n\nThe default texture set cannot be modified. To "
    "edit this file, save it to a new name. Hold down the Shift key and click on the + button.";

class TextureDialog : public TextureDialogTest {
protected:
    TextureDialog() {
        Shell() = {};
        WriteGroup("vorbelx1.fft", "Writeable=0", {"Moss", "bark", "Clay"});
        WriteGroup("own.FFT", "Writeable=1", {"Two", "One"});
    }
    static std::string LastMessage() {
        return Shell().messages.empty() ? "" : Shell().messages.back();
    }
    /// Picks the group "own" in an open dialog.
    static void ChooseOwn(WindowHandle dialog) {
        for (int i = 0; i < platform::ItemCount(dialog, kGroups); ++i) {
            if (platform::ItemText(dialog, kGroups, i) == "own")
                platform::ChooseItem(dialog, kGroups, i);
        }
    }
};

TEST_F(TextureDialog, ListsTheGroupByNameAndTheGroups) {
    Edit({[](WindowHandle dialog) {
        EXPECT_EQ(ListOf(dialog), "bark Clay Moss");
        EXPECT_EQ(platform::Selection(dialog, kList), -1);
        EXPECT_EQ(platform::ItemCount(dialog, kGroups), 2);
        const int group = platform::Selection(dialog, kGroups);
        EXPECT_EQ(platform::ItemText(dialog, kGroups, group), "vorbelx1");
    }});
    EXPECT_TRUE(Shell().messages.empty());
}

TEST_F(TextureDialog, OpeningAloneChangesNothing) {
    item.Power[1] = 0.53F;
    item.MatrixSize = 5000;
    item.TextureType = 5;
    const TextureItem before = item;
    const std::string file = FileText("vorbelx1.fft");
    EXPECT_EQ(Edit({}), 1);
    EXPECT_EQ(std::memcmp(&item, &before, sizeof item), 0);
    EXPECT_EQ(FileText("vorbelx1.fft"), file);
}

TEST_F(TextureDialog, OpensWithARedrawnPreview) {
    Edit({[](WindowHandle dialog) { EXPECT_EQ(platform::RepaintCount(dialog, kPreview), 1); }});
}

TEST_F(TextureDialog, MissingFileOpensWithTheMessageAndAnEmptyList) {
    SetGroup("gone.fft");
    Edit({[](WindowHandle dialog) {
        EXPECT_EQ(ListOf(dialog), "");
        EXPECT_FALSE(platform::IsControlEnabled(dialog, kDelete));
        EXPECT_EQ(platform::Selection(dialog, kGroups), -1);
    }});
    EXPECT_EQ(Shell().messages, std::vector<std::string>{kNotLoaded});
}

TEST_F(TextureDialog, CancelLosesTheItemsAndTheListsChanges) {
    SetGroup("own.FFT");
    const TextureItem before = item;
    const std::string file = FileText("own.FFT");
    EXPECT_EQ(Edit({[](WindowHandle dialog) {
                       platform::TypeText(dialog, 517, "99");
                       platform::ClickControl(dialog, kAdd);
                   }},
                   kCancel),
              0);
    EXPECT_EQ(std::memcmp(&item, &before, sizeof item), 0);
    EXPECT_EQ(FileText("own.FFT"), file);
}

TEST_F(TextureDialog, AsksForItsHelp) {
    Edit({[](WindowHandle dialog) { platform::ClickControl(dialog, kHelp); }});
    EXPECT_EQ(help_target, "VORBELx1.HTML#TEXTURE");
}

TEST_F(TextureDialog, LeavesNoBlock) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    Edit({[](WindowHandle dialog) { platform::ChooseItem(dialog, kList, 1); }, ChooseOwn,
          [](WindowHandle dialog) { platform::ClickControl(dialog, kAdd); }},
         kCancel);
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

TEST_F(TextureDialog, ThereIsOneAtATime) {
    Edit({[](WindowHandle) { EXPECT_NE(EditedTexture(), nullptr); }});
    EXPECT_EQ(EditedTexture(), nullptr);
    EXPECT_EQ(RenderTexturePreview({20, 20}), nullptr);
}

TEST_F(TextureDialog, PreviewIsThePictureLessAPixelOnEachSide) {
    Edit({[](WindowHandle) {
        const platform::OwnedBlock picture(RenderTexturePreview({22, 14}));
        const LockedImage image(picture.Get());
        ASSERT_TRUE(image);
        EXPECT_EQ(image->Width, 20);
        EXPECT_EQ(image->Height, 12);
    }});
}

TEST_F(TextureDialog, SelectionTakesTheItemShowsItAndRedraws) {
    Edit({[](WindowHandle dialog) {
        const int before = platform::RepaintCount(dialog, kPreview);
        platform::ChooseItem(dialog, kList, 2);
        EXPECT_EQ(platform::ControlText(dialog, 517), "101");
        EXPECT_EQ(platform::RepaintCount(dialog, kPreview), before + 1);
        EXPECT_TRUE(platform::IsControlEnabled(dialog, kDelete));
    }});
    EXPECT_EQ(item.MatrixSize, 101);
}

TEST_F(TextureDialog, PlusAddsTheItemAndOkSaves) {
    SetGroup("own.FFT");
    Edit({[](WindowHandle dialog) {
        platform::TypeText(dialog, 517, "99");
        platform::ClickControl(dialog, kAdd);
        EXPECT_EQ(ListOf(dialog), "One Two Untitled (double-click to edit)");
        EXPECT_EQ(platform::Selection(dialog, kList), 2);
        EXPECT_TRUE(platform::IsControlEnabled(dialog, kDelete));
    }});
    EXPECT_EQ(NamesIn("own.FFT"), "One Two Untitled (double-click to edit)");
    EXPECT_NE(FileText("own.FFT").find("MatrixSize=99"), std::string::npos);
    EXPECT_NE(FileText("own.FFT").find("Writeable=1"), std::string::npos);
    EXPECT_NE(FileText("own.FFT.bak").find("MatrixSize=101"), std::string::npos);
}

TEST_F(TextureDialog, DefaultGroupTakesNoChange) {
    const std::string file = FileText("vorbelx1.fft");
    Edit({[](WindowHandle dialog) {
              platform::ClickControl(dialog, kAdd);
              EXPECT_EQ(LastMessage(), kNotWriteable);
              platform::ChooseItem(dialog, kList, 0);
              platform::ClickControl(dialog, kDelete);
          },
          [](WindowHandle dialog) { platform::DoubleClickItem(dialog, kList, 1); },
          [](WindowHandle dialog) {
              ShiftClick(dialog, kDelete);
              EXPECT_EQ(ListOf(dialog), "bark Clay Moss");
          }});
    EXPECT_EQ(Shell().messages,
              (std::vector<std::string>{kNotWriteable, kNotWriteable, kNotWriteable,
                                        "The primary texture group cannot be deleted."}));
    EXPECT_EQ(FileText("vorbelx1.fft"), file);
}

TEST_F(TextureDialog, FailureToAddIsTold) {
    SetGroup("own.FFT");
    Edit({[](WindowHandle dialog) {
        platform::FailAllocation(1);
        platform::ClickControl(dialog, kAdd);
        platform::FailAllocation(0);
        EXPECT_EQ(ListOf(dialog), "One Two");
    }});
    EXPECT_EQ(LastMessage(), "There has been an error adding your texture.");
}

TEST_F(TextureDialog, ShiftPlusSavesTheListUnderANewName) {
    Edit({[](WindowHandle dialog) { ShiftClick(dialog, kAdd); },
          [](WindowHandle box) {
              EXPECT_EQ(platform::ControlText(box, kNameEdit), "Untitled");
              Name("mine")(box);
          },
          [](WindowHandle dialog) {
              const int group = platform::Selection(dialog, kGroups);
              EXPECT_EQ(platform::ItemText(dialog, kGroups, group), "mine");
              platform::ClickControl(dialog, kAdd);  // the group may be changed
          }});
    EXPECT_STREQ(TextureGroupFile, "mine.FFT");
    EXPECT_EQ(NamesIn("mine.FFT"), "bark Clay Moss Untitled (double-click to edit)");
    EXPECT_EQ(NamesIn("vorbelx1.fft"), "Moss bark Clay");
}

TEST_F(TextureDialog, NewNameOfAGroupThatIsThereReplacesItAndKeepsItAsBackup) {
    Edit({[](WindowHandle dialog) { ShiftClick(dialog, kAdd); }, Name("own"),
          [](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kGroups), 2); }});
    EXPECT_EQ(NamesIn("own.FFT"), "bark Clay Moss");
    EXPECT_EQ(NamesIn("own.FFT.bak"), "Two One");
}

TEST_F(TextureDialog, NameWithAPointBeginningLikeAnotherIsAGroupOfItsOwn) {
    Edit({[](WindowHandle dialog) { ShiftClick(dialog, kAdd); }, Name("own.set"),
          [](WindowHandle dialog) {
              const int group = platform::Selection(dialog, kGroups);
              EXPECT_EQ(platform::ItemText(dialog, kGroups, group), "own.set");
              EXPECT_EQ(platform::ItemCount(dialog, kGroups), 3);
          },
          ChooseOwn, [](WindowHandle dialog) { EXPECT_EQ(ListOf(dialog), "One Two"); }},
         kCancel);
    EXPECT_EQ(NamesIn("own.set.FFT"), "bark Clay Moss");
}

TEST_F(TextureDialog, NameBoxThatIsCancelledChangesNothing) {
    Edit({[](WindowHandle dialog) { ShiftClick(dialog, kAdd); },
          [](WindowHandle box) { platform::ClickControl(box, kCancel); }});
    EXPECT_STREQ(TextureGroupFile, "vorbelx1.fft");
}

TEST_F(TextureDialog, NameThatCannotBeAFileIsToldAndTheGroupStays) {
    for (const char* name : {"no/such", "..\\up", "c:d"}) {
        Edit({[](WindowHandle dialog) { ShiftClick(dialog, kAdd); }, Name(name)});
        EXPECT_EQ(LastMessage(), "Error writing file") << name;
        EXPECT_STREQ(TextureGroupFile, "vorbelx1.fft");
    }
}

TEST_F(TextureDialog, MinusDeletesTheSelectedAndSelectsTheNext) {
    SetGroup("own.FFT");
    Edit({[](WindowHandle dialog) {
        EXPECT_FALSE(platform::IsControlEnabled(dialog, kDelete));
        platform::ChooseItem(dialog, kList, 0);
        platform::ClickControl(dialog, kDelete);
        EXPECT_EQ(ListOf(dialog), "Two");
        EXPECT_EQ(platform::Selection(dialog, kList), 0);
    }});
    EXPECT_EQ(NamesIn("own.FFT"), "Two");
}

TEST_F(TextureDialog, MinusOnTheLastSelectsNothing) {
    SetGroup("own.FFT");
    Edit({[](WindowHandle dialog) {
        platform::ChooseItem(dialog, kList, 1);
        platform::ClickControl(dialog, kDelete);
        EXPECT_EQ(ListOf(dialog), "One");
        EXPECT_EQ(platform::Selection(dialog, kList), -1);
        EXPECT_FALSE(platform::IsControlEnabled(dialog, kDelete));
    }});
}

TEST_F(TextureDialog, EmptiedGroupIsAnEmptyFileWhichIsToldWhenItIsPickedNext) {
    SetGroup("own.FFT");
    Edit({[](WindowHandle dialog) {
        for (int i = 0; i < 2; ++i) {
            platform::ChooseItem(dialog, kList, 0);
            platform::ClickControl(dialog, kDelete);
        }
    }});
    EXPECT_EQ(FileText("own.FFT"), "");
    EXPECT_TRUE(Shell().messages.empty());
    SetGroup("vorbelx1.fft");
    Edit({ChooseOwn, [](WindowHandle dialog) { EXPECT_EQ(ListOf(dialog), ""); }});
    EXPECT_EQ(Shell().messages, std::vector<std::string>{kNotLoaded});
}

TEST_F(TextureDialog, ShiftMinusAsksBeforeItDeletesTheGroup) {
    SetGroup("own.FFT");
    Edit({[](WindowHandle dialog) {
        platform::ChooseItem(dialog, kList, 0);
        ShiftClick(dialog, kDelete);
    }});
    EXPECT_EQ(LastMessage(),
              "Do you want to delete the own texture group?\n\nClick on Yes to delete this file, "
              "or No to abort.");
    EXPECT_EQ(NamesIn("own.FFT"), "Two One");
    EXPECT_STREQ(TextureGroupFile, "own.FFT");
}

TEST_F(TextureDialog, ShiftMinusDeletesTheGroupAndGoesToTheDefaultOne) {
    const ScratchFolder trash;
    platform::SetUserFolder(trash.Path());
    SetGroup("own.FFT");
    Shell().says_yes = true;
    Edit({[](WindowHandle dialog) {
        platform::ChooseItem(dialog, kList, 0);
        ShiftClick(dialog, kDelete);
        EXPECT_EQ(platform::ItemCount(dialog, kGroups), 1);
        EXPECT_EQ(platform::Selection(dialog, kGroups), 0);
        EXPECT_EQ(ListOf(dialog), "bark Clay Moss");
        platform::ClickControl(dialog, kAdd);
        EXPECT_EQ(LastMessage(), kNotWriteable);
    }});
    platform::SetUserFolder("");
    EXPECT_STREQ(TextureGroupFile, "vorbelx1.fft");
    EXPECT_EQ(FileText("own.FFT"), "missing");
    EXPECT_EQ(NamesIn("vorbelx1.fft"), "Moss bark Clay");
}

TEST_F(TextureDialog, DoubleClickRenamesAndTheEntryMovesToItsPlace) {
    SetGroup("own.FFT");
    Edit({[](WindowHandle dialog) { platform::DoubleClickItem(dialog, kList, 0); },
          [](WindowHandle box) {
              EXPECT_EQ(platform::ControlText(box, kNameEdit), "One");
              Name("Zebra")(box);
          },
          [](WindowHandle dialog) {
              EXPECT_EQ(ListOf(dialog), "Two Zebra");
              EXPECT_EQ(platform::Selection(dialog, kList), 1);
              platform::ChooseItem(dialog, kList, 1);
              EXPECT_EQ(platform::ControlText(dialog, 517), "102");
          }});
    EXPECT_EQ(NamesIn("own.FFT"), "Two Zebra");
}

TEST_F(TextureDialog, ChosenGroupIsTheOneThatOpensNext) {
    Edit({ChooseOwn, [](WindowHandle dialog) { EXPECT_EQ(ListOf(dialog), "One Two"); }}, kCancel);
    EXPECT_STREQ(TextureGroupFile, "own.FFT");
    Edit({[](WindowHandle dialog) { EXPECT_EQ(ListOf(dialog), "One Two"); }});
}

TEST_F(TextureDialog, WriteableFollowsTheFileAndStaysWithoutItsLine) {
    WriteGroup("silent.fft", "", {"Hush"});
    const auto choose = [](const char* name) {
        return [name](WindowHandle dialog) {
            for (int i = 0; i < platform::ItemCount(dialog, kGroups); ++i) {
                if (platform::ItemText(dialog, kGroups, i) == name)
                    platform::ChooseItem(dialog, kGroups, i);
            }
            platform::ClickControl(dialog, kAdd);
        };
    };
    Edit({choose("own"), choose("silent"),
          [](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kList), 2); },
          choose("vorbelx1"),
          [](WindowHandle dialog) {
              EXPECT_EQ(platform::ItemCount(dialog, kList), 3);
              EXPECT_EQ(LastMessage(), kNotWriteable);
          },
          choose("silent"),
          [](WindowHandle dialog) { EXPECT_EQ(platform::ItemCount(dialog, kList), 1); }},
         kCancel);
}

TEST_F(TextureDialog, OkWritesNoGroupThatWasChosenAfterAChange) {
    WriteGroup("other.FFT", "Writeable=1", {"Hush"});
    SetGroup("own.FFT");
    Edit({[](WindowHandle dialog) {
        platform::ClickControl(dialog, kAdd);
        for (int i = 0; i < platform::ItemCount(dialog, kGroups); ++i) {
            if (platform::ItemText(dialog, kGroups, i) == "other")
                platform::ChooseItem(dialog, kGroups, i);
        }
    }});
    EXPECT_EQ(FileText("other.FFT.bak"), "missing");
    EXPECT_EQ(NamesIn("own.FFT"), "Two One");
}

TEST_F(TextureDialog, DamagedGroupEmptiesTheListAndIsNotWrittenOver) {
    std::FILE* stream = platform::OpenFile(platform::PluginFile("own.FFT"), "wb");
    std::fputs("damaged", stream);
    std::fclose(stream);
    Edit({ChooseOwn, [](WindowHandle dialog) { EXPECT_EQ(ListOf(dialog), ""); }});
    EXPECT_EQ(LastMessage(), kNotLoaded);
    EXPECT_EQ(FileText("own.FFT"), "damaged");
}

TEST_F(TextureDialog, SpinnersWriteTheItemWithinTheirRange) {
    Edit({[](WindowHandle dialog) {
        platform::TypeText(dialog, 507, "60");
        platform::TypeText(dialog, 512, "99999");
        platform::TypeText(dialog, 518, "1");
        platform::TypeText(dialog, 517, "333");
        EXPECT_EQ(platform::RepaintCount(dialog, kPreview), 1);  // it does not follow
    }});
    EXPECT_EQ(item.Power[0], 0.6F);
    EXPECT_EQ(item.SeedValue[0], 32760);
    EXPECT_EQ(item.Dimension[0], 2.0F);
    EXPECT_EQ(item.MatrixSize, 333);
}

TEST_F(TextureDialog, PowerOfZeroIsZero) {
    Edit({[](WindowHandle dialog) { platform::TypeText(dialog, 507, "0"); }});
    EXPECT_EQ(item.Power[0], 0.0F);
}

TEST_F(TextureDialog, HiddenControlsWriteNothing) {
    const TextureItem before = item;
    Edit({[](WindowHandle dialog) { platform::SetControlText(dialog, 523, "200"); }});
    EXPECT_EQ(std::memcmp(&item, &before, sizeof item), 0);
}

TEST_F(TextureDialog, RangesComeFromTheProgram) {
    Edit({[](WindowHandle dialog) {
        EXPECT_EQ(platform::ControlText(dialog, 10507), "0,150,75");
        EXPECT_EQ(platform::ControlText(dialog, 10516), "1,32760,10004");
        EXPECT_EQ(platform::ControlText(dialog, 10517), "32,1024,64");
        EXPECT_EQ(platform::ControlText(dialog, 10518), "200,2000,200");
        EXPECT_EQ(platform::ControlText(dialog, 10532), "0,800,100");
    }});
}

TEST_F(TextureDialog, ColorsComeFromTheHostsChooser) {
    chooser_color = 0x123456;
    Edit({[](WindowHandle dialog) { platform::ClickControl(dialog, 502); }});
    EXPECT_EQ(chooser_start, 0xFFFFFFu);
    EXPECT_EQ(ColorWord{item.ForeColour[0]}, 0x123456u);
    chooser_color = -1;
    Edit({[](WindowHandle dialog) { platform::ClickControl(dialog, 501); }});
    EXPECT_EQ(chooser_start, 0xFF0000u);
    EXPECT_EQ(ColorWord{item.BackColour}, 0xFF0000u);
}

TEST_F(TextureDialog, KindShowsItsControlsWithTheirCompanionsAndNoOthers) {
    Edit({[](WindowHandle dialog) {
        for (int kind = 0; kind < kTextureKinds; ++kind) {
            platform::ChooseItem(dialog, kKinds, kind);
            const auto& shown = TextureKindTable[kind].Controls;
            for (int id = 501; id <= 532; ++id) {
                const bool is_shown = std::find(shown.begin(), shown.end(), id) != shown.end();
                for (const int offset : {0, 10000, 11000}) {
                    if (platform::Control(dialog, id + offset) == nullptr) continue;
                    EXPECT_EQ(platform::IsControlVisible(dialog, id + offset), is_shown)
                        << kind << " " << id + offset;
                }
            }
        }
    }});
    EXPECT_EQ(item.TextureType, 5);
}

TEST_F(TextureDialog, ShapeIsTakenWhenItsListCloses) {
    item.TextureType = 5;
    Edit({[](WindowHandle dialog) {
        EXPECT_EQ(ListOf(dialog, 531), "Ellipse Fuzzy Luminous Sphere");
        EXPECT_EQ(platform::Selection(dialog, 531), 0);
        platform::ChooseItem(dialog, 531, 3);
    }});
    EXPECT_EQ(item.BubbleShape, 3);
}

TEST_F(TextureDialog, ItemOfNoKindShowsNoneOfItsControls) {
    item.TextureType = 77;
    Edit({[](WindowHandle dialog) {
        EXPECT_EQ(platform::Selection(dialog, kKinds), -1);
        EXPECT_FALSE(platform::IsControlVisible(dialog, 501));
    }});
    EXPECT_EQ(item.TextureType, 77);
}

TEST_F(TextureDialog, PreviewButtonRedraws) {
    Edit({[](WindowHandle dialog) {
        const int before = platform::RepaintCount(dialog, kPreview);
        platform::ClickControl(dialog, kPreviewButton);
        EXPECT_EQ(platform::RepaintCount(dialog, kPreview), before + 1);
    }});
}

}  // namespace

}  // namespace tess::test
