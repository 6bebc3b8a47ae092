// A fountain button on its panel, with a host that answers for the colour chooser, a user
// made of steps, and folders of the test's own.
#pragma once

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "controls/current_host.h"
#include "fills/fountain_control.h"
#include "fills/fountain_library.h"
#include "platform/files.h"
#include "platform/headless_user.h"
#include "platform/keyboard.h"
#include "platform/popup_menu.h"
#include "tests/shell_stand_in/shell_stand_in.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

class FountainControlTest : public testing::Test {
protected:
    using Step = std::function<void()>;
    using DialogStep = std::function<void(platform::WindowHandle)>;

    static constexpr int kPanel = 7404, kButton = 270;

    FountainControlTest() {
        std::filesystem::create_directories(scratch_.Path() +
                                            "/Quorvenstadtholme/Tessellomatics 1");
        platform::SetUserFolder(scratch_.Path());
        services_.HostCall = AnswerHost;
        CurrentHost = &services_;
        current_ = this;
        Shell().messages.clear();
        platform::SetMenuAnswer(AnswerMenu, this);
        platform::SetHeadlessUser(Act, this);
    }
    ~FountainControlTest() override {
        platform::SetHeadlessUser(nullptr, nullptr);
        platform::SetMenuAnswer(nullptr, nullptr);
        platform::HoldShift(false);
        platform::SetUserFolder("");
        CurrentHost = nullptr;
        current_ = nullptr;
    }

    /// Opens the panel with its button bound, and takes the steps: each once all that was
    /// posted by the one before has been done.
    void InPanel(std::vector<Step> steps, const char* text = "FountainButton") {
        text_ = text;
        steps_ = std::move(steps);
        next_ = 0;
        ASSERT_EQ(platform::RunDialog(kPanel, nullptr, Handle, this), 7);
    }

    [[nodiscard]] platform::WindowHandle Button() const {
        return platform::Control(dialog_, kButton);
    }
    [[nodiscard]] Fountain Record() const {
        Fountain fountain{};
        EXPECT_EQ(ReadFountainButton(Button(), &fountain), 1);
        return fountain;
    }
    void Change(const std::function<void(Fountain&)>& change) {
        const LockedFountain fountain = LockFountain(Button());
        change(*fountain.Get());
    }
    /// Gives the fountain markers at these positions, each in its position's gray.
    void PutMarkers(const std::vector<int>& positions) {
        Change([&](Fountain& fountain) {
            fountain.Count = static_cast<std::int32_t>(positions.size());
            for (std::size_t i = 0; i < positions.size(); ++i) {
                fountain.Markers[i] =
                    MakeMarker(positions[i], static_cast<ColorWord>(positions[i]) * 0x010101);
            }
        });
    }
    [[nodiscard]] std::vector<int> Positions() const {
        const Fountain fountain = Record();
        std::vector<int> positions;
        for (int i = 0; i < fountain.Count; ++i)
            positions.push_back(MarkerPosition(fountain.Markers[i]));
        return positions;
    }
    [[nodiscard]] ColorWord ColorOf(int marker) const {
        return MarkerColor(Record().Markers[marker]);
    }

    // What the user does.
    void Mouse(std::uint32_t message, int x, int y) {
        platform::SendToWindow(Button(), message, 0, platform::MousePlace(x, y));
    }
    void Press(int x, int y) { Mouse(platform::kMessageLeftButtonDown, x, y); }
    void Move(int x, int y) { Mouse(platform::kMessageMouseMove, x, y); }
    void Release(int x, int y) { Mouse(platform::kMessageLeftButtonUp, x, y); }
    void DoubleClick(int x, int y) { Mouse(platform::kMessageLeftDoubleClick, x, y); }
    void RightPress(int x, int y) { Mouse(platform::kMessageRightButtonDown, x, y); }
    void Drag(int from, int to) {
        Press(from, 6);
        Move(to, 6);
        Release(to, 6);
    }
    void Send(std::uint32_t message, int index) {
        platform::SendToWindow(Button(), message, static_cast<std::uintptr_t>(index), 0);
    }

    /// The colour that the host's chooser gives, -1 for a cancelled one.
    void ChooserGives(std::int64_t color) { chooser_color_ = color; }
    /// The colours that the chooser was opened on.
    [[nodiscard]] const std::vector<ColorWord>& AskedColors() const { return asked_colors_; }
    void MenuGives(int id) { menu_answer_ = id; }
    [[nodiscard]] const std::vector<std::string>& MenuTexts() const { return menu_texts_; }
    /// What is done in each dialog that opens over the panel, once it has run empty.
    void InInnerDialog(const DialogStep& step) { inner_step_ = step; }
    [[nodiscard]] const std::vector<std::string>& InnerDialogs() const { return inner_dialogs_; }
    [[nodiscard]] static const std::vector<std::string>& Messages() { return Shell().messages; }
    [[nodiscard]] const std::string& HelpTarget() const { return help_target_; }
    /// How often the button's command has come to the panel.
    [[nodiscard]] int Changes() const { return changes_; }

    [[nodiscard]] std::string FilePath(const std::string& name) const {
        return scratch_.File("Quorvenstadtholme/Tessellomatics 1/" + name);
    }
    [[nodiscard]] std::string Bytes(const std::string& name) const {
        std::string bytes;
        std::FILE* stream = platform::OpenFile(FilePath(name), "rb");
        if (stream == nullptr) return bytes;
        for (int c; (c = std::fgetc(stream)) != EOF;)
            bytes.push_back(static_cast<char>(c));
        std::fclose(stream);
        return bytes;
    }
    void WriteBytes(const std::string& name, const std::string& bytes) const {
        std::FILE* stream = platform::OpenFile(FilePath(name), "wb");
        ASSERT_NE(stream, nullptr);
        EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), stream), bytes.size());
        std::fclose(stream);
    }

    /// Puts plain fountains with these start colours into the library.
    static void FillLibrary(const std::vector<ColorWord>& starts) {
        for (const ColorWord start : starts) {
            Fountain fountain;
            InitFountain(&fountain, FountainPreset::Plain);
            fountain.Start = start;
            EXPECT_EQ(AppendToFountainLibrary(fountain), 1);
        }
    }
    /// The start colours of the library's entries.
    static std::vector<ColorWord> LibraryStarts() {
        FountainLibraryEntries entries;
        EXPECT_EQ(ReadFountainLibrary(FountainLibraryPath(), &entries), LibraryState::Whole);
        std::vector<ColorWord> starts;
        for (const FountainLibraryEntry& entry : entries)
            starts.push_back(entry.Start);
        return starts;
    }

private:
    static std::intptr_t Handle(platform::WindowHandle dialog, std::uint32_t message,
                                std::uintptr_t w, std::intptr_t l) {
        if (message == platform::kMessageOpen) {
            auto* test = reinterpret_cast<FountainControlTest*>(l);
            test->dialog_ = dialog;
            BindFountainButton(dialog, kButton, test->text_);
            return 1;
        }
        if (message == platform::kMessageCommand && platform::CommandId(w) == kButton) {
            ++current_->changes_;
        }
        return 0;
    }

    static void Act(platform::WindowHandle dialog, void* context) {
        auto* test = static_cast<FountainControlTest*>(context);
        if (dialog != test->dialog_) {
            test->inner_dialogs_.emplace_back(platform::TemplateOf(dialog));
            if (test->inner_step_) test->inner_step_(dialog);
            platform::PostCommand(dialog, 2);
            return;
        }
        if (test->next_ == test->steps_.size()) {
            platform::EndDialog(dialog, 7);
        } else {
            test->steps_[test->next_++]();
        }
    }

    static std::int64_t AnswerHost(TaskRecord*, std::int64_t op, std::int64_t, std::int64_t b) {
        if (op == static_cast<std::int64_t>(HostOp::ShowHelp)) {
            current_->help_target_ = reinterpret_cast<const char*>(b);
        }
        if (op != static_cast<std::int64_t>(HostOp::ChooseColor)) return 1;
        auto* record = reinterpret_cast<ColorDialogRecord*>(b);
        current_->asked_colors_.push_back(record->Color);
        if (current_->chooser_color_ < 0) return 0;
        record->Color = static_cast<ColorWord>(current_->chooser_color_);
        return 1;
    }

    static int AnswerMenu(std::span<const platform::MenuItem> items, void* context) {
        auto* test = static_cast<FountainControlTest*>(context);
        for (const platform::MenuItem& item : items)
            test->menu_texts_.emplace_back(item.Text);
        return test->menu_answer_;
    }

    inline static FountainControlTest* current_ = nullptr;

    ScratchFolder scratch_;
    HostServices services_{};
    platform::WindowHandle dialog_ = nullptr;
    const char* text_ = "";
    std::vector<Step> steps_;
    std::size_t next_ = 0;
    int changes_ = 0;
    std::int64_t chooser_color_ = -1;
    std::vector<ColorWord> asked_colors_;
    std::string help_target_;
    int menu_answer_ = 0;
    std::vector<std::string> menu_texts_;
    DialogStep inner_step_;
    std::vector<std::string> inner_dialogs_;
};

}  // namespace tess::test
