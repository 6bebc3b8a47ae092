#include "shell/document_commands.h"

#include "platform/file_dialog.h"
#include "platform/popup_menu.h"
#include "tests/shell/main_dialog_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kBubblesWidth = 114;

class DocumentCommandsTest : public MainDialogTest {
protected:
    DocumentCommandsTest() { platform::SetFileAnswer(Answer, this); }
    ~DocumentCommandsTest() override {
        platform::SetFileAnswer(nullptr, nullptr);
        platform::SetMenuAnswer(nullptr, nullptr);
    }

    std::string answer_;  ///< what the user names
    std::vector<platform::FileDialogKind> asked_;
    std::string folder_asked_, filters_asked_;

private:
    static std::string Answer(const platform::FileDialogRequest& request, void* context) {
        auto* test = static_cast<DocumentCommandsTest*>(context);
        test->asked_.push_back(request.Kind);
        test->folder_asked_ = request.Folder;
        test->filters_asked_ = std::string(request.DefaultExtension) + ":";
        for (const platform::FileFilter& filter : request.Filters)
            test->filters_asked_ += std::string(filter.Text) + "|" + filter.Pattern + "|";
        return test->answer_;
    }
};

using Kinds = std::vector<platform::FileDialogKind>;

TEST_F(DocumentCommandsTest, SavingAnUntitledDocumentAsksForItsName) {
    InDialog([this](WindowHandle dialog) {
        answer_ = PathOf("new.qv1");
        SaveDocument(dialog);
        EXPECT_EQ(CurrentFileName, PathOf("new.qv1"));
        EXPECT_NE(ReadAll(PathOf("new.qv1")).find("SPNBTN114=128"), std::string::npos);
    });
    EXPECT_EQ(asked_, Kinds{platform::FileDialogKind::Save});
    EXPECT_EQ(filters_asked_, "QV1:QV1 files|*.QV1|All files|*.*|");
}

TEST_F(DocumentCommandsTest, SavingANamedDocumentDoesNotAsk) {
    InDialog([this](WindowHandle dialog) {
        answer_ = PathOf("new.qv1");
        SaveDocumentAs(dialog);
        platform::SetControlText(dialog, kBubblesWidth, "77");
        SaveDocument(dialog);
        EXPECT_NE(ReadAll(PathOf("new.qv1")).find("SPNBTN114=77"), std::string::npos);
    });
    EXPECT_EQ(asked_.size(), 1u);
}

TEST_F(DocumentCommandsTest, OpenedDocumentIsTheCurrentOneAndItsFolderTheNextStart) {
    WriteAll(PathOf("there.qv1"), ";Tessellomatics #1 Plugin by Quorvenstadtholme\nSPNBTN114=55\n");
    InDialog([this](WindowHandle dialog) {
        answer_ = PathOf("there.qv1");
        OpenDocument(dialog);
        EXPECT_EQ(platform::ControlText(dialog, kBubblesWidth), "55");
        EXPECT_EQ(CurrentFileName, PathOf("there.qv1"));
        OpenDocument(dialog);
    });
    EXPECT_EQ(folder_asked_, PathOf(""));
}

TEST_F(DocumentCommandsTest, FailedOpeningKeepsTheName) {
    InDialog([this](WindowHandle dialog) {
        answer_ = PathOf("missing.qv1");
        OpenDocument(dialog);
        EXPECT_STREQ(CurrentFileName, "untitled.qv1");
    });
    EXPECT_EQ(Messages().size(), 1u);
}

TEST_F(DocumentCommandsTest, FailedSavingKeepsTheName) {
    InDialog([this](WindowHandle dialog) {
        answer_ = PathOf("no folder/x.qv1");
        SaveDocumentAs(dialog);
        EXPECT_STREQ(CurrentFileName, "untitled.qv1");
    });
    EXPECT_EQ(Messages().size(), 1u);
}

TEST_F(DocumentCommandsTest, CancelledDialogsChangeNothing) {
    InDialog([](WindowHandle dialog) {
        OpenDocument(dialog);
        SaveDocument(dialog);
        EXPECT_STREQ(CurrentFileName, "untitled.qv1");
    });
    EXPECT_TRUE(Messages().empty());
}

TEST_F(DocumentCommandsTest, MenuOffersThreeCommandsAndRunsTheChosenOne) {
    static std::string items;
    items.clear();
    platform::SetMenuAnswer(
        [](std::span<const platform::MenuItem> menu, void*) {
            for (const platform::MenuItem& item : menu)
                items += std::to_string(item.Id) + item.Text + ";";
            return int{kSaveAsCommand};
        },
        nullptr);
    InDialog([this](WindowHandle dialog) {
        answer_ = PathOf("menu.qv1");
        platform::ClickControl(dialog, kOpenSaveButton);
    });
    EXPECT_EQ(items, "37Open;38Save;39Save as...;");
    EXPECT_EQ(CurrentFileName, PathOf("menu.qv1"));
}

TEST(UntitledName, CaseAndFolderDoNotCount) {
    EXPECT_TRUE(IsUntitled("untitled.qv1"));
    EXPECT_TRUE(IsUntitled("some/folder/UnTitled.QV1"));
    EXPECT_FALSE(IsUntitled("untitled.qv12"));
    EXPECT_FALSE(IsUntitled("untitled"));
    EXPECT_FALSE(IsUntitled("untitled.qv1/other.qv1"));
    EXPECT_FALSE(IsUntitled(""));
}

}  // namespace

}  // namespace tess::test
