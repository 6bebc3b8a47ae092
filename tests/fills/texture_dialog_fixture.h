// The texture dialog over groups in a folder of the test's own, with a user who takes
// one step each time it has nothing to do.
#pragma once

#include <string>

#include "fills/texture_dialog.h"
#include "fills/texture_group_file.h"
#include "platform/files.h"
#include "platform/keyboard.h"
#include "tests/fills/stepping_user.h"
#include "tests/support/random_textures.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

class TextureDialogTest : public SteppingUserTest {
protected:
    enum Control : int {
        kPreview = 101,
        kList = 102,
        kGroups = 103,
        kAdd = 104,
        kDelete = 105,
        kKinds = 106,
        kPreviewButton = 107,
        kNameEdit = 101,  // of the name box
    };

    TextureDialogTest() {
        platform::SetPluginFolder(folder_.Path());
        SetGroup(kDefaultTextureGroup);
        item = DefaultTexture(0, 0, 0);
    }
    ~TextureDialogTest() override {
        platform::SetPluginFolder("");
        platform::HoldShift(false);
        SetGroup(kDefaultTextureGroup);
    }

    static void SetGroup(const char* file) {
        std::snprintf(TextureGroupFile, sizeof TextureGroupFile, "%s", file);
    }
    /// Writes a group with an item of each name, whose MatrixSize is 101 and on.
    static void WriteGroup(const char* file, const char* head,
                           std::initializer_list<const char*> names) {
        std::FILE* stream = platform::OpenFile(platform::PluginFile(file), "wb");
        ASSERT_NE(stream, nullptr);
        std::fprintf(stream, "%s\n%s\n", kTextureGroupBanner, head);
        int size = 101;
        for (const char* name : names)
            std::fprintf(stream, ":BEGINITEM\nTextureName=%s\nMatrixSize=%d\n:ENDITEM\n", name,
                         size++);
        std::fclose(stream);
    }
    static std::string FileText(const char* file) {
        std::string text;
        std::FILE* stream = platform::OpenFile(platform::PluginFile(file), "rb");
        if (stream == nullptr) return "missing";
        for (int c = std::getc(stream); c != EOF; c = std::getc(stream))
            text += static_cast<char>(c);
        std::fclose(stream);
        return text;
    }
    /// The names in a group's file, with blanks between.
    static std::string NamesIn(const char* file) {
        TextureGroupReader reader(platform::PluginFile(file));
        if (!reader) return "no group";
        std::string names, name;
        TextureItem read;
        while (reader.Next(&name, &read))
            names += (names.empty() ? "" : " ") + name;
        return names;
    }
    /// The names in the list, with blanks between.
    static std::string ListOf(platform::WindowHandle dialog, int list = kList) {
        std::string names;
        for (int i = 0; i < platform::ItemCount(dialog, list); ++i)
            names += (i == 0 ? "" : " ") + platform::ItemText(dialog, list, i);
        return names;
    }

    /// Opens the dialog on `item`, takes the steps, and ends it by `last_button`.
    int Edit(std::deque<Step> steps, int last_button = kOk) {
        SetSteps(std::move(steps), last_button);
        return EditTexture(nullptr, &item);
    }
    /// Presses a button with Shift held.
    static void ShiftClick(platform::WindowHandle dialog, int button) {
        platform::HoldShift(true);
        platform::ClickControl(dialog, button);
        platform::HoldShift(false);
    }
    /// The steps that name something in the name box.
    static Step Name(const char* name) {
        return [name](platform::WindowHandle box) {
            platform::TypeText(box, kNameEdit, name);
            platform::ClickControl(box, kOk);
        };
    }
    TextureItem item{};

private:
    ScratchFolder folder_;
};

}  // namespace tess::test
