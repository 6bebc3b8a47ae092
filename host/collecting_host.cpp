#include "host/collecting_host.h"

#include <cstring>

namespace tess {
namespace {

CollectingHost* current_host = nullptr;

template <class T>
T* PointerFrom(std::int64_t value) {
    return reinterpret_cast<T*>(static_cast<std::intptr_t>(value));
}

std::int64_t OpenTask(CollectingHost& host, HostOp opened_by, const TaskRecord* task) {
    if (task == nullptr || task->Size != sizeof(TaskRecord) || task->Version != kHostVersion) {
        return 0;
    }
    Animation& animation = host.Collected;
    if (host.Reports.TaskOpening != nullptr) host.Reports.TaskOpening(host.Reports.Context);
    FrameListFree(&animation.Frames);
    animation.Depth = static_cast<int>(task->Depth);
    animation.Width = task->Width;
    animation.Height = task->Height;
    std::memcpy(animation.Palette, task->Palette, kPaletteBytes);
    animation.Unit = (host.Services.HostFlags & HostDelayHundredths) != 0 ? DelayUnit::Hundredths
                                                                          : DelayUnit::Milliseconds;
    animation.HasComment = false;
    animation.Comment.clear();
    host.State = TaskState::Open;
    host.OpenedBy = opened_by;
    host.OutOfMemory = false;
    return 1;
}

// The picture is copied, since the plug-in frees its own once the task is closed.
std::int64_t AddFrame(CollectingHost& host, const ImageRecord* image) {
    if (host.State != TaskState::Open || image == nullptr || image->Size != sizeof(ImageRecord) ||
        image->Version != kHostVersion) {
        return 0;
    }
    platform::OwnedBlock copy(DuplicateImage(image->Image));
    const FrameRecord record{copy.Get(), nullptr, image->Delay, image->TransparentIndex};
    if (!copy || FrameListAdd(&host.Collected.Frames, &record) == 0) {
        host.OutOfMemory = true;
        return 0;
    }
    static_cast<void>(copy.Release());  // the list owns it now
    return 1;
}

std::int64_t AddComment(CollectingHost& host, const char* text) {
    if (host.State != TaskState::Open || text == nullptr) return 0;
    host.Collected.HasComment = true;
    host.Collected.Comment = text;
    return 1;
}

std::int64_t CloseTask(CollectingHost& host, bool done) {
    if (host.State != TaskState::Open) return 0;
    host.State = done ? TaskState::Kept : TaskState::Dropped;
    if (!done) FrameListFree(&host.Collected.Frames);
    if (host.Reports.TaskClosed != nullptr) host.Reports.TaskClosed(host.Reports.Context);
    return 1;
}

std::int64_t ChooseImageFile(const CollectingHost& host, platform::WindowHandle owner, char* path) {
    if (path == nullptr) return 0;
    const HostQuestions& ask = host.Questions;
    if (ask.ChooseImageFile != nullptr) return ask.ChooseImageFile(ask.Context, owner, path);
    if (host.ImageFile.empty() || host.ImageFile.size() >= kHostPathBytes) return 0;
    std::memcpy(path, host.ImageFile.c_str(), host.ImageFile.size() + 1);
    return 1;
}

std::int64_t LoadImageFile(const CollectingHost& host, const char* path) {
    if (host.LoadImageFile == nullptr || path == nullptr) return 0;
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(host.LoadImageFile(path)));
}

std::int64_t ChooseColor(const CollectingHost& host, ColorDialogRecord* record) {
    if (record == nullptr) return 0;
    const HostQuestions& ask = host.Questions;
    if (ask.ChooseColor != nullptr) return ask.ChooseColor(ask.Context, record);
    if (!host.AnswersColor) return 0;
    record->Color = host.Color;
    return 1;
}

std::int64_t ShowHelp(CollectingHost& host, const char* target) {
    host.HelpTarget = target != nullptr ? target : "";
    const HostQuestions& ask = host.Questions;
    return ask.ShowHelp == nullptr || ask.ShowHelp(ask.Context, host.HelpTarget.c_str());
}

std::int64_t ReportStage(const CollectingHost& host, const char* title) {
    if (host.Reports.Stage != nullptr) host.Reports.Stage(host.Reports.Context, title);
    return 1;
}

std::int64_t ReportProgress(const CollectingHost& host, std::int64_t done, std::int64_t total) {
    if (host.Reports.Progress != nullptr) host.Reports.Progress(host.Reports.Context, done, total);
    return 1;
}

std::int64_t AskFileDialogSize(const CollectingHost& host, std::int32_t* size) {
    if (size == nullptr) return 0;
    size[0] = host.FileDialogWidth;
    size[1] = host.FileDialogHeight;
    return 1;
}

std::int64_t AnswerCall(TaskRecord*, std::int64_t opcode, std::int64_t a, std::int64_t b) {
    if (current_host == nullptr) return 0;
    CollectingHost& host = *current_host;
    const auto op = static_cast<HostOp>(opcode);
    switch (op) {
        case HostOp::OpenBuild:
        case HostOp::OpenTest:
            return OpenTask(host, op, PointerFrom<const TaskRecord>(b));
        case HostOp::AddFrame:
            return AddFrame(host, PointerFrom<const ImageRecord>(b));
        case HostOp::AddComment:
            return AddComment(host, PointerFrom<const char>(b));
        case HostOp::CloseTask:
            return CloseTask(host, a != 0);
        case HostOp::ChooseImageFile:
            return ChooseImageFile(host, PointerFrom<platform::Window>(a), PointerFrom<char>(b));
        case HostOp::LoadImageFile:
            return LoadImageFile(host, PointerFrom<const char>(b));
        case HostOp::ShowHelp:
            return ShowHelp(host, PointerFrom<const char>(b));
        case HostOp::StageTitle:
            return ReportStage(host, PointerFrom<const char>(b));
        case HostOp::ChooseColor:
            return ChooseColor(host, PointerFrom<ColorDialogRecord>(b));
        case HostOp::Progress:
            return ReportProgress(host, a, b);
        case HostOp::ButtonPressed:
            ++host.ButtonsPressed;
            return 1;
        case HostOp::FileDialogSize:
            return AskFileDialogSize(host, PointerFrom<std::int32_t>(b));
    }
    return 0;
}

}  // namespace

void OpenHost(CollectingHost* host, DelayUnit unit, bool true_color) {
    host->Services = {};
    host->Services.Size = sizeof(HostServices);
    host->Services.Version = kHostVersion;
    host->Services.HostCall = AnswerCall;
    if (unit == DelayUnit::Hundredths) host->Services.HostFlags |= HostDelayHundredths;
    if (true_color) host->Services.HostFlags |= HostTrueColor;
    current_host = host;
}

void CloseHost() {
    current_host = nullptr;
}

}  // namespace tess
