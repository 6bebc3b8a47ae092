// The fountain button under the mouse. Its strip is 181 pixels wide, from column 8 on; the
// seven default markers stand at columns 30, 53, 76, 98, 121, 144 and 166.

#include "fills/fountain_control.h"

#include "fills/fountain_editing.h"
#include "fills/fountain_mouse.h"
#include "tests/fills/fountain_control_fixture.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

constexpr ColorWord kBlue = 0xFF0000;
using Indexes = std::vector<int>;
using Texts = std::vector<std::string>;
constexpr char kLooped[] = "FountainButtonLooped";

TEST_F(FountainControlTest, IsMadeInItsOwnSizeWithAPreviewOfItsStrip) {
    InPanel({[&] {
        EXPECT_EQ(platform::ClientSize(Button()), (platform::PixelSize{197, 50}));
        const LockedImage preview(Record().Preview);
        ASSERT_TRUE(preview);
        EXPECT_EQ(preview->Width, 181);
        EXPECT_EQ(preview->Height, 30);
    }});
}

TEST_F(FountainControlTest, DragMovesAMarkerToItsPlaceInTheOrder) {
    InPanel({[&] { Drag(30, 60); },
             [&] {
                 EXPECT_EQ(Positions(), (Indexes{64, 73, 96, 128, 160, 192, 224}));
                 EXPECT_EQ(ColorOf(1), kBlue);
                 EXPECT_GT(Changes(), 0);
             }});
}

TEST_F(FountainControlTest, DragBeyondTheEndsHoldsToTheFirstAndLastPosition) {
    InPanel({[&] { Drag(98, -40); }, [&] { Drag(121, 400); },
             [&] {
                 EXPECT_EQ(Positions(), (Indexes{1, 32, 64, 96, 192, 224, 255}));
             }});
}

TEST_F(FountainControlTest, DragOntoATakenPositionEndsBesideIt) {
    // Column 121 is position trunc(113 / 181 * 255) = 159; 160 is taken, 159 is not.
    InPanel({[&] {
                 PutMarkers({100, 159});
             },
             [&] { Drag(8 + 70, 121); },
             [&] {
                 EXPECT_EQ(Positions(), (Indexes{158, 159}));
             }});
}

TEST_F(FountainControlTest, DragToWhereNoSpaceIsFoundLeavesTheMarkerInItsPlace) {
    // Column 37 is position trunc(29 / 181 * 255) = 40; the search would step between 40
    // and 39 without end.
    InPanel({[&] {
                 PutMarkers({39, 40, 200});
             },
             [&] { Drag(8 + 141, 37); },
             [&] {
                 EXPECT_EQ(Positions(), (Indexes{39, 40, 200}));
                 EXPECT_EQ(ColorOf(2), 0xC8C8C8u);
             }});
}

TEST_F(FountainControlTest, ClickOnAMarkerChangesNothingAndPostsTheCommand) {
    InPanel({[&] {
                 Press(53, 6);
                 EXPECT_TRUE(platform::HasMouse(Button()));
                 EXPECT_EQ(int{Record().Selected}, 1);
                 EXPECT_EQ(std::uint32_t{Record().Dragging}, 1u);
                 Release(53, 8);
                 EXPECT_FALSE(platform::HasMouse(Button()));
             },
             [&] {
                 EXPECT_EQ(Positions(), (Indexes{32, 64, 96, 128, 160, 192, 224}));
                 EXPECT_EQ(std::uint32_t{Record().OutlineShown}, 0u);
                 EXPECT_EQ(Changes(), 1);
             }});
}

TEST_F(FountainControlTest, PressBesideTheMarkersDoesNothing) {
    InPanel({[&] {
        for (const auto& [x, y] : {std::pair{42, 6}, {30, 2}, {30, 10}, {60, 30}}) {
            Press(x, y);
            EXPECT_FALSE(platform::HasMouse(Button())) << x << " " << y;
            Release(x, y);
        }
        EXPECT_EQ(Changes(), 0);
    }});
}

TEST_F(FountainControlTest, FirstOfTwoMarkersAtAPlaceIsPressed) {
    InPanel({[&] {
                 PutMarkers({128, 130});
             },
             [&] {
                 Press(98, 6);
                 EXPECT_EQ(int{Record().Selected}, 0);
                 Release(98, 6);
             }});
}

TEST_F(FountainControlTest, TakenAwayMouseEndsTheDrag) {
    InPanel({[&] {
                 Press(30, 6);
                 Move(60, 6);
                 CancelFountainDrag(Button());
                 platform::ReleaseMouse();
                 Release(60, 6);
             },
             [&] {
                 EXPECT_EQ(Positions().front(), 32);
                 EXPECT_EQ(std::uint32_t{Record().Dragging}, 0u);
             }});
}

TEST_F(FountainControlTest, DoubleClickOnAHandleAsksForItsColor) {
    InPanel({[&] {
                 ChooserGives(0x123456);
                 DoubleClick(8, 6);
                 DoubleClick(189, 6);
             },
             [&] {
                 EXPECT_EQ(AskedColors(), (std::vector<ColorWord>{0, 0xFFFFFF}));
                 EXPECT_EQ(ColorWord{Record().Start}, 0x123456u);
                 // The top byte of the word stays.
                 EXPECT_EQ(ColorWord{Record().End}, 0xFF123456u);
             }});
}

TEST_F(FountainControlTest, DoubleClickOnAMarkerAsksForItsColor) {
    InPanel({[&] {
                 ChooserGives(0xABCDEF);
                 DoubleClick(166, 6);
             },
             [&] {
                 EXPECT_EQ(AskedColors(), std::vector<ColorWord>{0xCC0099});
                 EXPECT_EQ(FountainMarker{Record().Markers[6]}, 0xE0ABCDEFu);
                 EXPECT_EQ(Changes(), 1);
             }});
}

TEST_F(FountainControlTest, CancelledChooserChangesNothing) {
    InPanel({[&] { DoubleClick(30, 6); }, [&] { DoubleClick(42, 6); },
             [&] {
                 EXPECT_EQ(AskedColors(), (std::vector<ColorWord>{kBlue, 0x808080}));
                 EXPECT_EQ(int{Record().Count}, 7);
                 EXPECT_EQ(Changes(), 0);
             }});
}

TEST_F(FountainControlTest, DoubleClickInTheTrackAddsAMarker) {
    InPanel({[&] {
                 ChooserGives(0x00FF7F);
                 DoubleClick(42, 6);  // trunc(34 / 181 * 255) = 47
             },
             [&] {
                 EXPECT_EQ(Positions(), (Indexes{32, 47, 64, 96, 128, 160, 192, 224}));
                 EXPECT_EQ(ColorOf(1), 0x00FF7Fu);
             }});
}

TEST_F(FountainControlTest, DoubleClickInTheStripOrTheMarginDoesNothing) {
    InPanel({[&] {
                 DoubleClick(60, 30);
                 DoubleClick(60, 13);
                 DoubleClick(195, 6);
             },
             [&] { EXPECT_TRUE(AskedColors().empty()); }});
}

TEST_F(FountainControlTest, LoopedOneHasNoRightHandle) {
    InPanel({[&] {
                 ChooserGives(0x010203);
                 DoubleClick(186, 6);  // track: trunc(178 / 181 * 255) = 250
                 DoubleClick(191, 6);  // nothing
             },
             [&] {
                 EXPECT_EQ(AskedColors(), std::vector<ColorWord>{0x808080});
                 EXPECT_EQ(Positions().back(), 250);
                 EXPECT_EQ(ColorWord{Record().End}, 0xFFFFFFFFu);
             }},
            kLooped);
}

TEST_F(FountainControlTest, EndColorOfALoopedOneIsNotAskedFor) {
    InPanel({[&] { Send(ChooseFountainColor, kFountainEnd); },
             [&] { EXPECT_TRUE(AskedColors().empty()); }},
            kLooped);
}

TEST_F(FountainControlTest, ColorOfAMarkerThatIsNotThereIsAnError) {
    InPanel({[&] {
        Send(ChooseFountainColor, 7);
        Send(ChooseFountainColor, -3);
        EXPECT_EQ(Messages(), (Texts{"Internal error", "Internal error"}));
        EXPECT_TRUE(AskedColors().empty());
    }});
}

TEST_F(FountainControlTest, SixtyFifthMarkerHasNoSpace) {
    InPanel({[&] {
        Indexes positions(64);
        for (int i = 0; i < 64; ++i)
            positions[static_cast<std::size_t>(i)] = 100 + i;
        PutMarkers(positions);
        Send(AddFountainMarker, 10);
        EXPECT_EQ(Messages(),
                  Texts{"No more marker space is available. Delete an existing marker."});
        EXPECT_EQ(int{Record().Count}, 64);
    }});
}

TEST_F(FountainControlTest, SearchThatWouldNeverEndHasNoSpace) {
    InPanel({[&] {
        PutMarkers({62, 63});
        Send(AddFountainMarker, 63);
        EXPECT_EQ(Messages().size(), 1u);
        EXPECT_TRUE(AskedColors().empty());
    }});
}

TEST_F(FountainControlTest, RightPressInTheStripShowsTheLibraryMenu) {
    InPanel({[&] { RightPress(60, 30); },
             [&] {
                 EXPECT_EQ(MenuTexts(), (Texts{"Add to library", "Manage library"}));
             }});
}

TEST_F(FountainControlTest, RightPressOnAMarkerShowsItsMenu) {
    InPanel(
        {[&] { RightPress(76, 6); },
         [&] {
             EXPECT_EQ(MenuTexts(), (Texts{"Delete marker", "Change color", "Adjust position"}));
             EXPECT_EQ(int{Record().Selected}, 2);
         }});
}

TEST_F(FountainControlTest, RightPressWithShiftDeletesTheMarker) {
    InPanel({[&] {
                 platform::HoldShift(true);
                 RightPress(76, 6);
             },
             [&] {
                 EXPECT_TRUE(MenuTexts().empty());
                 EXPECT_EQ(Positions(), (Indexes{32, 64, 128, 160, 192, 224}));
                 EXPECT_EQ(Changes(), 1);
             }});
}

TEST_F(FountainControlTest, RightPressOnAHandleAsksForItsColorAndInTheTrackDoesNothing) {
    InPanel({[&] {
                 RightPress(8, 6);
                 RightPress(189, 6);
                 RightPress(42, 6);
             },
             [&] {
                 EXPECT_EQ(AskedColors(), (std::vector<ColorWord>{0, 0xFFFFFF}));
                 EXPECT_TRUE(MenuTexts().empty());
             }});
}

TEST_F(FountainControlTest, MenuDeletesTheMarkerThatItWasOpenedOn) {
    InPanel({[&] {
                 MenuGives(kDeleteMarkerCommand);
                 RightPress(53, 6);
             },
             [&] {
                 EXPECT_EQ(Positions(), (Indexes{32, 96, 128, 160, 192, 224}));
                 EXPECT_EQ(Changes(), 2);  // the choice's and the change's
             }});
}

TEST_F(FountainControlTest, MenuChangesTheColor) {
    InPanel({[&] {
                 ChooserGives(0x777777);
                 MenuGives(kChangeColorCommand);
                 RightPress(53, 6);
             },
             [&] { EXPECT_EQ(ColorOf(1), 0x777777u); }});
}

TEST_F(FountainControlTest, DeletingTheOnlyMarkerLeavesAPlainRun) {
    InPanel({[&] {
                 PutMarkers({100});
                 Send(DeleteFountainMarker, 0);
             },
             [&] {
                 EXPECT_EQ(int{Record().Count}, 0);
                 Fountain plain;
                 InitFountain(&plain, FountainPreset::Plain);
                 EXPECT_EQ(Pixels(Record().Preview),
                           Pixels(platform::OwnedBlock(RenderFountainImage(plain, 181, 30)).Get()));
                 Send(DeleteFountainMarker, 0);
                 EXPECT_EQ(Messages(), Texts{"That marker cannot be deleted"});
             }});
}

TEST_F(FountainControlTest, DeletingAMarkerThatIsNotThereIsAnError) {
    InPanel({[&] {
        Send(DeleteFountainMarker, 7);
        Send(DeleteFountainMarker, -1);
        EXPECT_EQ(Messages(), (Texts{"Internal error", "Internal error"}));
        EXPECT_EQ(int{Record().Count}, 7);
    }});
}

TEST_F(FountainControlTest, PositionIsTypedInADialog) {
    std::string shown, title, up_down;
    InInnerDialog([&](platform::WindowHandle dialog) {
        shown = platform::ControlText(dialog, 100);
        title = platform::Title(dialog);
        up_down = platform::ControlText(dialog, 10100);
        platform::TypeText(dialog, 100, "200");
        platform::ClickControl(dialog, 1);
    });
    InPanel({[&] {
                 MenuGives(kAdjustPositionCommand);
                 RightPress(30, 6);
             },
             [&] {
                 EXPECT_EQ(InnerDialogs(), Texts{"9996"});
                 EXPECT_EQ(shown, "32");
                 EXPECT_EQ(title, "Marker Position");
                 EXPECT_EQ(up_down, "1,255,64");
                 EXPECT_EQ(Positions(), (Indexes{64, 96, 128, 160, 192, 200, 224}));
                 EXPECT_EQ(ColorOf(5), kBlue);
             }});
}

TEST_F(FountainControlTest, TypedPositionIsHeldToTheRange) {
    std::string typed = "999";
    InInnerDialog([&](platform::WindowHandle dialog) {
        platform::TypeText(dialog, 100, typed);
        platform::ClickControl(dialog, 1);
    });
    InPanel({[&] { Send(AdjustFountainMarker, 0); },
             [&] {
                 EXPECT_EQ(Positions().back(), 255);
                 typed = "0";
                 Send(AdjustFountainMarker, 6);
             },
             [&] { EXPECT_EQ(Positions().front(), 1); }});
}

TEST_F(FountainControlTest, TwoMarkersCanEndAtOnePosition) {
    InInnerDialog([](platform::WindowHandle dialog) {
        platform::TypeText(dialog, 100, "96");
        platform::ClickControl(dialog, 1);
    });
    InPanel({[&] { Send(AdjustFountainMarker, 1); },
             [&] {
                 EXPECT_EQ(Positions(), (Indexes{32, 96, 96, 128, 160, 192, 224}));
                 // The first of them has no width: what stands there is a hard step.
                 EXPECT_EQ(ColorOf(1), 0xFFFF00u);
                 EXPECT_EQ(ColorOf(2), 0x00FF00u);
             }});
}

TEST_F(FountainControlTest, ClosedPositionDialogLeavesThePosition) {
    InInnerDialog([](platform::WindowHandle dialog) {
        platform::TypeText(dialog, 100, "7");
        platform::PostCommand(dialog, 2);
    });
    InPanel({[&] { Send(AdjustFountainMarker, 0); }, [&] { EXPECT_EQ(Positions().front(), 32); }});
}

TEST_F(FountainControlTest, PositionOfAMarkerThatIsNotThereOpensNothing) {
    InPanel({[&] {
        Send(AdjustFountainMarker, 7);
        Send(AdjustFountainMarker, -1);
        EXPECT_TRUE(InnerDialogs().empty());
        EXPECT_TRUE(Messages().empty());
    }});
}

TEST_F(FountainControlTest, DamagedCountReachesNoMarkerThatIsNotThere) {
    for (const std::int32_t count : {-5, 65, 1000000, -2147483647}) {
        InPanel({[&] {
                     Change([&](Fountain& fountain) { fountain.Count = count; });
                     Send(AddFountainMarker, 10);
                     Send(DeleteFountainMarker, 64);
                     Send(DeleteFountainMarker, 900);
                     Send(ChooseFountainColor, 70);
                     Send(AdjustFountainMarker, 70);
                     Drag(30, 60);
                     DoubleClick(98, 6);
                     RightPress(98, 6);
                 },
                 [&] { EXPECT_TRUE(static_cast<bool>(LockFountain(Button()))); }});
    }
}

TEST_F(FountainControlTest, NextInitializationLoopsAnUnloopedRecordAgain) {
    InPanel({[&] {
                Change([](Fountain& fountain) { fountain.Flags = kFountainSaved; });
                BindFountainButton(platform::ParentDialog(Button()), kButton, kLooped);
                EXPECT_EQ(std::uint32_t{Record().Flags}, kFountainSaved | kFountainLooped);
            }},
            kLooped);
}

TEST_F(FountainControlTest, FileIsReadAsAtInitialization) {
    Fountain stored;
    InitFountain(&stored, FountainPreset::OneGrey);
    ASSERT_EQ(WriteFountainFile(FilePath("some.mtrl"), stored), 1);
    InPanel({[&] {
                EXPECT_EQ(LoadFountainFile(Button(), FilePath("some.mtrl")), 1);
                EXPECT_EQ(Positions(), Indexes{128});
                EXPECT_EQ(std::uint32_t{Record().Flags}, kFountainSaved | kFountainLooped);
                WriteBytes("short.mtrl", Bytes("some.mtrl").substr(0, 584));
                EXPECT_EQ(LoadFountainFile(Button(), FilePath("short.mtrl")), 0);
                EXPECT_EQ(LoadFountainFile(Button(), FilePath("none.mtrl")), 0);
                EXPECT_EQ(Positions(), Indexes{128});
            }},
            kLooped);
}

TEST_F(FountainControlTest, NoBlockIsLeftOfRecordsAndPreviews) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    InPanel({[&] { Drag(30, 60); }, [&] { Send(DeleteFountainMarker, 0); }});
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

TEST(DisabledPreview, IsHalfAsSaturatedAndOneDegreeOn) {
    const platform::OwnedBlock picture(NewPackedDib(2, 1, nullptr, 24));
    {
        const LockedImage image(picture.Get());
        SetDibPixel(image, 0, 0, MakeColor(255, 0, 0));
        SetDibPixel(image, 1, 0, MakeColor(90, 90, 90));
    }
    const platform::OwnedBlock disabled(DisabledPreview(picture.Get()));
    const LockedImage image(disabled.Get());
    ASSERT_TRUE(image);
    // Hue 1, saturation 0.5, value 1: green is (1 - (1 - 1 / 60) * 0.5) * 255 = 129.6.
    EXPECT_EQ(GetDibPixel(image, 0, 0), MakeColor(255, 129, 127));
    EXPECT_EQ(GetDibPixel(image, 1, 0), MakeColor(90, 90, 90));
    EXPECT_EQ(DisabledPreview(nullptr), nullptr);
}

}  // namespace

}  // namespace tess::test
