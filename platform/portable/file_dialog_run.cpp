#include "platform/file_dialog_run.h"

namespace platform {

std::string RunFileDialog(const FileDialogRequest&) {
    return "";
}

}  // namespace platform
