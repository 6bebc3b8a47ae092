#include "pipeline/build_run.h"

namespace tess {

bool OwnedFrameList::Read(int i, FrameRecord* record) const {
    const platform::LockedBlock<const FrameRecord> records(list_.Records);
    if (!records) return false;
    *record = records.Get()[i];
    return true;
}

bool OwnedFrameList::Write(int i, const FrameRecord& record) {
    const platform::LockedBlock<FrameRecord> records(list_.Records);
    if (!records) return false;
    records.Get()[i] = record;
    return true;
}

void ShowStage(const BuildRun& run, const char* title) {
    CallHost(run.Host, nullptr, HostOp::StageTitle, 0, title);
}

void ShowProgress(const BuildRun& run, int done, int total) {
    CallHost(run.Host, nullptr, HostOp::Progress, done, std::int64_t{total});
}

void ClearProgress(const BuildRun& run) {
    ShowProgress(run, 0, 0);
}

bool Fail(const BuildRun& run, const char* text) {
    ShowMessage(run.Dialog, text);
    return false;
}

bool Fail(const BuildRun& run, StringId id) {
    return Fail(run, LoadStringText(id));
}

void ReleaseRun(BuildRun& run) {
    run.LastImage.Reset();
    run.Frames.Reset();
    run.Cursor.reset();
}

}  // namespace tess
