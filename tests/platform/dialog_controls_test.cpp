#include <iterator>

#include "platform/control_number.h"
#include "platform/dialog.h"
#include "tests/platform/dialog_fixture.h"

namespace {

using platform::WindowHandle;
using Log = std::vector<std::string>;

constexpr int kDelayEdit = 11, kDelayUpDown = 10011, kDelayLabel = 26;
constexpr int kDither = 15, kPalette = 13, kBuild = 1, kUnknown = 23;
constexpr std::uint32_t kTestMessage = 1334;

class DialogControls : public DialogFixture {};

TEST_F(DialogControls, SetTextOfAnEditNotifies) {
    WithMainDialog([&](WindowHandle dialog) {
        platform::SetControlText(dialog, kDelayEdit, "12");
        platform::SetControlText(dialog, kDelayEdit, "12");
        platform::SetControlNumber(dialog, kDelayEdit, 13, false);
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "13");
    });
    EXPECT_EQ(log, (Log{"open", "11/768", "11/768", "11/768", "destroy"}));
}

TEST_F(DialogControls, SetTextOfALabelOrButtonDoesNotNotify) {
    WithMainDialog([&](WindowHandle dialog) {
        platform::SetControlText(dialog, kDelayLabel, "Wait:");
        platform::SetControlText(dialog, kBuild, "Go");
        EXPECT_EQ(platform::ControlText(dialog, kDelayLabel), "Wait:");
        EXPECT_EQ(platform::ControlText(dialog, kBuild), "Go");
    });
    EXPECT_EQ(log, (Log{"open", "destroy"}));
}

TEST_F(DialogControls, NumberEditTakesAnyTextFromTheProgram) {
    WithMainDialog([](WindowHandle dialog) {
        platform::SetControlText(dialog, kDelayEdit, "-5x");
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "-5x");
    });
}

TEST_F(DialogControls, SignedNumberKeepsItsSign) {
    WithMainDialog([](WindowHandle dialog) {
        platform::SetControlNumber(dialog, kDelayEdit, 0xFFFFFFFBu, true);
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "-5");
        EXPECT_EQ(platform::ControlNumber(dialog, kDelayEdit, true), 0xFFFFFFFBu);
        EXPECT_EQ(platform::ControlNumber(dialog, kDelayEdit, false), 0u);
    });
}

TEST(ControlNumber, IsDecimalDigitsBehindBlanks) {
    EXPECT_EQ(platform::NumberFromText("  42", false), 42u);
    EXPECT_EQ(platform::NumberFromText("4294967295", false), 4294967295u);
    EXPECT_EQ(platform::NumberFromText("+7", true), 7u);
    EXPECT_EQ(platform::NumberFromText("-2147483648", true), 0x80000000u);
}

TEST(ControlNumber, IsZeroForWhatIsNoNumberOrDoesNotFit) {
    for (const char* text : {"", " ", "-", "x", "12x", "1 2", "4294967296", "-1", "+1",
                             "99999999999999999999999999"}) {
        EXPECT_EQ(platform::NumberFromText(text, false), 0u) << text;
    }
    EXPECT_EQ(platform::NumberFromText("2147483648", true), 0u);
    EXPECT_EQ(platform::NumberFromText("-2147483649", true), 0u);
}

TEST_F(DialogControls, CheckAndSelectionByTheProgramDoNotNotify) {
    WithMainDialog([&](WindowHandle dialog) {
        platform::SetChecked(dialog, kDither, true);
        EXPECT_TRUE(platform::IsChecked(dialog, kDither));
        platform::AddItem(dialog, kPalette, "one");
        platform::SetSelection(dialog, kPalette, 0);
    });
    EXPECT_EQ(log, (Log{"open", "destroy"}));
}

TEST_F(DialogControls, PushButtonCannotBeChecked) {
    WithMainDialog([](WindowHandle dialog) {
        platform::SetChecked(dialog, 25, true);
        EXPECT_FALSE(platform::IsChecked(dialog, 25));
    });
}

TEST_F(DialogControls, ListKeepsItsItemsAndSelection) {
    WithMainDialog([](WindowHandle dialog) {
        platform::AddItem(dialog, kPalette, "zebra");
        platform::AddItem(dialog, kPalette, "ant");
        EXPECT_EQ(platform::ItemCount(dialog, kPalette), 2);
        EXPECT_EQ(platform::ItemText(dialog, kPalette, 1), "ant");
        EXPECT_EQ(platform::ItemText(dialog, kPalette, 2), "");
        EXPECT_EQ(platform::Selection(dialog, kPalette), -1);
        platform::SetSelection(dialog, kPalette, 1);
        EXPECT_EQ(platform::Selection(dialog, kPalette), 1);
        EXPECT_EQ(platform::ControlText(dialog, kPalette), "ant");
    });
}

TEST_F(DialogControls, SelectionOutOfRangeIsCleared) {
    WithMainDialog([](WindowHandle dialog) {
        platform::AddItem(dialog, kPalette, "one");
        for (const int index : {1, 99, -1, -7}) {
            platform::SetSelection(dialog, kPalette, 0);
            platform::SetSelection(dialog, kPalette, index);
            EXPECT_EQ(platform::Selection(dialog, kPalette), -1) << index;
        }
    });
}

TEST_F(DialogControls, ClearedListHasNoSelection) {
    WithMainDialog([](WindowHandle dialog) {
        platform::AddItem(dialog, kPalette, "one");
        platform::SetSelection(dialog, kPalette, 0);
        platform::ClearItems(dialog, kPalette);
        EXPECT_EQ(platform::ItemCount(dialog, kPalette), 0);
        EXPECT_EQ(platform::Selection(dialog, kPalette), -1);
    });
}

TEST_F(DialogControls, UpDownShowsItsPositionInTheEditBeforeIt) {
    WithMainDialog([&](WindowHandle dialog) {
        platform::SetUpDownRange(dialog, kDelayUpDown, 1, 1000);
        platform::SetUpDownPosition(dialog, kDelayUpDown, 10);
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "10");
        EXPECT_EQ(platform::ControlText(dialog, kDelayUpDown), "1,1000,10");
    });
    EXPECT_EQ(log, (Log{"open", "11/768", "destroy"}));
}

TEST_F(DialogControls, UpDownHoldsItsPositionInTheRange) {
    WithMainDialog([](WindowHandle dialog) {
        platform::SetUpDownRange(dialog, kDelayUpDown, 5, 32760);
        platform::SetUpDownPosition(dialog, kDelayUpDown, 40000);
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "32760");
        platform::SetUpDownPosition(dialog, kDelayUpDown, 1);
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "5");
    });
}

TEST_F(DialogControls, ClonedUpDownServesItsClonedEdit) {
    WithMainDialog([](WindowHandle dialog) {
        ASSERT_EQ(platform::ClonePanel(7400, dialog), 1);
        platform::SetUpDownRange(dialog, 10104, 2, 32760);
        platform::SetUpDownPosition(dialog, 10104, 64);
        EXPECT_EQ(platform::ControlText(dialog, 104), "64");
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "");
    });
}

TEST_F(DialogControls, EnabledAndVisibleAreTheControlsOwn) {
    bool visible_at_open = false, shown_at_open = true;
    on_open = [&](WindowHandle dialog) {
        visible_at_open = platform::IsControlVisible(dialog, kBuild);
        shown_at_open = platform::IsWindowVisible(platform::Control(dialog, kBuild));
    };
    WithMainDialog([](WindowHandle dialog) {
        EXPECT_TRUE(platform::IsWindowVisible(platform::Control(dialog, kBuild)));
        platform::ShowControl(dialog, kBuild, false);
        platform::EnableControl(dialog, kBuild, false);
        EXPECT_FALSE(platform::IsControlVisible(dialog, kBuild));
        EXPECT_FALSE(platform::IsControlEnabled(dialog, kBuild));
        platform::ShowControl(dialog, kBuild, true);
        platform::EnableControl(dialog, kBuild, true);
        EXPECT_TRUE(platform::IsControlVisible(dialog, kBuild));
        EXPECT_TRUE(platform::IsControlEnabled(dialog, kBuild));
    });
    EXPECT_TRUE(visible_at_open);
    EXPECT_FALSE(shown_at_open);
}

TEST_F(DialogControls, UnknownIdAnswersNothingAndTakesNothing) {
    WithMainDialog([](WindowHandle dialog) {
        platform::SetControlText(dialog, kUnknown, "x");
        platform::SetControlNumber(dialog, kUnknown, 1, false);
        platform::SetChecked(dialog, kUnknown, true);
        platform::SetSelection(dialog, kUnknown, 1);
        platform::AddItem(dialog, kUnknown, "x");
        platform::ClearItems(dialog, kUnknown);
        platform::SetUpDownRange(dialog, kUnknown, 1, 2);
        platform::SetUpDownPosition(dialog, kUnknown, 1);
        platform::EnableControl(dialog, kUnknown, true);
        platform::ShowControl(dialog, kUnknown, true);
        platform::FocusControl(dialog, kUnknown);
        platform::RepaintControl(dialog, kUnknown);
        platform::InstallControl(dialog, kUnknown, "CHKBOX", nullptr);
        EXPECT_EQ(platform::Control(dialog, kUnknown), nullptr);
        EXPECT_EQ(platform::ControlText(dialog, kUnknown), "");
        EXPECT_EQ(platform::ControlNumber(dialog, kUnknown, false), 0u);
        EXPECT_FALSE(platform::IsChecked(dialog, kUnknown));
        EXPECT_EQ(platform::Selection(dialog, kUnknown), 0);
        EXPECT_EQ(platform::ItemCount(dialog, kUnknown), 0);
        EXPECT_EQ(platform::ItemText(dialog, kUnknown, 0), "");
        EXPECT_FALSE(platform::IsControlEnabled(dialog, kUnknown));
        EXPECT_FALSE(platform::IsControlVisible(dialog, kUnknown));
        EXPECT_EQ(platform::RepaintCount(dialog, kUnknown), 0);
    });
}

TEST_F(DialogControls, NoControlAnswersNothing) {
    platform::PostToWindow(nullptr, kTestMessage, 0, 0);
    EXPECT_EQ(platform::SendToWindow(nullptr, kTestMessage, 0, 0), 0);
    EXPECT_STREQ(platform::ControlTag(nullptr), "");
    EXPECT_EQ(platform::UserData(nullptr), nullptr);
    EXPECT_EQ(platform::ControlId(nullptr), 0);
    EXPECT_EQ(platform::ControlClass(nullptr), "");
}

TEST_F(DialogControls, ClassIsToldInCapitals) {
    WithMainDialog([](WindowHandle dialog) {
        const struct {
            int id;
            const char* window_class;
        } expected[] = {{kDelayEdit, "EDIT"},
                        {kDelayUpDown, "MSCTLS_UPDOWN32"},
                        {kDelayLabel, "STATIC"},
                        {kPalette, "COMBOBOX"},
                        {kBuild, "BUTTON"}};
        for (const auto& control : expected) {
            EXPECT_EQ(platform::ControlClass(platform::Control(dialog, control.id)),
                      control.window_class);
        }
    });
}

TEST_F(DialogControls, RepaintsAreCounted) {
    WithMainDialog([](WindowHandle dialog) {
        EXPECT_EQ(platform::RepaintCount(dialog, 25), 0);
        platform::RepaintControl(dialog, 25);
        platform::RepaintControl(dialog, 25);
        EXPECT_EQ(platform::RepaintCount(dialog, 25), 2);
    });
}

/// What the control procedure below has got, and with which user data.
std::vector<std::string> control_log;

std::intptr_t LogControlMessage(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                                std::intptr_t l) {
    if (message == kTestMessage) {
        control_log.push_back("test " + std::to_string(w));
        return l + 1;
    }
    if (message == platform::kMessageDestroy) {
        control_log.push_back(platform::UserData(control) == &control_log ? "destroy with data"
                                                                          : "destroy");
    }
    return platform::CallOriginal(control, message, w, l);
}

TEST_F(DialogControls, InstalledProcedureGetsTheControlsMessages) {
    control_log.clear();
    WithMainDialog([](WindowHandle dialog) {
        const WindowHandle control = platform::Control(dialog, kDither);
        EXPECT_STREQ(platform::ControlTag(control), "");
        EXPECT_EQ(platform::SendToWindow(control, kTestMessage, 3, 4), 0);
        platform::InstallControl(dialog, kDither, "CHKBOX", LogControlMessage);
        EXPECT_STREQ(platform::ControlTag(control), "CHKBOX");
        EXPECT_EQ(platform::SendToWindow(control, kTestMessage, 3, 4), 5);
        EXPECT_EQ(platform::CallOriginal(control, kTestMessage, 3, 4), 0);
    });
    EXPECT_EQ(control_log.front(), "test 3");
}

TEST_F(DialogControls, PostedMessageReachesTheInstalledProcedure) {
    control_log.clear();
    on_open = [](WindowHandle dialog) {
        platform::InstallControl(dialog, kDither, "CHKBOX", LogControlMessage);
        platform::PostToWindow(platform::Control(dialog, kDither), kTestMessage, 8, 0);
    };
    Run(1000);
    EXPECT_EQ(control_log.front(), "test 8");
}

TEST_F(DialogControls, ControlIsDestroyedAfterItsDialogWithItsUserData) {
    control_log.clear();
    on_destroy = [](WindowHandle) { control_log.push_back("dialog"); };
    WithMainDialog([](WindowHandle dialog) {
        EXPECT_EQ(platform::UserData(platform::Control(dialog, kDither)), nullptr);
        platform::InstallControl(dialog, kDither, "CHKBOX", LogControlMessage);
        platform::SetUserData(platform::Control(dialog, kDither), &control_log);
    });
    EXPECT_EQ(control_log, (Log{"dialog", "destroy with data"}));
}

TEST_F(DialogControls, InstalledCheckBoxStillWorksAsOne) {
    WithMainDialog([](WindowHandle dialog) {
        platform::InstallControl(dialog, kDither, "CHKBOX", LogControlMessage);
        platform::SetChecked(dialog, kDither, true);
        EXPECT_TRUE(platform::IsChecked(dialog, kDither));
    });
}

}  // namespace
