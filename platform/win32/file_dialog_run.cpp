// The system's open and save boxes, with a hook that keeps them to the size that the
// user gave them. The hook's own window is a child of the box.

#include "platform/file_dialog_run.h"

#include <windows.h>
#include <commdlg.h>

#include "platform/win32/views.h"

namespace platform {

namespace {

constexpr UINT kPlaceMessage = 1224;  // posted by the hook to itself, once the box is laid out
constexpr DWORD kPathBytes = MAX_PATH;

PixelSize SizeOf(HWND window) {
    RECT box = {};
    GetWindowRect(window, &box);
    return {box.right - box.left, box.bottom - box.top};
}

void Place(HWND box, PixelSize kept) {
    const FileDialogBox place = PlaceFileDialog(kept, SizeOf(box), ScreenSize());
    SetWindowPos(box, nullptr, place.Left, place.Top, place.Size.Width, place.Size.Height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

UINT_PTR CALLBACK HandleHookMessage(HWND hook, UINT message, WPARAM, LPARAM l) {
    if (message == WM_INITDIALOG) {
        const LPARAM data = reinterpret_cast<OPENFILENAMEA*>(l)->lCustData;
        SetWindowLongPtrA(hook, GWLP_USERDATA, data);
        const auto* request = reinterpret_cast<const FileDialogRequest*>(data);
        if (request->Prepare != nullptr) request->Prepare(HandleOf(GetParent(hook)));
        PostMessageA(hook, kPlaceMessage, 0, 0);
        return 0;
    }
    const auto* request =
        reinterpret_cast<const FileDialogRequest*>(GetWindowLongPtrA(hook, GWLP_USERDATA));
    if (request == nullptr || request->Size == nullptr) return 0;
    if (message == kPlaceMessage) Place(GetParent(hook), *request->Size);
    if (message == WM_DESTROY) *request->Size = SizeOf(GetParent(hook));
    return 0;
}

/// Pairs of texts, each with its NUL, and one more NUL at the end.
std::string FilterText(std::span<const FileFilter> filters) {
    std::string text;
    for (const FileFilter& filter : filters) {
        text.append(filter.Text).push_back('\0');
        text.append(filter.Pattern).push_back('\0');
    }
    return text;
}

}  // namespace

std::string RunFileDialog(const FileDialogRequest& request) {
    char path[kPathBytes] = "";
    const std::string filter = FilterText(request.Filters);
    OPENFILENAMEA box = {};
    box.lStructSize = sizeof box;
    box.hwndOwner = WindowOf(request.Owner);
    box.lpstrFilter = filter.c_str();
    box.nFilterIndex = 1;
    box.lpstrFile = path;
    box.nMaxFile = kPathBytes;
    box.lpstrInitialDir = request.Folder.empty() ? nullptr : request.Folder.c_str();
    box.lpstrDefExt = request.DefaultExtension;
    box.lCustData = reinterpret_cast<LPARAM>(&request);
    box.lpfnHook = HandleHookMessage;
    box.Flags = OFN_EXPLORER | OFN_ENABLESIZING | OFN_ENABLEHOOK | OFN_HIDEREADONLY |
                OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
    if (request.Kind == FileDialogKind::Open) {
        box.Flags |= OFN_FILEMUSTEXIST;
        return GetOpenFileNameA(&box) ? path : "";
    }
    box.Flags |= OFN_OVERWRITEPROMPT;
    return GetSaveFileNameA(&box) ? path : "";
}

}  // namespace platform
