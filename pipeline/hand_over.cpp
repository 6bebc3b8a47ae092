#include "pipeline/hand_over.h"

#include <cstring>

namespace tess {

namespace {

constexpr char kComment[] =
    "CREATED BY...\r\n\r\n"
    "This graphic was created by Quorvenstadtholme' Zandervault Professional or Murgaloft and "
    "the Tessellomatics #1 plugin.\r\n\r\n"
    "See\r\n\r\n"
    "    http://www.quorvenstadtholme.example/\r\n\r\n"
    "for more information.";

// What CloseTask is told.
constexpr std::int64_t kFailed = 0;
constexpr std::int64_t kDone = 1;

TaskRecord DescribeTask(const BuildRun& run) {
    TaskRecord task{};
    task.Size = sizeof task;
    task.Version = kHostVersion;
    task.Window = run.Dialog;
    task.Depth = static_cast<std::uint32_t>(run.Depth);
    task.Width = run.MaxWidth;
    task.Height = run.MaxHeight;
    std::memcpy(task.Palette, run.Palette, sizeof task.Palette);
    task.FrameCount = run.Frames.Count();
    return task;
}

bool OpenTask(const BuildRun& run, TaskRecord* task) {
    const HostOp op = run.Mode == BuildMode::Build ? HostOp::OpenBuild : HostOp::OpenTest;
    return CallHost(run.Host, nullptr, op, 0, task) != 0;
}

bool AddFrame(const BuildRun& run, TaskRecord* task, int i, const FrameRecord& frame) {
    ImageRecord image{};
    image.Size = sizeof image;
    image.Version = kHostVersion;
    image.Image = frame.Image;
    image.Delay = frame.Delay;
    image.FrameNumber = i;
    image.TransparentIndex = frame.TransparentIndex;
    return CallHost(run.Host, task, HostOp::AddFrame, 0, &image) != 0;
}

void CloseTask(const HostServices* host, TaskRecord* task, std::int64_t outcome) {
    CallHost(host, task, HostOp::CloseTask, outcome, std::int64_t{0});
}

bool AddFrames(const BuildRun& run, TaskRecord* task) {
    for (int i = 0; i < run.Frames.Count(); ++i) {
        FrameRecord frame;
        if (!run.Frames.Read(i, &frame)) return Fail(run, StringId::MemoryError);
        if (!AddFrame(run, task, i, frame)) {
            return Fail(run, "There has been an error adding an image to the current file object.");
        }
    }
    return true;
}

}  // namespace

bool HandOver(BuildRun& run) {
    TaskRecord task = DescribeTask(run);
    if (!OpenTask(run, &task)) return Fail(run, "Error creating new task.");
    if (!AddFrames(run, &task)) {
        // The host drops what it has, so the frames can go before the task is closed.
        ReleaseRun(run);
        CloseTask(run.Host, &task, kFailed);
        return false;
    }
    if (platform::IsChecked(run.Dialog, kCommentBox)) {
        CallHost(run.Host, &task, HostOp::AddComment, 0, kComment);
    }
    CloseTask(run.Host, &task, kDone);
    return true;
}

}  // namespace tess
