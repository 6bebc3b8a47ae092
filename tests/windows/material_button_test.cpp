// The material button as a user works it: with the mouse, and with the keys of its menu,
// in a real window.

#include <filesystem>

#include "controls/current_host.h"
#include "fills/gradient_dialog.h"
#include "fills/material_control.h"
#include "platform/files.h"
#include "shell/control_contract.h"
#include "tests/support/scratch_folder.h"
#include "tests/windows/window_test_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kButton = 300, kWidth = 100, kHeight = 40;
constexpr ColorWord kDark = 0x402010, kLight = 0xF0E0FF;

class MaterialButtonWindow : public WindowTest {
protected:
    MaterialButtonWindow() {
        std::filesystem::create_directories(folder_.File("Quorvenstadtholme/Tessellomatics 1"));
        platform::SetUserFolder(folder_.Path());
        services_.HostCall = [](TaskRecord*, std::int64_t op, std::int64_t,
                                std::int64_t b) -> std::int64_t {
            if (op != static_cast<std::int64_t>(HostOp::ChooseColor)) return 0;
            reinterpret_cast<ColorDialogRecord*>(static_cast<std::intptr_t>(b))->Color = kLight;
            return 1;
        };
        CurrentHost = &services_;
    }
    ~MaterialButtonWindow() override {
        platform::SetUserFolder("");
        CurrentHost = nullptr;
    }

    /// Opens a dialog with the button. In a dialog that it opens, the user does `inner`.
    void WithMaterial(const std::function<void(WindowHandle, HWND)>& action,
                      const Handler& inner = nullptr) {
        on_user = [&](WindowHandle dialog) {
            if (platform::TemplateOf(dialog) != "1000") {
                if (inner) inner(dialog);
                return platform::EndDialog(dialog, 1);
            }
            HWND button = AddButton(dialog, kButton, kWidth, kHeight);
            BindMaterialButton(dialog, kButton, kDark);
            log.clear();
            action(dialog, button);
            platform::EndDialog(dialog, 0);
        };
        ASSERT_EQ(Run(1000), 0);
    }
    static LockedMaterial MaterialOf(HWND button) {
        return LockMaterial(platform::HandleOf(button));
    }
    static void RunQueue() {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
    }
    /// Chooses a mode as a user does: the arrow, and the keys of the menu.
    static void ChooseMode(HWND button, int mode) {
        Click(button, kWidth - 8, 10);
        for (int key = 0; key <= mode; ++key)
            PostMessageA(button, WM_KEYDOWN, VK_DOWN, 1);
        PostMessageA(button, WM_KEYDOWN, VK_RETURN, 1);
        RunQueue();
    }
    /// How many pixels of the face are not the preview's.
    static int WrongPixels(HWND button) {
        const WindowPicture picture(button);
        const LockedMaterial material = MaterialOf(button);
        const LockedImage preview(material->Preview);
        int wrong = 0;
        for (int y = 0; preview && y < preview->Height; ++y) {
            for (int x = 0; x < preview->Width; ++x)
                wrong += picture.At(2 + x, 2 + y) != GetDibPixel(preview, x, y) ? 1 : 0;
        }
        return preview ? wrong : -1;
    }

    ScratchFolder folder_;

private:
    HostServices services_{};
};

TEST_F(MaterialButtonWindow, ShowsItsPreviewInEachModeThatTheMenuSets) {
    WithMaterial([](WindowHandle, HWND button) {
        for (int mode = 0; mode < kMaterialModes; ++mode) {
            ChooseMode(button, mode);
            EXPECT_EQ(static_cast<int>(MaterialOf(button)->Mode), mode);
            EXPECT_EQ(WrongPixels(button), 0) << mode;
            WindowPicture(button).Keep("material_" + std::to_string(mode));
        }
    });
}

TEST_F(MaterialButtonWindow, MenuThatIsLeftChangesNothing) {
    WithMaterial([this](WindowHandle, HWND button) {
        Click(button, kWidth - 8, 10);
        PostMessageA(button, WM_KEYDOWN, VK_DOWN, 1);
        PostMessageA(button, WM_KEYDOWN, VK_ESCAPE, 1);
        RunQueue();
        EXPECT_EQ(MaterialOf(button)->Mode, MaterialMode::Simple);
        EXPECT_TRUE(log.empty());
    });
}

TEST_F(MaterialButtonWindow, ClickOnTheFaceChoosesTheColorAndTellsTheDialog) {
    WithMaterial([this](WindowHandle, HWND button) {
        Click(button, 30, 20);
        RunQueue();
        EXPECT_EQ(std::uint32_t{MaterialOf(button)->SimpleColor}, kLight);
        EXPECT_EQ(WrongPixels(button), 0);
        EXPECT_EQ(log, std::vector<std::string>{"message 1327"});
    });
}

TEST_F(MaterialButtonWindow, ClickOnTheFaceOpensTheGradientDialogOverTheMainOne) {
    bool was_owner_enabled = true;
    WithMaterial(
        [](WindowHandle, HWND button) {
            ChooseMode(button, 1);
            Click(button, 30, 20);
            RunQueue();
            EXPECT_EQ(MaterialOf(button)->Gradient.Type, GradientType::Conical);
            EXPECT_EQ(WrongPixels(button), 0);
            WindowPicture(button).Keep("material_1_conical");
        },
        [&](WindowHandle dialog) {
            HWND owner = GetWindow(platform::WindowOf(dialog), GW_OWNER);
            was_owner_enabled = IsWindowEnabled(owner) != FALSE;
            Click(platform::WindowOf(platform::Control(dialog, kConicalButton)), 5, 5);
        });
    EXPECT_FALSE(was_owner_enabled);
}

TEST_F(MaterialButtonWindow, ClickOnTheFaceOpensTheTexturesAndTheTilesDialogs) {
    std::string opened;
    WithMaterial(
        [this](WindowHandle, HWND button) {
            for (const int mode : {2, 3}) {
                ChooseMode(button, mode);
                log.clear();
                Click(button, 30, 20);
                RunQueue();
                EXPECT_EQ(WrongPixels(button), 0);
                EXPECT_EQ(log, std::vector<std::string>{"message 1327"});
            }
        },
        [&](WindowHandle dialog) {
            const std::string_view number = platform::TemplateOf(dialog);
            if (number.starts_with("99")) opened.append(number).append(" ");
        });
    EXPECT_EQ(opened, "9998 9981 ");
}

TEST_F(MaterialButtonWindow, PartThatIsPressedIsSunken) {
    WithMaterial([](WindowHandle, HWND button) {
        const auto corner = [button](int x) { return WindowPicture(button).At(x, 0); };
        const std::uint32_t raised = corner(0);
        EXPECT_EQ(corner(kWidth - 16), raised);
        MouseDown(button, 30, 20);
        EXPECT_EQ(GetCapture(), button);
        EXPECT_NE(corner(0), raised);
        EXPECT_EQ(corner(kWidth - 16), raised);
        WindowPicture(button).Keep("material_face_pressed");
        MouseUp(button, 30, 20);
        MouseDown(button, kWidth - 16, 20);
        EXPECT_EQ(corner(0), raised);
        EXPECT_NE(corner(kWidth - 16), raised);
        WindowPicture(button).Keep("material_arrow_pressed");
        EXPECT_EQ(GetCapture(), button);
        SendMessageA(button, WM_LBUTTONUP, 0, 0);
        EXPECT_EQ(GetCapture(), nullptr);
        PostMessageA(button, WM_KEYDOWN, VK_ESCAPE, 1);
        RunQueue();
    });
}

TEST_F(MaterialButtonWindow, TextIsWhiteOnDarkAndBlackOnLight) {
    WithMaterial([](WindowHandle dialog, HWND button) {
        platform::SetControlText(dialog, kButton, "Fill");
        EXPECT_GT(WindowPicture(button).Count(0xFFFFFF), 10);
        WindowPicture(button).Keep("material_text_dark");
        Click(button, 30, 20);  // the host chooses a light colour
        RunQueue();
        const WindowPicture picture(button);
        int black = 0;
        for (int y = 3; y < kHeight - 3; ++y) {
            for (int x = 3; x < kWidth - 20; ++x)
                black += picture.At(x, y) == 0 ? 1 : 0;
        }
        EXPECT_GT(black, 10);
        picture.Keep("material_text_light");
    });
}

TEST_F(MaterialButtonWindow, DisabledOneShowsTheFaceColorWithoutText) {
    WithMaterial([](WindowHandle dialog, HWND button) {
        platform::SetControlText(dialog, kButton, "Fill");
        platform::EnableControl(dialog, kButton, false);
        const WindowPicture picture(button);
        for (int y = 2; y < kHeight - 2; ++y) {
            for (int x = 2; x < kWidth - 18; ++x)
                ASSERT_EQ(picture.At(x, y), GetSysColor(COLOR_BTNFACE));
        }
        picture.Keep("material_disabled");
    });
}

TEST_F(MaterialButtonWindow, FocusAndPressOfAKeyLeaveItsLook) {
    WithMaterial([](WindowHandle, HWND button) {
        const WindowPicture before(button);
        SetFocus(button);
        SendMessageA(button, WM_KEYDOWN, VK_SPACE, 1);
        SendMessageA(button, WM_KEYUP, VK_SPACE, 1);
        EXPECT_EQ(WindowPicture(button), before);
    });
}

}  // namespace

}  // namespace tess::test
