#include "tests/support/recording_host.h"

#include "platform/block_guards.h"
#include "tests/support/event_log.h"

namespace tess::test {

namespace {

RecordingHost* current = nullptr;

void Record(const std::string& event, bool as_told) {
    Events().push_back(as_told ? event : event + "?");
}

std::int64_t Open(const char* event, const TaskRecord* null_task, std::int64_t a,
                  TaskRecord* task) {
    Record(event, null_task == nullptr && a == 0);
    if (current->refuses_task) return 0;
    current->task = *task;
    current->open_task = task;
    return 1;
}

std::int64_t AddFrame(const TaskRecord* task, std::int64_t a, const ImageRecord* image) {
    Record("AddFrame " + std::to_string(image->FrameNumber),
           a == 0 && task == current->open_task && task != nullptr);
    if (image->FrameNumber == current->refused_frame) return 0;
    const platform::LockedBlock<const std::uint8_t> bytes(image->Image);
    current->frames.push_back(
        {*image, {bytes.Get(), bytes.Get() + platform::BlockSize(image->Image)}});
    return 1;
}

std::int64_t Answer(TaskRecord* task, std::int64_t opcode, std::int64_t a, std::int64_t b) {
    auto* pointer = reinterpret_cast<void*>(static_cast<std::intptr_t>(b));
    switch (opcode) {  // by number, as a host does that has no header of the plug-in
        case 13:
            Record("Progress " + std::to_string(a) + " " + std::to_string(b), task == nullptr);
            return 0;
        case 10:
            Record(std::string("Title ") + static_cast<const char*>(pointer),
                   task == nullptr && a == 0);
            return 0;
        case 1:
            return Open("OpenBuild", task, a, static_cast<TaskRecord*>(pointer));
        case 5:
            return Open("OpenTest", task, a, static_cast<TaskRecord*>(pointer));
        case 2:
            return AddFrame(task, a, static_cast<const ImageRecord*>(pointer));
        case 3:
            Record("Comment", a == 0 && task == current->open_task && task != nullptr);
            current->comment = static_cast<const char*>(pointer);
            return 0;
        case 4:
            Record("Close " + std::to_string(a),
                   b == 0 && task == current->open_task && task != nullptr);
            current->live_blocks_at_close = platform::CurrentMemoryUse().live_blocks;
            return 0;
        default:
            Record("Op " + std::to_string(opcode), false);
            return 0;
    }
}

}  // namespace

RecordingHost::RecordingHost() {
    current = this;
}

RecordingHost::~RecordingHost() {
    current = nullptr;
}

const HostServices* RecordingHost::Services() {
    services_.Size = sizeof services_;
    services_.Version = kHostVersion;
    services_.HostCall = Answer;
    services_.HostFlags = flags;
    return &services_;
}

}  // namespace tess::test
