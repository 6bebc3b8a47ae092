#include "shell/document_commands.h"

#include <cstdio>
#include <string>
#include <string_view>

#include "controls/skinned_button.h"
#include "platform/file_dialog.h"
#include "platform/files.h"
#include "platform/letter_case.h"
#include "platform/popup_menu.h"
#include "shell/configuration.h"
#include "shell/document.h"

namespace tess {

namespace {

using platform::WindowHandle;

constexpr platform::MenuItem kMenu[] = {
    {kOpenCommand, "Open"}, {kSaveCommand, "Save"}, {kSaveAsCommand, "Save as..."}};
constexpr platform::FileFilter kFilters[] = {{"QV1 files", "*.QV1"}, {"All files", "*.*"}};
constexpr char kExtension[] = "QV1";
constexpr std::string_view kUntitled = "untitled.qv1";

/// Of file dialogs, as the host wishes and later as the user left the last one.
platform::PixelSize file_dialog_size{};

void SkinFileDialog(WindowHandle dialog) {
    SkinButton(dialog, 1);
    SkinButton(dialog, 2);
}

std::string AskForPath(WindowHandle dialog, platform::FileDialogKind kind) {
    platform::FileDialogRequest request{};
    request.Owner = dialog;
    request.Kind = kind;
    request.Filters = kFilters;
    request.DefaultExtension = kExtension;
    request.Folder = platform::FolderOf(CurrentFileName);
    request.Size = &file_dialog_size;
    request.Prepare = SkinFileDialog;
    return platform::ChooseFile(request);
}

void SetCurrentFileName(const std::string& path) {
    std::snprintf(CurrentFileName, sizeof CurrentFileName, "%s", path.c_str());
}

}  // namespace

void ShowDocumentMenu(WindowHandle dialog) {
    platform::ShowPopupMenu(dialog, kMenu);
}

void AskFileDialogSize(const HostServices* host) {
    std::int32_t size[2] = {0, 0};
    CallHost(host, nullptr, HostOp::FileDialogSize, 0, size);
    file_dialog_size = platform::ClampToScreen({size[0], size[1]}, platform::ScreenSize());
}

void OpenDocument(WindowHandle dialog) {
    const std::string path = AskForPath(dialog, platform::FileDialogKind::Open);
    if (!path.empty() && ReadDocument(dialog, path.c_str()) != 0) SetCurrentFileName(path);
}

void SaveDocument(WindowHandle dialog) {
    if (IsUntitled(CurrentFileName)) return SaveDocumentAs(dialog);
    WriteDocument(dialog, CurrentFileName);
}

void SaveDocumentAs(WindowHandle dialog) {
    const std::string path = AskForPath(dialog, platform::FileDialogKind::Save);
    if (!path.empty() && WriteDocument(dialog, path.c_str()) != 0) SetCurrentFileName(path);
}

bool IsUntitled(const char* path) {
    return platform::IsSameName(platform::FileNameOf(path), kUntitled);
}

}  // namespace tess
