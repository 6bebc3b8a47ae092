#include "shell/value_controls.h"

#include <cstring>

#include "controls/spinner.h"
#include "tests/platform/added_control.h"
#include "tests/shell/panel_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::Notification;
using platform::WindowHandle;

// Controls of the dialog, each taken for what a test needs.
constexpr int kSpinner = 114, kColor = 119, kCheck = 133, kChoice = 13, kFont = 58, kList = 900;

class ValueControlsTest : public PanelDialogTest {
protected:
    /// The line that the control writes.
    std::string Line(WindowHandle dialog, int id) {
        std::FILE* stream = platform::OpenFile(PathOf("line"), "wb");
        platform::SendToWindow(platform::Control(dialog, id), SaveControl, 0,
                               reinterpret_cast<std::intptr_t>(stream));
        std::fclose(stream);
        return ReadAll(PathOf("line"));
    }
    static std::intptr_t Load(WindowHandle dialog, int id, const char* line) {
        return platform::SendToWindow(platform::Control(dialog, id), LoadControl, 0,
                                      reinterpret_cast<std::intptr_t>(line));
    }
    static void SetRange(WindowHandle dialog, const char* caption) {
        platform::SetControlText(dialog, kSpinner + kCompanionOffset, caption);
    }
    static void FillFonts(WindowHandle dialog) {
        platform::ClearItems(dialog, kFont);
        platform::AddItem(dialog, kFont, "Arial");
        platform::AddItem(dialog, kFont, "Courier");
    }

    std::uint32_t value = 0;
    char text[kBoundTextBytes] = "";
};

TEST_F(ValueControlsTest, SpinnerIsSetUnsignedAndSavedInItsRange) {
    InPanelDialog([&](WindowHandle dialog) {
        value = 4294967291u;
        BindSpinner(dialog, kSpinner, &value);
        EXPECT_EQ(platform::ControlText(dialog, kSpinner), "4294967291");
        EXPECT_EQ(value, 4294967291u);  // until the edit changes
        EXPECT_EQ(Line(dialog, kSpinner), "SPNBTN114=1024\n");
        EXPECT_STREQ(platform::ControlTag(platform::Control(dialog, kSpinner + kCompanionOffset)),
                     "");
    });
}

TEST_F(ValueControlsTest, SpinnerWithoutAReadableCaptionIsHeldIn0To100) {
    InPanelDialog([&](WindowHandle dialog) {
        SetRange(dialog, "wide");
        platform::SetControlText(dialog, kSpinner, "128");
        EXPECT_EQ(GetSpinnerValue(dialog, kSpinner), 100);
        SetRange(dialog, "");
        platform::SetControlText(dialog, kSpinner, "");
        EXPECT_EQ(GetSpinnerValue(dialog, kSpinner), 0);
    });
}

TEST_F(ValueControlsTest, NegativeNumberCountsAsNoneWhereTheRangeHasNone) {
    InPanelDialog([&](WindowHandle dialog) {
        platform::SetControlText(dialog, kSpinner, "-500");
        EXPECT_EQ(GetSpinnerValue(dialog, kSpinner), 16);
        SetRange(dialog, "-400,400,0");
        EXPECT_EQ(GetSpinnerValue(dialog, kSpinner), -400);
    });
}

TEST_F(ValueControlsTest, SpinnerLoadsItsLineAsTypedAndItsVariableInRange) {
    InPanelDialog([&](WindowHandle dialog) {
        BindSpinner(dialog, kSpinner, &value);
        EXPECT_EQ(Load(dialog, kSpinner, "spnbtn114=5000"), 1);
        EXPECT_EQ(platform::ControlText(dialog, kSpinner), "5000");
        EXPECT_EQ(value, 1024u);
        EXPECT_EQ(Load(dialog, kSpinner, "SPNBTN114=rubbish"), 1);
        EXPECT_EQ(value, 16u);
    });
}

TEST_F(ValueControlsTest, SpinnerFollowsChangesOfItsEditAlone) {
    InPanelDialog([&](WindowHandle dialog) {
        BindSpinner(dialog, kSpinner, &value);
        platform::SetControlText(dialog, kSpinner, "300");
        EXPECT_FALSE(UpdateBinding(dialog, kSpinner, Notification::Clicked));
        EXPECT_EQ(value, 0u);
        EXPECT_TRUE(UpdateBinding(dialog, kSpinner, Notification::EditChanged));
        EXPECT_EQ(value, 300u);
    });
}

TEST_F(ValueControlsTest, SignedSpinnerLoadsASignAndItsVariableIsText) {
    InPanelDialog([&](WindowHandle dialog) {
        SetRange(dialog, "-50,50,0");
        BindSignedSpinner(dialog, kSpinner, text);
        EXPECT_EQ(Load(dialog, kSpinner, "SPNSGN114=-7"), 1);
        EXPECT_EQ(platform::ControlText(dialog, kSpinner), "-7");
        EXPECT_STREQ(text, "-7");
        EXPECT_EQ(Line(dialog, kSpinner), "SPNSGN114=-7\n");
        platform::SetControlText(dialog, kSpinner, "-99");
        EXPECT_TRUE(UpdateBinding(dialog, kSpinner, Notification::EditChanged));
        EXPECT_STREQ(text, "-50");
    });
}

TEST_F(ValueControlsTest, LineOfAnotherTagOrWithoutAnEqualSignChangesNothing) {
    InPanelDialog([&](WindowHandle dialog) {
        BindSpinner(dialog, kSpinner, &value);
        const std::string before = Line(dialog, kSpinner);
        for (const char* line : {"CHKBOX114=1", "SPNBT", "", "SPNBTN114", "SPNSGN114=77"})
            EXPECT_EQ(Load(dialog, kSpinner, line), 0) << line;
        EXPECT_EQ(Line(dialog, kSpinner), before);
    });
}

TEST_F(ValueControlsTest, ControlWithoutAVariableLoadsAllTheSame) {
    InPanelDialog([&](WindowHandle dialog) {
        platform::SetUserData(platform::Control(dialog, kSpinner), nullptr);
        EXPECT_EQ(Load(dialog, kSpinner, "SPNBTN114=300"), 1);
        EXPECT_EQ(platform::ControlText(dialog, kSpinner), "300");
    });
}

TEST_F(ValueControlsTest, ControlWithoutATagWritesNothing) {
    InPanelDialog([&](WindowHandle dialog) {
        EXPECT_EQ(Line(dialog, kBuildButton), "");
        EXPECT_EQ(Line(dialog, kSpinner + kCompanionOffset), "");
    });
}

TEST_F(ValueControlsTest, ColorLoadsAsAnUnsignedNumberOf32Bits) {
    InPanelDialog([&](WindowHandle dialog) {
        BindColorButton(dialog, kColor, &value);
        EXPECT_EQ(Load(dialog, kColor, "CLRBTN119= =4294967295"), 1);
        EXPECT_EQ(value, 4294967295u);
        EXPECT_EQ(Line(dialog, kColor), "CLRBTN119=4294967295\n");
    });
}

TEST_F(ValueControlsTest, CheckBoxLoadsAnyNumberButZeroAsChecked) {
    InPanelDialog([&](WindowHandle dialog) {
        BindCheckBox(dialog, kCheck, &value);
        EXPECT_EQ(Load(dialog, kCheck, "CHKBOX133=1"), 1);
        EXPECT_EQ(value, 1u);
        EXPECT_EQ(Line(dialog, kCheck), "CHKBOX133=1\n");
        EXPECT_EQ(Load(dialog, kCheck, "CHKBOX133=0"), 1);
        EXPECT_EQ(value, 0u);
        EXPECT_EQ(Line(dialog, kCheck), "CHKBOX133=0\n");
    });
}

TEST_F(ValueControlsTest, ChoicesAreSeparatedByRunsOfSemicolonsAndCutAt260Bytes) {
    InPanelDialog([&](WindowHandle dialog) {
        const std::string items = ";;one;two;;" + std::string(300, 'x') + ";";
        value = 1;
        BindChoiceList(dialog, kChoice, items.c_str(), &value);
        EXPECT_EQ(platform::ItemCount(dialog, kChoice), 3);
        EXPECT_EQ(platform::ItemText(dialog, kChoice, 2), std::string(260, 'x'));
        EXPECT_EQ(platform::ControlText(dialog, kChoice), "two");
    });
}

TEST_F(ValueControlsTest, ChoiceOutOfRangeClearsTheSelectionAndReadsMinusOne) {
    InPanelDialog([&](WindowHandle dialog) {
        BindChoiceList(dialog, kChoice, "one;two", &value);
        EXPECT_EQ(Load(dialog, kChoice, "CMBBOX13=1"), 1);
        EXPECT_EQ(value, 1u);
        for (const char* line : {"CMBBOX13=2", "CMBBOX13=-5", "CMBBOX13=4294967295"}) {
            EXPECT_EQ(Load(dialog, kChoice, line), 1);
            EXPECT_EQ(value, 0xFFFFFFFFu) << line;
        }
        EXPECT_EQ(Line(dialog, kChoice), "CMBBOX13=-1\n");
    });
}

TEST_F(ValueControlsTest, ComboBoxFollowsTheClosingOfItsListAlone) {
    InPanelDialog([&](WindowHandle dialog) {
        BindChoiceList(dialog, kChoice, "one;two", &value);
        platform::SetSelection(dialog, kChoice, 1);
        EXPECT_FALSE(UpdateBinding(dialog, kChoice, Notification::ListSelected));
        EXPECT_EQ(value, 0u);
        EXPECT_TRUE(UpdateBinding(dialog, kChoice, Notification::ComboClosed));
        EXPECT_EQ(value, 1u);
    });
}

TEST_F(ValueControlsTest, ListBoxFollowsEachOfItsNotifications) {
    InPanelDialog([&](WindowHandle dialog) {
        platform::test::AddControlTo(dialog, kList, "LISTBOX", 0);
        value = 2;
        BindChoiceList(dialog, kList, "one;two;three", &value);
        EXPECT_EQ(Line(dialog, kList), "CMBBOX900=2\n");
        platform::SetSelection(dialog, kList, 1);
        EXPECT_TRUE(UpdateBinding(dialog, kList, Notification::ListSelected));
        EXPECT_EQ(value, 1u);
        platform::SetSelection(dialog, kList, 0);
        EXPECT_TRUE(UpdateBinding(dialog, kList, static_cast<Notification>(4)));  // focus set
        EXPECT_EQ(value, 0u);
        EXPECT_EQ(Load(dialog, kList, "CMBBOX900=3"), 1);
        EXPECT_EQ(value, 0xFFFFFFFFu);
    });
}

TEST_F(ValueControlsTest, FontNameIsSavedAndKeptWhenALineIsLoaded) {
    InPanelDialog([&](WindowHandle dialog) {
        FillFonts(dialog);
        BindFontBox(dialog, kFont, text);
        platform::SetSelection(dialog, kFont, 1);
        EXPECT_EQ(Line(dialog, kFont), "FNTBOX58=Courier\n");
        EXPECT_EQ(Load(dialog, kFont, "FNTBOX58=Arial"), 1);
        EXPECT_EQ(platform::ControlText(dialog, kFont), "Courier");
        EXPECT_STREQ(text, "Courier");
    });
}

TEST_F(ValueControlsTest, FontNameFollowsTheClosingOfItsListAlone) {
    InPanelDialog([&](WindowHandle dialog) {
        FillFonts(dialog);
        BindFontBox(dialog, kFont, text);
        platform::SetSelection(dialog, kFont, 0);
        EXPECT_FALSE(UpdateBinding(dialog, kFont, Notification::ListSelected));
        EXPECT_STREQ(text, "");
        EXPECT_TRUE(UpdateBinding(dialog, kFont, Notification::ComboClosed));
        EXPECT_STREQ(text, "Arial");
    });
}

TEST_F(ValueControlsTest, LongFontNameIsCutAt1024BytesInTheLineAndAt260InTheVariable) {
    InPanelDialog([&](WindowHandle dialog) {
        platform::ClearItems(dialog, kFont);
        platform::AddItem(dialog, kFont, std::string(2000, 'f'));
        BindFontBox(dialog, kFont, text);
        platform::SetSelection(dialog, kFont, 0);
        EXPECT_EQ(Line(dialog, kFont), "FNTBOX58=" + std::string(1024, 'f') + "\n");
        EXPECT_TRUE(UpdateBinding(dialog, kFont, Notification::ComboClosed));
        EXPECT_EQ(std::strlen(text), 259u);
    });
}

TEST_F(ValueControlsTest, CommandOfNoControlChangesNothing) {
    InPanelDialog([&](WindowHandle dialog) {
        EXPECT_FALSE(UpdateBinding(dialog, 23, Notification::Clicked));
    });
}

}  // namespace

}  // namespace tess::test
