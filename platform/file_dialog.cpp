#include "platform/file_dialog.h"

#include "platform/file_dialog_run.h"

namespace platform {

namespace {

FileAnswer file_answer = nullptr;
void* file_answer_context = nullptr;

}  // namespace

std::string ChooseFile(const FileDialogRequest& request) {
    if (file_answer != nullptr) return file_answer(request, file_answer_context);
    return RunFileDialog(request);
}

FileDialogBox PlaceFileDialog(PixelSize kept, PixelSize size, PixelSize screen) {
    if (kept.Width >= kLeastKeptSize && kept.Height >= kLeastKeptSize) size = kept;
    return {(screen.Width - size.Width) / 2, (screen.Height - size.Height) / 2, size};
}

void SetFileAnswer(FileAnswer answer, void* context) {
    file_answer = answer;
    file_answer_context = context;
}

}  // namespace platform
