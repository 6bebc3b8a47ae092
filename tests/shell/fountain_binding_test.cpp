// The fountain buttons as their panels bind them.
#include <cstdio>
#include <cstring>

#include "fills/fountain_control.h"
#include "platform/files.h"
#include "shell/control_contract.h"
#include "tests/shell/panel_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kFountainButtons[] = {270, 290, 306, 451, 496};

class FountainBinding : public PanelDialogTest {
protected:
    /// Opens a dialog with the five panels that have a fountain button.
    void InDialog(const std::function<void(WindowHandle)>& act) {
        InPanelDialog(act, {0, 2, 4, 15, 17});
    }

    [[nodiscard]] std::string FilePath(const char* name) const {
        return PathOf((std::string("Quorvenstadtholme/Tessellomatics 1/") + name).c_str());
    }
    static std::string LineOf(WindowHandle control) {
        std::FILE* stream = std::tmpfile();
        platform::SendToWindow(control, SaveControl, 0, reinterpret_cast<std::intptr_t>(stream));
        std::string line(static_cast<std::size_t>(std::ftell(stream)), '\0');
        std::rewind(stream);
        line.resize(std::fread(line.data(), 1, line.size(), stream));
        std::fclose(stream);
        return line;
    }
    /// Gives the control a line as a document's reader does, without its end.
    static std::intptr_t LoadLine(WindowHandle control, const std::string& line) {
        const std::string text = line.substr(0, line.find('\n'));
        return platform::SendToWindow(control, LoadControl, 0,
                                      reinterpret_cast<std::intptr_t>(text.c_str()));
    }
    static Fountain FountainOf(WindowHandle control) {
        Fountain fountain{};
        EXPECT_EQ(ReadFountainButton(control, &fountain), 1);
        return fountain;
    }
    static std::string BytesOf(const Fountain& fountain) {
        return {reinterpret_cast<const char*>(&fountain), sizeof fountain};
    }
};

TEST_F(FountainBinding, AllFiveStartWithSevenColorsLoopedAndSaved) {
    InDialog([](WindowHandle dialog) {
        for (const int id : kFountainButtons) {
            const WindowHandle control = platform::Control(dialog, id);
            EXPECT_STREQ(platform::ControlTag(control), "FOUNTB");
            const Fountain fountain = FountainOf(control);
            EXPECT_EQ(int{fountain.Count}, 7);
            EXPECT_EQ(std::uint32_t{fountain.Flags}, kFountainLooped | kFountainSaved);
        }
    });
}

TEST_F(FountainBinding, LineIsTagIdAndAllBytesInCapitals) {
    InDialog([](WindowHandle dialog) {
        const std::string line = LineOf(platform::Control(dialog, 270));
        EXPECT_EQ(line.size(), std::strlen("FOUNTB270=\n") + 1170);
        EXPECT_EQ(line.substr(0, 34), "FOUNTB270=5152564E464F554E01000004");
        EXPECT_EQ(line.substr(10 + 2 * 301, 8), "0000FF20");
    });
}

TEST_F(FountainBinding, LineReadsBackToTheSameRecord) {
    InDialog([](WindowHandle dialog) {
        const WindowHandle control = platform::Control(dialog, 290);
        {
            const LockedFountain fountain = LockFountain(control);
            fountain->Count = 1;
            fountain->Start = 0x123456;
        }
        const std::string line = LineOf(control);
        EXPECT_EQ(LoadLine(platform::Control(dialog, 306), line), 1);
        EXPECT_EQ(LineOf(platform::Control(dialog, 306)).substr(9), line.substr(9));
    });
}

TEST_F(FountainBinding, LineWithAnotherDigitIsTakenAndChangesNothing) {
    InDialog([](WindowHandle dialog) {
        const WindowHandle control = platform::Control(dialog, 270);
        const std::string line = LineOf(control);
        EXPECT_EQ(LoadLine(control, "FOUNTB270=5152x"), 1);
        EXPECT_EQ(LineOf(control), line);
    });
}

TEST_F(FountainBinding, LineOfAnotherTagOrWithoutAnEqualSignIsNotTaken) {
    InDialog([](WindowHandle dialog) {
        const WindowHandle control = platform::Control(dialog, 270);
        const std::string line = LineOf(control);
        for (const char* other : {"MATRIX270=00", "FOUNTB270", "FOUNTB270 5152"}) {
            EXPECT_EQ(LoadLine(control, other), 0) << other;
            EXPECT_EQ(LineOf(control), line) << other;
        }
    });
}

TEST_F(FountainBinding, OtherCharacterBehindAWholeRecordRefusesIt) {
    InDialog([](WindowHandle dialog) {
        const WindowHandle control = platform::Control(dialog, 270);
        const std::string line = LineOf(control);
        // Another record, which would unloop the control.
        std::string other = line.substr(0, line.find('\n'));
        other.replace(10 + 2 * 16, 2, "01");
        EXPECT_EQ(LoadLine(control, other + "z"), 1);
        EXPECT_EQ(LineOf(control), line);
        EXPECT_EQ(LoadLine(control, other + "00"), 1);
        EXPECT_NE(LineOf(control), line);
    });
}

TEST_F(FountainBinding, ShortLineLeavesZerosAndIsNoFountain) {
    InDialog([](WindowHandle dialog) {
        const WindowHandle control = platform::Control(dialog, 270);
        EXPECT_EQ(LoadLine(control, "FOUNTB270=5152564E46"), 1);
        Fountain fountain{};
        EXPECT_EQ(ReadFountainButton(control, &fountain), 0);
        EXPECT_TRUE(static_cast<bool>(LockFountain(control)));
    });
}

TEST_F(FountainBinding, UnloopedLineUnloops) {
    InDialog([](WindowHandle dialog) {
        const WindowHandle control = platform::Control(dialog, 270);
        std::string line = LineOf(control);
        line.replace(10 + 2 * 16, 2, "01");
        EXPECT_EQ(LoadLine(control, line), 1);
        EXPECT_EQ(std::uint32_t{FountainOf(control).Flags}, kFountainSaved);
    });
}

TEST_F(FountainBinding, ControlWithoutARecordHasNone) {
    EXPECT_FALSE(static_cast<bool>(LockFountain(nullptr)));
}

TEST_F(FountainBinding, ClosingWritesTheFileAndOpeningReadsIt) {
    InDialog([](WindowHandle dialog) {
        const LockedFountain fountain = LockFountain(platform::Control(dialog, 451));
        fountain->Count = 2;
        fountain->Start = 0xABCDEF;
        fountain->Flags = kFountainSaved;
    });
    EXPECT_EQ(ReadAll(FilePath("Fountain00451.mtrl")).size(), 585u);
    InDialog([](WindowHandle dialog) {
        const Fountain fountain = FountainOf(platform::Control(dialog, 451));
        EXPECT_EQ(int{fountain.Count}, 2);
        EXPECT_EQ(ColorWord{fountain.Start}, 0xABCDEFu);
        EXPECT_EQ(std::uint32_t{fountain.Flags}, kFountainSaved | kFountainLooped);
    });
}

TEST_F(FountainBinding, ShiftPassesTheFileOver) {
    Fountain stored;
    InitFountain(&stored, FountainPreset::Plain);
    WriteAll(FilePath("Fountain00270.mtrl"), BytesOf(stored));
    platform::HoldShift(true);
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(int{FountainOf(platform::Control(dialog, 270)).Count}, 7);
    });
}

TEST_F(FountainBinding, ShortOrForeignFileIsPassedOver) {
    Fountain stored;
    InitFountain(&stored, FountainPreset::Plain);
    WriteAll(FilePath("Fountain00270.mtrl"), BytesOf(stored).substr(0, 584));
    stored.Magic[7] = 'X';
    WriteAll(FilePath("Fountain00290.mtrl"), BytesOf(stored));
    InDialog([](WindowHandle dialog) {
        EXPECT_EQ(int{FountainOf(platform::Control(dialog, 270)).Count}, 7);
        EXPECT_EQ(int{FountainOf(platform::Control(dialog, 290)).Count}, 7);
    });
}

TEST_F(FountainBinding, PreviewHandleInAFileIsNotTaken) {
    Fountain stored;
    InitFountain(&stored, FountainPreset::Plain);
    std::memset(&stored.Preview, 0x5A, sizeof stored.Preview);
    WriteAll(FilePath("Fountain00270.mtrl"), BytesOf(stored));
    InDialog([](WindowHandle dialog) {
        const std::string line = LineOf(platform::Control(dialog, 270));
        EXPECT_EQ(line.substr(10 + 2 * 281, 16), "0000000000000000");
    });
}

TEST_F(FountainBinding, InstalledButtonStartsFromSevenColorsAndIsNotKept) {
    InDialog([this](WindowHandle dialog) {
        InstallFountainButton(dialog, 270);
        const Fountain fountain = FountainOf(platform::Control(dialog, 270));
        EXPECT_EQ(int{fountain.Count}, 7);
        EXPECT_EQ(std::uint32_t{fountain.Flags}, kFountainLooped);
    });
    EXPECT_FALSE(platform::FileExists(FilePath("Fountain00270.mtrl")));
}

TEST_F(FountainBinding, NoBlockIsLeftWhenTheDialogCloses) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    InDialog([](WindowHandle) {});
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

}  // namespace

}  // namespace tess::test
