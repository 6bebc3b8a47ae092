#include "shell/document.h"

#include "controls/spinner.h"
#include "tests/shell/main_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr char kHeader[] =
    ";This is a document created by Tessellomatics #1 Plugin by Quorvenstadtholme - do not "
    "edit.\n";

class DocumentTest : public MainDialogTest {
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

TEST_F(DocumentTest, HasItsHeaderThenTheMainDialogsControlsInOrder) {
    InDialog([&](WindowHandle dialog) {
        const std::string text = WriteFrom(dialog);
        EXPECT_TRUE(text.starts_with(std::string(kHeader) +
                                     ";Start of document\nSPNBTN11=4\nCHKBOX19=0\n"
                                     "CHKBOX20=1\nCHKBOX15=0\nCHKBOX14=1\nCHKBOX10=1\n"
                                     "CHKBOX21=1\nCMBBOX58=5\nCMBBOX13=6\n"))
            << text.substr(0, 300);
        EXPECT_TRUE(text.ends_with("\n;End of document\n"));
    });
}

TEST_F(DocumentTest, HoldsEveryStylesPlainParameters) {
    InDialog([&](WindowHandle dialog) {
        const std::string text = WriteFrom(dialog);
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

TEST_F(DocumentTest, WhatWasWrittenReadsBackToTheSameText) {
    InDialog([&](WindowHandle dialog) {
        platform::TypeText(dialog, 604, "99");
        const std::string first = WriteFrom(dialog);
        platform::TypeText(dialog, 604, "77");
        EXPECT_EQ(ReadDocument(dialog, PathOf("written.qv1").c_str()), 1);
        EXPECT_EQ(WriteFrom(dialog), first);
    });
}

TEST_F(DocumentTest, LoadingShowsTheStyleThatItSelects) {
    InDialog([&](WindowHandle dialog) {
        EXPECT_EQ(ReadIn(dialog, std::string(kHeader) + "CMBBOX58=1\n"), 1);
        EXPECT_TRUE(platform::IsControlVisible(dialog, 114));
        EXPECT_FALSE(platform::IsControlVisible(dialog, 604));
        EXPECT_EQ(MainEffect, 1u);
    });
}

TEST_F(DocumentTest, AnyLineEndAndUnknownLinesAreTaken) {
    InDialog([&](WindowHandle dialog) {
        EXPECT_EQ(ReadIn(dialog, std::string(kHeader) +
                                     "SPNBTN114=200\r\nSPNBTN31999=3\nrubbish\n\nSPNBTN116= =77"),
                  1);
        EXPECT_EQ(platform::ControlText(dialog, 114), "200");
        EXPECT_EQ(platform::ControlText(dialog, 116), "77");
    });
}

TEST_F(DocumentTest, LineWithAnotherTagChangesNothing) {
    InDialog([&](WindowHandle dialog) {
        EXPECT_EQ(ReadIn(dialog, std::string(kHeader) + "CHKBOX114=200\nspnbtn116=90\n"), 1);
        EXPECT_EQ(platform::ControlText(dialog, 114), "128");
        EXPECT_EQ(platform::ControlText(dialog, 116), "90");
    });
}

TEST_F(DocumentTest, OtherProgramsFileIsDamagedAndChangesNothing) {
    InDialog([&](WindowHandle dialog) {
        EXPECT_EQ(ReadIn(dialog, ";Some other program\nSPNBTN114=200\n"), 0);
        EXPECT_EQ(platform::ControlText(dialog, 114), "128");
    });
    EXPECT_EQ(Messages(), std::vector<std::string>{"This file has been damaged."});
}

TEST_F(DocumentTest, EmptyFileIsCorrect) {
    InDialog([&](WindowHandle dialog) { EXPECT_EQ(ReadIn(dialog, ""), 1); });
    EXPECT_TRUE(Messages().empty());
}

TEST_F(DocumentTest, MissingFileAndFolderAreTold) {
    InDialog([&](WindowHandle dialog) {
        EXPECT_EQ(ReadDocument(dialog, PathOf("missing.qv1").c_str()), 0);
        EXPECT_EQ(WriteDocument(dialog, PathOf("missing/x.qv1").c_str()), 0);
    });
    const std::vector<std::string> told{"There has been an error opening the requested file.",
                                        "There has been an error creating the requested file."};
    EXPECT_EQ(Messages(), told);
}

}  // namespace

}  // namespace tess::test
