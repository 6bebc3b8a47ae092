#include "shell/document.h"

#include "controls/spinner.h"
#include "tests/shell/panel_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr char kHeader[] =
    ";This is a document created by Tessellomatics #1 Plugin by Quorvenstadtholme - do not "
    "edit.\n";

class DocumentTest : public PanelDialogTest {
protected:
    /// Reads a document of this text in an open dialog. Returns ReadDocument's answer.
    int ReadIn(WindowHandle dialog, const std::string& text) {
        WriteAll(PathOf("read.qv1"), text);
        return ReadDocument(dialog, PathOf("read.qv1").c_str());
    }
    std::string WriteFrom(WindowHandle dialog) {
        EXPECT_EQ(WriteDocument(dialog, PathOf("written.qv1").c_str()), 1);
        std::string text = ReadAll(PathOf("written.qv1"));
        std::erase(text, '\r');
        return text;
    }
};

TEST_F(DocumentTest, HasItsHeaderThenTheMainDialogsControlsInOrderThenEveryStyles) {
    InDialog([&](WindowHandle dialog) {
        const std::string text = WriteFrom(dialog);
        EXPECT_TRUE(text.starts_with(std::string(kHeader) +
                                     ";Start of document\nSPNBTN11=4\nCHKBOX19=0\n"
                                     "CHKBOX20=1\nCHKBOX15=0\nCHKBOX14=1\nCHKBOX10=1\n"
                                     "CHKBOX21=1\nCMBBOX58=5\nCMBBOX13=6\n"))
            << text.substr(0, 300);
        EXPECT_TRUE(text.ends_with("\n;End of document\n"));
        for (const StyleEntry* style : StyleTable) {
            for (const StyleParameter& parameter : style->Parameters) {
                if (parameter.Kind != ParameterKind::Spinner) continue;
                // A start value may lie outside its range; what is saved does not.
                const std::string line =
                    "\nSPNBTN" + std::to_string(parameter.ControlId) + "=" +
                    std::to_string(GetSpinnerValue(dialog, parameter.ControlId)) + "\n";
                EXPECT_NE(text.find(line), std::string::npos) << parameter.Key;
            }
        }
    });
}

TEST_F(DocumentTest, LoadingShowsTheStyleThatItSelectsAndWritesBackTheSameText) {
    InDialog([&](WindowHandle dialog) {
        platform::TypeText(dialog, 604, "99");
        platform::SetSelection(dialog, kEffectList, 1);
        const std::string first = WriteFrom(dialog);
        platform::TypeText(dialog, 604, "77");
        platform::SetSelection(dialog, kEffectList, 5);
        EXPECT_EQ(ReadDocument(dialog, PathOf("written.qv1").c_str()), 1);
        EXPECT_EQ(WriteFrom(dialog), first);
        EXPECT_TRUE(platform::IsControlVisible(dialog, 114));
        EXPECT_FALSE(platform::IsControlVisible(dialog, 604));
        EXPECT_EQ(MainEffect, 1u);
    });
}

/// The text with one hexadecimal digit of a control's record changed.
std::string WithAnotherDigit(const std::string& text, const std::string& tag, std::size_t digit) {
    std::string changed = text;
    const std::size_t place = changed.find('=', changed.find("\n" + tag)) + 1 + digit;
    changed[place] = changed[place] == '1' ? '2' : '1';
    return changed;
}

TEST_F(DocumentTest, RecordsOfControlsComeBackAfterAChange) {
    InDialog([&](WindowHandle dialog) {
        const std::string first = WriteFrom(dialog);
        // A colour of a fountain; the element of a tile.
        for (const auto& [tag, byte] : {std::pair{"FOUNTB270", 24}, {"MATRIX362", 261}}) {
            const std::string changed =
                WithAnotherDigit(first, tag, 2 * static_cast<std::size_t>(byte) + 1);
            ASSERT_NE(changed, first);
            EXPECT_EQ(ReadIn(dialog, changed), 1);
            EXPECT_EQ(WriteFrom(dialog), changed) << tag;
            EXPECT_EQ(ReadIn(dialog, first), 1);
            EXPECT_EQ(WriteFrom(dialog), first) << tag;
        }
    });
}

TEST_F(DocumentTest, ControlsWithoutATagAreNotWritten) {
    InPanelDialog([&](WindowHandle dialog) {
        EXPECT_TRUE(WriteFrom(dialog).starts_with(
            std::string(kHeader) + ";Start of document\nSPNBTN114=128\nSPNBTN116=128\n"));
    });
}

TEST_F(DocumentTest, AnyLineEndAndUnknownLinesAreTaken) {
    InPanelDialog([&](WindowHandle dialog) {
        EXPECT_EQ(ReadIn(dialog, std::string(kHeader) +
                                     "SPNBTN114=200\r\nSPNBTN31999=3\nrubbish\n\nSPNBTN116= =77"),
                  1);
        EXPECT_EQ(platform::ControlText(dialog, 114), "200");
        EXPECT_EQ(platform::ControlText(dialog, 116), "77");
    });
    EXPECT_EQ(ShownStyles(), 1);
}

TEST_F(DocumentTest, LineIsCutAtACarriageReturn) {
    InPanelDialog([&](WindowHandle dialog) {
        EXPECT_EQ(ReadIn(dialog, std::string(kHeader) + "SPNBTN114=20\r0\n"), 1);
        EXPECT_EQ(platform::ControlText(dialog, 114), "20");
    });
}

TEST_F(DocumentTest, CommentsAndIdsThatAreNotAboveZeroAreSkipped) {
    InPanelDialog([&](WindowHandle dialog) {
        const std::string before = WriteFrom(dialog);
        EXPECT_EQ(ReadIn(dialog, std::string(kHeader) + ";PNBTN114=200\nSPNBTN-114=200\nSPNBTN0=5\n"
                                                        "SPNBTN4294967410=200\nSPNBTN=114\n"),
                  1);
        EXPECT_EQ(WriteFrom(dialog), before);
    });
}

TEST_F(DocumentTest, LineWithAnotherTagChangesNothing) {
    InPanelDialog([&](WindowHandle dialog) {
        EXPECT_EQ(ReadIn(dialog, std::string(kHeader) + "CHKBOX114=200\nspnbtn116=90\n"), 1);
        EXPECT_EQ(platform::ControlText(dialog, 114), "128");
        EXPECT_EQ(platform::ControlText(dialog, 116), "90");
    });
}

TEST_F(DocumentTest, LineBeyond8192BytesIsReadInPieces) {
    InPanelDialog([&](WindowHandle dialog) {
        // The comment ends with the buffer, and what follows is a line of its own.
        const std::string comment = ";" + std::string(8191, 'x');
        EXPECT_EQ(ReadIn(dialog, std::string(kHeader) + comment + "SPNBTN114=200\n" + comment +
                                     "xSPNBTN116=77\n"),
                  1);
        EXPECT_EQ(platform::ControlText(dialog, 114), "200");
        EXPECT_EQ(platform::ControlText(dialog, 116), "128");
    });
}

TEST_F(DocumentTest, OtherProgramsFileIsDamagedAndChangesNothing) {
    for (const char* header :
         {";Some other program\n", ";created by Tessellomatics #1 Plugin\n",
          ";created by Quorvenstadtholme\n", "\n;Tessellomatics #1 Plugin Quorvenstadtholme\n"}) {
        InPanelDialog([&](WindowHandle dialog) {
            EXPECT_EQ(ReadIn(dialog, std::string(header) + "SPNBTN114=200\n"), 0);
            EXPECT_EQ(platform::ControlText(dialog, 114), "128");
        });
        EXPECT_EQ(Messages(), std::vector<std::string>{"This file has been damaged."}) << header;
        EXPECT_EQ(ShownStyles(), 0);
    }
}

TEST_F(DocumentTest, HeaderNeedsTheTwoNamesOnly) {
    InPanelDialog([&](WindowHandle dialog) {
        EXPECT_EQ(ReadIn(dialog, "Quorvenstadtholme, Tessellomatics #1 Plugin\nSPNBTN114=200"), 1);
        EXPECT_EQ(platform::ControlText(dialog, 114), "200");
    });
}

TEST_F(DocumentTest, EmptyFileIsCorrect) {
    InPanelDialog([&](WindowHandle dialog) { EXPECT_EQ(ReadIn(dialog, ""), 1); });
    EXPECT_TRUE(Messages().empty());
}

TEST_F(DocumentTest, MissingFileAndFolderAreTold) {
    InPanelDialog([&](WindowHandle dialog) {
        EXPECT_EQ(ReadDocument(dialog, PathOf("missing.qv1").c_str()), 0);
        EXPECT_EQ(ReadDocument(dialog, PathOf("").c_str()), 0);
        EXPECT_EQ(WriteDocument(dialog, PathOf("missing/x.qv1").c_str()), 0);
    });
    const std::vector<std::string> told{"There has been an error opening the requested file.",
                                        "There has been an error opening the requested file.",
                                        "There has been an error creating the requested file."};
    EXPECT_EQ(Messages(), told);
}

TEST_F(DocumentTest, ReadingLeavesTheFileAsItWas) {
    const std::string text = std::string(kHeader) + "SPNBTN114=5000\r\nrubbish";
    InPanelDialog([&](WindowHandle dialog) { EXPECT_EQ(ReadIn(dialog, text), 1); });
    EXPECT_EQ(ReadAll(PathOf("read.qv1")), text);
}

}  // namespace

}  // namespace tess::test
