// Runs an operation again and again, with each of its allocations and each of its
// operations on files failing: once, and with all that come after.
#pragma once

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "platform/dialog.h"
#include "tests/faults/file_failures.h"
#include "tests/shell/main_dialog_fixture.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

/// Files of a folder and its subfolders by their path in it. What of a file is a time is
/// left out.
using FolderContents = std::map<std::string, std::string>;

/// An operation, and what has to hold when it fails.
struct FaultCase {
    std::string kind;  ///< the row of the printed table that its faults count in
    /// Puts the files into their old state. Nothing fails in it.
    std::function<void()> prepare;
    /// Returns whether it was done.
    std::function<bool()> run;
    /// The messages of which a failure tells; none where it is silent.
    std::vector<std::string> told;
    /// The files that are new when it was done, and old when not.
    std::vector<std::string> writes;
    /// Files that a run without faults changes, besides.
    std::vector<std::string> changes = {};
    /// Whether a file that is neither old nor new is a whole one all the same.
    std::function<bool(const std::string& name, const std::string& bytes)> is_whole;
    /// The messages for a fault of files, where they are others than for one of memory.
    std::vector<std::string> told_of_files = {};
    /// Whether controls keep what they could get of the memory, until `prepare` loads
    /// them again.
    bool keeps_blocks = false;
};

/// A folder of the user's, a user who answers messages, and watched files.
class FaultTest : public testing::Test {
protected:
    FaultTest();
    ~FaultTest() override;

    /// Runs the case with every fault, and expects of each run what FaultCase says, no block
    /// of memory and no open stream left, and no file but those of a run without faults.
    void FailEverything(const FaultCase& fault_case);

    /// What the user does in a dialog that is no message; called while it has nothing
    /// to do.
    std::function<void(platform::WindowHandle)> user;
    /// Opens the main dialog with all panels and does `act` in it, once.
    void InMainDialog(const std::function<void(platform::WindowHandle)>& act);

    [[nodiscard]] const std::vector<std::string>& Messages() const { return messages_; }
    [[nodiscard]] std::string File(const std::string& name) const;
    void Put(const std::string& name, const std::string& bytes) const;
    void Erase(const std::string& name) const;
    [[nodiscard]] FolderContents Contents() const;

private:
    struct Fault {
        bool is_allocation;
        std::size_t number;
        bool for_ever;
    };
    struct States {
        FolderContents before, after;
    };
    static void Answer(platform::WindowHandle dialog, void* context);
    static std::int64_t AnswerHost(TaskRecord*, std::int64_t op, std::int64_t, std::int64_t);
    void RunWith(const FaultCase& fault_case, const Fault& fault, const States& states);
    void CheckMessages(const std::vector<std::string>& told, bool is_done) const;
    void CheckFiles(const FaultCase& fault_case, bool is_done, const States& states) const;

    ScratchFolder folder_;
    KeptConfiguration kept_;
    WatchedFiles watched_;
    HostServices services_{};
    std::vector<std::string> messages_;
    int questions_ = 0;
};

}  // namespace tess::test
