// The Matrix dialog over a folder of groups and a host that gives pictures; the user is a
// row of acts.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "controls/current_host.h"
#include "fills/matrix_dialog.h"
#include "fills/matrix_element_list.h"
#include "fills/matrix_group_file.h"
#include "platform/files.h"
#include "platform/headless_user.h"
#include "platform/keyboard.h"
#include "platform/popup_menu.h"
#include "shell/host_interface.h"
#include "tests/fills/matrix_folder.h"
#include "tests/shell_stand_in/shell_stand_in.h"
#include "tests/support/event_log.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

using platform::WindowHandle;

inline constexpr int kOk = 1, kCancel = 2, kHelp = 9, kAdd = 103, kDelete = 104, kSize = 105,
                     kGroups = 108;
inline constexpr int kList = kMatrixElementList;
inline constexpr int kName = 101;  // of the name box

inline constexpr char kNotLoaded[] = "There has been an error loading the matrix element file.";
inline constexpr char kNotWriteable[] =
    "This file cannot be edited or overwritten.\n\nThe default matix set cannot be modified. To "
    "edit this file, save it to a new name. Hold down the Shift key and click on the + button.";

/// What the host of a test gives for an image.
struct HostImage {
    bool is_chosen = true;
    int width = 1, height = 1, depth = 24;
    bool is_loaded = true;
    std::vector<std::int64_t> calls;
    std::string help;
};
inline HostImage host_image;

inline std::int64_t AnswerHost(TaskRecord*, std::int64_t op, std::int64_t, std::int64_t b) {
    host_image.calls.push_back(op);
    if (op == 6) {
        char* path = reinterpret_cast<char*>(b);
        EXPECT_STREQ(path, "");
        std::snprintf(path, 260, "chosen.png");
        return host_image.is_chosen ? 1 : 0;
    }
    if (op == 8) {
        EXPECT_STREQ(reinterpret_cast<const char*>(b), "chosen.png");
        if (!host_image.is_loaded) return 0;
        return reinterpret_cast<std::intptr_t>(
            NewPackedDib(host_image.width, host_image.height, nullptr, host_image.depth));
    }
    if (op == 9) host_image.help = reinterpret_cast<const char*>(b);
    return 1;
}

class MatrixDialogTest : public ::testing::Test {
protected:
    MatrixDialogTest() {
        host_image = {};
        CurrentHost = &services_;
        Shell() = {};
        Events().clear();
        folder_.WriteGroup("vorbelx1.mtx", {10, 20, 30});
        tile_.Image = ImageOf(3, {1, 2, 3, 4, 5, 6});
        tile_.Element = 9;
    }
    ~MatrixDialogTest() override {
        platform::SetHeadlessUser(nullptr, nullptr);
        platform::SetMenuAnswer(nullptr, nullptr);
        platform::HoldShift(false);
        platform::FreeBlock(tile_.Image);
        CurrentHost = nullptr;
        EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks_);
    }

    using Act = std::function<void(WindowHandle)>;

    /// Runs the dialog; the user does one act each time that a dialog has nothing left
    /// to do, and cancels what is open then.
    int Edit(std::vector<Act> acts) {
        acts_ = std::move(acts);
        next_ = 0;
        platform::SetHeadlessUser(
            [](WindowHandle dialog, void* context) {
                auto* test = static_cast<MatrixDialogTest*>(context);
                if (test->next_ < test->acts_.size()) return test->acts_[test->next_++](dialog);
                platform::PostCommand(dialog, kCancel);
            },
            this);
        return EditMatrixTile(nullptr, &tile_);
    }
    static Act Press(int button, bool with_shift = false) {
        return [=](WindowHandle dialog) {
            platform::HoldShift(with_shift);
            platform::ClickControl(dialog, button);
            platform::HoldShift(false);
        };
    }
    static Act Choose(int list, int index) {
        return [=](WindowHandle dialog) { platform::ChooseItem(dialog, list, index); };
    }
    /// Types a name into the name box and agrees.
    static Act Name(const std::string& name) {
        return [=](WindowHandle dialog) {
            EXPECT_EQ(platform::TemplateOf(dialog), "9967");
            platform::TypeText(dialog, kName, name);
            platform::ClickControl(dialog, kOk);
        };
    }

    static std::vector<std::uint32_t> Listed(WindowHandle dialog) {
        std::vector<std::uint32_t> colors;
        for (int i = 0; i < platform::ItemCount(dialog, kList); ++i)
            colors.push_back(Pixels(MatrixElementAt(dialog, i)).front());
        return colors;
    }
    using Colors = std::vector<std::uint32_t>;
    using Texts = std::vector<std::string>;

    std::size_t blocks_ = platform::CurrentMemoryUse().live_blocks;
    HostServices services_{sizeof(HostServices), kHostVersion, 0, 0, AnswerHost, 0, 3, 0};
    MatrixFolder folder_;
    MatrixTile tile_{};
    std::vector<Act> acts_;
    std::size_t next_ = 0;
};

}  // namespace tess::test
