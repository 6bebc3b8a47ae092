#include "programs/cli/session.h"

#include <cstdio>

#include "fills/matrix_group_file.h"
#include "platform/files.h"
#include "platform/headless_user.h"
#include "programs/cli/group_files.h"
#include "programs/cli/output_format.h"
#include "programs/cli/progress_bar.h"
#include "programs/cli/settings.h"
#include "programs/cli/tile_settings.h"
#include "programs/user_folders.h"
#include "shell/configuration.h"
#include "shell/control_contract.h"
#include "shell/main_dialog.h"

namespace tess {
namespace {

constexpr int kMessageText = 101;  // of the message boxes
// Nothing can stand under a device, so nothing is read there nor written.
constexpr char kNoFolder[] = "/dev/null";

enum class Step { SetAndPress, Leave, GiveUp };

// What the stand-in user has in mind.
struct UserState {
    const Request* Asked;
    Wish Want;
    int Style;
    Session* Run;
    Step Next = Step::SetAndPress;
    SettingFault Fault = {};
    /// What would be saved of two values that a run changes by itself: for the output's
    /// format or the host, and by opening the dialog.
    std::uint32_t TrueColor = 0;
    std::uint32_t FirstRun = 0;
    std::string TileGroup = {};  ///< the current group's path, empty when there is none
};

bool AnswerMessageBox(platform::WindowHandle dialog, std::vector<std::string>* messages) {
    if (platform::TemplateOf(dialog) == std::to_string(kMainDialogTemplate)) return false;
    std::string text = platform::ControlText(dialog, kMessageText);
    if (!text.empty()) messages->push_back(std::move(text));
    platform::PostCommand(dialog, kOkButton);
    return true;
}

bool WritesGif(const UserState& user) {
    return user.Want == Wish::Build && FormatOf(user.Asked->Output) == OutputFormat::Gif;
}

void ChooseStyle(platform::WindowHandle dialog, const UserState& user) {
    if (user.Style >= 0) LoadControlValue(dialog, kEffectList, std::to_string(user.Style));
}

// Shows the tiles that a configuration file has named. Of a group that is missing none is
// shown, as when the dialog opens with such a file.
void ShowConfiguredTiles(platform::WindowHandle dialog) {
    platform::SetUserFolder("");
    std::string path = FindGroupNamed(MatrixGroupFile);
    if (path.empty()) path = UserGroupFolder() + MatrixGroupFile;
    platform::SetUserFolder(kNoFolder);
    ShowTilesOfParameters(dialog, path);
}

// Applies what a file holds; the style that the command names goes before the file's.
SettingFault ApplyFile(platform::WindowHandle dialog, UserState& user, const Setting& setting) {
    std::vector<std::string>& messages = user.Run->Messages;
    const std::size_t told = messages.size();
    if (WritesGif(user)) LoadControlValue(dialog, kTrueColorBox, std::to_string(user.TrueColor));
    SettingFault fault = ApplySetting(dialog, setting);
    if (fault.Status == kDone && setting.Kind == SettingKind::Configuration)
        ShowConfiguredTiles(dialog);
    if (fault.Status != kDone && messages.size() > told) {
        fault.Text += ": " + messages.back();
        messages.resize(told);
    }
    user.TrueColor = Truecolour;
    if (WritesGif(user)) LoadControlValue(dialog, kTrueColorBox, "0");
    ChooseStyle(dialog, user);
    return fault;
}

SettingFault ApplyOne(platform::WindowHandle dialog, UserState& user, const Setting& setting) {
    const bool is_file =
        setting.Kind == SettingKind::Document || setting.Kind == SettingKind::Configuration;
    if (is_file) return ApplyFile(dialog, user, setting);
    SettingFault fault = ApplySetting(dialog, setting);
    if (FindSettingControl(dialog, setting) == kTrueColorBox) user.TrueColor = Truecolour;
    return fault;
}

void Warn(const UserState& user, const std::string& text) {
    if (!text.empty() && !user.Asked->Quiet) TellUser(text);
}

// Sets everything as the request says. Returns what is wrong with it.
SettingFault SetValues(platform::WindowHandle dialog, UserState& user) {
    ShowMissingTiles(dialog, user.TileGroup);
    ChooseStyle(dialog, user);
    if (WritesGif(user)) LoadControlValue(dialog, kTrueColorBox, "0");
    if (user.Want == Wish::Work) FirstRun = user.FirstRun;
    for (const Setting& setting : user.Asked->Settings) {
        SettingFault fault = ApplyOne(dialog, user, setting);
        if (fault.Status != kDone) return fault;
        Warn(user, fault.Text);
    }
    if (user.Want != Wish::Work) Warn(user, MissingTileText(dialog));
    if (WritesGif(user) && platform::IsChecked(dialog, kTrueColorBox)) {
        return {kWrongUse,
                "true-color: a GIF holds no 24-bit frames; leave it off, or write .webp or .png"};
    }
    platform::SendToWindow(dialog, ShowStyle, 0, 0);
    return {};
}

// What the dialog has done before anyone can press a button. Mural's Build relies on it.
void PaintSample(platform::WindowHandle dialog) {
    platform::FreeBlock(RenderSample(dialog, 0, 0).Image);
}

void PressOrKeep(platform::WindowHandle dialog, const UserState& user) {
    switch (user.Want) {
        case Wish::Build:
            PaintSample(dialog);
            return platform::ClickControl(dialog, kBuildButton);
        case Wish::Preview:
            PaintSample(dialog);
            return platform::ClickControl(dialog, kPreviewButton);
        case Wish::Sample:
            user.Run->Sample.Reset(RenderSample(dialog, 0, 0).Image);
            platform::PostCommand(dialog, kCancelButton);
            return;
        case Wish::Work:
            user.Run->WorkStatus = user.Run->Work(dialog);
            platform::PostCommand(dialog, kCancelButton);
            return;
    }
}

// Called whenever a dialog has nothing left to do.
void ActAsUser(platform::WindowHandle dialog, void* context) {
    auto& user = *static_cast<UserState*>(context);
    // The saved values have been read by now. They are not written unless all goes well.
    if (user.Next == Step::SetAndPress) platform::SetUserFolder(kNoFolder);
    if (AnswerMessageBox(dialog, &user.Run->Messages)) return;
    switch (user.Next) {
        case Step::SetAndPress:
            user.Next = Step::Leave;
            user.Fault = SetValues(dialog, user);
            if (user.Fault.Status != kDone) {
                platform::PostCommand(dialog, kCancelButton);
                return;
            }
            if (user.Asked->Saves) platform::SetUserFolder("");
            return PressOrKeep(dialog, user);
        case Step::Leave:
            user.Next = Step::GiveUp;
            platform::PostCommand(dialog, kCancelButton);
            return;
        case Step::GiveUp:
            platform::EndDialog(dialog, 0);
            return;
    }
}

int TellMessages(const std::vector<std::string>& messages) {
    for (const std::string& message : messages)
        TellUser(message);
    return messages.empty() ? kDone : kFailed;
}

// The dialog tells that a file has failed and not which: a document, which is all that it
// writes when it does a session's work, or one of the preview's two.
void NameFiles(const Request& request, Wish wish, std::vector<std::string>* messages) {
    for (std::string& message : *messages) {
        const bool is_of_preview = message == LoadStringText(StringId::ErrorCreatingFile) ||
                                   message == LoadStringText(StringId::ErrorWritingFile);
        if (wish == Wish::Work && !request.Output.empty()) {
            message.insert(0, request.Output + ": ");
        } else if (wish == Wish::Preview && is_of_preview) {
            message.insert(0, std::string(platform::PluginFile("")) + ": ");
        }
    }
}

bool HasResult(Wish wish, const Session& session) {
    switch (wish) {
        case Wish::Build:
            return session.Host.State == TaskState::Kept;
        case Wish::Sample:
            return static_cast<bool>(session.Sample);
        case Wish::Preview:
        case Wish::Work:
            return true;
    }
    return false;
}

void KeepMessage(platform::WindowHandle dialog, void* context) {
    if (!AnswerMessageBox(dialog, static_cast<std::vector<std::string>*>(context))) {
        platform::EndDialog(dialog, 0);
    }
}

std::vector<std::string>* kept_messages = nullptr;

// Writes the configuration once more than the closing dialog has: that says nothing of
// a failure, and saves what only this run's output or host has asked for.
int SaveConfiguration(const UserState& user) {
    Truecolour = user.TrueColor;
    const std::string path = platform::UserFile(kConfigurationFile);
    if (WriteConfigurationFile(path.c_str()) != 0) return kDone;
    TellUser(path + ": cannot be written");
    return kFailed;
}

// Runs the dialog with the stand-in user, from the values that are saved.
void RunDialogAs(UserState& user) {
    platform::SetUserFolder(user.Asked->StartsAnew ? kNoFolder : "");
    ReadConfiguration();
    user.TrueColor = Truecolour;
    user.FirstRun = FirstRun;
    user.TileGroup = FindGroupNamed(MatrixGroupFile);
    platform::SetHeadlessUser(ActAsUser, &user);
    RunMainDialog(nullptr, &user.Run->Host.Services);
    platform::SetHeadlessUser(nullptr, nullptr);
    platform::SetUserFolder("");
}

}  // namespace

int RunSession(const Request& asked, Wish wish, int style, Session* session) {
    Request request = asked;
    for (Setting& setting : request.Settings) {
        if (setting.Kind != SettingKind::Tile) continue;
        const SettingFault fault = FindTile(&setting);
        if (fault.Status == kDone) continue;
        TellUser(fault.Text);
        return fault.Status;
    }
    // The preview's delays are ten times finer for a host that takes 24-bit frames.
    const bool true_color = request.HostTrueColor.value_or(
        wish != Wish::Preview || request.HostUnit == DelayUnit::Milliseconds);
    if (request.Saves && wish != Wish::Preview) {  // which has made them
        if (const int status = PrepareUserFolders(); status != kDone) return status;
    }
    ProgressBar bar(request.Quiet);
    OpenHost(&session->Host, request.HostUnit, true_color);
    session->Host.Reports = bar.Reports();
    UserState user{&request, wish, style, session};
    RunDialogAs(user);
    CloseHost();
    bar.Clear();

    if (user.Fault.Status != kDone) {
        TellUser(user.Fault.Text);
        return user.Fault.Status;
    }
    NameFiles(request, wish, &session->Messages);
    if (TellMessages(session->Messages) != kDone) return kFailed;
    if (wish == Wish::Work && session->WorkStatus != kDone) return session->WorkStatus;
    if (!HasResult(wish, *session)) {
        TellUser("the plug-in gave no picture");
        return kFailed;
    }
    return request.Saves ? SaveConfiguration(user) : kDone;
}

void TellUser(const std::string& text) {
    std::fprintf(stderr, "tessellomatics: %s\n", text.c_str());
}

int PrepareUserFolders() {
    if (MakeUserFolders()) return kDone;
    const std::string folder = platform::PluginFile("");
    TellUser(folder.empty() ? "there is no folder for saved values; set HOME or XDG_DATA_HOME"
                            : folder + ": the folder for saved values cannot be made");
    return kFailed;
}

void AnswerMessages(std::vector<std::string>* messages) {
    kept_messages = messages;
    platform::SetHeadlessUser(KeepMessage, messages);
}

int EndMessages() {
    platform::SetHeadlessUser(nullptr, nullptr);
    return TellMessages(*kept_messages);
}

}  // namespace tess
