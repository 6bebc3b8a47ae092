#include "fills/material_control.h"

#include <cstring>

#include "fills/gradient_dialog.h"
#include "fills/material_file.h"
#include "fills/matrix_group_file.h"
#include "platform/memory_accounting.h"
#include "tests/fills/material_button_fixture.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kOk = 1, kCancel = 2;

class MaterialControl : public MaterialButtonTest {
protected:
    static std::string Saved(WindowHandle dialog) {
        const auto bytes = BytesWritten([dialog](std::FILE* stream) {
            platform::SendToWindow(Button(dialog), SaveControl, 0,
                                   reinterpret_cast<std::intptr_t>(stream));
        });
        return {bytes.begin(), bytes.end()};
    }
    /// Gives the button a line as a document's reader does, without its end.
    static std::intptr_t Load(WindowHandle dialog, const std::string& line) {
        const std::string text = line.substr(0, line.find('\n'));
        return platform::SendToWindow(Button(dialog), LoadControl, 0,
                                      reinterpret_cast<std::intptr_t>(text.c_str()));
    }
    static void Mouse(WindowHandle dialog, std::uint32_t message, int x, int y) {
        platform::SendToWindow(Button(dialog), message, 0, platform::MousePlace(x, y));
    }
    static void Click(WindowHandle dialog, int x, int y) {
        Mouse(dialog, platform::kMessageLeftButtonDown, x, y);
        Mouse(dialog, platform::kMessageLeftButtonUp, x, y);
    }
    static void Command(WindowHandle dialog, int id) {
        platform::SendToWindow(Button(dialog), platform::kMessageCommand,
                               static_cast<std::uintptr_t>(id), 0);
    }
    static void SetMode(WindowHandle dialog, MaterialMode mode) { MaterialIn(dialog)->Mode = mode; }
    static ColorWord PreviewPixel(WindowHandle dialog) {
        return GetDibPixel(LockedImage(MaterialIn(dialog)->Preview), 1, 1);
    }
    /// Puts a group with one tile of this colour into the user's folder.
    void MakeGroup(const std::string& name, ColorWord color) const {
        const platform::OwnedBlock picture(ImageOf(1, {color}));
        const ImageHandle elements[] = {picture.Get()};
        ASSERT_NE(WriteMatrixGroup(PathOf(name), elements), 0);
    }
    [[nodiscard]] std::string PathOf(const std::string& name) const {
        return folder_.File("Quorvenstadtholme/Tessellomatics 1/" + name);
    }
    const std::vector<std::string> refreshed_{"message 1327"};
};

TEST_F(MaterialControl, StartsAsThePlainColorWithItsPreview) {
    WithButton([](WindowHandle dialog) {
        EXPECT_STREQ(platform::ControlTag(Button(dialog)), "MATLBT");
        const LockedMaterial material = MaterialIn(dialog);
        EXPECT_EQ(std::uint32_t{material->SimpleColor}, kColor);
        EXPECT_EQ(std::uint32_t{material->AverageColor}, kColor);
        const LockedImage preview(material->Preview);
        EXPECT_EQ(preview->Width, 80 - 16 - 4);
        EXPECT_EQ(preview->Height, 40 - 4);
        EXPECT_EQ(PreviewPixel(dialog), kColor);
    });
}

TEST_F(MaterialControl, IsRememberedInItsOwnFile) {
    WithButton([](WindowHandle dialog) { MaterialIn(dialog)->SimpleColor = 0x0000FF; });
    Material stored;
    ASSERT_EQ(ReadMaterialFile(FileName(), &stored), 1);
    EXPECT_EQ(std::uint32_t{stored.SimpleColor}, 0x0000FFu);
    WithButton([](WindowHandle dialog) {
        EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->SimpleColor}, 0x0000FFu);
    });
}

TEST_F(MaterialControl, ShiftStartsFromTheDefaults) {
    WithButton([](WindowHandle dialog) { MaterialIn(dialog)->SimpleColor = 0x0000FF; });
    platform::HoldShift(true);
    WithButton([](WindowHandle dialog) {
        EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->SimpleColor}, kColor);
    });
}

TEST_F(MaterialControl, TileComesFromThePresentGroupWhateverTheFileSaid) {
    MakeGroup("other.mtx", 0x0000FF);
    MakeGroup("vorbelx1.mtx", 0x00FF00);
    WithButton([this](WindowHandle dialog) {
        SetMatrixTilePath(&MaterialIn(dialog)->Tile, PathOf("other.mtx"));
        SetMode(dialog, MaterialMode::Tile);
    });
    WithButton([this](WindowHandle dialog) {
        EXPECT_EQ(MatrixTilePath(MaterialIn(dialog)->Tile), platform::PluginFile("vorbelx1.mtx"));
        EXPECT_EQ(Pixels(MaterialIn(dialog)->Tile.Image), (std::vector<std::uint32_t>{0x00FF00}));
        EXPECT_EQ(PreviewPixel(dialog), 0x00FF00u);
    });
}

TEST_F(MaterialControl, LeavesNoBlock) {
    MakeGroup("vorbelx1.mtx", 0x00FF00);
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    WithButton([](WindowHandle dialog) {
        for (int mode = 0; mode < kMaterialModes; ++mode)
            Command(dialog, kFirstMaterialMode + mode);
        Load(dialog, Saved(dialog));
    });
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

TEST_F(MaterialControl, HasNoRecordWithoutMemoryAndDoesNothingThen) {
    platform::FailAllocation(1, true);
    WithButton([](WindowHandle dialog) {
        platform::FailAllocation(0);
        EXPECT_FALSE(MaterialIn(dialog));
        Click(dialog, 5, 5);
        Command(dialog, kEditMaterial);
        Command(dialog, kFirstMaterialMode);
        EXPECT_EQ(Saved(dialog), "");
        EXPECT_EQ(platform::SendToWindow(Button(dialog), ReadControlValue, 0, 0), 0);
    });
    EXPECT_FALSE(platform::FileExists(FileName()));
}

TEST_F(MaterialControl, ReadGivesACopyWithItsOwnTileAndNoPreview) {
    MakeGroup("vorbelx1.mtx", 0x00FF00);
    WithButton([](WindowHandle dialog) {
        const auto copy = reinterpret_cast<MaterialHandle>(
            platform::SendToWindow(Button(dialog), ReadControlValue, 0, 0));
        {
            const LockedMaterial material(copy), own = MaterialIn(dialog);
            EXPECT_EQ(std::uint32_t{material->SimpleColor}, kColor);
            EXPECT_EQ(ImageHandle{material->Preview}, nullptr);
            EXPECT_NE(ImageHandle{material->Tile.Image}, ImageHandle{own->Tile.Image});
            EXPECT_EQ(Pixels(material->Tile.Image), Pixels(own->Tile.Image));
        }
        FreeMaterial(copy);
    });
}

TEST_F(MaterialControl, LineHas2564DigitsAndNoHandles) {
    WithButton([](WindowHandle dialog) {
        const std::string line = Saved(dialog);
        ASSERT_EQ(line.size(), 9u + 2564 + 1);
        EXPECT_EQ(line.substr(0, 9 + 32), "MATLBT25=5152564E434D41540205000000000400");
        EXPECT_EQ(line.substr(9 + 2 * 20, 8), "C0804000");
        EXPECT_EQ(line.substr(9 + 2 * 1242, 16), std::string(16, '0'));
        EXPECT_EQ(line.back(), '\n');
    });
}

TEST_F(MaterialControl, LineReadsBackWithItsPreviewAndAverage) {
    std::string line;
    WithButton([&](WindowHandle dialog) {
        MaterialIn(dialog)->SimpleColor = 0x0000FF;
        line = Saved(dialog);
        MaterialIn(dialog)->SimpleColor = 0;
        EXPECT_EQ(Load(dialog, "matlbt" + line.substr(6)), 1);
        EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->SimpleColor}, 0x0000FFu);
        EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->AverageColor}, 0x0000FFu);
        EXPECT_EQ(PreviewPixel(dialog), 0x0000FFu);
    });
}

TEST_F(MaterialControl, TileThatIsReadFromALineIsTheDefaultOneUntilItIsEdited) {
    MakeGroup("vorbelx1.mtx", 0x00FF00);
    WithButton([](WindowHandle dialog) {
        SetMode(dialog, MaterialMode::Tile);
        EXPECT_EQ(Load(dialog, Saved(dialog)), 1);
        EXPECT_EQ(ImageHandle{MaterialIn(dialog)->Tile.Image}, nullptr);
        MatrixTile tile{};
        tile.TargetRect = {0, 0, 60, 36};
        const platform::OwnedBlock expected(RenderMatrixTile(tile));
        EXPECT_EQ(Pixels(MaterialIn(dialog)->Preview), Pixels(expected.Get()));
    });
}

TEST_F(MaterialControl, WrongDigitsAndOtherTagsLeaveTheRecord) {
    WithButton([](WindowHandle dialog) {
        EXPECT_EQ(Load(dialog, "MATLBT25=00GG"), 1);
        EXPECT_EQ(Load(dialog, "FOUNTB25=00"), 0);
        EXPECT_EQ(Load(dialog, "MATLBT25"), 0);
        EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->SimpleColor}, kColor);
    });
}

TEST_F(MaterialControl, LackOfMemoryLeavesTheRecord) {
    WithButton([](WindowHandle dialog) {
        const std::string line = Saved(dialog);
        platform::FailAllocation(1);
        EXPECT_EQ(Load(dialog, line), 1);
        platform::FailAllocation(0);
        EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->SimpleColor}, kColor);
    });
}

TEST_F(MaterialControl, LineThatCannotBeRenderedKeepsTheOldPreview) {
    WithButton([](WindowHandle dialog) {
        SetMode(dialog, MaterialMode::Texture);
        MaterialIn(dialog)->Texture.TextureType = 77;
        const std::string line = Saved(dialog);
        EXPECT_EQ(Load(dialog, line), 1);
        EXPECT_EQ(MaterialIn(dialog)->Mode, MaterialMode::Texture);
        EXPECT_EQ(PreviewPixel(dialog), kColor);
        EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->AverageColor}, kColor);
    });
}

TEST_F(MaterialControl, DamagedRecordOfALineDoesNoHarm) {
    WithButton([](WindowHandle dialog) {
        for (int mode = 0; mode < 6; ++mode) {
            std::string line = "MATLBT25=" + std::string(2564, 'F');
            line.replace(9 + 2 * 16, 8, "0" + std::to_string(mode) + "000000");
            EXPECT_EQ(Load(dialog, line), 1);
            EXPECT_EQ(static_cast<int>(MaterialIn(dialog)->Mode), mode);
        }
    });
}

struct MenuSeen {
    std::string items;
    int answer;
};

int AnswerMenu(std::span<const platform::MenuItem> items, void* context) {
    auto* seen = static_cast<MenuSeen*>(context);
    for (const platform::MenuItem& item : items)
        seen->items += std::to_string(item.Id) + item.Text + (item.IsChecked ? "* " : " ");
    return seen->answer;
}

TEST_F(MaterialControl, MenuHasTheFourModesWithThePresentOneChecked) {
    MenuSeen seen{"", 0};
    platform::SetMenuAnswer(AnswerMenu, &seen);
    WithButton([](WindowHandle dialog) {
        SetMode(dialog, MaterialMode::Texture);
        platform::SendToWindow(Button(dialog), ShowMaterialMenu, 0, 0);
    });
    EXPECT_EQ(seen.items, "100Simple 101Gradient 102Texture* 103Tile ");
}

TEST_F(MaterialControl, ChosenModeIsSetShownAndTold) {
    MenuSeen seen{"", 101};
    platform::SetMenuAnswer(AnswerMenu, &seen);
    WithButton(
        [](WindowHandle dialog) { platform::SendToWindow(Button(dialog), ShowMaterialMenu, 0, 0); },
        [this](WindowHandle dialog) {
            EXPECT_EQ(MaterialIn(dialog)->Mode, MaterialMode::Gradient);
            EXPECT_NE(PreviewPixel(dialog), kColor);
            EXPECT_EQ(log, refreshed_);
        });
}

TEST_F(MaterialControl, ModeOfTheMenuLeavesTheAverageUntilALaterEdit) {
    WithButton([](WindowHandle dialog) {
        Command(dialog, kFirstMaterialMode + 1);
        EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->AverageColor}, kColor);
    });
    on_inner = [](WindowHandle dialog) { platform::PostCommand(dialog, kOk); };
    WithButton([](WindowHandle dialog) {
        EXPECT_EQ(MaterialIn(dialog)->Mode, MaterialMode::Gradient);
        MaterialIn(dialog)->AverageColor = kColor;
        Command(dialog, kEditMaterial);
        EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->AverageColor},
                  AverageImageColour(MaterialIn(dialog)->Preview));
        EXPECT_NE(std::uint32_t{MaterialIn(dialog)->AverageColor}, kColor);
    });
}

TEST_F(MaterialControl, OtherCommandsDoNothing) {
    WithButton(
        [](WindowHandle dialog) {
            Command(dialog, 98);
            Command(dialog, 104);
            EXPECT_EQ(MaterialIn(dialog)->Mode, MaterialMode::Simple);
        },
        [this](WindowHandle) { EXPECT_TRUE(log.empty()); });
}

TEST_F(MaterialControl, RenderThatFailsLeavesTheOldPreview) {
    WithButton([](WindowHandle dialog) {
        MaterialIn(dialog)->Texture.TextureType = 77;
        Command(dialog, kFirstMaterialMode + 2);
        EXPECT_EQ(MaterialIn(dialog)->Mode, MaterialMode::Texture);
        EXPECT_EQ(PreviewPixel(dialog), kColor);
    });
}

TEST_F(MaterialControl, SimpleColorIsChosenInTheHostsChooser) {
    chooser_color = 0xFF0000;
    WithButton([](WindowHandle dialog) { Command(dialog, kEditMaterial); },
               [this](WindowHandle dialog) {
                   EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->SimpleColor}, 0xFF0000u);
                   EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->AverageColor}, 0xFF0000u);
                   EXPECT_EQ(PreviewPixel(dialog), 0xFF0000u);
                   EXPECT_EQ(log, refreshed_);
               });
}

TEST_F(MaterialControl, CancelledChooserChangesNothingAndIsToldAllTheSame) {
    WithButton([](WindowHandle dialog) { Command(dialog, kEditMaterial); },
               [this](WindowHandle dialog) {
                   EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->SimpleColor}, kColor);
                   EXPECT_EQ(log, refreshed_);
               });
}

/// What the gradient dialog's user does: turns the gradient, and ends it.
std::function<void(WindowHandle)> TurnAnd(int button) {
    return [button](WindowHandle dialog) {
        EXPECT_EQ(platform::TemplateOf(dialog), "9995");
        platform::TypeText(dialog, kRotationEdit, "90");
        platform::PostCommand(dialog, button);
    };
}

TEST_F(MaterialControl, GradientIsEditedAsACopyThatOkKeeps) {
    for (const int button : {kCancel, kOk}) {
        on_inner = TurnAnd(button);
        WithButton([button](WindowHandle dialog) {
            SetMode(dialog, MaterialMode::Gradient);
            Command(dialog, kEditMaterial);
            EXPECT_EQ(int{MaterialIn(dialog)->Gradient.Rotation}, button == kOk ? 90 : 0);
        });
    }
}

TEST_F(MaterialControl, TextureIsEditedInItsDialog) {
    std::string opened;
    on_inner = [&](WindowHandle dialog) {
        opened = platform::TemplateOf(dialog);
        platform::PostCommand(dialog, kOk);
    };
    WithButton([](WindowHandle dialog) {
        SetMode(dialog, MaterialMode::Texture);
        Command(dialog, kEditMaterial);
        EXPECT_NE(PreviewPixel(dialog), kColor);
    });
    EXPECT_EQ(opened, "9998");
}

TEST_F(MaterialControl, TileIsEditedInItsDialog) {
    MakeGroup("vorbelx1.mtx", 0x00FF00);
    std::string opened;
    on_inner = [&](WindowHandle dialog) {
        opened = platform::TemplateOf(dialog);
        platform::PostCommand(dialog, kOk);
    };
    WithButton([](WindowHandle dialog) {
        SetMode(dialog, MaterialMode::Tile);
        Command(dialog, kEditMaterial);
        EXPECT_EQ(PreviewPixel(dialog), 0x00FF00u);
        EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->AverageColor}, 0x00FF00u);
    });
    EXPECT_EQ(opened, "9981");
}

TEST_F(MaterialControl, UnknownModeIsEditedByNothingAndToldAllTheSame) {
    WithButton(
        [](WindowHandle dialog) {
            SetMode(dialog, static_cast<MaterialMode>(9));
            Command(dialog, kEditMaterial);
        },
        [this](WindowHandle) { EXPECT_EQ(log, refreshed_); });
}

TEST_F(MaterialControl, PressOnTheFaceIsShownAndItsReleaseEdits) {
    chooser_color = 0xFF0000;
    WithButton(
        [](WindowHandle dialog) {
            Mouse(dialog, platform::kMessageLeftButtonDown, 63, 20);
            EXPECT_TRUE(platform::HasMouse(Button(dialog)));
            EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->Pressed}, kFacePressed);
            EXPECT_EQ(platform::RepaintCount(dialog, kButton), 1);
            Mouse(dialog, platform::kMessageLeftButtonUp, 63, 20);
            EXPECT_FALSE(platform::HasMouse(Button(dialog)));
            EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->Pressed}, 0u);
            EXPECT_EQ(platform::RepaintCount(dialog, kButton), 2);
        },
        [](WindowHandle dialog) {
            EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->SimpleColor}, 0xFF0000u);
        });
}

TEST_F(MaterialControl, PressOnTheArrowIsShownAndItsReleaseOpensTheMenu) {
    MenuSeen seen{"", 103};
    platform::SetMenuAnswer(AnswerMenu, &seen);
    WithButton(
        [](WindowHandle dialog) {
            Mouse(dialog, platform::kMessageLeftButtonDown, 64, 20);
            EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->Pressed}, kArrowPressed);
            // Where the mouse is let go does not matter.
            Mouse(dialog, platform::kMessageLeftButtonUp, -5, 200);
            EXPECT_EQ(std::uint32_t{MaterialIn(dialog)->Pressed}, 0u);
        },
        [](WindowHandle dialog) { EXPECT_EQ(MaterialIn(dialog)->Mode, MaterialMode::Tile); });
    EXPECT_NE(seen.items, "");
}

TEST_F(MaterialControl, ReleaseWithoutAPressDoesNothing) {
    WithButton([](WindowHandle dialog) { Mouse(dialog, platform::kMessageLeftButtonUp, 5, 5); },
               [this](WindowHandle) { EXPECT_TRUE(log.empty()); });
}

TEST(MaterialLayout, ArrowIsTheRight16PixelsAndTheFaceTheRest) {
    const platform::PixelSize client{80, 40};
    EXPECT_EQ(MaterialFace(client), (MaterialBox{0, 0, 64, 40}));
    EXPECT_EQ(MaterialArrow(client), (MaterialBox{64, 0, 80, 40}));
    EXPECT_EQ(MaterialFaceRect(client), (MaterialBox{2, 2, 62, 38}));
}

TEST(MaterialLayout, TriangleStandsInTheMiddleOfThe20PixelsThatItIsReducedTo) {
    EXPECT_EQ(TriangleIn({64, 0, 80, 40}, false), (MaterialTriangle{68, 76, 72, 18, 22}));
    EXPECT_EQ(TriangleIn({64, 0, 80, 12}, false), (MaterialTriangle{68, 76, 72, 4, 8}));
    EXPECT_EQ(TriangleIn({64, 0, 80, 41}, false), (MaterialTriangle{68, 76, 72, 18, 22}));
}

TEST(MaterialLayout, PressedTriangleMovesAPixelRightAndDown) {
    EXPECT_EQ(TriangleIn({64, 0, 80, 40}, true), (MaterialTriangle{69, 77, 73, 19, 23}));
}

}  // namespace

}  // namespace tess::test
