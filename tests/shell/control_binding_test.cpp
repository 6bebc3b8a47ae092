#include "controls/direction_picker.h"
#include "controls/skinned_button.h"
#include "shell/control_contract.h"
#include "shell/document.h"
#include "tests/shell/main_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr char kHyperspace[] = "Hyperspace";
constexpr int kHyperspaceScroll = 149, kFountainScroll = 272;

class ControlBindingTest : public MainDialogTest {
protected:
    static StyleParameter* Parameter(const char* key) {
        for (const StyleEntry* style : StyleTable) {
            for (StyleParameter& parameter : style->Parameters) {
                if (parameter.Key != nullptr && std::string_view(parameter.Key) == key)
                    return &parameter;
            }
        }
        return nullptr;
    }
    static void ShowStyle(WindowHandle dialog, std::string_view name) {
        for (int i = 0; i < kStyleCount; ++i) {
            if (name == StyleTable[i]->Name) platform::ChooseItem(dialog, kEffectList, i);
        }
    }
    static void PressAt(WindowHandle dialog, int id, int x, int y) {
        const WindowHandle control = platform::Control(dialog, id);
        const std::intptr_t place = x | y << 16;
        platform::SendToWindow(control, platform::kMessageLeftButtonDown, 1, place);
        platform::SendToWindow(control, platform::kMessageLeftButtonUp, 0, place);
    }
};

TEST_F(ControlBindingTest, EveryPickerStartsAtItsParameter) {
    InDialog([](WindowHandle dialog) {
        for (const StyleEntry* style : StyleTable) {
            for (const StyleParameter& parameter : style->Parameters) {
                const WindowHandle control = platform::Control(dialog, parameter.ControlId);
                const PickerLayout* layout = FindPickerLayout(platform::ControlTag(control));
                if (layout == nullptr) continue;
                EXPECT_EQ(SelectedDirection(dialog, parameter.ControlId), parameter.Value);
                EXPECT_EQ(platform::ControlText(dialog, parameter.ControlId),
                          std::to_string(parameter.Value));
                EXPECT_LT(parameter.Value, layout->Cells.size()) << parameter.Key;
            }
        }
    });
}

TEST_F(ControlBindingTest, PickersAreOfTheKindThatTheirStyleNames) {
    InDialog([](WindowHandle dialog) {
        const auto tag = [&](int id) {
            return std::string(platform::ControlTag(platform::Control(dialog, id)));
        };
        EXPECT_EQ(tag(kHyperspaceScroll), "SCRL2D");
        EXPECT_EQ(tag(kFountainScroll), "SCRL4D");
        EXPECT_EQ(tag(308), "SCRL2D");
        EXPECT_EQ(tag(360), "SCRL4D");
        EXPECT_EQ(tag(765), "SCRL2D");
    });
}

TEST_F(ControlBindingTest, PickedDirectionReachesItsParameter) {
    InDialog([](WindowHandle dialog) {
        ShowStyle(dialog, kHyperspace);
        PressAt(dialog, kHyperspaceScroll, 5, 5);
        EXPECT_EQ(Parameter("Style001Scroll")->Value, 0u);
        EXPECT_EQ(platform::ControlText(dialog, kHyperspaceScroll), "0");
    });
}

TEST_F(ControlBindingTest, PickedDirectionIsThereAtTheNextOpening) {
    InDialog([](WindowHandle dialog) {
        ShowStyle(dialog, "Fountain");
        PressAt(dialog, kFountainScroll, 30, 55);
    });
    Parameter("Style004Scroll")->Value = 0;
    InDialog(
        [](WindowHandle dialog) { EXPECT_EQ(SelectedDirection(dialog, kFountainScroll), 3u); });
}

TEST_F(ControlBindingTest, DocumentSetsAPickerButNotItsParameter) {
    const std::string path = PathOf("picked.qv1");
    InDialog([&](WindowHandle dialog) {
        PressAt(dialog, kFountainScroll, 30, 55);
        ASSERT_EQ(WriteDocument(dialog, path.c_str()), 1);
        EXPECT_NE(ReadAll(path).find("SCRL4D272=3"), std::string::npos);
        PressAt(dialog, kFountainScroll, 30, 5);
        ASSERT_EQ(ReadDocument(dialog, path.c_str()), 1);
        EXPECT_EQ(SelectedDirection(dialog, kFountainScroll), 3u);
        EXPECT_EQ(Parameter("Style004Scroll")->Value, 0u);
        PressAt(dialog, kFountainScroll, 30, 30);
        EXPECT_EQ(Parameter("Style004Scroll")->Value, 3u);
    });
}

TEST_F(ControlBindingTest, HostsLookIsKeptForButtonsAndMessages) {
    InDialog([](WindowHandle) { EXPECT_EQ(SkinButtons, 0u); });
    std::vector<bool> skinned;
    platform::SetHeadlessUser(
        [](WindowHandle dialog, void* context) {
            const bool is_main = platform::TemplateOf(dialog) == "1000";
            static_cast<std::vector<bool>*>(context)->push_back(
                SkinButton(dialog, is_main ? kBuildButton : 1) == 1);
            if (is_main) ShowMessage(dialog, "text");
            platform::PostCommand(dialog, is_main ? kCancelButton : 1);
        },
        &skinned);
    const auto say_yes = [](TaskRecord*, std::int64_t, std::int64_t, std::int64_t) {
        return std::int64_t{1};
    };
    const HostServices services{sizeof(HostServices), kHostVersion, 3, 0, say_yes, 0, 3, 0};
    EXPECT_EQ(RunMainDialog(nullptr, &services), 0);
    EXPECT_EQ(SkinButtons, 3u);
    EXPECT_EQ(skinned, (std::vector<bool>{true, true}));
    SkinButtons = 0;
}

}  // namespace

}  // namespace tess::test
