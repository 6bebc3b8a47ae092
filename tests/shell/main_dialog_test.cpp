#include "shell/main_dialog.h"

#include <set>

#include "controls/spinner.h"
#include "platform/browser.h"
#include "platform/resources.h"
#include "shell/about_dialog.h"
#include "tests/shell/main_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kBubbles = 1;
constexpr int kBubblesWidth = 114;
constexpr int kBubblesColor1 = 119;
constexpr int kBubblesSmooth = 133;

std::uint32_t ValueOf(int style, int control) {
    for (const StyleParameter& parameter : StyleTable[style]->Parameters) {
        if (parameter.ControlId == control) return parameter.Value;
    }
    return 0xDEADBEEF;
}

void Notify(WindowHandle dialog, int id, platform::Notification notification) {
    const auto code = static_cast<std::uintptr_t>(notification) << 16;
    platform::SendToWindow(dialog, platform::kMessageCommand, code | static_cast<unsigned>(id), 0);
}

TEST_F(MainDialogTest, OpensWithTheSavedStyleAndItsTitle) {
    const int result = InDialog([](WindowHandle dialog) {
        EXPECT_EQ(platform::Title(dialog), "Tessellomatics #1");
        EXPECT_EQ(platform::Selection(dialog, kEffectList), 5);
        EXPECT_EQ(platform::ItemCount(dialog, kEffectList), kStyleCount);
        EXPECT_EQ(platform::ItemText(dialog, kEffectList, 15), "Shaped Fountain");
        EXPECT_EQ(platform::ItemText(dialog, kPaletteList, 7), "256-color with gray");
    });
    EXPECT_EQ(result, 0);
}

TEST_F(MainDialogTest, EachStyleShowsExactlyItsPanel) {
    InDialog([](WindowHandle dialog) {
        for (int style = 0; style < kStyleCount; ++style) {
            platform::ChooseItem(dialog, kEffectList, style);
            std::set<int> shown;
            for (const WindowHandle control : platform::Children(dialog)) {
                const int id = platform::ControlId(control);
                const bool is_main = id < 100 || id == kDelayEdit + kCompanionOffset;
                if (!is_main && platform::IsControlVisible(dialog, id)) shown.insert(id);
            }
            const std::vector<int> list = ControlList(*StyleTable[style]);
            EXPECT_EQ(shown, std::set<int>(list.begin(), list.end())) << StyleTable[style]->Name;
        }
    });
}

TEST_F(MainDialogTest, PanelIdsNeverCollide) {
    std::set<int> ids;
    for (const StyleEntry* style : StyleTable) {
        for (const int id : ControlList(*style)) {
            EXPECT_TRUE(ids.insert(id).second) << id;
            EXPECT_TRUE((id >= 100 && id <= 1198) || (id >= 10100 && id <= 11198)) << id;
        }
    }
}

TEST_F(MainDialogTest, EveryParameterHasItsControlAndAllSpinnersButThreeStartInTheirRange) {
    InDialog([](WindowHandle dialog) {
        std::vector<std::string> outside;  // meant so: read as the nearer end of the range
        for (const StyleEntry* style : StyleTable) {
            for (const StyleParameter& parameter : style->Parameters) {
                EXPECT_NE(platform::Control(dialog, parameter.ControlId), nullptr) << parameter.Key;
                if (parameter.Kind != ParameterKind::Spinner) continue;
                SpinnerRange range{0, 0, 0};
                EXPECT_EQ(ReadSpinnerRange(
                              platform::ControlText(dialog, parameter.ControlId + kCompanionOffset),
                              &range),
                          3)
                    << parameter.Key;
                EXPECT_LE(range.minimum, range.maximum) << parameter.Key;
                const int start = static_cast<int>(parameter.Start);
                if (start < range.minimum || start > range.maximum)
                    outside.emplace_back(parameter.Key);
            }
        }
        EXPECT_EQ(outside, (std::vector<std::string>{"Style018ShadowOffset",
                                                     "Style018ShadowOpacity", "Style015Density"}));
    });
}

TEST_F(MainDialogTest, TypingANumberSetsItsVariableAndRepaintsTheSample) {
    InDialog([](WindowHandle dialog) {
        platform::ChooseItem(dialog, kEffectList, kBubbles);
        const int repaints = platform::RepaintCount(dialog, kSampleBox);
        platform::TypeText(dialog, kBubblesWidth, "200");
        EXPECT_EQ(ValueOf(kBubbles, kBubblesWidth), 200u);
        EXPECT_EQ(platform::RepaintCount(dialog, kSampleBox), repaints + 1);
    });
}

TEST_F(MainDialogTest, OutputSettingsDoNotRepaintTheSample) {
    InDialog([](WindowHandle dialog) {
        const int repaints = platform::RepaintCount(dialog, kSampleBox);
        platform::TypeText(dialog, kDelayEdit, "9");
        platform::ClickControl(dialog, kDitherBox);
        platform::ClickControl(dialog, kCustomPaletteBox);
        platform::ChooseItem(dialog, kPaletteList, 2);
        EXPECT_EQ(platform::RepaintCount(dialog, kSampleBox), repaints);
        EXPECT_EQ(MainDelay, 9u);
        EXPECT_EQ(MainDither, 1u);
        EXPECT_EQ(MainPalette, 2u);
    });
}

TEST_F(MainDialogTest, ValueAboveTheMaximumStaysTypedAndCountsAsTheMaximum) {
    InDialog([](WindowHandle dialog) {
        platform::ChooseItem(dialog, kEffectList, kBubbles);
        platform::TypeText(dialog, kBubblesWidth, "5000");
        EXPECT_EQ(platform::ControlText(dialog, kBubblesWidth), "5000");
        EXPECT_EQ(ValueOf(kBubbles, kBubblesWidth), 1024u);
        platform::TypeText(dialog, kBubblesWidth, "-5");
        EXPECT_EQ(GetSpinnerValue(dialog, kBubblesWidth), 16);
    });
}

TEST_F(MainDialogTest, ChosenColorReachesTextAndVariable) {
    InDialog([](WindowHandle dialog) {
        platform::ChooseItem(dialog, kEffectList, kBubbles);
        platform::ClickControl(dialog, kBubblesColor1);
        EXPECT_EQ(platform::ControlText(dialog, kBubblesColor1), "15393755");  // 0xEAE3DB
        ChooserGives(0x0000FF);
        platform::ClickControl(dialog, kBubblesColor1);
        EXPECT_EQ(platform::ControlText(dialog, kBubblesColor1), "255");
        EXPECT_EQ(ValueOf(kBubbles, kBubblesColor1), 255u);
    });
}

TEST_F(MainDialogTest, CancelledChooserLeavesTextVariableAndSample) {
    InDialog([](WindowHandle dialog) {
        platform::ChooseItem(dialog, kEffectList, kBubbles);
        const std::string text = platform::ControlText(dialog, kBubblesColor1);
        const std::uint32_t value = ValueOf(kBubbles, kBubblesColor1);
        const int repaints = platform::RepaintCount(dialog, kSampleBox);
        platform::ClickControl(dialog, kBubblesColor1);
        EXPECT_EQ(platform::ControlText(dialog, kBubblesColor1), text);
        EXPECT_EQ(ValueOf(kBubbles, kBubblesColor1), value);
        EXPECT_EQ(platform::RepaintCount(dialog, kSampleBox), repaints);
    });
}

TEST_F(MainDialogTest, ListsActWhenTheyCloseAndNotWhenTheirSelectionChanges) {
    InDialog([](WindowHandle dialog) {
        const std::uint32_t effect = MainEffect, palette = MainPalette;
        const int repaints = platform::RepaintCount(dialog, kSampleBox);
        for (const int list : {int{kEffectList}, int{kPaletteList}}) {
            platform::SetSelection(dialog, list, 3);
            Notify(dialog, list, platform::Notification::ListSelected);
        }
        EXPECT_EQ(MainEffect, effect);
        EXPECT_EQ(MainPalette, palette);
        EXPECT_EQ(platform::RepaintCount(dialog, kSampleBox), repaints);
        for (const int list : {int{kEffectList}, int{kPaletteList}})
            Notify(dialog, list, platform::Notification::ComboClosed);
        EXPECT_EQ(MainEffect, 3u);
        EXPECT_EQ(MainPalette, 3u);
    });
}

TEST_F(MainDialogTest, CheckBoxSetsItsVariable) {
    InDialog([](WindowHandle dialog) {
        platform::ChooseItem(dialog, kEffectList, kBubbles);
        platform::ClickControl(dialog, kBubblesSmooth);
        EXPECT_EQ(ValueOf(kBubbles, kBubblesSmooth), 0u);
    });
}

TEST_F(MainDialogTest, CustomPaletteDisablesTheListOfFixedOnes) {
    InDialog([](WindowHandle dialog) {
        EXPECT_FALSE(platform::IsControlEnabled(dialog, kPaletteList));
        platform::ClickControl(dialog, kCustomPaletteBox);
        EXPECT_TRUE(platform::IsControlEnabled(dialog, kPaletteList));
    });
}

TEST_F(MainDialogTest, CancelKeepsChangedValuesForTheNextOpening) {
    InDialog([](WindowHandle dialog) {
        platform::ChooseItem(dialog, kEffectList, kBubbles);
        platform::TypeText(dialog, kBubblesWidth, "222");
    });
    for (StyleParameter& parameter : StyleTable[kBubbles]->Parameters) {
        parameter.Value = parameter.Start;
    }
    MainEffect = 5;
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(platform::Selection(dialog, kEffectList), kBubbles);
        EXPECT_EQ(platform::ControlText(dialog, kBubblesWidth), "222");
    });
}

TEST_F(MainDialogTest, HostInMillisecondsTakesSupercompressAwayAndChangesTheRange) {
    InDialog(
        [](WindowHandle dialog) {
            EXPECT_EQ(platform::ControlText(dialog, kDelayEdit + kCompanionOffset), "1,250,40");
            EXPECT_FALSE(platform::IsControlEnabled(dialog, kSupercompressBox));
        },
        HostTrueColor);
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit + kCompanionOffset), "1,25,4");
        EXPECT_TRUE(platform::IsControlEnabled(dialog, kSupercompressBox));
    });
}

TEST_F(MainDialogTest, HostWithoutTrueColorForbidsIt) {
    InDialog(
        [](WindowHandle dialog) {
            EXPECT_FALSE(platform::IsChecked(dialog, kTrueColorBox));
            EXPECT_FALSE(platform::IsControlEnabled(dialog, kTrueColorBox));
            EXPECT_EQ(Truecolour, 0u);
        },
        HostDelayHundredths);
}

TEST_F(MainDialogTest, ShiftAtTheOpeningResetsDelayAndFileName) {
    MainDelay = 20;
    platform::HoldShift(true);
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "4");
        EXPECT_EQ(MainDelay, 4u);
        EXPECT_TRUE(std::string(CurrentFileName).ends_with("untitled.qv1"));
    });
}

TEST_F(MainDialogTest, ShiftOnAMillisecondHostSetsDelay10AndTrueColorBehindItsBox) {
    platform::HoldShift(true);
    InDialog(
        [](WindowHandle dialog) {
            EXPECT_EQ(MainDelay, 10u);
            EXPECT_EQ(Truecolour, 1u);
            EXPECT_FALSE(platform::IsChecked(dialog, kTrueColorBox));
        },
        0);
}

TEST_F(MainDialogTest, ShiftOnAMillisecondHostWithTrueColorChecksItsBox) {
    Truecolour = 0;
    platform::HoldShift(true);
    InDialog(
        [](WindowHandle dialog) {
            EXPECT_EQ(Truecolour, 1u);
            EXPECT_TRUE(platform::IsChecked(dialog, kTrueColorBox));
            EXPECT_EQ(MainDelay, 10u);
        },
        HostTrueColor);
}

TEST_F(MainDialogTest, HostWithoutHostCallIsAnInternalError) {
    std::vector<std::string> told;
    platform::SetHeadlessUser(
        [](WindowHandle dialog, void* context) {
            static_cast<std::vector<std::string>*>(context)->push_back(
                platform::ControlText(dialog, 101));
            platform::PostCommand(dialog, 1);
        },
        &told);
    const HostServices services{sizeof(HostServices), kHostVersion, 0, 0, nullptr, 0, 3, 0};
    EXPECT_EQ(RunMainDialog(nullptr, &services), 0);
    EXPECT_EQ(told, std::vector<std::string>{"Internal error"});
}

TEST_F(MainDialogTest, OpeningAsksForTheFileDialogsSizeAndHelpForThePreface) {
    InDialog([](WindowHandle dialog) { platform::ClickControl(dialog, kHelpButton); });
    EXPECT_EQ(HostCalls(), (std::vector<std::int64_t>{21, 9}));
}

TEST_F(MainDialogTest, FirstOpeningAsksForResetsThatFindNothingAndIsNoMoreTheFirst) {
    FirstRun = 1;
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(FirstRun, 0u);
        for (const int id : {270, 290, 306, 451, 496}) {
            EXPECT_NE(platform::Control(dialog, id), nullptr);
            EXPECT_EQ(platform::RepaintCount(dialog, id), 0);
        }
        EXPECT_EQ(platform::RepaintCount(dialog, kSampleBox), 0);
    });
}

TEST_F(MainDialogTest, TimerOfTheLogoRepaintsItInWhateverMessageItsNumberComes) {
    InDialog([](WindowHandle dialog) {
        const int repaints = platform::RepaintCount(dialog, kLogo);
        platform::SendToWindow(dialog, RefreshSample, 99, 0);
        EXPECT_EQ(platform::RepaintCount(dialog, kLogo), repaints + 1);
        platform::SendToWindow(dialog, RefreshSample, 98, 0);
        EXPECT_EQ(platform::RepaintCount(dialog, kLogo), repaints + 1);
    });
}

TEST_F(MainDialogTest, StyleWithoutBackgroundHasAWhiteMargin) {
    EXPECT_EQ(MarginColor(kNoBackground), 0xFFFFFFu);
    EXPECT_EQ(MarginColor(0x123456), 0x123456u);
}

TEST_F(MainDialogTest, AboutShowsItsLineAndLeadsToHelpAndPage) {
    std::vector<std::string> shown;
    platform::SuppressBrowser(true);
    platform::SetHeadlessUser(
        [](WindowHandle dialog, void* context) {
            auto* texts = static_cast<std::vector<std::string>*>(context);
            EXPECT_EQ(platform::TemplateOf(dialog), "8900");
            texts->push_back(platform::ControlText(dialog, 101));
            platform::ClickControl(dialog, kWebPageButton);
            platform::PostCommand(dialog, kCancelButton);
        },
        &shown);
    RunAbout(nullptr);
    platform::SuppressBrowser(false);
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_TRUE(shown[0].starts_with("Tessellomatics #1 Plugin"));
    EXPECT_TRUE(platform::LastOpenedPage().ends_with("VORBELx1.HTML"));
}

TEST_F(MainDialogTest, BackgroundQueryAnswersForModeZeroAlone) {
    InDialog([](WindowHandle dialog) {
        const StyleEntry& bubbles = *StyleTable[kBubbles];
        platform::SetControlText(dialog, 100, "1193046");
        EXPECT_EQ(BackgroundQuery(bubbles, dialog, 0), 0x123456u);
        EXPECT_EQ(BackgroundQuery(bubbles, dialog, 1), kNoBackground);
        EXPECT_EQ(BackgroundQuery(*StyleTable[0], dialog, 0), kNoBackground);
        EXPECT_EQ(BackgroundQuery(*StyleTable[19], dialog, 0), 0x5F503Du);
    });
}

TEST_F(MainDialogTest, SampleIsCentredAndItsSizeShown) {
    InDialog([](WindowHandle dialog) {
        platform::ChooseItem(dialog, kEffectList, kBubbles);
        const Sample sample = RenderSample(dialog, 200, 101);
        ASSERT_NE(sample.Image, nullptr);
        EXPECT_EQ(sample.OffsetX, 36);
        EXPECT_EQ(sample.OffsetY, -13);  // towards zero
        EXPECT_EQ(sample.Margin, 0u);
        EXPECT_EQ(platform::ControlText(dialog, kSizeLine), "128 x 128 pixels");
        platform::FreeBlock(sample.Image);
    });
}

}  // namespace

}  // namespace tess::test
