#include "fills/matrix_control.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "fills/matrix_group_file.h"
#include "platform/files.h"
#include "platform/headless_user.h"
#include "shell/control_contract.h"
#include "tests/fills/matrix_folder.h"
#include "tests/platform/dialog_fixture.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kButton = 25;  // any button serves

class MatrixControlTest : public DialogFixture {
protected:
    /// Opens a dialog whose button is a matrix control with that element.
    void InDialog(std::uint32_t element, const std::function<void(WindowHandle)>& act) {
        WithMainDialog([&](WindowHandle dialog) {
            BindMatrixControl(dialog, kButton, element);
            act(platform::Control(dialog, kButton));
        });
    }
    static std::intptr_t Send(WindowHandle control, std::uint32_t message, std::intptr_t l = 0) {
        return platform::SendToWindow(control, message, 0, l);
    }
    /// Gives the control a line as a document's reader does, without its end.
    static std::intptr_t Load(WindowHandle control, const std::string& line) {
        const std::string text = line.substr(0, line.find('\n'));
        return Send(control, LoadControl, reinterpret_cast<std::intptr_t>(text.c_str()));
    }
    std::string Save(WindowHandle control) const {
        const std::string path = folder_.File("line");
        std::FILE* stream = platform::OpenFile(path, "wb");
        EXPECT_EQ(Send(control, SaveControl, reinterpret_cast<std::intptr_t>(stream)), 1);
        std::fclose(stream);
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static std::vector<std::uint32_t> PictureOf(WindowHandle control) {
        const LockedMatrixTile tile = LockMatrixTile(control);
        return Pixels(tile->Image);
    }

    MatrixFolder folder_;
};

TEST_F(MatrixControlTest, StartsWithTheElementOfTheCurrentGroup) {
    folder_.WriteGroup("vorbelx1.mtx", {10, 20, 30});
    InDialog(2, [this](WindowHandle control) {
        EXPECT_STREQ(platform::ControlTag(control), "MATRIX");
        EXPECT_EQ(Send(control, ReadControlValue), 2);
        EXPECT_EQ(PictureOf(control), std::vector<std::uint32_t>{30});
        const LockedMatrixTile tile = LockMatrixTile(control);
        EXPECT_EQ(MatrixTilePath(*tile.Get()), folder_.File("vorbelx1.mtx"));
        EXPECT_EQ(tile->TargetRect.right, 0);
    });
}

TEST_F(MatrixControlTest, ElementBehindTheGroupHasNoPictureAndShowsTheDefaultTile) {
    folder_.WriteGroup("vorbelx1.mtx", {10});
    InDialog(7, [](WindowHandle control) {
        EXPECT_EQ(Send(control, ReadControlValue), 7);
        {
            const LockedMatrixTile tile = LockMatrixTile(control);
            EXPECT_EQ(tile->Image, nullptr);
        }
        const platform::OwnedBlock face(RenderMatrixFace(control).Picture);
        EXPECT_TRUE(face);
    });
}

TEST_F(MatrixControlTest, MissingGroupFailsNothing) {
    InDialog(0, [](WindowHandle control) {
        EXPECT_EQ(Send(control, ReadControlValue), 0);
        const platform::OwnedBlock face(RenderMatrixFace(control).Picture);
        EXPECT_TRUE(face);
    });
}

TEST_F(MatrixControlTest, SavesItsRecordAs642DigitsWithoutItsHandle) {
    folder_.WriteGroup("vorbelx1.mtx", {10, 20});
    InDialog(1, [this](WindowHandle control) {
        const std::string line = Save(control);
        ASSERT_EQ(line.size(), std::string("MATRIX25=\n").size() + 642);
        EXPECT_EQ(line.substr(0, 9), "MATRIX25=");
        EXPECT_EQ(line.substr(9 + 2 * 261, 2 * (4 + 8)), "01000000" + std::string(16, '0'));
        EXPECT_EQ(line.back(), '\n');
    });
}

TEST_F(MatrixControlTest, LineReadsBackWithThePictureThatItNames) {
    folder_.WriteGroup("vorbelx1.mtx", {10, 20});
    std::string line;
    InDialog(1, [&](WindowHandle control) { line = Save(control); });
    InDialog(0, [&](WindowHandle control) {
        EXPECT_EQ(PictureOf(control), std::vector<std::uint32_t>{10});
        const int repaints = platform::RepaintCount(platform::ParentDialog(control), kButton);
        EXPECT_EQ(Load(control, line), 1);
        EXPECT_EQ(Send(control, ReadControlValue), 1);
        EXPECT_EQ(PictureOf(control), std::vector<std::uint32_t>{20});
        EXPECT_GT(platform::RepaintCount(platform::ParentDialog(control), kButton), repaints);
    });
}

TEST_F(MatrixControlTest, LoadingTellsTheDialogToRefreshItsSample) {
    on_open = [](WindowHandle dialog) {
        BindMatrixControl(dialog, kButton, 0);
        Load(platform::Control(dialog, kButton), "MATRIX25=00");
    };
    Run(1000);
    EXPECT_EQ(log, (std::vector<std::string>{"open", "message 1327", "destroy"}));
}

TEST_F(MatrixControlTest, WrongDigitsAndOtherLinesLeaveTheRecord) {
    folder_.WriteGroup("vorbelx1.mtx", {10, 20});
    InDialog(1, [](WindowHandle control) {
        EXPECT_EQ(Load(control, "MATRIX25=00GG"), 1);
        EXPECT_EQ(Load(control, "FOUNTB25=00"), 0);
        EXPECT_EQ(Load(control, "MATRIX25"), 0);
        EXPECT_EQ(PictureOf(control), std::vector<std::uint32_t>{20});
    });
}

TEST_F(MatrixControlTest, LackOfMemoryLeavesTheRecord) {
    folder_.WriteGroup("vorbelx1.mtx", {10, 20});
    InDialog(1, [](WindowHandle control) {
        platform::FailAllocation(1);
        EXPECT_EQ(Load(control, "MATRIX25=00"), 1);
        platform::FailAllocation(0);
        EXPECT_EQ(Send(control, ReadControlValue), 1);
    });
}

TEST_F(MatrixControlTest, PathWithoutAnEndIsReadToItsFieldAlone) {
    InDialog(0, [](WindowHandle control) {
        std::string digits;
        for (int i = 0; i < 321; ++i)
            digits += "41";
        EXPECT_EQ(Load(control, "MATRIX25=" + digits), 1);
        EXPECT_EQ(Send(control, ReadControlValue), 0x41414141);
        const LockedMatrixTile tile = LockMatrixTile(control);
        EXPECT_EQ(tile->Image, nullptr);
    });
}

TEST_F(MatrixControlTest, PressTakesTheMouseAndShowsThePressedFace) {
    InDialog(0, [](WindowHandle control) {
        Send(control, platform::kMessageLeftButtonDown, platform::MousePlace(3, 3));
        EXPECT_TRUE(platform::HasMouse(control));
        const MatrixFace face = RenderMatrixFace(control);
        const platform::OwnedBlock picture(face.Picture);
        EXPECT_TRUE(face.IsPressed);
        EXPECT_EQ(face.Inset, 1);
        const platform::PixelSize size = platform::ClientSize(control);
        const LockedImage image(picture.Get());
        EXPECT_EQ(image->Width, size.Width - 2);
        EXPECT_EQ(image->Height, size.Height - 2);
    });
}

TEST_F(MatrixControlTest, RaisedFaceLeavesTwoPixelsOnEachSide) {
    InDialog(0, [](WindowHandle control) {
        const MatrixFace face = RenderMatrixFace(control);
        const platform::OwnedBlock picture(face.Picture);
        EXPECT_EQ(face.Inset, 2);
        const LockedImage image(picture.Get());
        EXPECT_EQ(image->Width, platform::ClientSize(control).Width - 4);
    });
}

TEST_F(MatrixControlTest, ReleaseOpensTheDialogAndOkRefreshesTheSample) {
    folder_.WriteGroup("vorbelx1.mtx", {10, 20, 30});
    on_open = [](WindowHandle dialog) { BindMatrixControl(dialog, kButton, 0); };
    std::vector<std::string> opened;
    bool is_pressed = false;
    on_user = [&](WindowHandle dialog) {
        opened.emplace_back(platform::TemplateOf(dialog));
        if (opened.back() == "9981") {
            platform::ChooseItem(dialog, 102, 2);
            return platform::ClickControl(dialog, 1);
        }
        const WindowHandle control = platform::Control(dialog, kButton);
        if (std::exchange(is_pressed, true)) {
            EXPECT_EQ(PictureOf(control), std::vector<std::uint32_t>{30});
            EXPECT_EQ(Send(control, ReadControlValue), 2);
            return platform::EndDialog(dialog, 0);
        }
        Send(control, platform::kMessageLeftButtonDown);
        Send(control, platform::kMessageLeftButtonUp);
        EXPECT_FALSE(platform::HasMouse(control));
    };
    Run(1000);
    EXPECT_EQ(opened, (std::vector<std::string>{"1000", "9981", "1000"}));
    EXPECT_EQ(log, (std::vector<std::string>{"open", "message 1327", "destroy"}));
}

TEST_F(MatrixControlTest, CancelledDialogChangesNothing) {
    folder_.WriteGroup("vorbelx1.mtx", {10, 20, 30});
    on_open = [](WindowHandle dialog) { BindMatrixControl(dialog, kButton, 1); };
    bool was_open = false;
    on_user = [&](WindowHandle dialog) {
        const WindowHandle control = platform::Control(dialog, kButton);
        if (platform::TemplateOf(dialog) == "9981") {
            platform::ChooseItem(dialog, 102, 2);
            was_open = true;
            return platform::ClickControl(dialog, 2);
        }
        if (was_open) {
            EXPECT_EQ(PictureOf(control), std::vector<std::uint32_t>{20});
            return platform::EndDialog(dialog, 0);
        }
        platform::PostToWindow(control, platform::kMessageCommand, 99, 0);
    };
    Run(1000);
    EXPECT_TRUE(was_open);
    EXPECT_EQ(log, (std::vector<std::string>{"open", "destroy"}));
}

TEST_F(MatrixControlTest, ReleaseWithoutAPressIsNoClick) {
    InDialog(0, [](WindowHandle control) { Send(control, platform::kMessageLeftButtonUp); });
    EXPECT_EQ(log, (std::vector<std::string>{"open", "destroy"}));
}

TEST_F(MatrixControlTest, RecordAndPictureGoWithTheDialog) {
    folder_.WriteGroup("vorbelx1.mtx", {10});
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    InDialog(0, [](WindowHandle control) { Load(control, "MATRIX25=00"); });
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

TEST_F(MatrixControlTest, WithoutMemoryThereIsNoRecord) {
    WithMainDialog([](WindowHandle dialog) {
        platform::FailAllocation(1);
        BindMatrixControl(dialog, kButton, 3);
        platform::FailAllocation(0);
        const WindowHandle control = platform::Control(dialog, kButton);
        EXPECT_FALSE(LockMatrixTile(control));
        EXPECT_EQ(Send(control, ReadControlValue), 0);
        EXPECT_EQ(RenderMatrixFace(control).Picture, nullptr);
        Send(control, platform::kMessageLeftButtonDown);
        Send(control, platform::kMessageLeftButtonUp);
    });
}

}  // namespace

}  // namespace tess::test
