#include <cstring>

#include "fills/fountain_control.h"
#include "fills/gradient_preview.h"
#include "platform/memory_accounting.h"
#include "tests/fills/gradient_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

TEST_F(GradientDialogTest, ShowsTheRecord) {
    gradient.Rotation = -30;
    gradient.EdgePad = 7;
    gradient.CenterX = -12;
    gradient.CenterY = 50;
    gradient.Midpoint = 33;
    Edit({[](WindowHandle dialog) {
        EXPECT_EQ(platform::ControlText(dialog, kRotationEdit), "-30");
        EXPECT_EQ(platform::ControlText(dialog, kEdgePadEdit), "7");
        EXPECT_EQ(platform::ControlText(dialog, kCenterXEdit), "-12");
        EXPECT_EQ(platform::ControlText(dialog, kCenterYEdit), "50");
        EXPECT_EQ(platform::ControlText(dialog, kMidpointEdit), "33");
        EXPECT_EQ(platform::SliderPosition(dialog, kMidpointSlider), 33);
        EXPECT_TRUE(platform::IsChecked(dialog, kTwoColorRadio));
        EXPECT_FALSE(platform::IsChecked(dialog, kMultiColorRadio));
    }});
}

TEST_F(GradientDialogTest, OpeningAloneChangesNothing) {
    gradient.Rotation = 360;
    gradient.CenterY = -50;
    const Gradient before = gradient;
    EXPECT_EQ(Edit({}), 1);
    EXPECT_EQ(std::memcmp(&gradient, &before, sizeof gradient), 0);
}

TEST_F(GradientDialogTest, RangeOfTheCenterIsMade50) {
    Edit({[](WindowHandle dialog) {
        EXPECT_EQ(platform::ControlText(dialog, 10113), "-50,50,0");
        EXPECT_EQ(platform::ControlText(dialog, 10114), "-50,50,0");
        platform::SetUpDownPosition(dialog, 10113, 99);
        EXPECT_EQ(platform::ControlText(dialog, kCenterXEdit), "50");
        platform::SetUpDownPosition(dialog, 10111, -999);
        EXPECT_EQ(platform::ControlText(dialog, kRotationEdit), "-360");
    }});
}

TEST_F(GradientDialogTest, MidpointBeyondItsRangeIsShownAndKeptHeld) {
    gradient.Midpoint = 400;
    Edit({[this](WindowHandle dialog) {
        EXPECT_EQ(platform::ControlText(dialog, kMidpointEdit), "99");
        EXPECT_EQ(int{gradient.Midpoint}, 99);
    }});
}

TEST_F(GradientDialogTest, EndsWith1ForOkAnd0ForCancel) {
    EXPECT_EQ(Edit({}, kOk), 1);
    EXPECT_EQ(Edit({}, kCancel), 0);
}

TEST_F(GradientDialogTest, WorksOnTheRecordItselfAndForgetsItAtTheEnd) {
    Edit({[this](WindowHandle) { EXPECT_EQ(EditedGradient(), &gradient); }}, kCancel);
    EXPECT_EQ(EditedGradient(), nullptr);
}

TEST_F(GradientDialogTest, AsksForItsHelp) {
    Edit({[](WindowHandle dialog) { platform::ClickControl(dialog, kHelp); }});
    EXPECT_EQ(help_target, "VORBELx1.HTML#GRADIENT");
}

TEST_F(GradientDialogTest, LeavesNoBlock) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    Edit({});
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

struct TypeCase {
    int button;
    GradientType type;
    bool has_rotation, has_center;
};
constexpr TypeCase kTypes[] = {{kConicalButton, GradientType::Conical, true, true},
                               {kEllipticalButton, GradientType::Elliptical, false, true},
                               {kRectangularButton, GradientType::Rectangular, false, true},
                               {kLinearButton, GradientType::Linear, true, false}};

TEST_F(GradientDialogTest, SampleButtonSetsTheTypeAndWhichSpinnersAreOn) {
    Edit({[this](WindowHandle dialog) {
        for (const TypeCase& of : kTypes) {
            platform::ClickControl(dialog, of.button);
            EXPECT_EQ(gradient.Type, of.type);
            for (const int id : {111, 10111})
                EXPECT_EQ(IsOn(dialog, id), of.has_rotation) << of.button << " " << id;
            for (const int id : {113, 10113, 114, 10114, 116, 117})
                EXPECT_EQ(IsOn(dialog, id), of.has_center) << of.button << " " << id;
            EXPECT_TRUE(IsOn(dialog, kEdgePadEdit));
        }
    }});
}

TEST_F(GradientDialogTest, SampleButtonRepaintsAllSamplesAndThePreview) {
    Edit({[](WindowHandle dialog) {
        EXPECT_EQ(Repaints(dialog, [&] { platform::ClickControl(dialog, kConicalButton); }), 1);
        for (const int button : {101, 102, 103, 104})
            EXPECT_EQ(platform::RepaintCount(dialog, button), 1);
    }});
}

TEST_F(GradientDialogTest, OpensWithTheControlsOfItsType) {
    gradient.Type = GradientType::Rectangular;
    Edit({[](WindowHandle dialog) {
        EXPECT_FALSE(IsOn(dialog, kRotationEdit));
        EXPECT_TRUE(IsOn(dialog, kCenterXEdit));
    }});
}

TEST_F(GradientDialogTest, RadioSetsTwoColorAndItsControls) {
    Edit({[this](WindowHandle dialog) {
        for (const bool is_two_color : {false, true}) {
            const int radio = is_two_color ? kTwoColorRadio : kMultiColorRadio;
            EXPECT_EQ(Repaints(dialog, [&] { platform::ClickControl(dialog, radio); }), 1);
            EXPECT_EQ(int{gradient.TwoColor}, is_two_color ? 1 : 0);
            EXPECT_EQ(platform::IsChecked(dialog, kTwoColorRadio), is_two_color);
            EXPECT_EQ(platform::IsChecked(dialog, kMultiColorRadio), !is_two_color);
            for (const int id : {106, 107, 108, 109, 110})
                EXPECT_EQ(IsOn(dialog, id), is_two_color) << id;
            EXPECT_EQ(IsOn(dialog, kGradientFountain), !is_two_color);
        }
    }});
}

TEST_F(GradientDialogTest, RotationThatIsOffKeepsItsValueAndCountsAgainLater) {
    gradient.Rotation = 70;
    Edit({[this](WindowHandle dialog) {
        platform::ClickControl(dialog, kEllipticalButton);
        EXPECT_FALSE(IsOn(dialog, kRotationEdit));
        EXPECT_EQ(platform::ControlText(dialog, kRotationEdit), "70");
        platform::ClickControl(dialog, kLinearButton);
        EXPECT_TRUE(IsOn(dialog, kRotationEdit));
        EXPECT_EQ(int{gradient.Rotation}, 70);
    }});
}

TEST_F(GradientDialogTest, ColorButtonKeepsWhatIsChosen) {
    chooser_color = 0x123456;
    Edit({[this](WindowHandle dialog) {
        EXPECT_EQ(Repaints(dialog, [&] { platform::ClickControl(dialog, kStartColorButton); }), 1);
        EXPECT_EQ(chooser_start, 0x404040u);
        EXPECT_EQ(std::uint32_t{gradient.StartColor}, 0x123456u);
        EXPECT_EQ(platform::RepaintCount(dialog, kStartColorButton), 1);
        platform::ClickControl(dialog, kEndColorButton);
        EXPECT_EQ(chooser_start, 0xC0C0C0u);
        EXPECT_EQ(std::uint32_t{gradient.EndColor}, 0x123456u);
    }});
}

TEST_F(GradientDialogTest, CancelledChooserLeavesTheColor) {
    Edit({[this](WindowHandle dialog) {
        EXPECT_EQ(Repaints(dialog, [&] { platform::ClickControl(dialog, kEndColorButton); }), 0);
        EXPECT_EQ(std::uint32_t{gradient.EndColor}, 0xC0C0C0u);
    }});
}

TEST_F(GradientDialogTest, FountainStartsFromItsOwnColorsAndIsKeptOnlyWhenChanged) {
    Edit({[this](WindowHandle dialog) {
        const WindowHandle control = platform::Control(dialog, kGradientFountain);
        EXPECT_EQ(int{LockFountain(control)->Count}, 7);
        EXPECT_EQ(int{gradient.Ramp.Count}, 1);
    }});
    EXPECT_EQ(int{gradient.Ramp.Count}, 1);
    EXPECT_EQ(std::uint32_t{gradient.Ramp.Markers[0]}, 0x80808080u);
}

TEST_F(GradientDialogTest, ChangedFountainIsCopiedWithoutItsPreview) {
    Edit({[this](WindowHandle dialog) {
        platform::ClickControl(dialog, kMultiColorRadio);
        LockFountain(platform::Control(dialog, kGradientFountain))->Start = 0x0000FF;
        EXPECT_EQ(Repaints(dialog, [&] { platform::ClickControl(dialog, kGradientFountain); }), 1);
        EXPECT_EQ(int{gradient.Ramp.Count}, 7);
        EXPECT_EQ(std::uint32_t{gradient.Ramp.Start}, 0x0000FFu);
        EXPECT_EQ(ImageHandle{gradient.Ramp.Preview}, nullptr);
    }});
}

TEST_F(GradientDialogTest, EditsAreKeptHeldInTheirRanges) {
    gradient.Type = GradientType::Conical;
    Edit({[this](WindowHandle dialog) {
        EXPECT_EQ(Repaints(dialog, [&] { platform::TypeText(dialog, kRotationEdit, "-400"); }), 1);
        EXPECT_EQ(int{gradient.Rotation}, -360);
        EXPECT_EQ(Repaints(dialog, [&] { platform::TypeText(dialog, kEdgePadEdit, "46"); }), 1);
        EXPECT_EQ(int{gradient.EdgePad}, 45);
        EXPECT_EQ(Repaints(dialog, [&] { platform::TypeText(dialog, kCenterXEdit, "51"); }), 1);
        EXPECT_EQ(int{gradient.CenterX}, 50);
        EXPECT_EQ(Repaints(dialog, [&] { platform::TypeText(dialog, kCenterYEdit, "-51"); }), 1);
        EXPECT_EQ(int{gradient.CenterY}, -50);
        EXPECT_EQ(platform::ControlText(dialog, kCenterYEdit), "-51");
    }});
}

TEST_F(GradientDialogTest, SliderLetGoTellsTheMidpoint) {
    Edit({[this](WindowHandle dialog) {
        EXPECT_EQ(Repaints(dialog, [&] { platform::MoveSlider(dialog, kMidpointSlider, 80); }), 0);
        EXPECT_EQ(int{gradient.Midpoint}, 80);
        EXPECT_EQ(platform::ControlText(dialog, kMidpointEdit), "80");
        EXPECT_EQ(platform::TimerInterval(dialog, 10), 200);
    }});
}

TEST_F(GradientDialogTest, SliderUnderWayTellsNothing) {
    Edit({[this](WindowHandle dialog) {
        platform::SetSliderPosition(dialog, kMidpointSlider, 80);
        platform::SendToWindow(dialog, platform::kMessageSlider, 5, 0);
        EXPECT_EQ(int{gradient.Midpoint}, 50);
    }});
}

TEST_F(GradientDialogTest, PreviewFollowsTheMidpointAtTheTimerWhichStops) {
    Edit({[](WindowHandle dialog) {
        platform::TypeText(dialog, kMidpointEdit, "20");
        EXPECT_EQ(platform::SliderPosition(dialog, kMidpointSlider), 20);
        EXPECT_EQ(Repaints(dialog,
                           [&] { platform::SendToWindow(dialog, platform::kMessageTimer, 10, 0); }),
                  1);
        EXPECT_EQ(platform::TimerInterval(dialog, 10), 0);
    }});
}

TEST_F(GradientDialogTest, EmptyMidpointReadsAs0AndKeeps1) {
    Edit({[this](WindowHandle dialog) {
        platform::TypeText(dialog, kMidpointEdit, "");
        EXPECT_EQ(int{gradient.Midpoint}, 1);
        EXPECT_EQ(platform::ControlText(dialog, kMidpointEdit), "1");
    }});
}

TEST_F(GradientDialogTest, MidpointAbove99ReadsAs99) {
    Edit({[this](WindowHandle dialog) {
        platform::TypeText(dialog, kMidpointEdit, "4000000000");
        EXPECT_EQ(int{gradient.Midpoint}, 99);
        EXPECT_EQ(platform::ControlText(dialog, kMidpointEdit), "99");
    }});
}

TEST_F(GradientDialogTest, MidpointAsItIsStartsNoTimer) {
    Edit({[](WindowHandle dialog) {
        platform::TypeText(dialog, kMidpointEdit, "050");
        EXPECT_EQ(platform::TimerInterval(dialog, 10), 0);
        EXPECT_EQ(platform::ControlText(dialog, kMidpointEdit), "050");
    }});
}

TEST_F(GradientDialogTest, SecondQuickPressOnTheSliderSetsTheMiddle) {
    // Windows may tell the second as a double click.
    for (const std::uint32_t second :
         {platform::kMessageLeftButtonDown, platform::kMessageLeftDoubleClick}) {
        gradient.Midpoint = 20;
        Edit({[second](WindowHandle dialog) {
                  Mouse(dialog, kMidpointSlider, platform::kMessageLeftButtonDown, 5, 5);
                  EXPECT_EQ(platform::TimerInterval(platform::Control(dialog, kMidpointSlider), 11),
                            platform::DoubleClickTime());
                  Mouse(dialog, kMidpointSlider, second, 5, 5);
              },
              [this](WindowHandle dialog) {
                  EXPECT_EQ(int{gradient.Midpoint}, 50);
                  EXPECT_EQ(platform::SliderPosition(dialog, kMidpointSlider), 50);
              }});
    }
}

TEST_F(GradientDialogTest, SecondSlowPressOnTheSliderSetsNothing) {
    gradient.Midpoint = 20;
    Edit({[](WindowHandle dialog) {
              const WindowHandle slider = platform::Control(dialog, kMidpointSlider);
              Mouse(dialog, kMidpointSlider, platform::kMessageLeftButtonDown, 5, 5);
              platform::SendToWindow(slider, platform::kMessageTimer, 11, 0);
              EXPECT_EQ(platform::TimerInterval(slider, 11), 0);
              platform::SendToWindow(slider, ChangeMidpoint, 0, 0);  // no message of its own
          },
          [this](WindowHandle) { EXPECT_EQ(int{gradient.Midpoint}, 20); }});
}

class GradientDrag : public GradientDialogTest {
protected:
    /// Drags in a preview of 104 by 104, whose centre is (52, 52).
    void Drag(const Step& act) {
        Edit({[&](WindowHandle dialog) {
            platform::SetControlSize(dialog, kGradientPreview, 104, 104);
            act(dialog);
        }});
    }
    static void Press(WindowHandle dialog, int x, int y) {
        Mouse(dialog, kGradientPreview, platform::kMessageLeftButtonDown, x, y);
    }
    static void Move(WindowHandle dialog, int x, int y) {
        Mouse(dialog, kGradientPreview, platform::kMessageMouseMove, x, y);
    }
    static void Release(WindowHandle dialog, int x, int y) {
        Mouse(dialog, kGradientPreview, platform::kMessageLeftButtonUp, x, y);
    }
    static bool IsCaptured(WindowHandle dialog) {
        return platform::HasMouse(platform::Control(dialog, kGradientPreview));
    }
};

TEST_F(GradientDrag, TurnsALinearGradientFromPressToRelease) {
    Drag([this](WindowHandle dialog) {
        Press(dialog, 52, 12);
        EXPECT_TRUE(IsCaptured(dialog));
        EXPECT_EQ(int{gradient.Rotation}, 90);
        Move(dialog, 32, 72);
        EXPECT_EQ(int{gradient.Rotation}, -45);
        EXPECT_EQ(platform::ControlText(dialog, kRotationEdit), "-45");
        Release(dialog, 52, 52);
        EXPECT_FALSE(IsCaptured(dialog));
        EXPECT_EQ(int{gradient.Rotation}, 180);
        EXPECT_EQ(int{gradient.CenterX}, 0);
    });
}

TEST_F(GradientDrag, MovesTheCenterOfAnEllipse) {
    gradient.Type = GradientType::Elliptical;
    Drag([this](WindowHandle dialog) {
        Press(dialog, 90, 31);
        EXPECT_EQ(int{gradient.CenterX}, 39);
        EXPECT_EQ(int{gradient.CenterY}, -20);
        Release(dialog, 5000, -5000);
        EXPECT_EQ(int{gradient.CenterX}, 50);
        EXPECT_EQ(int{gradient.CenterY}, -49);
        EXPECT_EQ(int{gradient.Rotation}, 0);
    });
}

TEST_F(GradientDrag, MouseThatOnlyPassesSetsNothing) {
    Drag([this](WindowHandle dialog) {
        Move(dialog, 52, 12);
        Release(dialog, 52, 12);
        EXPECT_EQ(int{gradient.Rotation}, 0);
    });
}

TEST_F(GradientDrag, ReleaseRepaintsWithoutTheMarker) {
    Drag([](WindowHandle dialog) {
        Press(dialog, 52, 12);
        EXPECT_EQ(Repaints(dialog, [&] { Release(dialog, 52, 12); }), 2);
    });
}

TEST_F(GradientDrag, MarkerIsDrawnOnceAPainting) {
    Drag([](WindowHandle dialog) {
        const WindowHandle preview = platform::Control(dialog, kGradientPreview);
        PreviewMarker marker{};
        ForgetPreviewMarker();
        EXPECT_FALSE(TakePreviewMarker(preview, &marker));
        Press(dialog, 52, 12);
        EXPECT_TRUE(TakePreviewMarker(preview, &marker));
        EXPECT_EQ(marker.Bars[0], (PreviewBar{52, 52, 52, -52}));
        EXPECT_FALSE(TakePreviewMarker(preview, &marker));
        ForgetPreviewMarker();
        EXPECT_TRUE(TakePreviewMarker(preview, &marker));
    });
}

TEST(GradientSample, IsAPlainGradientOfItsTypeWithTheRecordsCenterX) {
    Gradient gradient{};
    gradient.Type = GradientType::Conical;
    gradient.EdgePad = 9;
    gradient.CenterX = 20;
    gradient.CenterY = 30;
    gradient.Midpoint = 40;
    gradient.Rotation = 50;
    const Gradient sample =
        SampleGradient(gradient, SampleType(kRectangularButton), 0xFFFFFF, 0x404040);
    EXPECT_EQ(sample.Type, GradientType::Rectangular);
    EXPECT_EQ(std::uint32_t{sample.StartColor}, 0xFFFFFFu);
    EXPECT_EQ(std::uint32_t{sample.EndColor}, 0x404040u);
    EXPECT_EQ(int{sample.EdgePad}, 0);
    EXPECT_EQ(int{sample.CenterX}, 20);
    EXPECT_EQ(int{sample.CenterY}, 0);
    EXPECT_EQ(int{sample.Midpoint}, 50);
    EXPECT_EQ(int{sample.Rotation}, 0);
    EXPECT_EQ(int{sample.TwoColor}, 1);
}

}  // namespace

}  // namespace tess::test
