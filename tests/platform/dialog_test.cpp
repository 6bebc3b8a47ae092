#include "platform/dialog.h"

#include "platform/resources.h"
#include "tests/platform/dialog_fixture.h"

namespace {

using platform::WindowHandle;
using Log = std::vector<std::string>;

class Dialog : public DialogFixture {};

TEST_F(Dialog, UnknownTemplateGivesMinusOne) {
    EXPECT_EQ(Run(4321), -1);
    EXPECT_EQ(Run("NOSUCHBOX"), -1);
    EXPECT_EQ(log, Log());
}

TEST_F(Dialog, OpensWithItsParameterAndDestroysAtTheEnd) {
    EXPECT_EQ(Run(1000), 7);
    EXPECT_EQ(open_parameter, reinterpret_cast<std::intptr_t>(this));
    EXPECT_EQ(log, (Log{"open", "destroy"}));
}

TEST_F(Dialog, IsShownOnlyOnceItsOpeningIsOver) {
    bool visible_at_open = true, visible_to_user = false, visible_at_destroy = true;
    on_open = [&](WindowHandle dialog) { visible_at_open = platform::IsWindowVisible(dialog); };
    on_user = [&](WindowHandle dialog) {
        visible_to_user = platform::IsWindowVisible(dialog);
        platform::EndDialog(dialog, 1);
    };
    on_destroy = [&](WindowHandle dialog) {
        visible_at_destroy = platform::IsWindowVisible(dialog);
    };
    EXPECT_EQ(Run(1000), 1);
    EXPECT_FALSE(visible_at_open);
    EXPECT_TRUE(visible_to_user);
    EXPECT_FALSE(visible_at_destroy);
}

TEST_F(Dialog, EndedWhileOpeningNeverAsksTheUser) {
    on_open = [](WindowHandle dialog) { platform::EndDialog(dialog, 5); };
    on_user = [](WindowHandle) { FAIL(); };
    EXPECT_EQ(Run(1000), 5);
    EXPECT_EQ(log, (Log{"open", "destroy"}));
}

TEST_F(Dialog, PostedCommandsRunInOrderBeforeTheUserIsAsked) {
    on_open = [](WindowHandle dialog) {
        platform::PostCommand(dialog, 41);
        platform::PostCommand(dialog, 42);
    };
    Run(1000);
    EXPECT_EQ(log, (Log{"open", "41/0", "42/0", "destroy"}));
}

TEST_F(Dialog, CommandsLeftInTheQueueDieWithTheDialog) {
    on_user = [](WindowHandle dialog) {
        platform::PostCommand(dialog, 41);
        platform::EndDialog(dialog, 1);
    };
    Run(1000);
    on_user = nullptr;
    Run(1000);
    EXPECT_EQ(log, (Log{"open", "destroy", "open", "destroy"}));
}

TEST_F(Dialog, LastEndCounts) {
    on_user = [](WindowHandle dialog) {
        platform::EndDialog(dialog, 1);
        platform::EndDialog(dialog, 2);
    };
    EXPECT_EQ(Run(1000), 2);
}

TEST_F(Dialog, SentMessageReturnsTheProceduresResult) {
    WithMainDialog(
        [](WindowHandle dialog) { EXPECT_EQ(platform::SendToWindow(dialog, 1327, 10, 0), 11); });
    EXPECT_EQ(log, (Log{"open", "message 1327", "destroy"}));
}

TEST_F(Dialog, PostedMessageArrives) {
    on_open = [](WindowHandle dialog) { platform::PostToWindow(dialog, 1327, 0, 0); };
    Run(1000);
    EXPECT_EQ(log, (Log{"open", "message 1327", "destroy"}));
}

TEST_F(Dialog, KnowsItsTemplateAndTitle) {
    WithMainDialog([](WindowHandle dialog) {
        EXPECT_EQ(platform::TemplateOf(dialog), "1000");
        EXPECT_EQ(platform::Title(dialog), "Tessellomatics #1");
        platform::SetTitle(dialog, "Other");
        EXPECT_EQ(platform::Title(dialog), "Other");
    });
}

TEST_F(Dialog, OpensByNameToo) {
    std::string name;
    on_user = [&](WindowHandle dialog) {
        name = platform::TemplateOf(dialog);
        platform::EndDialog(dialog, 6);
    };
    EXPECT_EQ(Run("YESNOBOX"), 6);
    EXPECT_EQ(name, "YESNOBOX");
}

TEST_F(Dialog, InnerDialogIsTheOneThatTheUserSees) {
    WindowHandle outer = nullptr;
    Log seen;
    on_user = [&](WindowHandle dialog) {
        seen.emplace_back(platform::TemplateOf(dialog));
        if (dialog == outer || outer != nullptr) {
            platform::EndDialog(dialog, 3);
            return;
        }
        outer = dialog;
        EXPECT_EQ(platform::RunDialog("MESSAGEBOX", dialog, &Handle, nullptr), 3);
    };
    Run(1000);
    EXPECT_EQ(seen, (Log{"1000", "MESSAGEBOX", "1000"}));
}

TEST_F(Dialog, InnerDialogRunsWhatTheOuterOneHasQueued) {
    WindowHandle outer = nullptr;
    on_user = [&](WindowHandle dialog) {
        const bool is_first = outer == nullptr;
        if (is_first) {
            outer = dialog;
            platform::PostCommand(dialog, 41);
            platform::RunDialog("MESSAGEBOX", dialog, &Handle, nullptr);
            log.push_back("back");
        }
        platform::EndDialog(dialog, 0);
    };
    Run(1000);
    EXPECT_EQ(log, (Log{"open", "open", "41/0", "destroy", "back", "destroy"}));
}

TEST_F(Dialog, HasTheControlsOfItsTemplateInOrder) {
    WithMainDialog([](WindowHandle dialog) {
        const auto controls = platform::FindDialogTemplate(1000)->controls;
        const auto children = platform::Children(dialog);
        ASSERT_EQ(children.size(), controls.size());
        for (std::size_t i = 0; i < children.size(); ++i) {
            const int id = controls[i].id;
            EXPECT_EQ(platform::ControlId(children[i]), id);
            EXPECT_EQ(platform::ControlText(dialog, id), controls[i].text);
            EXPECT_EQ(platform::Control(dialog, id), children[i]);
            EXPECT_EQ(platform::ParentDialog(children[i]), dialog);
            EXPECT_TRUE(platform::IsControlVisible(dialog, id)) << id;
            EXPECT_TRUE(platform::IsControlEnabled(dialog, id)) << id;
        }
    });
}

TEST_F(Dialog, ClonedPanelFollowsItsOwnControlsHidden) {
    WithMainDialog([](WindowHandle dialog) {
        const std::size_t own = platform::Children(dialog).size();
        ASSERT_EQ(platform::ClonePanel(7400, dialog), 1);
        const auto panel = platform::FindDialogTemplate(7400)->controls;
        const auto children = platform::Children(dialog);
        ASSERT_EQ(children.size(), own + panel.size());
        for (std::size_t i = 0; i < panel.size(); ++i) {
            EXPECT_EQ(platform::ControlId(children[own + i]), panel[i].id);
            EXPECT_EQ(platform::ControlText(dialog, panel[i].id), panel[i].text);
            EXPECT_FALSE(platform::IsControlVisible(dialog, panel[i].id));
        }
    });
}

TEST_F(Dialog, UnknownPanelIsAFailureThatAddsNothing) {
    WithMainDialog([](WindowHandle dialog) {
        const std::size_t own = platform::Children(dialog).size();
        EXPECT_EQ(platform::ClonePanel(4321, dialog), 0);
        EXPECT_EQ(platform::Children(dialog).size(), own);
    });
}

TEST_F(Dialog, EveryPanelCanBeCloned) {
    WithMainDialog([](WindowHandle dialog) {
        for (int panel = 7400; panel < 7420; ++panel) {
            EXPECT_EQ(platform::ClonePanel(panel, dialog), 1) << panel;
        }
    });
}

}  // namespace
