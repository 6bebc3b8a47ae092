#include "programs/cli/session.h"

#include <cstdio>

#include "platform/files.h"
#include "platform/headless_user.h"
#include "programs/cli/output_format.h"
#include "programs/cli/progress_bar.h"
#include "programs/cli/settings.h"
#include "shell/control_contract.h"
#include "shell/main_dialog.h"

namespace tess {
namespace {

constexpr int kMessageText = 101;  // of the message boxes
constexpr int kOkButton = 1;
// Nothing can stand under a device, so neither are the user's own values read there
// nor are a run's written.
constexpr char kNoFolder[] = "/dev/null";

enum class Step { SetAndPress, Leave, GiveUp };

// What the stand-in user has in mind.
struct UserState {
    const Request* Asked;
    Wish Want;
    int Style;
    Session* Run;
    Step Next;
    std::string WrongUse;
};

bool AnswerMessageBox(platform::WindowHandle dialog, std::vector<std::string>* messages) {
    if (platform::TemplateOf(dialog) == std::to_string(kMainDialogTemplate)) return false;
    std::string text = platform::ControlText(dialog, kMessageText);
    if (!text.empty()) messages->push_back(std::move(text));
    platform::PostCommand(dialog, kOkButton);
    return true;
}

// Sets everything as the request says. Returns what is wrong with it.
std::string SetValues(platform::WindowHandle dialog, const UserState& user) {
    if (user.Style >= 0) LoadControlValue(dialog, kEffectList, std::to_string(user.Style));
    const bool to_gif =
        user.Want == Wish::Build && FormatOf(user.Asked->Output) == OutputFormat::Gif;
    if (to_gif) LoadControlValue(dialog, kTrueColorBox, "0");
    for (const Setting& setting : user.Asked->Settings) {
        std::string error = ApplySetting(dialog, setting);
        if (!error.empty()) return error;
    }
    if (to_gif && platform::IsChecked(dialog, kTrueColorBox)) {
        return "Truecolour: a GIF holds no 24-bit frames; leave it off, or write .webp or .png";
    }
    platform::SendToWindow(dialog, ShowStyle, 0, 0);
    return "";
}

void PressOrKeep(platform::WindowHandle dialog, const UserState& user) {
    switch (user.Want) {
        case Wish::Build:
            return platform::ClickControl(dialog, kBuildButton);
        case Wish::Preview:
            return platform::ClickControl(dialog, kPreviewButton);
        case Wish::Sample:
            user.Run->Sample.Reset(RenderSample(dialog, 0, 0).Image);
            platform::PostCommand(dialog, kCancelButton);
            return;
    }
}

// Called whenever a dialog has nothing left to do.
void ActAsUser(platform::WindowHandle dialog, void* context) {
    auto& user = *static_cast<UserState*>(context);
    if (AnswerMessageBox(dialog, &user.Run->Messages)) return;
    switch (user.Next) {
        case Step::SetAndPress:
            user.Next = Step::Leave;
            user.WrongUse = SetValues(dialog, user);
            if (user.WrongUse.empty()) return PressOrKeep(dialog, user);
            platform::PostCommand(dialog, kCancelButton);
            return;
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

bool HasResult(Wish wish, const Session& session) {
    switch (wish) {
        case Wish::Build:
            return session.Host.State == TaskState::Kept;
        case Wish::Sample:
            return static_cast<bool>(session.Sample);
        case Wish::Preview:
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

}  // namespace

int RunSession(const Request& request, Wish wish, int style, Session* session) {
    // The preview's delays are ten times finer for a host that takes 24-bit frames.
    const bool true_color = request.HostTrueColor.value_or(
        wish != Wish::Preview || request.HostUnit == DelayUnit::Milliseconds);
    ProgressBar bar(request.Quiet);
    OpenHost(&session->Host, request.HostUnit, true_color);
    session->Host.Reports = bar.Reports();
    platform::SetUserFolder(kNoFolder);
    UserState user{&request, wish, style, session, Step::SetAndPress, ""};
    platform::SetHeadlessUser(ActAsUser, &user);
    RunMainDialog(nullptr, &session->Host.Services);
    platform::SetHeadlessUser(nullptr, nullptr);
    CloseHost();
    bar.Clear();

    if (!user.WrongUse.empty()) {
        TellUser(user.WrongUse);
        return kWrongUse;
    }
    if (TellMessages(session->Messages) != kDone) return kFailed;
    if (HasResult(wish, *session)) return kDone;
    TellUser("the plug-in gave no picture");
    return kFailed;
}

void TellUser(const std::string& text) {
    std::fprintf(stderr, "tessellomatics: %s\n", text.c_str());
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
