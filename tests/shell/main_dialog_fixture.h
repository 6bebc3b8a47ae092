// A test's main dialog: opened with a host that says yes to all, driven by the
// test in place of a user, and cancelled.
#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

#include "platform/dialog.h"
#include "platform/files.h"
#include "platform/headless_user.h"
#include "platform/keyboard.h"
#include "shell/configuration.h"
#include "shell/main_dialog.h"
#include "shell/style_table.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

/// Puts every configuration value back at the end of a test.
class KeptConfiguration {
public:
    KeptConfiguration() {
        for (const ConfigKey& key : ConfigurationTable()) {
            const auto* bytes = static_cast<const char*>(key.Value);
            kept_.emplace_back(bytes, bytes + Size(key));
        }
    }
    ~KeptConfiguration() {
        std::size_t i = 0;
        for (const ConfigKey& key : ConfigurationTable()) {
            std::copy(kept_[i].begin(), kept_[i].end(), static_cast<char*>(key.Value));
            ++i;
        }
    }

private:
    static std::size_t Size(const ConfigKey& key) {
        return (key.Flags & kTextKey) != 0 ? kBoundTextBytes : sizeof(std::uint32_t);
    }
    std::vector<std::vector<char>> kept_;
};

class MainDialogTest : public testing::Test {
protected:
    MainDialogTest() {
        std::filesystem::create_directories(folder_ / "Quorvenstadtholme" / "Tessellomatics 1");
        platform::SetUserFolder(folder_.string());
        calls_ = &host_calls;
        host_calls.clear();
        chooser_color = -1;
    }
    ~MainDialogTest() override {
        platform::SetHeadlessUser(nullptr, nullptr);
        platform::HoldShift(false);
        platform::SetUserFolder("");
    }

    /// Opens the dialog, lets `act` work in it once, cancels. Returns what the
    /// dialog returned.
    int InDialog(const std::function<void(platform::WindowHandle)>& act,
                 std::uint32_t host_flags = HostDelayHundredths | HostTrueColor) {
        act_ = act;
        messages_.clear();
        platform::SetHeadlessUser(Act, this);
        const HostServices services{
            sizeof(HostServices), kHostVersion, 0, 0, Answer, 0, host_flags, 0};
        return RunMainDialog(nullptr, &services);
    }

    /// Texts of the messages that were shown, in order.
    [[nodiscard]] const std::vector<std::string>& Messages() const { return messages_; }
    /// The op codes that the host was asked, in order.
    [[nodiscard]] const std::vector<std::int64_t>& HostCalls() const { return *calls_; }
    /// The colour that the host's chooser gives, -1 for a cancelled one.
    static void ChooserGives(std::int64_t color) { chooser_color = color; }

    [[nodiscard]] std::string PathOf(const char* name) const { return (folder_ / name).string(); }
    [[nodiscard]] std::string ConfigurationPath() const {
        return (folder_ / "Quorvenstadtholme" / "vorbelx1.ini").string();
    }
    static std::string ReadAll(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static void WriteAll(const std::string& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }

private:
    static void Act(platform::WindowHandle dialog, void* context) {
        auto* test = static_cast<MainDialogTest*>(context);
        if (platform::TemplateOf(dialog) != "1000") {
            test->messages_.push_back(platform::ControlText(dialog, 101));
            platform::PostCommand(dialog, 1);
            return;
        }
        if (auto act = std::exchange(test->act_, nullptr)) {
            act(dialog);
        } else {
            platform::PostCommand(dialog, kCancelButton);
        }
    }

    static std::int64_t Answer(TaskRecord*, std::int64_t op, std::int64_t, std::int64_t b) {
        host_calls.push_back(op);
        if (op == static_cast<std::int64_t>(HostOp::ChooseColor)) {
            if (chooser_color < 0) return 0;
            reinterpret_cast<ColorDialogRecord*>(b)->Color = static_cast<ColorWord>(chooser_color);
        }
        return 1;
    }

    inline static std::vector<std::int64_t> host_calls;
    inline static std::int64_t chooser_color = -1;

    KeptConfiguration kept_;
    ScratchFolder scratch_;
    std::filesystem::path folder_ = scratch_.Path();
    std::function<void(platform::WindowHandle)> act_;
    std::vector<std::string> messages_;
    std::vector<std::int64_t>* calls_;
};

}  // namespace tess::test
