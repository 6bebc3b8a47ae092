#include "programs/tilehost/host_window.h"

#include <algorithm>
#include <commctrl.h>
#include <memory>

#include "host/collecting_host.h"
#include "host/frame_clock.h"
#include "host/gif_file.h"
#include "host/host_menu.h"
#include "host/tiling.h"
#include "host/viewer.h"
#include "platform/win32/views.h"
#include "programs/tilehost/plugin_library.h"
#include "programs/tilehost/system_dialogs.h"

namespace tess {
namespace {

constexpr char kTitle[] = "Tile host";
constexpr int kWidth = 720, kHeight = 540;
constexpr UINT_PTR kFrameTimer = 1;

// The status line's parts, and how wide the two right ones are.
enum Part { kTextPart, kNotePart, kProgressPart, kPartCount };
constexpr int kNoteWidth = 160, kProgressWidth = 120;
constexpr int kProgressSteps = 1000;

class HostWindow {
public:
    [[nodiscard]] bool Create(int show);
    void LoadFrom(const std::string& path);
    [[nodiscard]] int RunLoop();

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    LRESULT Handle(UINT message, WPARAM w, LPARAM l);
    void MakeChildren();
    void OnCommand(HostCommand command);
    void OnTimer();
    void OnSize();
    void OnPaint();

    void RunPlugin();
    void SaveGif();
    void ShowAbout();

    void ShowNewAnimation();
    void WaitForNextFrame();
    void UpdateText();
    void UpdateMenu();
    void SetPart(Part part, const std::string& text);
    void Tell(const std::string& text);
    [[nodiscard]] RECT ViewBox() const;
    void PaintTiles(HDC context, const RECT& box);

    // What the plug-in asks and reports.
    HostReports Reports();
    HostQuestions Questions();
    void ReportStage(const char* title);
    void ReportProgress(std::int64_t done, std::int64_t total);

    HWND window_ = nullptr;
    HWND status_line_ = nullptr;
    HWND progress_ = nullptr;
    PluginLibrary plugin_;
    CollectingHost host_;
    HostStatus status_;
    Viewer viewer_;
    FrameClock clock_;
};

HMENU MakeMenu() {
    HMENU bar = CreateMenu();
    HMENU menu = nullptr;
    const char* title = "";
    for (const HostMenuItem& item : HostMenu()) {
        if (std::string_view(item.Menu) != title) {
            title = item.Menu;
            menu = CreatePopupMenu();
            AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), title);
        }
        const UINT kind = item.Command == kSeparator ? MF_SEPARATOR : MF_STRING;
        AppendMenuA(menu, kind, static_cast<UINT_PTR>(item.Command), item.Text);
    }
    return bar;
}

HACCEL MakeKeys() {
    ACCEL keys[] = {{FVIRTKEY, VK_F5, kRunPlugin},
                    {FVIRTKEY | FCONTROL, 'S', kSaveGif},
                    {FVIRTKEY, VK_SPACE, kPlay},
                    {FVIRTKEY, VK_F1, kHelp}};
    return CreateAcceleratorTableA(keys, static_cast<int>(std::size(keys)));
}

HostWindow& WindowFrom(void* context) {
    return *static_cast<HostWindow*>(context);
}

bool HostWindow::Create(int show) {
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    WNDCLASSA window_class = {};
    window_class.style = CS_HREDRAW | CS_VREDRAW;
    window_class.lpfnWndProc = Procedure;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.hIcon = LoadIconA(nullptr, IDI_APPLICATION);
    window_class.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    window_class.lpszClassName = kHostWindowClass;
    if (RegisterClassA(&window_class) == 0) return false;
    CreateWindowExA(0, kHostWindowClass, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                    CW_USEDEFAULT, CW_USEDEFAULT, kWidth, kHeight, nullptr, MakeMenu(),
                    window_class.hInstance, this);
    if (window_ == nullptr) return false;
    host_.LoadImageFile = LoadPicture;
    host_.FileDialogWidth = kWidth;
    host_.FileDialogHeight = kHeight;
    ShowWindow(window_, show);
    return true;
}

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<HostWindow*>(reinterpret_cast<CREATESTRUCTA*>(l)->lpCreateParams);
        self->window_ = window;
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<HostWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    return self != nullptr ? self->Handle(message, w, l) : DefWindowProcA(window, message, w, l);
}

LRESULT HostWindow::Handle(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_CREATE:
            MakeChildren();
            return 0;
        case WM_COMMAND:
            OnCommand(static_cast<HostCommand>(LOWORD(w)));
            return 0;
        case WM_TIMER:
            OnTimer();
            return 0;
        case WM_SIZE:
            OnSize();
            return 0;
        case WM_ERASEBKGND:
            return 1;  // everything is painted
        case WM_PAINT:
            OnPaint();
            return 0;
        case WM_CLOSE:
            if (!status_.IsRunning) DestroyWindow(window_);
            return 0;
        case WM_DESTROY:
            KillTimer(window_, kFrameTimer);
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcA(window_, message, w, l);
    }
}

void HostWindow::MakeChildren() {
    const auto module = GetModuleHandleA(nullptr);
    status_line_ = CreateWindowExA(0, STATUSCLASSNAMEA, "", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP,
                                   0, 0, 0, 0, window_, nullptr, module, nullptr);
    progress_ = CreateWindowExA(0, PROGRESS_CLASSA, "", WS_CHILD, 0, 0, 0, 0, status_line_, nullptr,
                                module, nullptr);
    SendMessageA(progress_, PBM_SETRANGE32, 0, kProgressSteps);
}

void HostWindow::LoadFrom(const std::string& path) {
    std::string error;
    if (plugin_.Load(path, &error) == 0) Tell(error);
    status_.HasPlugin = plugin_.IsLoaded();
    const std::string name = status_.HasPlugin ? std::string(" - ") + plugin_.Params().Name : "";
    SetWindowTextA(window_, (kTitle + name).c_str());
    UpdateText();
    UpdateMenu();
}

int HostWindow::RunLoop() {
    HACCEL keys = MakeKeys();
    MSG message = {};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (TranslateAcceleratorA(window_, keys, &message) != 0) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    DestroyAcceleratorTable(keys);
    return static_cast<int>(message.wParam);
}

void HostWindow::OnCommand(HostCommand command) {
    if (!StateOf(command, status_).IsEnabled) return;
    if (ApplyCommand(command, &status_)) {
        WaitForNextFrame();
        InvalidateRect(window_, nullptr, FALSE);
        return UpdateMenu();
    }
    switch (command) {
        case kLoadPlugin: {
            const std::string path = AskForPlugin(window_);
            if (!path.empty()) LoadFrom(path);
            return;
        }
        case kRunPlugin:
            return RunPlugin();
        case kSaveGif:
            return SaveGif();
        case kExit:
            DestroyWindow(window_);
            return;
        case kHelp:
            if (!OpenHelp(plugin_.Folder(), "VORBELx1.HTML#PREFACE")) {
                Tell("VORBELx1.HTML is not beside the plug-in.");
            }
            return;
        case kAbout:
            return ShowAbout();
        default:
            return;
    }
}

void HostWindow::RunPlugin() {
    OpenHost(&host_, status_.Unit, status_.TakesTrueColor);
    host_.Services.SkinButtons = status_.SkinButtons;
    host_.Reports = Reports();
    host_.Questions = Questions();
    status_.IsRunning = true;
    UpdateMenu();
    plugin_.Run(window_, &host_.Services);
    status_.IsRunning = false;
    CloseHost();
    ReportProgress(0, 0);
    UpdateText();
    UpdateMenu();
}

void HostWindow::SaveGif() {
    const std::string path = AskWhereToSaveGif(window_);
    if (path.empty()) return;
    const FileResult result = WriteGifFile(host_.Collected, path);
    if (result == FileResult::Written) {
        SetPart(kNotePart, "Saved " + path.substr(path.find_last_of('\\') + 1));
    } else {
        Tell(path + " " + Describe(result));
    }
}

void HostWindow::ShowAbout() {
    std::string text = "A host to run the plug-in in.\n\n";
    if (plugin_.IsLoaded()) {
        text += plugin_.Params().Description;
        text += "\n" + plugin_.Path();
    }
    MessageBoxA(window_, text.c_str(), kTitle, MB_OK | MB_ICONINFORMATION);
}

void HostWindow::Tell(const std::string& text) {
    MessageBoxA(window_, text.c_str(), kTitle, MB_OK | MB_ICONWARNING);
}

void HostWindow::ShowNewAnimation() {
    status_.HasAnimation = host_.State == TaskState::Kept && viewer_.Open(host_.Collected) != 0;
    status_.Depth = host_.Collected.Depth;
    clock_.Start(GetTickCount64(), viewer_.Delay());
    WaitForNextFrame();
    SetPart(kNotePart, "");
    UpdateText();
    UpdateMenu();
    InvalidateRect(window_, nullptr, FALSE);
}

void HostWindow::WaitForNextFrame() {
    if (viewer_.IsOpen() && status_.IsPlaying) {
        SetTimer(window_, kFrameTimer, clock_.Wait(GetTickCount64()), nullptr);
    } else {
        KillTimer(window_, kFrameTimer);
    }
}

void HostWindow::OnTimer() {
    const std::uint64_t now = GetTickCount64();
    while (viewer_.IsOpen() && clock_.IsDue(now)) {
        if (viewer_.ShowNext() == 0) break;
        clock_.Step(now, viewer_.Delay());
    }
    status_.HasAnimation = viewer_.IsOpen();
    if (!status_.HasAnimation) UpdateMenu();
    WaitForNextFrame();
    UpdateText();
    const RECT box = ViewBox();
    InvalidateRect(window_, &box, FALSE);
}

RECT HostWindow::ViewBox() const {
    RECT box = {};
    RECT line = {};
    GetClientRect(window_, &box);
    GetWindowRect(status_line_, &line);
    box.bottom -= line.bottom - line.top;
    return box;
}

void HostWindow::OnSize() {
    SendMessageA(status_line_, WM_SIZE, 0, 0);
    RECT line = {};
    GetClientRect(status_line_, &line);
    const int parts[kPartCount] = {
        std::max(line.right - kNoteWidth - kProgressWidth - line.bottom, 0L),
        std::max(line.right - kProgressWidth - line.bottom, 0L), -1};
    SendMessageA(status_line_, SB_SETPARTS, kPartCount, reinterpret_cast<LPARAM>(parts));
    RECT room = {};
    SendMessageA(status_line_, SB_GETRECT, kProgressPart, reinterpret_cast<LPARAM>(&room));
    MoveWindow(progress_, room.left + 2, room.top + 2, kProgressWidth - 4,
               room.bottom - room.top - 4, TRUE);
    UpdateText();
}

void HostWindow::OnPaint() {
    PAINTSTRUCT paint;
    HDC context = BeginPaint(window_, &paint);
    const RECT box = ViewBox();
    if (!viewer_.IsOpen() || !status_.IsTiled) {
        FillRect(context, &box, GetSysColorBrush(COLOR_APPWORKSPACE));
    }
    if (viewer_.IsOpen()) PaintTiles(context, box);
    EndPaint(window_, &paint);
}

void HostWindow::PaintTiles(HDC context, const RECT& box) {
    const LockedImage image(viewer_.Picture());
    if (!image) return;
    HDC memory = CreateCompatibleDC(context);
    HBITMAP bitmap =
        CreateDIBitmap(context, reinterpret_cast<const BITMAPINFOHEADER*>(image.Get()), CBM_INIT,
                       DibRow(image, image->Height - 1),
                       reinterpret_cast<const BITMAPINFO*>(image.Get()), DIB_RGB_COLORS);
    HGDIOBJ previous = SelectObject(memory, bitmap);
    IntersectClipRect(context, box.left, box.top, box.right, box.bottom);
    const auto paint = [&](TilePlace place) {
        BitBlt(context, place.X, place.Y, image->Width, image->Height, memory, 0, 0, SRCCOPY);
    };
    if (status_.IsTiled) {
        const Tiling tiling = TileArea(box.right, box.bottom, image->Width, image->Height);
        for (int i = 0; i < tiling.Count(); ++i)
            paint(tiling.Place(i));
    } else {
        paint(CenterTile(box.right, box.bottom, image->Width, image->Height));
    }
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
}

void HostWindow::SetPart(Part part, const std::string& text) {
    SendMessageA(status_line_, SB_SETTEXTA, static_cast<WPARAM>(part),
                 reinterpret_cast<LPARAM>(text.c_str()));
}

void HostWindow::UpdateText() {
    SetPart(kTextPart, DescribeAnimation(host_.Collected, viewer_.Frame(), status_));
}

void HostWindow::UpdateMenu() {
    HMENU menu = GetMenu(window_);
    for (const HostMenuItem& item : HostMenu()) {
        if (item.Command == kSeparator) continue;
        const ItemState state = StateOf(item.Command, status_);
        const auto id = static_cast<UINT>(item.Command);
        EnableMenuItem(menu, id, state.IsEnabled ? MF_ENABLED : MF_GRAYED);
        CheckMenuItem(menu, id, state.IsTicked ? MF_CHECKED : MF_UNCHECKED);
    }
}

HostReports HostWindow::Reports() {
    HostReports reports = {};
    reports.Context = this;
    reports.Stage = [](void* context, const char* title) {
        WindowFrom(context).ReportStage(title);
    };
    reports.Progress = [](void* context, std::int64_t done, std::int64_t total) {
        WindowFrom(context).ReportProgress(done, total);
    };
    reports.TaskOpening = [](void* context) { WindowFrom(context).viewer_.Close(); };
    reports.TaskClosed = [](void* context) { WindowFrom(context).ShowNewAnimation(); };
    return reports;
}

HostQuestions HostWindow::Questions() {
    HostQuestions questions;
    questions.Context = this;
    questions.ChooseImageFile = [](void*, platform::WindowHandle owner, char* path) {
        return AskForImage(platform::WindowOf(owner), path, kHostPathBytes);
    };
    questions.ChooseColor = [](void*, ColorDialogRecord* record) {
        return AskForColor(platform::WindowOf(record->Owner), &record->Color);
    };
    questions.ShowHelp = [](void* context, const char* target) {
        return OpenHelp(WindowFrom(context).plugin_.Folder(), target);
    };
    return questions;
}

// A build lets no message through, so what it reports is painted at once.
void HostWindow::ReportStage(const char* title) {
    SetPart(kTextPart, title != nullptr ? title : "");
    UpdateWindow(status_line_);
}

void HostWindow::ReportProgress(std::int64_t done, std::int64_t total) {
    ShowWindow(progress_, total > 0 ? SW_SHOW : SW_HIDE);
    if (total > 0) {
        const auto step =
            static_cast<WPARAM>(std::clamp<std::int64_t>(done, 0, total) * kProgressSteps / total);
        SendMessageA(progress_, PBM_SETPOS, step, 0);
    }
    UpdateWindow(progress_);
    if (total == 0) UpdateText();
}

}  // namespace

int RunHostWindow(const std::string& plugin_path, int show) {
    const auto window = std::make_unique<HostWindow>();
    if (!window->Create(show)) return 1;
    window->LoadFrom(plugin_path);
    return window->RunLoop();
}

}  // namespace tess
